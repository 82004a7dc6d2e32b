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

// Past the two zero bytes that end a string set; null when there are none. There are strings until one is followed by a
// second zero byte.
const unsigned char* endOfStrings(const unsigned char* strings, const unsigned char* end)
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

// Where each structure ends, counted from the start of the table.
std::vector<std::size_t> endsOfStructures(const unsigned char* data, std::size_t size, std::uint32_t maxCount)
{
    std::vector<std::size_t> ends;
    const unsigned char* const end = data + size;
    const unsigned char* structure = data;
    while (ends.size() < maxCount) {
        const unsigned char* const next = endOfStructure(structure, end);
        if (!next)
            break;
        ends.push_back(static_cast<std::size_t>(next - data));
        if (structure[0] == EndOfTable)
            break;
        structure = next;
    }
    return ends;
}
}

std::vector<SmBios::Table> parseStructures(Buffer bytes, std::uint32_t maxCount)
{
    const auto table = std::make_shared<const SmBios::Table::Bytes>(std::move(bytes));
    const std::vector<std::size_t> ends = endsOfStructures(table->data(), table->size(), maxCount);
    std::vector<SmBios::Table> structures;
    structures.reserve(ends.size());
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
        structures.emplace_back(table, begin, end - begin);
        begin = end;
    }
    return structures;
}

}
