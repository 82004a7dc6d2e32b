#include "inventory/ComputerSystem.h"
#include "os/OperatingSystem.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

namespace
{
// The value that stands for a date that is not known.
DateTime unknownDate()
{
    return DateTime(0, DateTime::Local | DateTime::WithOffset);
}

// A date that can't be had does not cost the rest of the instance.
void addInstallDate(InstanceAssembly& instance, const OperatingSystem& system)
{
    try {
        const DateTime date = system.getInstallDate();
        if (date != unknownDate())
            instance.add("InstallDate", date);
    } catch (...) {
    }
}
}

void deliverOperatingSystem(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    const OperatingSystem system = GetOperatingSystemInstance();
    InstanceAssembly instance(requestedClass);
    instance.add("Caption", system.getName());
    instance.add("Description", system.getName());
    addInstallDate(instance, system);
    instance.add("Name", system.getName());
    instance.add("Status", "Unknown");
    instance.add("CreationClassName", "QORTAL_OperatingSystem");
    instance.add("CSCreationClassName", "QORTAL_ComputerSystem");
    instance.add("CSName", ComputerSystem().getName());
    instance.add("CurrentTimeZone", system.getCurrentTimeZone());
    instance.add("Distributed", system.getDistributed());
    instance.add("FreePhysicalMemory", system.getFreePhysicalMemory());
    instance.add("FreeSpaceInPagingFiles", system.getFreeSpaceInPagingFiles());
    instance.add("FreeVirtualMemory", system.getFreeVirtualMemory());
    instance.add("LastBootUpTime", system.getLastBootUpTime());
    instance.add("LocalDateTime", system.getLocalDateTime());
    instance.add("MaxNumberOfProcesses", system.getMaxNumberOfProcesses());
    instance.add("MaxProcessMemorySize", system.getMaxProcessMemorySize());
    instance.add("NumberOfLicensedUsers", system.getNumberOfLicensedUsers());
    instance.add("NumberOfProcesses", system.getNumberOfProcesses());
    instance.add("NumberOfUsers", system.getNumberOfUsers());
    instance.add("OSType", system.getType());
    instance.add("SizeStoredInPagingFiles", system.getSizeStoredInPagingFiles());
    instance.add("TotalSwapSpaceSize", system.getTotalSwapSpaceSize());
    instance.add("TotalVirtualMemorySize", system.getTotalVirtualMemorySize());
    instance.add("TotalVisibleMemorySize", system.getTotalVisibleMemorySize());
    instance.add("Version", system.getVersion());
    instance.add("CodeSet", system.getCodeSet());
    instance.add("LanguageEdition", system.getLanguageEdition());
    instance.deliver(OperatingSystemKeys, handler);
}

}
