#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Entry points of all forms as firmware leaves them, for tests to place and to break.

using Bytes = std::vector<unsigned char>;

/// A 32-bit entry point ("_SM_") of version 2.4 with valid checksums.
Bytes entryPoint32(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount);

/// A 64-bit entry point ("_SM3_") of version 3.2 with a valid checksum.
Bytes entryPoint64(std::uint64_t tableAddress, std::uint32_t maximumLength);

/// An entry point of version 2.0 ("_DMI_") with a valid checksum.
Bytes entryPointDmi(std::uint32_t tableAddress, std::uint16_t tableLength, std::uint16_t structureCount);

/// Sets the byte at `at` so that `size` bytes from `begin` on add up to 0.
void setChecksum(Bytes& bytes, std::size_t begin, std::size_t size, std::size_t at);
