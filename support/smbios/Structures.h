#pragma once

#include "support/smbios/Buffer.h"
#include "support/smbios/SmBios.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace VQ
{

constexpr std::initializer_list<std::uint8_t> AllTypes = {}; ///< of structures

/// Cuts a structure table into its structures, in one pass and never reading outside of it, and keeps those of the
/// types. Ends after `maxCount` structures, after the end-of-table structure (type 127, which is kept), and before the
/// first structure that does not fit: a length under 4, or a formatted area or strings that run past the end. The
/// structures share the bytes.
std::vector<SmBios::Table> parseStructures(Buffer bytes, std::uint32_t maxCount,
                                           std::initializer_list<std::uint8_t> types = AllTypes);

}
