#include "inventory/Cache.h"
#include "inventory/ComputerSystem.h"
#include "provider/ClassNames.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

using Pegasus::String;

void deliverCaches(const String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    Pegasus::Uint32 index = 0;
    for (const Cache& cache : GetCacheInstances()) {
        InstanceAssembly instance(requestedClass);
        instance.add("Caption", "Cache");
        instance.add("Description", "Cache");
        instance.add("Name", cache.getDesignation());
        instance.add("Status", "Unknown");
        instance.add("CreationClassName", "QORTAL_CacheMemory");
        instance.add("DeviceID", String("Cache") + cimText(index));
        instance.add("SystemCreationClassName", ComputerSystemClass);
        instance.add("SystemName", ComputerSystem().getName());
        instance.add("NumberOfBlocks", cache.getNumberOfBlocks());
        instance.add("Purpose", cache.getPurpose());
        instance.add("Associativity", cache.getAssociativity());
        instance.add("CacheType", cache.getType());
        instance.add("Level", cache.getLevel());
        instance.add("WritePolicy", cache.getWritePolicy());
        instance.add("CacheSpeed", cache.getSpeed());
        instance.add("MaximumInstallableSize", cache.getMaximumSize());
        instance.add("Location", cache.getLocation());
        instance.add("InstalledSize", cache.getSize());
        instance.deliver(CacheMemoryKeys, handler);
        ++index;
    }
}

}
