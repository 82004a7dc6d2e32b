#include "tests/testing/EntryPoints.h"

#include <algorithm>
#include <cstring>

namespace
{
void put(Bytes& bytes, std::size_t offset, std::uint64_t value, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
}

unsigned char inBcd(SmBiosVersion version)
{
    return static_cast<unsigned char>(version.major << 4 | version.minor);
}
}

void setChecksum(Bytes& bytes, std::size_t begin, std::size_t size, std::size_t at)
{
    unsigned sum = 0;
    bytes[at] = 0;
    for (std::size_t i = begin; i < std::min(begin + size, bytes.size()); ++i)
        sum += bytes[i];
    bytes[at] = static_cast<unsigned char>(0x100 - sum % 0x100);
}

Bytes entryPoint32(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount,
                   SmBiosVersion version)
{
    Bytes bytes(0x1F);
    std::memcpy(&bytes[0x00], "_SM_", 4);
    bytes[0x05] = 0x1F; // length
    bytes[0x06] = version.major;
    bytes[0x07] = version.minor;
    std::memcpy(&bytes[0x10], "_DMI_", 5);
    put(bytes, 0x16, tableLength, 2);
    put(bytes, 0x18, tableAddress, 4);
    put(bytes, 0x1C, structureCount, 2);
    bytes[0x1E] = inBcd(version);
    setChecksum(bytes, 0x10, 0x0F, 0x15);
    setChecksum(bytes, 0x00, 0x1F, 0x04);
    return bytes;
}

Bytes entryPointDmi(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount,
                    SmBiosVersion version)
{
    Bytes bytes(0x0F);
    std::memcpy(&bytes[0x00], "_DMI_", 5);
    put(bytes, 0x06, tableLength, 2);
    put(bytes, 0x08, tableAddress, 4);
    put(bytes, 0x0C, structureCount, 2);
    bytes[0x0E] = inBcd(version);
    setChecksum(bytes, 0x00, 0x0F, 0x05);
    return bytes;
}

Bytes entryPoint64(std::uint64_t tableAddress, std::uint32_t maximumLength, SmBiosVersion version)
{
    Bytes bytes(0x18);
    std::memcpy(&bytes[0x00], "_SM3_", 5);
    bytes[0x06] = 0x18; // length
    bytes[0x07] = version.major;
    bytes[0x08] = version.minor;
    bytes[0x0A] = 1; // entry point revision
    put(bytes, 0x0C, maximumLength, 4);
    put(bytes, 0x10, tableAddress, 8);
    setChecksum(bytes, 0x00, 0x18, 0x05);
    return bytes;
}
