#include "inventory/ComputerSystem.h"
#include "os/OperatingSystem.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

#include <optional>
#include <string>

namespace VQ
{

namespace
{
// The value that stands for a date that is not known.
DateTime unknownDate()
{
    return DateTime(0, DateTime::LocalWithOffset);
}

// A date that can't be had does not cost the rest of the instance.
std::optional<DateTime> installDate(const OperatingSystem& system)
{
    try {
        const DateTime date = system.getInstallDate();
        if (!(date != unknownDate()))
            return std::nullopt;
        cimValue(date); // fails here where it can't be converted, and not when the row is made
        return date;
    } catch (...) {
        return std::nullopt;
    }
}

std::string computerSystemName(const OperatingSystem&)
{
    return ComputerSystem().getName();
}
}

void deliverOperatingSystem(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    // What changes is asked for at its row, not once for the instance.
    static const PropertyTable<OperatingSystem> table = {
        OperatingSystemClass,
        {
            {"Caption", &OperatingSystem::getName},
            {"Description", &OperatingSystem::getName},
            {"InstallDate", installDate},
            {"Name", &OperatingSystem::getName, TextKey},
            {"Status", "Unknown"},
            {"CreationClassName", OperatingSystemClass, TextKey},
            {"CSCreationClassName", ComputerSystemClass, TextKey},
            {"CSName", computerSystemName, TextKey},
            {"CurrentTimeZone", &OperatingSystem::getCurrentTimeZone},
            {"Distributed", &OperatingSystem::getDistributed},
            {"FreePhysicalMemory", &OperatingSystem::getFreePhysicalMemory},
            {"FreeSpaceInPagingFiles", &OperatingSystem::getFreeSpaceInPagingFiles},
            {"FreeVirtualMemory", &OperatingSystem::getFreeVirtualMemory},
            {"LastBootUpTime", &OperatingSystem::getLastBootUpTime},
            {"LocalDateTime", &OperatingSystem::getLocalDateTime},
            {"MaxNumberOfProcesses", &OperatingSystem::getMaxNumberOfProcesses},
            {"MaxProcessMemorySize", &OperatingSystem::getMaxProcessMemorySize},
            {"NumberOfLicensedUsers", &OperatingSystem::getNumberOfLicensedUsers},
            {"NumberOfProcesses", &OperatingSystem::getNumberOfProcesses},
            {"NumberOfUsers", &OperatingSystem::getNumberOfUsers},
            {"OSType", &OperatingSystem::getType},
            {"SizeStoredInPagingFiles", &OperatingSystem::getSizeStoredInPagingFiles},
            {"TotalSwapSpaceSize", &OperatingSystem::getTotalSwapSpaceSize},
            {"TotalVirtualMemorySize", &OperatingSystem::getTotalVirtualMemorySize},
            {"TotalVisibleMemorySize", &OperatingSystem::getTotalVisibleMemorySize},
            {"Version", &OperatingSystem::getVersion},
            {"CodeSet", &OperatingSystem::getCodeSet},
            {"LanguageEdition", &OperatingSystem::getLanguageEdition},
        },
    };
    table.deliver(GetOperatingSystemInstance(), Request(requestedClass), handler);
}

}
