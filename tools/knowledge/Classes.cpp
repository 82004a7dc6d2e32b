#include "tools/knowledge/Classes.h"

#include <algorithm>
#include <strings.h>

namespace VQ::Tool
{

const std::vector<ClassInfo>& servedClasses()
{
    static const std::vector<ClassInfo> classes = {
        {"QORTAL_ComputerSystem", "computer system", true},
        {"QORTAL_BIOS", "system BIOS and other firmware", true},
        {"QORTAL_Chassis", "chassis", true},
        {"QORTAL_BaseBoard", "base boards", true},
        {"QORTAL_CacheMemory", "processor caches", true},
        {"QORTAL_Slot", "system slots", true},
        {"QORTAL_Port", "port connectors", true},
        {"QORTAL_OperatingSystem", "operating system", false},
        {"QORx_SystemMemory", "system memory", false},
    };
    return classes;
}

const ClassInfo* findClass(const std::string& name)
{
    const auto& classes = servedClasses();
    const auto found = std::find_if(classes.begin(), classes.end(), [&name](const ClassInfo& served) {
        return strcasecmp(served.name, name.c_str()) == 0;
    });
    return found == classes.end() ? nullptr : &*found;
}

std::string canonicalClassName(const std::string& name)
{
    const ClassInfo* found = findClass(name);
    return found ? found->name : name;
}

}
