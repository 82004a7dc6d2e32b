#include "support/smbios/Structures.h"

#include "support/smbios/TableBytes.h"

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

// Past the two zero bytes that end a string set; null when there are none. There are strings until one is followed by a
// second zero byte.
inline const unsigned char* endOfStrings(const unsigned char* strings, const unsigned char* end)
{
    const auto zeroFrom = [end](const unsigned char* from) {
        return static_cast<const unsigned char*>(std::memchr(from, 0, static_cast<std::size_t>(end - from)));
    };
    for (const unsigned char* zero = zeroFrom(strings); zero && zero + 1 < end; zero = zeroFrom(zero + 1))
        if (zero[1] == 0)
            return zero + 2;
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

std::vector<SmBios::Table> parseStructures(Buffer bytes, std::uint32_t maxCount)
{
    const TableBytes table(std::move(bytes));
    const unsigned char* const end = table.data() + table.size();
    const unsigned char* structure = table.data();
    std::vector<SmBios::Table> structures;
    structures.reserve(UsualCount);
    for (std::uint32_t left = maxCount; left > 0; --left) {
        const unsigned char* const next = endOfStructure(structure, end);
        if (!next)
            break;
        // Room for what is left and no more: a large list that grows by itself is held twice while it does.
        if (structures.size() == structures.capacity())
            structures.reserve(structures.size() + countFrom(structure, end));
        structures.emplace_back(table, structure, next);
        if (structure[0] == EndOfTable)
            break;
        structure = next;
    }
    return structures;
}

}
