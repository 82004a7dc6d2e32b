#include "inventory/Bios.h"
#include "inventory/Firmware.h"
#include "provider/ClassNames.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

using Pegasus::InstanceResponseHandler;
using Pegasus::String;
using Pegasus::Uint16;

namespace
{
constexpr Uint16 ElementStateRunning = 3;  // SoftwareElementState: Running
constexpr Uint16 TargetNotApplicable = 66; // TargetOperatingSystem: not applicable

void deliverSystemBios(const String& requestedClass, InstanceResponseHandler& handler)
{
    const Bios bios = GetBiosInstance();
    InstanceAssembly instance(requestedClass);
    instance.add("Caption", "Default System BIOS");
    instance.add("Description", "Default System BIOS");
    instance.add("Name", "Default System BIOS");
    instance.add("Status", "OK");
    instance.add("BuildNumber", bios.getBuildNumber());
    instance.add("Manufacturer", bios.getManufacturer());
    instance.add("SerialNumber", bios.getSerialNumber());
    instance.add("SoftwareElementID", "QORTAL_BIOS");
    instance.add("SoftwareElementState", ElementStateRunning);
    instance.add("TargetOperatingSystem", TargetNotApplicable);
    instance.add("Version", bios.getVersion());
    instance.add("CurrentLanguage", bios.getCurrentLanguage());
    instance.add("ListOfLanguages", bios.getLanguages());
    instance.add("LoadedEndingAddress", bios.getLoadedEndingAddress());
    instance.add("LoadedStartingAddress", bios.getLoadedStartingAddress());
    instance.add("PrimaryBIOS", true);
    instance.add("ReleaseDate", bios.getReleaseDate());
    instance.add("SMBIOSPresent", true);
    instance.add("SMBIOSBIOSVersion",
                 cimText(bios.getSmBiosMajorVersion()) + String(".") + cimText(bios.getSmBiosMinorVersion()));
    instance.add("SMBIOSMajorVersion", bios.getSmBiosMajorVersion());
    instance.add("SMBIOSMinorVersion", bios.getSmBiosMinorVersion());
    instance.deliver(BiosKeys, handler);
}

void deliverFirmware(const Firmware& firmware, const String& requestedClass, InstanceResponseHandler& handler)
{
    InstanceAssembly instance(requestedClass);
    instance.add("Caption", firmware.getName());
    instance.add("Description", firmware.getName());
    instance.add("Name", firmware.getName());
    instance.add("Status", "Unknown");
    instance.add("BuildNumber", firmware.getBuildNumber());
    instance.add("Manufacturer", firmware.getManufacturer());
    instance.add("SerialNumber", firmware.getSerialNumber());
    instance.add("SoftwareElementID", BiosClass);
    instance.add("SoftwareElementState", ElementStateRunning);
    instance.add("TargetOperatingSystem", TargetNotApplicable);
    instance.add("Version", firmware.getVersion());
    instance.add("PrimaryBIOS", false);
    instance.deliver(BiosKeys, handler);
}
}

void deliverBios(const String& requestedClass, InstanceResponseHandler& handler)
{
    // A BIOS that can't be described does not cost the other firmware.
    try {
        deliverSystemBios(requestedClass, handler);
    } catch (...) {
    }
    for (const Firmware& firmware : GetFirmwareInstances())
        deliverFirmware(firmware, requestedClass, handler);
}

}
