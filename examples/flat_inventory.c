/* Prints the inventory of this machine, read through the flat interface of libSystemProvider.so only: no CIM server, no
 * C++. It shows how a C99 program loads the module, finds functions by name, sizes buffers and reads packed lists.
 *
 *     flat_inventory MODULE [DUMP]
 *
 * MODULE is the path of libSystemProvider.so. DUMP is a file of `dmidecode --dump-bin` to read in place of the
 * machine's own SMBIOS table; the library that serves it is looked for in from-dump/ beside the module. Exit code 0, 1
 * when a file can't be used, 2 for a wrong call. The line "TIME Format : ..." comes from the module itself. */

#define _XOPEN_SOURCE 700

#include "systemprovider.h"
#include "systemprovider_packed.h"

#include <dlfcn.h>
#include <errno.h>
#include <langinfo.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

/* The ways in which accessors hand over a value. */
typedef int Integer(void);
typedef int IntegerAt(unsigned int index);
typedef unsigned int Unsigned(void);
typedef unsigned int UnsignedAt(unsigned int index);
typedef unsigned long long Long(void);
typedef unsigned long long LongAt(unsigned int index);
typedef void Text(char* buffer);
typedef void TextAt(char* buffer, unsigned int index);
typedef void List(void* buffer);
typedef void ListAt(void* buffer, unsigned int index);
typedef int MeasuredText(char* buffer);

typedef void AnyFunction(void);

static void* module;
static char* text;
static size_t tableSize; /* T of systemprovider.h */

static void fail(const char* what, const char* reason)
{
    fprintf(stderr, "flat_inventory: %s: %s\n", what, reason);
    exit(1);
}

static AnyFunction* find(const char* name)
{
    AnyFunction* function;
    *(void**)&function = dlsym(module, name);
    if (!function)
        fail(name, dlerror());
    return function;
}

/* The module's function of this name. The operand of sizeof is never evaluated: it makes the compiler compare the type
 * with the function's declaration. */
#define FIND(Type, name) ((void)sizeof(1 ? (Type*)0 : &name), (Type*)find(#name))

/* One line each. `name` is the accessor without its family's prefix. */
#define INTEGER(family, name) printf("  %s: %d\n", #name, FIND(Integer, family##name)())
#define INTEGER_AT(family, name, index) printf("  %s: %d\n", #name, FIND(IntegerAt, family##name)(index))
#define UNSIGNED(family, name) printf("  %s: %u\n", #name, FIND(Unsigned, family##name)())
#define UNSIGNED_AT(family, name, index) printf("  %s: %u\n", #name, FIND(UnsignedAt, family##name)(index))
#define LONG(family, name) printf("  %s: %llu\n", #name, FIND(Long, family##name)())
#define LONG_AT(family, name, index) printf("  %s: %llu\n", #name, FIND(LongAt, family##name)(index))
#define TEXT(family, name) (FIND(Text, family##name)(text), printf("  %s: %s\n", #name, text))
#define TEXT_AT(family, name, index) (FIND(TextAt, family##name)(text, index), printf("  %s: %s\n", #name, text))

static void* allocate(unsigned long long size)
{
    void* buffer = size <= (size_t)-1 ? malloc((size_t)size) : NULL;
    if (!buffer)
        fail("the buffer", "not enough memory");
    return buffer;
}

static size_t sizeOfFile(const char* file)
{
    struct stat status;
    return stat(file, &status) == 0 && status.st_size > 0 ? (size_t)status.st_size : 0;
}

/* How long the SMBIOS table can be, as systemprovider.h tells it. A dump holds the table and more. */
static size_t findTableSize(const char* dump)
{
    const size_t smallest = 16;
    size_t size = sizeOfFile(dump ? dump : "/sys/firmware/dmi/tables/DMI");
    if (size == 0)
        size = FIND(Integer, getBiosSmBiosMajorVersion)() < 3 ? 65535 : 64u << 20;
    return size > smallest ? size : smallest;
}

static size_t lengthOf(const char* variable)
{
    const char* value = getenv(variable);
    return value ? strlen(value) : 0;
}

/* Room for the longest text: one of the table, of the environment, of libc, or of a fixed size. */
static char* allocateText(void)
{
    const size_t fixedSizes = 129;
    return allocate(tableSize + lengthOf("LANG") + lengthOf("LC_CTYPE") + strlen(nl_langinfo(CODESET)) + fixedSizes);
}

static void showTexts(const char* name, List* get, unsigned long long size)
{
    void* buffer = allocate(size);
    uint32_t count = 0;
    uint32_t length;
    const char* element;
    get(buffer);
    PackedReader reader = packedReader(buffer, (size_t)size);
    packedTexts(&reader, &count);
    printf("  %s: %u\n", name, (unsigned int)count);
    while (count-- > 0 && packedText(&reader, &element, &length))
        printf("    %s\n", element);
    free(buffer);
}

static void showIntegers(const char* name, ListAt* get, unsigned int index)
{
    unsigned char buffer[24]; /* the longest list of integers, that of a port's two connectors */
    uint32_t count = 0;
    int32_t element;
    get(buffer, index);
    PackedReader reader = packedReader(buffer, sizeof buffer);
    packedIntegers(&reader, &count);
    printf("  %s:", name);
    while (count-- > 0 && packedInteger(&reader, &element))
        printf(" %d", (int)element);
    printf("\n");
}

static void showComputerSystem(void)
{
    printf("Computer system\n");
    TEXT(getCS, Name);
    TEXT(getCS, Model);
    TEXT(getCS, Description);
    TEXT(getCS, OwnerName);
    TEXT(getCS, OwnerContact);
}

static void showOperatingSystem(void)
{
    printf("Operating system\n");
    TEXT(getOS, Name);
    TEXT(getOS, Version);
    TEXT(getOS, CodeSet);
    TEXT(getOS, LanguageEdition);
    INTEGER(getOS, Type);
    INTEGER(getOS, Distributed);
    INTEGER(getOS, CurrentTimeZone);
    UNSIGNED(getOS, MaxNumberOfProcesses);
    UNSIGNED(getOS, NumberOfProcesses);
    UNSIGNED(getOS, NumberOfUsers);
    UNSIGNED(getOS, NumberOfLicensedUsers);
    LONG(getOS, MaxProcessMemorySize);
    LONG(getOS, FreeSpaceInPagingFiles);
    LONG(getOS, SizeStoredInPagingFiles);
    LONG(getOS, TotalVisibleMemorySize);
    LONG(getOS, FreePhysicalMemory);
    LONG(getOS, FreeVirtualMemory);
    LONG(getOS, TotalVirtualMemorySize);
    LONG(getOS, TotalSwapSpaceSize);
    TEXT(getOS, InstallDate);
    TEXT(getOS, LocalDateTime);
    TEXT(getOS, LastBootUpTime);
}

static void showBios(void)
{
    printf("BIOS\n");
    TEXT(getBios, Manufacturer);
    TEXT(getBios, Version);
    TEXT(getBios, BuildNumber);
    TEXT(getBios, SerialNumber);
    TEXT(getBios, CurrentLanguage);
    showTexts("Languages", FIND(List, getBiosLanguages), 8 + 254 * 9 + (unsigned long long)tableSize);
    TEXT(getBios, ReleaseDate);
    INTEGER(getBios, SmBiosMajorVersion);
    INTEGER(getBios, SmBiosMinorVersion);
    FIND(MeasuredText, getBiosSmBiosVersion)(text);
    printf("  SmBiosVersion: %s\n", text);
    LONG(getBios, LoadedStartingAddress);
    LONG(getBios, LoadedEndingAddress);
}

static void showChassis(void)
{
    printf("Chassis\n");
    TEXT(getChassis, Manufacturer);
    TEXT(getChassis, Version);
    TEXT(getChassis, SerialNumber);
    TEXT(getChassis, AssetTag);
}

static void showBaseBoard(unsigned int index)
{
    printf("Base board %u\n", index);
    TEXT_AT(getBB, Manufacturer, index);
    TEXT_AT(getBB, Product, index);
    TEXT_AT(getBB, Version, index);
    TEXT_AT(getBB, SerialNumber, index);
    TEXT_AT(getBB, AssetTag, index);
    TEXT_AT(getBB, Location, index);
}

static void showConfigurationOptions(void)
{
    printf("Configuration\n");
    showTexts("Options", FIND(List, getBBConfigurationOptions), 8 + 328 * (unsigned long long)tableSize);
}

static void showCache(unsigned int index)
{
    printf("Cache %u\n", index);
    TEXT_AT(getCache, Designation, index);
    TEXT_AT(getCache, Purpose, index);
    INTEGER_AT(getCache, Associativity, index);
    INTEGER_AT(getCache, WritePolicy, index);
    INTEGER_AT(getCache, Type, index);
    INTEGER_AT(getCache, Location, index);
    INTEGER_AT(getCache, Level, index);
    INTEGER_AT(getCache, ErrorCorrectionType, index);
    UNSIGNED_AT(getCache, Speed, index);
    UNSIGNED_AT(getCache, Size, index);
    UNSIGNED_AT(getCache, MaximumSize, index);
    UNSIGNED_AT(getCache, InstalledSize, index);
    LONG_AT(getCache, NumberOfBlocks, index);
    showIntegers("SupportedSramType", FIND(ListAt, getCacheSupportedSramType), index);
    showIntegers("CurrentSramType", FIND(ListAt, getCacheCurrentSramType), index);
}

static void showPort(unsigned int index)
{
    printf("Port %u\n", index);
    TEXT_AT(getPort, Name, index);
    TEXT_AT(getPort, Model, index);
    TEXT_AT(getPort, Manufacturer, index);
    TEXT_AT(getPort, InternalReferenceDesignator, index);
    TEXT_AT(getPort, ExternalReferenceDesignator, index);
    INTEGER_AT(getPort, Type, index);
    showIntegers("Connectors", FIND(ListAt, getPortConnectors), index);
}

static void showSlot(unsigned int index)
{
    printf("Slot %u\n", index);
    TEXT_AT(getSlot, Designation, index);
}

static void showFirmware(unsigned int index)
{
    printf("Firmware %u\n", index);
    TEXT_AT(getFirmware, Name, index);
    TEXT_AT(getFirmware, Version, index);
    TEXT_AT(getFirmware, Manufacturer, index);
    TEXT_AT(getFirmware, SerialNumber, index);
    TEXT_AT(getFirmware, BuildNumber, index);
    TEXT_AT(getFirmware, ReleaseDate, index);
}

static void showEach(Integer* count, void (*show)(unsigned int index))
{
    const unsigned int records = (unsigned int)count();
    unsigned int index;
    for (index = 0; index < records; ++index)
        show(index);
}

/* Loads the reader library that serves a dump. It must come before the module: the loader then takes it for the reader
 * that the module asks for, as both have the same name. */
static void serveDump(const char* modulePath, const char* dump)
{
    const char* slash = strrchr(modulePath, '/');
    const int directory = slash ? (int)(slash - modulePath) + 1 : 0;
    const char* reader = "from-dump/libvqsmbios.so";
    char* path = allocate((unsigned long long)directory + strlen(reader) + 1);
    void (*serve)(const char* file);
    void* library;
    sprintf(path, "%.*s%s", directory, modulePath, reader);
    library = dlopen(path, RTLD_NOW | RTLD_GLOBAL);
    if (!library)
        fail(path, dlerror());
    *(void**)&serve = dlsym(library, "vqServeSmBiosDump");
    if (!serve)
        fail(path, dlerror());
    serve(dump);
    free(path);
}

/* The full path of a file of the command line, which is looked for where the user stands. */
static char* fullPath(const char* file)
{
    char* path = realpath(file, NULL);
    if (!path)
        fail(file, strerror(errno));
    return path;
}

int main(int argc, char** argv)
{
    char* modulePath;
    char* dump;
    if (argc != 2 && argc != 3) {
        fprintf(stderr, "usage: flat_inventory MODULE [DUMP]\n");
        return 2;
    }
    modulePath = fullPath(argv[1]);
    dump = argc == 3 ? fullPath(argv[2]) : NULL;
    /* The module loads ../lib/libqorxenprobe.so, where there is one. That must not be a file that someone left where
     * the user stands. */
    if (chdir("/") != 0)
        fail("/", strerror(errno));
    if (dump)
        serveDump(modulePath, dump);
    module = dlopen(modulePath, RTLD_NOW);
    if (!module)
        fail(modulePath, dlerror());

    FIND(Integer, init)();
    tableSize = findTableSize(dump);
    text = allocateText();
    showComputerSystem();
    showOperatingSystem();
    showBios();
    showEach(FIND(Integer, getFirmwareCount), showFirmware);
    showChassis();
    showEach(FIND(Integer, getBBCount), showBaseBoard);
    showConfigurationOptions();
    showEach(FIND(Integer, getCacheCount), showCache);
    showEach(FIND(Integer, getPortCount), showPort);
    showEach(FIND(Integer, getSlotCount), showSlot);

    free(text);
    dlclose(module);
    free(modulePath);
    free(dump);
    return 0;
}
