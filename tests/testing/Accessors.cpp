#include "tests/testing/Accessors.h"

const std::vector<Accessor>& accessors()
{
    static const std::vector<Accessor> all = {
        {"getCount", Delivery::Number, nullptr},
        {"getBBCount", Delivery::Number, nullptr},
        {"getCacheCount", Delivery::Number, nullptr},
        {"getFirmwareCount", Delivery::Number, nullptr},
        {"getPortCount", Delivery::Number, nullptr},
        {"getSlotCount", Delivery::Number, nullptr},
        {"getOSName", Delivery::Text, nullptr},
        {"getOSVersion", Delivery::Text, nullptr},
        {"getOSCodeSet", Delivery::Text, nullptr},
        {"getOSLanguageEdition", Delivery::Text, nullptr},
        {"getOSType", Delivery::Number, nullptr},
        {"getOSDistributed", Delivery::Number, nullptr},
        {"getOSCurrentTimeZone", Delivery::Number, nullptr},
        {"getOSMaxNumberOfProcesses", Delivery::Number, nullptr},
        {"getOSNumberOfProcesses", Delivery::Number, nullptr},
        {"getOSNumberOfUsers", Delivery::Number, nullptr},
        {"getOSNumberOfLicensedUsers", Delivery::Number, nullptr},
        {"getOSMaxProcessMemorySize", Delivery::Long, nullptr},
        {"getOSFreeSpaceInPagingFiles", Delivery::Long, nullptr},
        {"getOSSizeStoredInPagingFiles", Delivery::Long, nullptr},
        {"getOSTotalVisibleMemorySize", Delivery::Long, nullptr},
        {"getOSFreePhysicalMemory", Delivery::Long, nullptr},
        {"getOSFreeVirtualMemory", Delivery::Long, nullptr},
        {"getOSTotalVirtualMemorySize", Delivery::Long, nullptr},
        {"getOSTotalSwapSpaceSize", Delivery::Long, nullptr},
        {"getOSInstallDate", Delivery::Text, nullptr},
        {"getOSLocalDateTime", Delivery::Text, nullptr},
        {"getOSLastBootUpTime", Delivery::Text, nullptr},
        {"getBiosManufacturer", Delivery::Text, nullptr},
        {"getBiosVersion", Delivery::Text, nullptr},
        {"getBiosBuildNumber", Delivery::Text, nullptr},
        {"getBiosSerialNumber", Delivery::Text, nullptr},
        {"getBiosCurrentLanguage", Delivery::Text, nullptr},
        {"getBiosLanguages", Delivery::List, nullptr},
        {"getBiosReleaseDate", Delivery::Text, nullptr},
        {"getBiosSmBiosMajorVersion", Delivery::Number, nullptr},
        {"getBiosSmBiosMinorVersion", Delivery::Number, nullptr},
        {"getBiosSmBiosVersion", Delivery::Length, nullptr},
        {"getBiosLoadedStartingAddress", Delivery::Long, nullptr},
        {"getBiosLoadedEndingAddress", Delivery::Long, nullptr},
        {"getCSName", Delivery::Text, nullptr},
        {"getCSModel", Delivery::Text, nullptr},
        {"getCSDescription", Delivery::Text, nullptr},
        {"getCSOwnerName", Delivery::Text, nullptr},
        {"getCSOwnerContact", Delivery::Text, nullptr},
        {"getName", Delivery::Text, nullptr},
        {"getModel", Delivery::Text, nullptr},
        {"getChassisManufacturer", Delivery::Text, nullptr},
        {"getChassisVersion", Delivery::Text, nullptr},
        {"getChassisSerialNumber", Delivery::Text, nullptr},
        {"getChassisAssetTag", Delivery::Text, nullptr},
        {"getBBManufacturer", Delivery::Text, "getBBCount"},
        {"getBBProduct", Delivery::Text, "getBBCount"},
        {"getBBVersion", Delivery::Text, "getBBCount"},
        {"getBBSerialNumber", Delivery::Text, "getBBCount"},
        {"getBBAssetTag", Delivery::Text, "getBBCount"},
        {"getBBLocation", Delivery::Text, "getBBCount"},
        {"getBBConfigurationOptions", Delivery::List, nullptr},
        {"getCacheDesignation", Delivery::Text, "getCacheCount"},
        {"getCachePurpose", Delivery::Text, "getCacheCount"},
        {"getCacheAssociativity", Delivery::Number, "getCacheCount"},
        {"getCacheWritePolicy", Delivery::Number, "getCacheCount"},
        {"getCacheType", Delivery::Number, "getCacheCount"},
        {"getCacheLocation", Delivery::Number, "getCacheCount"},
        {"getCacheLevel", Delivery::Number, "getCacheCount"},
        {"getCacheErrorCorrectionType", Delivery::Number, "getCacheCount"},
        {"getCacheSpeed", Delivery::Number, "getCacheCount"},
        {"getCacheSize", Delivery::Number, "getCacheCount"},
        {"getCacheMaximumSize", Delivery::Number, "getCacheCount"},
        {"getCacheInstalledSize", Delivery::Number, "getCacheCount"},
        {"getCacheNumberOfBlocks", Delivery::Long, "getCacheCount"},
        {"getCacheSupportedSramType", Delivery::List, "getCacheCount"},
        {"getCacheCurrentSramType", Delivery::List, "getCacheCount"},
        {"getPortName", Delivery::Text, "getPortCount"},
        {"getPortModel", Delivery::Text, "getPortCount"},
        {"getPortManufacturer", Delivery::Text, "getPortCount"},
        {"getPortInternalReferenceDesignator", Delivery::Text, "getPortCount"},
        {"getPortExternalReferenceDesignator", Delivery::Text, "getPortCount"},
        {"getPortType", Delivery::Number, "getPortCount"},
        {"getPortConnectors", Delivery::List, "getPortCount"},
        {"getSlotDesignation", Delivery::Text, "getSlotCount"},
        {"getFirmwareName", Delivery::Text, "getFirmwareCount"},
        {"getFirmwareVersion", Delivery::Text, "getFirmwareCount"},
        {"getFirmwareManufacturer", Delivery::Text, "getFirmwareCount"},
        {"getFirmwareSerialNumber", Delivery::Text, "getFirmwareCount"},
        {"getFirmwareBuildNumber", Delivery::Text, "getFirmwareCount"},
        {"getFirmwareReleaseDate", Delivery::Text, "getFirmwareCount"},
    };
    return all;
}

unsigned long long call(const Accessor& accessor, void* address, char* buffer, unsigned int index)
{
    const bool indexed = accessor.count != nullptr;
    switch (accessor.delivery) {
    case Delivery::Number:
        return indexed ? reinterpret_cast<unsigned int (*)(unsigned int)>(address)(index)
                       : reinterpret_cast<unsigned int (*)()>(address)();
    case Delivery::Long:
        return indexed ? reinterpret_cast<unsigned long long (*)(unsigned int)>(address)(index)
                       : reinterpret_cast<unsigned long long (*)()>(address)();
    case Delivery::Length:
        return static_cast<unsigned int>(reinterpret_cast<int (*)(char*)>(address)(buffer));
    case Delivery::Text:
    case Delivery::List:
        if (indexed)
            reinterpret_cast<void (*)(void*, unsigned int)>(address)(buffer, index);
        else
            reinterpret_cast<void (*)(void*)>(address)(buffer);
    }
    return 0;
}
