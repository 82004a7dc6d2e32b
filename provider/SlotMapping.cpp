#include "inventory/Slot.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

namespace VQ
{

void deliverSlots(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<Slot> table = {
        SlotClass,
        {
            {"Caption", "System Slot"},
            {"Description", "System Slot"},
            {"Name", &Slot::getDesignation},
            {"Status", "Unknown"},
            {"CreationClassName", SlotClass, TextKey},
            // The designation, not a counter: slots designated alike have the same path, and all are delivered.
            {"Tag", &Slot::getDesignation, TextKey},
        },
    };
    table.deliverEach(GetSlotInstances(), requestedClass, handler);
}

}
