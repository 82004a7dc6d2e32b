#include "os/OperatingSystem.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"
#include "support/common/System.h"

namespace VQ
{

using Pegasus::Uint64;

namespace
{
Uint64 totalBytes(const OperatingSystem& system)
{
    return system.getTotalPhysicalMemory() << 10;
}
}

void deliverSystemMemory(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    const OperatingSystem system = GetOperatingSystemInstance();
    InstanceAssembly instance(requestedClass);
    instance.add("Caption", "Logical System Memory");
    instance.add("Description", "System Memory");
    instance.add("Name", "System Memory");
    instance.add("CreationClassName", requestedClass);
    instance.add("DeviceID", "System Memory");
    instance.add("SystemCreationClassName", "QORTAL_ComputerSystem");
    instance.add("SystemName", System::getName());
    instance.add("BlockSize", Uint64{1});
    instance.add("ConsumableBlocks", totalBytes(system));
    instance.add("NumberOfBlocks", totalBytes(system));
    instance.add("SequentialAccess", false);
    instance.add("Volatile", true);
    instance.add("StartingAddress", Uint64{0});
    instance.add("EndingAddress", totalBytes(system)); // one past the last byte, as it always was
    instance.deliver(SystemMemoryKeys, handler);
}

}
