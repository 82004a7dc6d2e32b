#include "tests/support/smbios/EntryPointBytes.h"

#include <algorithm>
#include <cstring>

namespace
{
void put(Bytes& bytes, std::size_t offset, std::uint64_t value, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
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

Bytes entryPoint32(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount)
{
    Bytes bytes(0x1F);
    std::memcpy(&bytes[0x00], "_SM_", 4);
    bytes[0x05] = 0x1F; // length
    bytes[0x06] = 2;    // major version
    bytes[0x07] = 4;    // minor version
    std::memcpy(&bytes[0x10], "_DMI_", 5);
    put(bytes, 0x16, tableLength, 2);
    put(bytes, 0x18, tableAddress, 4);
    put(bytes, 0x1C, structureCount, 2);
    bytes[0x1E] = 0x24; // version in BCD
    setChecksum(bytes, 0x10, 0x0F, 0x15);
    setChecksum(bytes, 0x00, 0x1F, 0x04);
    return bytes;
}

Bytes entryPointDmi(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount)
{
    Bytes bytes(0x0F);
    std::memcpy(&bytes[0x00], "_DMI_", 5);
    put(bytes, 0x06, tableLength, 2);
    put(bytes, 0x08, tableAddress, 4);
    put(bytes, 0x0C, structureCount, 2);
    bytes[0x0E] = 0x20; // version in BCD
    setChecksum(bytes, 0x00, 0x0F, 0x05);
    return bytes;
}

Bytes entryPoint64(std::uint64_t tableAddress, std::uint32_t maximumLength)
{
    Bytes bytes(0x18);
    std::memcpy(&bytes[0x00], "_SM3_", 5);
    bytes[0x06] = 0x18; // length
    bytes[0x07] = 3;    // major version
    bytes[0x08] = 2;    // minor version
    bytes[0x0A] = 1;    // entry point revision
    put(bytes, 0x0C, maximumLength, 4);
    put(bytes, 0x10, tableAddress, 8);
    setChecksum(bytes, 0x00, 0x18, 0x05);
    return bytes;
}
