#pragma once

#include "inventory/Slot.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads a slot from a type 9 structure.
class SmBiosSlot : public Slot
{
public:
    explicit SmBiosSlot(const SmBios::Table& table);
};

}
