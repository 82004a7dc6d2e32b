#include "tests/flat/load/StubFlat.h"

#include "flat/systemprovider.h"
#include "inventory/Bios.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace
{
constexpr int EmptyText = 9; // bytes that it is packed in

bool isSet(const char* variable, const char* value)
{
    const char* set = std::getenv(variable);
    return set && std::strcmp(set, value) == 0;
}

struct StubBios : VQ::Bios
{
    StubBios() { _releaseDate = VQ::DateTime(StubRelease, VQ::DateTime::LocalWithOffset); }
};
}

VQ::Bios bios = StubBios();

#define TEXT(name)                                                                                                     \
    void name(char* buffer)                                                                                            \
    {                                                                                                                  \
        std::strcpy(buffer, #name);                                                                                    \
    }
#define TEXT_OF(name)                                                                                                  \
    void name(char* buffer, unsigned int index)                                                                        \
    {                                                                                                                  \
        std::strcpy(buffer, textOf(#name, index).c_str());                                                             \
    }
#define NUMBER(type, name)                                                                                             \
    type name(void)                                                                                                    \
    {                                                                                                                  \
        return numberOf<type>(#name);                                                                                  \
    }
#define NUMBER_OF(type, name)                                                                                          \
    type name(unsigned int index)                                                                                      \
    {                                                                                                                  \
        return numberOf<type>(#name) ^ static_cast<type>(index);                                                       \
    }
#define NUMBERS_OF(name)                                                                                               \
    void name(void* buffer, unsigned int index)                                                                        \
    {                                                                                                                  \
        packAI(buffer, {numberOf<int>(#name), static_cast<int>(index)});                                               \
    }
#define COUNT(name, count)                                                                                             \
    int name(void)                                                                                                     \
    {                                                                                                                  \
        return count;                                                                                                  \
    }

int init(void)
{
    if (isSet("VQ_STUB_INIT", "out_of_range"))
        throw std::out_of_range("beyond the end");
    return 1;
}

int getBiosSmBiosVersion(char* buffer)
{
    std::strcpy(buffer, "getBiosSmBiosVersion");
    return 1;
}

void getBiosLanguages(void* buffer)
{
    if (isSet("VQ_STUB_LIST", "damaged"))
        packI(static_cast<char*>(packAS(buffer, {""})) - EmptyText, 0); // a number in place of the text
    else
        packAS(buffer, {"getBiosLanguages", "twice"});
}

void getBBConfigurationOptions(void* buffer)
{
    packAS(buffer, {"getBBConfigurationOptions"});
}

// clang-format off
COUNT(getCount, StubBaseBoards) COUNT(getBBCount, StubBaseBoards) COUNT(getCacheCount, StubCaches)
COUNT(getFirmwareCount, StubFirmware) COUNT(getPortCount, StubPorts) COUNT(getSlotCount, StubSlots)
TEXT(getOSName) TEXT(getOSVersion) TEXT(getOSCodeSet) TEXT(getOSLanguageEdition)
NUMBER(int, getOSType) NUMBER(int, getOSDistributed) NUMBER(int, getOSCurrentTimeZone)
NUMBER(unsigned int, getOSMaxNumberOfProcesses) NUMBER(unsigned int, getOSNumberOfProcesses)
NUMBER(unsigned int, getOSNumberOfUsers) NUMBER(unsigned int, getOSNumberOfLicensedUsers)
NUMBER(unsigned long long, getOSMaxProcessMemorySize) NUMBER(unsigned long long, getOSFreeSpaceInPagingFiles)
NUMBER(unsigned long long, getOSSizeStoredInPagingFiles) NUMBER(unsigned long long, getOSTotalVisibleMemorySize)
NUMBER(unsigned long long, getOSFreePhysicalMemory) NUMBER(unsigned long long, getOSFreeVirtualMemory)
NUMBER(unsigned long long, getOSTotalVirtualMemorySize) NUMBER(unsigned long long, getOSTotalSwapSpaceSize)
TEXT(getOSInstallDate) TEXT(getOSLocalDateTime) TEXT(getOSLastBootUpTime)
TEXT(getBiosManufacturer) TEXT(getBiosVersion) TEXT(getBiosBuildNumber) TEXT(getBiosSerialNumber)
TEXT(getBiosCurrentLanguage) TEXT(getBiosReleaseDate)
NUMBER(int, getBiosSmBiosMajorVersion) NUMBER(int, getBiosSmBiosMinorVersion)
NUMBER(unsigned long long, getBiosLoadedStartingAddress) NUMBER(unsigned long long, getBiosLoadedEndingAddress)
TEXT(getCSName) TEXT(getCSModel) TEXT(getCSDescription) TEXT(getCSOwnerName) TEXT(getCSOwnerContact)
TEXT(getName) TEXT(getModel)
TEXT(getChassisManufacturer) TEXT(getChassisVersion) TEXT(getChassisSerialNumber) TEXT(getChassisAssetTag)
TEXT_OF(getBBManufacturer) TEXT_OF(getBBProduct) TEXT_OF(getBBVersion) TEXT_OF(getBBSerialNumber)
TEXT_OF(getBBAssetTag) TEXT_OF(getBBLocation)
TEXT_OF(getCacheDesignation) TEXT_OF(getCachePurpose)
NUMBER_OF(int, getCacheAssociativity) NUMBER_OF(int, getCacheWritePolicy) NUMBER_OF(int, getCacheType)
NUMBER_OF(int, getCacheLocation) NUMBER_OF(int, getCacheLevel) NUMBER_OF(int, getCacheErrorCorrectionType)
NUMBER_OF(unsigned int, getCacheSpeed) NUMBER_OF(unsigned int, getCacheSize)
NUMBER_OF(unsigned int, getCacheMaximumSize) NUMBER_OF(unsigned int, getCacheInstalledSize)
NUMBER_OF(unsigned long long, getCacheNumberOfBlocks)
NUMBERS_OF(getCacheSupportedSramType) NUMBERS_OF(getCacheCurrentSramType)
TEXT_OF(getPortName) TEXT_OF(getPortModel) TEXT_OF(getPortManufacturer)
TEXT_OF(getPortInternalReferenceDesignator) TEXT_OF(getPortExternalReferenceDesignator)
NUMBER_OF(int, getPortType) NUMBERS_OF(getPortConnectors)
TEXT_OF(getSlotDesignation)
TEXT_OF(getFirmwareName) TEXT_OF(getFirmwareVersion) TEXT_OF(getFirmwareManufacturer)
TEXT_OF(getFirmwareSerialNumber) TEXT_OF(getFirmwareBuildNumber) TEXT_OF(getFirmwareReleaseDate)
COUNT(Reboot, -1) COUNT(Shutdown, -1) // they do nothing
                                                                                                      // clang-format on
