#include "inventory/Cache.h"
#include "inventory/ComputerSystem.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

namespace VQ
{

void deliverCaches(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<Cache> table = {
        CacheMemoryClass,
        {
            {"Caption", "Cache"},
            {"Description", "Cache"},
            {"Name", &Cache::getDesignation},
            {"Status", "Unknown"},
            {"CreationClassName", CacheMemoryClass, TextKey},
            {"DeviceID", [](const Cache&, const Request& request) { return numbered("Cache", request); }, TextKey},
            {"SystemCreationClassName", ComputerSystemClass, TextKey},
            // A new computer system for each cache: whoever watches the probe library sees it asked as often.
            {"SystemName", [](const Cache&) { return ComputerSystem().getName(); }, TextKey},
            {"NumberOfBlocks", &Cache::getNumberOfBlocks},
            {"Purpose", &Cache::getPurpose},
            {"Associativity", &Cache::getAssociativity},
            {"CacheType", &Cache::getType},
            {"Level", &Cache::getLevel},
            {"WritePolicy", &Cache::getWritePolicy},
            {"CacheSpeed", &Cache::getSpeed},
            {"MaximumInstallableSize", &Cache::getMaximumSize},
            {"Location", &Cache::getLocation},
            {"InstalledSize", &Cache::getSize},
        },
    };
    table.deliverEach(GetCacheInstances(), requestedClass, handler);
}

}
