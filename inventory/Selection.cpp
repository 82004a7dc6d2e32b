#include "inventory/Selection.h"

namespace VQ
{

// Management software recognises a machine by what is found this way, so a machine with a large table must not come to
// show another model or chassis: the count stays one of 8 bits.
const SmBios::Table* firstCountedIn8Bits(const SmBios& smBios, std::uint8_t type)
{
    const auto& tables = smBios.getTables();
    const auto count = static_cast<std::uint8_t>(tables.size());
    for (std::uint8_t i = 0; i < count; ++i)
        if (tables[i].getType() == type)
            return &tables[i];
    return nullptr;
}

}
