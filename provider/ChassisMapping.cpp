#include "inventory/Chassis.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

void deliverChassis(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    const Chassis chassis = GetChassisInstance();
    InstanceAssembly instance(requestedClass);
    instance.add("Caption", "Chassis");
    instance.add("Description", "Chassis");
    instance.add("Status", "Unknown");
    instance.add("CreationClassName", "QORTAL_Chassis");
    instance.add("Manufacturer", chassis.getManufacturer());
    instance.add("SerialNumber", chassis.getSerialNumber());
    instance.add("Tag", "Chassis0");
    instance.add("Version", chassis.getVersion());
    instance.deliver(ChassisKeys, handler);
}

}
