#include "inventory/Chassis.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

namespace VQ
{

void deliverChassis(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<Chassis> table = {
        ChassisClass,
        {
            {"Caption", "Chassis"},
            {"Description", "Chassis"},
            {"Status", "Unknown"},
            {"CreationClassName", ChassisClass, TextKey},
            {"Manufacturer", &Chassis::getManufacturer},
            {"SerialNumber", &Chassis::getSerialNumber},
            {"Tag", "Chassis0", TextKey},
            {"Version", &Chassis::getVersion},
        },
    };
    table.deliver(GetChassisInstance(), Request(requestedClass), handler);
}

}
