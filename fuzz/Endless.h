#pragma once

#include "support/smbios/SmBios.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

/// True for the tables whose requests never end, as is documented: their 8-bit counters never pass 255. Named here and
/// nowhere else, so that everything else has to end.
inline bool neverEnds(const std::vector<VQ::SmBios::Table>& structures)
{
    constexpr unsigned endless = 255;
    const auto first = [&structures](unsigned type) {
        return std::find_if(structures.begin(), structures.end(),
                            [type](const VQ::SmBios::Table& table) { return table.getType() == type; });
    };
    // The languages, in the structure that the BIOS found last.
    for (const unsigned type : {13u, 1u, 0u}) {
        const auto found = first(type);
        if (found == structures.end())
            continue;
        if (found->getByte(0x04) == endless)
            return true;
        break;
    }
    // The configuration options.
    return std::any_of(structures.begin(), structures.end(), [](const VQ::SmBios::Table& table) {
        return table.getType() == 12 && table.getByte(0x04) == endless;
    });
}
