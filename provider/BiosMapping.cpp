#include "inventory/Bios.h"
#include "inventory/Firmware.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

#include <string>

namespace VQ
{

using Pegasus::CIMValue;
using Pegasus::InstanceResponseHandler;
using Pegasus::String;
using Pegasus::Uint16;

namespace
{
constexpr Uint16 ElementStateRunning = 3;  // SoftwareElementState: Running
constexpr Uint16 TargetNotApplicable = 66; // TargetOperatingSystem: not applicable

std::string smBiosVersion(const Bios& bios)
{
    return std::to_string(bios.getSmBiosMajorVersion()) + "." + std::to_string(bios.getSmBiosMinorVersion());
}

void deliverSystemBios(const String& requestedClass, InstanceResponseHandler& handler)
{
    static const PropertyTable<Bios> table = {
        BiosClass,
        {
            {"Caption", "Default System BIOS"},
            {"Description", "Default System BIOS"},
            {"Name", "Default System BIOS", TextKey},
            {"Status", "OK"},
            {"BuildNumber", &Bios::getBuildNumber},
            {"Manufacturer", &Bios::getManufacturer},
            {"SerialNumber", &Bios::getSerialNumber},
            {"SoftwareElementID", BiosClass, TextKey},
            {"SoftwareElementState", CIMValue(ElementStateRunning), NumberKey},
            {"TargetOperatingSystem", CIMValue(TargetNotApplicable), NumberKey},
            {"Version", &Bios::getVersion, TextKey},
            {"CurrentLanguage", &Bios::getCurrentLanguage},
            {"ListOfLanguages", &Bios::getLanguages},
            {"LoadedEndingAddress", &Bios::getLoadedEndingAddress},
            {"LoadedStartingAddress", &Bios::getLoadedStartingAddress},
            {"PrimaryBIOS", CIMValue(true)},
            {"ReleaseDate", &Bios::getReleaseDate},
            {"SMBIOSPresent", CIMValue(true)},
            {"SMBIOSBIOSVersion", smBiosVersion},
            {"SMBIOSMajorVersion", &Bios::getSmBiosMajorVersion},
            {"SMBIOSMinorVersion", &Bios::getSmBiosMinorVersion},
        },
    };
    table.deliver(GetBiosInstance(), Request(requestedClass), handler);
}

void deliverFirmware(const String& requestedClass, InstanceResponseHandler& handler)
{
    static const PropertyTable<Firmware> table = {
        BiosClass,
        {
            {"Caption", &Firmware::getName},
            {"Description", &Firmware::getName},
            {"Name", &Firmware::getName, TextKey},
            {"Status", "Unknown"},
            {"BuildNumber", &Firmware::getBuildNumber},
            {"Manufacturer", &Firmware::getManufacturer},
            {"SerialNumber", &Firmware::getSerialNumber},
            {"SoftwareElementID", BiosClass, TextKey},
            {"SoftwareElementState", CIMValue(ElementStateRunning), NumberKey},
            {"TargetOperatingSystem", CIMValue(TargetNotApplicable), NumberKey},
            {"Version", &Firmware::getVersion, TextKey},
            {"PrimaryBIOS", CIMValue(false)},
        },
    };
    table.deliverEach(GetFirmwareInstances(), requestedClass, handler);
}
}

void deliverBios(const String& requestedClass, InstanceResponseHandler& handler)
{
    // A BIOS that can't be described does not cost the other firmware.
    try {
        deliverSystemBios(requestedClass, handler);
    } catch (...) {
    }
    deliverFirmware(requestedClass, handler);
}

}
