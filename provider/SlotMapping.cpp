#include "inventory/Slot.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

void deliverSlots(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    for (const Slot& slot : GetSlotInstances()) {
        InstanceAssembly instance(requestedClass);
        instance.add("Caption", "System Slot");
        instance.add("Description", "System Slot");
        instance.add("Name", slot.getDesignation());
        instance.add("Status", "Unknown");
        instance.add("CreationClassName", "QORTAL_Slot");
        // The designation, not a counter: slots designated alike have the same path, and all are delivered.
        instance.add("Tag", slot.getDesignation());
        instance.deliver(SlotKeys, handler);
    }
}

}
