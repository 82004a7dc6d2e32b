#include "inventory/SmBiosCache.h"

#include "inventory/Selection.h"
#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

namespace VQ
{

namespace
{
constexpr std::uint16_t CountBits = 0x7FFF;
constexpr std::uint16_t GranularityBit = 0x8000; // units of 64 K, not of 1 K

std::uint32_t kilobytes(std::uint16_t sizeWord)
{
    const std::uint32_t count = sizeWord & CountBits;
    return (sizeWord & GranularityBit) ? count * 64 : count;
}

// Bits 8-9 of the cache configuration.
std::uint16_t writePolicyOf(std::uint16_t configuration)
{
    switch ((configuration >> 8) & 3) {
    case 0:
        return 4; // write through
    case 1:
        return 3; // write back
    case 2:
        return 5; // varies with memory address
    default:
        return 2; // unknown
    }
}

// Bits 0-2 of the cache configuration. A level beyond 3 has no name here and gives 0 on purpose.
std::uint16_t levelOf(std::uint16_t configuration)
{
    const std::uint16_t level = configuration & 7;
    return level <= 2 ? static_cast<std::uint16_t>(level + 3) : std::uint16_t{0};
}

// The number stands at this place of the structure's bytes, whatever the formatted area's length says.
std::string designationOf(const TableType7& cache)
{
    return make_string(cache.getString(cache.getDataByte(0x04))); // Socket Designation
}
}

SmBiosCache::SmBiosCache(const SmBios::Table& table)
{
    const TableType7 cache(table);
    _maximumSize = kilobytes(cache.getWord(0x07));       // Maximum Cache Size
    const std::uint16_t installed = cache.getWord(0x09); // Installed Size
    _size = kilobytes(installed);
    // The block count stays in units of the granularity while the size is scaled. Callers multiply it by that unit
    // themselves; a scaled count would be multiplied twice.
    _numberOfBlocks = installed & CountBits;
    _designation = designationOf(cache);
    _purpose = designationOf(cache);
    const std::uint16_t configuration = cache.getWord(0x05); // Cache Configuration
    _writePolicy = writePolicyOf(configuration);
    _level = levelOf(configuration);
    _location = static_cast<std::uint16_t>((configuration & 0x60) >> 5);
    _speed = cache.getByte(0x0F);               // Cache Speed
    _errorCorrectionType = cache.getByte(0x10); // Error Correction Type
    _type = cache.getByte(0x11);                // System Cache Type
    _associativity = cache.getByte(0x12);       // Associativity
}

std::vector<Cache> GetCacheInstances()
{
    return recordsOf<Cache, SmBiosCache>(7);
}

}
