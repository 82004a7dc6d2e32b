#include "support/smbios/Structures.h"

#include "support/smbios/TableBytes.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace VQ
{

namespace
{
constexpr std::size_t HeaderSize = 4;
constexpr unsigned char EndOfTable = 127;
constexpr std::size_t UsualCount = 1024; // few machines have more structures; those of a large table are counted first

// A place to stop at: past the last zero byte, since no structure ends behind it. A search for a zero byte that begins
// before it ends before it, too.
const unsigned char* endOfTexts(const unsigned char* data, std::size_t size)
{
    const auto* last = static_cast<const unsigned char*>(size > 0 ? memrchr(data, 0, size) : nullptr);
    return last ? last + 1 : data;
}

// Past the two zero bytes that end a string set; null when there are none before `end`, which follows a zero byte.
// There are strings until one is followed by a second zero byte.
inline const unsigned char* endOfStrings(const unsigned char* text, const unsigned char* end)
{
    while (text < end) {
        const unsigned char* next = text + 1;
        if (*text != 0)
            next += std::strlen(reinterpret_cast<const char*>(text));
        if (next < end && *next == 0)
            return next + 1;
        text = next;
    }
    return nullptr;
}

// Past the structure at `data`; null when it does not fit.
const unsigned char* endOfStructure(const unsigned char* data, const unsigned char* end)
{
    const auto size = static_cast<std::size_t>(end - data);
    if (size < HeaderSize || data[1] < HeaderSize || data[1] > size)
        return nullptr;
    return endOfStrings(data + data[1], end);
}

// How many structures there are at most from `data` on.
std::size_t countFrom(const unsigned char* data, const unsigned char* end)
{
    std::size_t count = 0;
    while ((data = endOfStructure(data, end)))
        ++count;
    return count;
}
}

std::vector<SmBios::Table> parseStructures(Buffer bytes, std::uint32_t maxCount,
                                           std::initializer_list<std::uint8_t> types)
{
    const TableBytes table(std::move(bytes));
    const unsigned char* const end = endOfTexts(table.data(), table.size());
    const unsigned char* structure = table.data();
    std::vector<SmBios::Table> structures;
    structures.reserve(UsualCount);
    for (std::uint32_t left = maxCount; left > 0; --left) {
        const unsigned char* const next = endOfStructure(structure, end);
        if (!next)
            break;
        if (types.size() == 0 || std::find(types.begin(), types.end(), structure[0]) != types.end()) {
            // Room for what is left and no more: a large list that grows by itself is held twice while it does.
            if (structures.size() == structures.capacity())
                structures.reserve(structures.size() + countFrom(structure, end));
            structures.emplace_back(table, structure, next);
        }
        if (structure[0] == EndOfTable)
            break;
        structure = next;
    }
    return structures;
}

}
