/// Reads the inventory of this machine, or of a dump, through the flat interface of libSystemProvider.so, safely: no
/// buffers, no sizes, no symbols to look up, and every failure is an error with its text. C99 and C++.
///
///     SystemProvider* module = systemProviderOpen(NULL, NULL);
///     SystemProviderInventory* inventory = systemProviderRead(module);
///     systemProviderClose(module);
///     if (!inventory) {
///         fprintf(stderr, "%s\n", systemProviderError());
///         return 1;
///     }
///     printf("%s\n", systemProviderBios(inventory)->version);
///     for (size_t i = 0; i < systemProviderSlotCount(inventory); ++i)
///         printf("%s\n", systemProviderSlot(inventory, i)->designation);
///     systemProviderFree(inventory);
///
/// Link with -lsystemprovider_load: `pkg-config --cflags --libs systemprovider`, or in CMake
/// `find_package(SystemProvider)` and the target SystemProvider::SystemProvider. The module itself is loaded when it is
/// asked for; a program starts without it.
///
/// Errors. Functions that can fail return a null pointer, and systemProviderError() then tells why. No exception leaves
/// a function. An unreadable or damaged SMBIOS table, one whose inventory would never end (systemprovider.h), a
/// module of the other width, one that lacks a library or a function, and a want of memory are such errors.
///
/// Working directory. The module looks for an optional library by a path relative to the working directory. The
/// functions here load and ask it in a thread of its own that works in `/`, so that nothing is loaded from where the
/// program stands; the program's own working directory stays what it is. Where the kernel refuses a thread its own
/// (unshare(2), in some containers), the whole process is in `/` during the calls of systemProviderOpen and
/// systemProviderRead.
///
/// Threads. All functions may be called at once, but systemProviderClose while the same module is used. Reading waits
/// for reading. An inventory never changes.

#ifndef SYSTEMPROVIDER_LOAD_H
#define SYSTEMPROVIDER_LOAD_H

#include <stddef.h>
#include <stdint.h>

#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

// ---- The module -----------------------------------------------------------------------------------------------------

/// A loaded module, and where it reads the SMBIOS table from.
typedef struct SystemProvider SystemProvider;

/// Loads a module and looks up all of its functions.
///
/// `module` is the path of a libSystemProvider.so, looked for where the program stands; null stands for the installed
/// one. `dump` is a file of `dmidecode --dump-bin` to read in place of the machine's own table; it is copied, so it may
/// change afterwards. Null stands for the machine, whose table only root can read.
///
/// Null on failure. A process reads either its machine or dumps at a time: what it has open of the other kind must be
/// closed before.
SystemProvider* systemProviderOpen(const char* module, const char* dump);

/// Unloads the module. Inventories stay as they are. Does nothing for null.
void systemProviderClose(SystemProvider* module);

/// Why the last call of this thread that failed did so: one line of text, empty before any. Valid until the next call
/// of this thread that fails.
const char* systemProviderError(void);

// ---- An inventory ---------------------------------------------------------------------------------------------------

// Field by field what the accessor of the same name gives (getCacheSpeed is SystemProviderCache.speed); its comment in
// systemprovider.h tells the source. Texts are never null and have any length; an empty text is a fact that the machine
// does not tell. Bytes are as the firmware wrote them, UTF-8 in general.

/// A list of texts.
typedef struct SystemProviderTexts
{
    size_t count;
    const char* const* values; ///< `count` of them, none of them null
} SystemProviderTexts;

/// A list of numbers.
typedef struct SystemProviderNumbers
{
    size_t count;
    const int32_t* values; ///< `count` of them
} SystemProviderNumbers;

typedef struct SystemProviderComputerSystem
{
    const char* name;         ///< the kernel's node name
    const char* model;        ///< of the product name, what stands between "-[" and "]-"
    const char* description;  ///< of the product name, what stands around that
    const char* ownerName;    ///< no source, always empty
    const char* ownerContact; ///< no source, always empty
} SystemProviderComputerSystem;

/// The figures are those of the moment when the inventory was read.
typedef struct SystemProviderOperatingSystem
{
    const char* name;
    const char* version; ///< the kernel's release
    const char* codeSet;
    const char* languageEdition;
    int type;            ///< CIM OSType: 36, Linux
    int distributed;     ///< 0 or 1; no source, always 0
    int currentTimeZone; ///< minutes east of UTC
    unsigned int maxNumberOfProcesses;
    unsigned int numberOfProcesses;
    unsigned int numberOfUsers;                 ///< no source, always 0
    unsigned int numberOfLicensedUsers;         ///< no source, always 0
    unsigned long long maxProcessMemorySize;    ///< KiB; no source, always 0
    unsigned long long freeSpaceInPagingFiles;  ///< KiB; no source, always 0
    unsigned long long sizeStoredInPagingFiles; ///< KiB; no source, always 0
    unsigned long long totalVisibleMemorySize;  ///< KiB; no source, always 0
    unsigned long long freePhysicalMemory;      ///< KiB
    unsigned long long freeVirtualMemory;       ///< KiB; no source, always 0
    unsigned long long totalVirtualMemorySize;  ///< KiB; no source, always 0
    unsigned long long totalSwapSpaceSize;      ///< KiB
    const char* installDate;    ///< not known: always the first instant of 1970 in UTC; written as localDateTime
    const char* localDateTime;  ///< yyyymmddhhmmss.000000+000, in local time though the offset reads 000
    const char* lastBootUpTime; ///< written as localDateTime
} SystemProviderOperatingSystem;

typedef struct SystemProviderBios
{
    const char* manufacturer;
    const char* version;
    const char* buildNumber;
    const char* serialNumber; ///< of the system
    const char* currentLanguage;
    SystemProviderTexts languages;
    const char* releaseDate; ///< yyyymmdd000000.000000+000; all digits are 0 when it is not told
    int smBiosMajorVersion;  ///< 0 on a machine without SMBIOS
    int smBiosMinorVersion;
    const char* smBiosVersion;                ///< both as text, "2.3"
    unsigned long long loadedStartingAddress; ///< a segment, not multiplied by 16
    unsigned long long loadedEndingAddress;   ///< computed from the segment
} SystemProviderBios;

/// Firmware other than the system BIOS: of OEM strings, then the BMC's.
typedef struct SystemProviderFirmware
{
    const char* name;
    const char* version;
    const char* manufacturer;
    const char* serialNumber; ///< no source, always empty
    const char* buildNumber;
    const char* releaseDate; ///< no source, always "00000000000000.000000:000"
} SystemProviderFirmware;

typedef struct SystemProviderChassis
{
    const char* manufacturer;
    const char* version;
    const char* serialNumber;
    const char* assetTag;
} SystemProviderChassis;

typedef struct SystemProviderBaseBoard
{
    const char* manufacturer;
    const char* product;
    const char* version; ///< empty for every board whose product can be read
    const char* serialNumber;
    const char* assetTag;
    const char* location;
} SystemProviderBaseBoard;

typedef struct SystemProviderCache
{
    const char* designation;
    const char* purpose;                     ///< the designation once more
    int associativity;                       ///< the standard's code
    int writePolicy;                         ///< 4 write through, 3 write back, 5 varies with address, 2 unknown
    int type;                                ///< the standard's code
    int location;                            ///< 0 internal, 1 external, 3 unknown
    int level;                               ///< 3, 4, 5 for levels 1, 2, 3; 0 for any other
    int errorCorrectionType;                 ///< the standard's code
    unsigned int speed;                      ///< nanoseconds; 0 when unknown
    unsigned int size;                       ///< kilobytes
    unsigned int maximumSize;                ///< kilobytes
    unsigned int installedSize;              ///< the same as size
    unsigned long long numberOfBlocks;       ///< the size in units of its own granularity, 1 K or 64 K
    SystemProviderNumbers supportedSramType; ///< no source, always empty
    SystemProviderNumbers currentSramType;   ///< no source, always empty
} SystemProviderCache;

typedef struct SystemProviderPort
{
    const char* name;         ///< no source, always empty
    const char* model;        ///< no source, always empty
    const char* manufacturer; ///< no source, always empty
    const char* internalReferenceDesignator;
    const char* externalReferenceDesignator;
    int type;                         ///< the standard's code
    SystemProviderNumbers connectors; ///< inner, then outer, the standard's codes
} SystemProviderPort;

typedef struct SystemProviderSlot
{
    const char* designation;
} SystemProviderSlot;

/// All facts of a machine at one moment. It stands on its own: it outlives its module, and a later one does not change
/// it.
typedef struct SystemProviderInventory SystemProviderInventory;

/// Reads everything anew. Null on failure, and for null with the error of the call that gave it. Free the result.
SystemProviderInventory* systemProviderRead(SystemProvider* module);

/// Frees an inventory with all records and texts in it. Does nothing for null.
void systemProviderFree(SystemProviderInventory* inventory);

// What there is once. Null only for a null inventory.

const SystemProviderComputerSystem* systemProviderComputerSystem(const SystemProviderInventory* inventory);
const SystemProviderOperatingSystem* systemProviderOperatingSystem(const SystemProviderInventory* inventory);
const SystemProviderBios* systemProviderBios(const SystemProviderInventory* inventory);
const SystemProviderChassis* systemProviderChassis(const SystemProviderInventory* inventory);

/// The system's configuration options.
const SystemProviderTexts* systemProviderConfigurationOptions(const SystemProviderInventory* inventory);

// What there is in any number, in the order of the table. An index counts from 0; one that is not below the count gives
// null, and so does a null inventory, whose counts are 0.

size_t systemProviderFirmwareCount(const SystemProviderInventory* inventory);
const SystemProviderFirmware* systemProviderFirmware(const SystemProviderInventory* inventory, size_t index);
size_t systemProviderBaseBoardCount(const SystemProviderInventory* inventory);
const SystemProviderBaseBoard* systemProviderBaseBoard(const SystemProviderInventory* inventory, size_t index);
size_t systemProviderCacheCount(const SystemProviderInventory* inventory);
const SystemProviderCache* systemProviderCache(const SystemProviderInventory* inventory, size_t index);
size_t systemProviderPortCount(const SystemProviderInventory* inventory);
const SystemProviderPort* systemProviderPort(const SystemProviderInventory* inventory, size_t index);
size_t systemProviderSlotCount(const SystemProviderInventory* inventory);
const SystemProviderSlot* systemProviderSlot(const SystemProviderInventory* inventory, size_t index);

// ---- The plain functions --------------------------------------------------------------------------------------------

/// The functions of systemprovider.h, which tells what each does and how large its buffer must be. They check nothing,
/// and their common snapshot is taken anew by `init` and by systemProviderRead. `init` and the four functions that
/// systemprovider.h names end a C program where the table can't be read. Call `init` while the process works in `/`.
typedef struct SystemProviderFunctions
{
    int (*init)(void);
    int (*getCount)(void);
    int (*getBBCount)(void);
    int (*getCacheCount)(void);
    int (*getFirmwareCount)(void);
    int (*getPortCount)(void);
    int (*getSlotCount)(void);
    void (*getOSName)(char* buffer);
    void (*getOSVersion)(char* buffer);
    void (*getOSCodeSet)(char* buffer);
    void (*getOSLanguageEdition)(char* buffer);
    int (*getOSType)(void);
    int (*getOSDistributed)(void);
    int (*getOSCurrentTimeZone)(void);
    unsigned int (*getOSMaxNumberOfProcesses)(void);
    unsigned int (*getOSNumberOfProcesses)(void);
    unsigned int (*getOSNumberOfUsers)(void);
    unsigned int (*getOSNumberOfLicensedUsers)(void);
    unsigned long long (*getOSMaxProcessMemorySize)(void);
    unsigned long long (*getOSFreeSpaceInPagingFiles)(void);
    unsigned long long (*getOSSizeStoredInPagingFiles)(void);
    unsigned long long (*getOSTotalVisibleMemorySize)(void);
    unsigned long long (*getOSFreePhysicalMemory)(void);
    unsigned long long (*getOSFreeVirtualMemory)(void);
    unsigned long long (*getOSTotalVirtualMemorySize)(void);
    unsigned long long (*getOSTotalSwapSpaceSize)(void);
    void (*getOSInstallDate)(char* buffer);
    void (*getOSLocalDateTime)(char* buffer);
    void (*getOSLastBootUpTime)(char* buffer);
    void (*getBiosManufacturer)(char* buffer);
    void (*getBiosVersion)(char* buffer);
    void (*getBiosBuildNumber)(char* buffer);
    void (*getBiosSerialNumber)(char* buffer);
    void (*getBiosCurrentLanguage)(char* buffer);
    void (*getBiosLanguages)(void* buffer);
    void (*getBiosReleaseDate)(char* buffer);
    int (*getBiosSmBiosMajorVersion)(void);
    int (*getBiosSmBiosMinorVersion)(void);
    int (*getBiosSmBiosVersion)(char* buffer);
    unsigned long long (*getBiosLoadedStartingAddress)(void);
    unsigned long long (*getBiosLoadedEndingAddress)(void);
    void (*getCSName)(char* buffer);
    void (*getCSModel)(char* buffer);
    void (*getCSDescription)(char* buffer);
    void (*getCSOwnerName)(char* buffer);
    void (*getCSOwnerContact)(char* buffer);
    void (*getName)(char* buffer);
    void (*getModel)(char* buffer);
    void (*getChassisManufacturer)(char* buffer);
    void (*getChassisVersion)(char* buffer);
    void (*getChassisSerialNumber)(char* buffer);
    void (*getChassisAssetTag)(char* buffer);
    void (*getBBManufacturer)(char* buffer, unsigned int index);
    void (*getBBProduct)(char* buffer, unsigned int index);
    void (*getBBVersion)(char* buffer, unsigned int index);
    void (*getBBSerialNumber)(char* buffer, unsigned int index);
    void (*getBBAssetTag)(char* buffer, unsigned int index);
    void (*getBBLocation)(char* buffer, unsigned int index);
    void (*getBBConfigurationOptions)(void* buffer);
    void (*getCacheDesignation)(char* buffer, unsigned int index);
    void (*getCachePurpose)(char* buffer, unsigned int index);
    int (*getCacheAssociativity)(unsigned int index);
    int (*getCacheWritePolicy)(unsigned int index);
    int (*getCacheType)(unsigned int index);
    int (*getCacheLocation)(unsigned int index);
    int (*getCacheLevel)(unsigned int index);
    int (*getCacheErrorCorrectionType)(unsigned int index);
    unsigned int (*getCacheSpeed)(unsigned int index);
    unsigned int (*getCacheSize)(unsigned int index);
    unsigned int (*getCacheMaximumSize)(unsigned int index);
    unsigned int (*getCacheInstalledSize)(unsigned int index);
    unsigned long long (*getCacheNumberOfBlocks)(unsigned int index);
    void (*getCacheSupportedSramType)(void* buffer, unsigned int index);
    void (*getCacheCurrentSramType)(void* buffer, unsigned int index);
    void (*getPortName)(char* buffer, unsigned int index);
    void (*getPortModel)(char* buffer, unsigned int index);
    void (*getPortManufacturer)(char* buffer, unsigned int index);
    void (*getPortInternalReferenceDesignator)(char* buffer, unsigned int index);
    void (*getPortExternalReferenceDesignator)(char* buffer, unsigned int index);
    int (*getPortType)(unsigned int index);
    void (*getPortConnectors)(void* buffer, unsigned int index);
    void (*getSlotDesignation)(char* buffer, unsigned int index);
    void (*getFirmwareName)(char* buffer, unsigned int index);
    void (*getFirmwareVersion)(char* buffer, unsigned int index);
    void (*getFirmwareManufacturer)(char* buffer, unsigned int index);
    void (*getFirmwareSerialNumber)(char* buffer, unsigned int index);
    void (*getFirmwareBuildNumber)(char* buffer, unsigned int index);
    void (*getFirmwareReleaseDate)(char* buffer, unsigned int index);
    int (*Reboot)(void);
    int (*Shutdown)(void);
} SystemProviderFunctions;

/// All of them, none null, valid until the module is closed. Null for null.
const SystemProviderFunctions* systemProviderFunctions(const SystemProvider* module);

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#endif
