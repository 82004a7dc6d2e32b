#pragma once

#include "support/smbios/SmBios.h"

#include <cstdint>
#include <optional>
#include <vector>

// The two counters of 8 bits that never pass 255, looked for before they are run into.

namespace VQ
{

/// The type of the structure that makes GetBiosInstance never return: the one that is read for the languages and
/// announces 255 of them. Nothing where it returns.
std::optional<std::uint8_t> endlessLanguages(const std::vector<SmBios::Table>& structures);

/// True where a System Configuration Options structure (type 12) makes getConfigurationOptions never return.
bool hasEndlessOptions(const std::vector<SmBios::Table>& structures);

}
