#include "tools/knowledge/Roles.h"

#include <algorithm>
#include <iterator>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
constexpr const char* SystemClass = "QORTAL_OperatingSystem";
constexpr const char* Moving[] = {"FreePhysicalMemory", "FreeSpaceInPagingFiles", "FreeVirtualMemory", "LocalDateTime",
                                  "NumberOfProcesses"};
constexpr const char* Serials[] = {"SerialNumber", "AssetTag"};
constexpr const char* ConstantKeys[] = {
    "CreationClassName", "SystemCreationClassName", "CSCreationClassName",  "SystemName", "CSName",
    "SoftwareElementID", "SoftwareElementState",    "TargetOperatingSystem"};

// In any letter case, as CIM has its names.
template <std::size_t Count> bool isAmong(const char* const (&names)[Count], const std::string& name)
{
    return std::any_of(std::begin(names), std::end(names),
                       [&name](const char* candidate) { return strcasecmp(candidate, name.c_str()) == 0; });
}
}

bool isMoving(const std::string& className, const std::string& property)
{
    return className == SystemClass && isAmong(Moving, property);
}

bool isBootTime(const std::string& className, const std::string& property)
{
    return className == SystemClass && property == "LastBootUpTime";
}

bool repeatsHostName(const std::string&, const std::string& property)
{
    constexpr const char* Names[] = {"SystemName", "CSName"};
    return isAmong(Names, property);
}

bool isHostName(const std::string& className, const std::string& property)
{
    return repeatsHostName(className, property) ||
           (className == "QORTAL_ComputerSystem" && strcasecmp(property.c_str(), "Name") == 0);
}

bool isSerial(const std::string& property)
{
    return isAmong(Serials, property);
}

bool isTellingKey(const std::string& key)
{
    return !isAmong(ConstantKeys, key);
}

}
