#include "os/OperatingSystem.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"
#include "support/common/System.h"

#include <string>

namespace VQ
{

using Pegasus::CIMValue;
using Pegasus::Uint64;

namespace
{
Pegasus::String requestedName(const OperatingSystem&, const Request& request)
{
    return request.className.getString();
}

std::wstring hostName(const OperatingSystem&)
{
    return System::getName();
}

Uint64 totalBytes(const OperatingSystem& system)
{
    return system.getTotalPhysicalMemory() << 10;
}
}

void deliverSystemMemory(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    // The path writes it so, though the property is "DeviceID".
    constexpr Key deviceId{Pegasus::CIMKeyBinding::STRING, "DeviceId"};
    static const PropertyTable<OperatingSystem> table = {
        SystemMemoryClass,
        {
            {"Caption", "Logical System Memory"},
            {"Description", "System Memory"},
            {"Name", "System Memory"},
            {"CreationClassName", requestedName, TextKey},
            {"DeviceID", "System Memory", deviceId},
            {"SystemCreationClassName", ComputerSystemClass, TextKey},
            {"SystemName", hostName, TextKey},
            {"BlockSize", CIMValue(Uint64{1})},
            {"ConsumableBlocks", totalBytes},
            {"NumberOfBlocks", totalBytes},
            {"SequentialAccess", CIMValue(false)},
            {"Volatile", CIMValue(true)},
            {"StartingAddress", CIMValue(Uint64{0})},
            {"EndingAddress", totalBytes}, // one past the last byte: with the start at 0 it is the size
        },
    };
    table.deliver(GetOperatingSystemInstance(), Request(requestedClass), handler);
}

}
