#include "inventory/ComputerSystem.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

namespace VQ
{

namespace
{
Pegasus::Uint16 virtualType(const ComputerSystem& system)
{
    return static_cast<Pegasus::Uint16>(system.getVirtualType());
}
}

void deliverComputerSystem(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<ComputerSystem> table = {
        ComputerSystemClass,
        {
            {"Caption", "Computer System"},
            {"Description", &ComputerSystem::getDescription},
            {"Name", &ComputerSystem::getName, TextKey},
            {"Status", "Unknown"},
            {"CreationClassName", ComputerSystemClass, TextKey},
            {"PrimaryOwnerContact", &ComputerSystem::getOwnerContact},
            {"PrimaryOwnerName", &ComputerSystem::getOwnerName},
            {"Model", &ComputerSystem::getModel},
            {"VirtualType", virtualType},
            {"VirtualizationMethodName", &ComputerSystem::getVirtualMethod},
        },
    };
    table.deliver(GetComputerSystemInstance(), Request(requestedClass), handler);
}

}
