#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Entry points of all forms as firmware leaves them, with valid checksums, for tests to place and to break.

using Bytes = std::vector<unsigned char>;

struct SmBiosVersion
{
    std::uint8_t major;
    std::uint8_t minor;
};

/// A 32-bit entry point ("_SM_").
Bytes entryPoint32(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount,
                   SmBiosVersion version = {2, 4});

/// A 64-bit entry point ("_SM3_").
Bytes entryPoint64(std::uint64_t tableAddress, std::uint32_t maximumLength, SmBiosVersion version = {3, 2});

/// The entry point of SMBIOS 2.0 ("_DMI_").
Bytes entryPointDmi(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount,
                    SmBiosVersion version = {2, 0});

/// Sets the byte at `at` so that `size` bytes from `begin` on add up to 0.
void setChecksum(Bytes& bytes, std::size_t begin, std::size_t size, std::size_t at);
