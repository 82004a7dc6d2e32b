#pragma once

#include "support/smbios/Source.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace VQ
{

/// What an SMBIOS entry point says of the structure table (DSP0134, clauses 5.2.1 and 5.2.2; the
/// form of version 2.0 is the part of 5.2.1 that begins with `_DMI_`, alone).
struct EntryPoint
{
    static constexpr std::uint32_t NoCount = std::numeric_limits<std::uint32_t>::max();

    std::uint8_t majorVersion = 0;
    std::uint8_t minorVersion = 0;
    std::uint32_t tableLength = 0;          ///< in bytes; an upper bound in the 64-bit form
    std::uint64_t tableAddress = 0;         ///< physical
    std::uint32_t structureCount = NoCount; ///< NoCount in the 64-bit form, which has none
};

/// The longest entry point of any form, in bytes.
constexpr std::size_t MaxEntryPointSize = 32;

/// True when a valid 64-bit entry point (`_SM3_`) begins at `data`.
bool isEntryPoint64(const unsigned char* data, std::size_t size);

/// True when a valid 32-bit entry point (`_SM_`) begins at `data`.
bool isEntryPoint32(const unsigned char* data, std::size_t size);

/// True when a valid entry point of version 2.0 (`_DMI_`) begins at `data`.
bool isEntryPointDmi(const unsigned char* data, std::size_t size);

/// Reads the entry point of any form. Throws SmBiosError when it is none, saying where it was read, which bytes
/// were expected and what stands there.
EntryPoint parseEntryPoint(const RawTables& raw);

}
