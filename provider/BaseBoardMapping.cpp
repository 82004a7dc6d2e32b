#include "inventory/BaseBoard.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

using Pegasus::String;

void deliverBaseBoards(const String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    const Pegasus::CIMValue options = cimArray(getConfigurationOptions()); // one value, which all boards share
    Pegasus::Uint32 index = 0;
    for (const BaseBoard& board : GetBaseBoardInstances()) {
        InstanceAssembly instance(requestedClass);
        instance.add("Caption", "Base Board");
        instance.add("Description", "Base Board");
        instance.add("Status", "Unknown");
        instance.add("CreationClassName", "QORTAL_BaseBoard");
        instance.add("Manufacturer", board.getManufacturer());
        instance.add("SerialNumber", board.getSerialNumber());
        instance.add("Tag", String("BaseBoard") + cimText(index));
        instance.add("Version", board.getVersion());
        instance.add("LocationInChassis", board.getLocation());
        instance.add("ConfigOptions", options);
        instance.deliver(BaseBoardKeys, handler);
        ++index;
    }
}

}
