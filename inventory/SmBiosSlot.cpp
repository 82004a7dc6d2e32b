#include "inventory/SmBiosSlot.h"

#include "inventory/Selection.h"
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
    return recordsOf<Slot, SmBiosSlot>(9);
}

}
