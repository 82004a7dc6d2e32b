#include "support/smbios/Structures.h"

#include <algorithm>

namespace VQ
{

namespace
{
constexpr std::size_t HeaderSize = 4;
constexpr unsigned char EndOfTable = 127;

// The size of the structure at `data`, string set and its two final zero bytes included; 0 when it does not fit.
std::size_t structureSize(const unsigned char* data, std::size_t size)
{
    if (size < HeaderSize || data[1] < HeaderSize)
        return 0;
    const std::size_t formatted = data[1];
    if (formatted > size)
        return 0;
    static constexpr unsigned char Final[] = {0, 0};
    const unsigned char* end = data + size;
    const unsigned char* found = std::search(data + formatted, end, std::begin(Final), std::end(Final));
    return found == end ? 0 : static_cast<std::size_t>(found - data) + sizeof Final;
}
}

std::vector<SmBios::Table> parseStructures(const unsigned char* data, std::size_t size, std::uint32_t maxCount)
{
    std::vector<SmBios::Table> tables;
    for (std::size_t position = 0; tables.size() < maxCount;) {
        const unsigned char* begin = data + position;
        const std::size_t length = structureSize(begin, size - position);
        if (length == 0)
            break;
        tables.emplace_back(std::vector<unsigned char>(begin, begin + length));
        position += length;
        if (tables.back().getType() == EndOfTable)
            break;
    }
    return tables;
}

}
