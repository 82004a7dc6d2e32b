#include "inventory/SmBiosSlot.h"

#include "support/smbios/TableTypes.h"

namespace VQ
{

SmBiosSlot::SmBiosSlot(const SmBios::Table& table)
{
    const TableType9 slot(table);
    if (const char* designation = slot.getString(slot.getByte(0x04))) // Slot Designation
        _designation = designation;
}

std::vector<Slot> GetSlotInstances()
{
    std::vector<Slot> slots;
    const SmBios smBios;
    for (const SmBios::Table& table : smBios.getTables())
        if (table.getType() == 9)
            slots.push_back(SmBiosSlot(table));
    return slots;
}

}
