#include "inventory/ComputerSystem.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

void deliverComputerSystem(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    const ComputerSystem system = GetComputerSystemInstance();
    InstanceAssembly instance(requestedClass);
    instance.add("Caption", "Computer System");
    instance.add("Description", system.getDescription());
    instance.add("Name", system.getName());
    instance.add("Status", "Unknown");
    instance.add("CreationClassName", "QORTAL_ComputerSystem");
    instance.add("PrimaryOwnerContact", system.getOwnerContact());
    instance.add("PrimaryOwnerName", system.getOwnerName());
    instance.add("Model", system.getModel());
    instance.add("VirtualType", static_cast<Pegasus::Uint16>(system.getVirtualType()));
    instance.add("VirtualizationMethodName", system.getVirtualMethod());
    instance.deliver(ComputerSystemKeys, handler);
}

}
