#include "inventory/EndlessCounters.h"

#include <algorithm>

namespace VQ
{

namespace
{
constexpr std::uint8_t Endless = 255;
constexpr unsigned char Count = 0x04; // of languages (type 13) and of options (type 12)
}

std::optional<std::uint8_t> endlessLanguages(const std::vector<SmBios::Table>& structures)
{
    // Where the one is missing, the next is read in its place.
    for (const std::uint8_t type : {std::uint8_t{13}, std::uint8_t{1}, std::uint8_t{0}}) {
        const auto found = std::find_if(structures.begin(), structures.end(),
                                        [type](const SmBios::Table& table) { return table.getType() == type; });
        if (found != structures.end())
            return found->getByte(Count) == Endless ? std::optional(type) : std::nullopt;
    }
    return std::nullopt;
}

bool hasEndlessOptions(const std::vector<SmBios::Table>& structures)
{
    return std::any_of(structures.begin(), structures.end(), [](const SmBios::Table& table) {
        return table.getType() == 12 && table.getByte(Count) == Endless;
    });
}

}
