// systemprovider_load.h over a module that gives the name of each function: which field has what, and what is refused.
// By the linker's --wrap: the table of the machine and where the library stands, seen from the objects under test.

#include "flat/systemprovider_load.h"
#include "support/smbios/HostSource.h"
#include "support/smbios/SmBios.h"
#include "tests/flat/load/GuardedMemory.h"
#include "tests/flat/load/StubFlat.h"
#include "tests/testing/EntryPoints.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace
{
const std::string Stub = VQ_STUB;

bool tableFails = false;
VQ::RawTables tables;
bool placeIsUnknown = false;

using Module = std::unique_ptr<SystemProvider, void (*)(SystemProvider*)>;
using Inventory = std::unique_ptr<SystemProviderInventory, void (*)(SystemProviderInventory*)>;

Module open(const std::string& module)
{
    return {systemProviderOpen(module.c_str(), nullptr), systemProviderClose};
}

Inventory read(const Module& module)
{
    return {systemProviderRead(module.get()), systemProviderFree};
}

// An environment variable that is gone again at the end of the block.
class Variable
{
public:
    Variable(const char* name, const char* value) : _name(name) { setenv(name, value, 1); }
    ~Variable() { unsetenv(_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* _name;
};

std::vector<std::string> textsOf(const SystemProviderTexts& texts)
{
    return {texts.values, texts.values + texts.count};
}

std::vector<int> numbersOf(const SystemProviderNumbers& numbers)
{
    return {numbers.values, numbers.values + numbers.count};
}

// What a function of this type gives.
template <class Number> Number expected(Number (*)(), const char* name)
{
    return numberOf<Number>(name);
}

template <class Number> Number expected(Number (*)(unsigned int), const char* name, unsigned int index)
{
    return numberOf<Number>(name) ^ static_cast<Number>(index);
}

// The file that the module's functions are in.
std::string fileOf(const Module& module)
{
    Dl_info info = {};
    const SystemProviderFunctions* functions = systemProviderFunctions(module.get());
    if (!functions || dladdr(reinterpret_cast<const void*>(functions->init), &info) == 0)
        return systemProviderError();
    return std::filesystem::canonical(info.dli_fname);
}
}

VQ::RawTables tablesOfTheTest(const VQ::HostPaths& paths) __asm__("__wrap__ZN2VQ14readHostTablesERKNS_9HostPathsE");
int placeInTheTest(const void* address, Dl_info* info) __asm__("__wrap_dladdr");
int realPlace(const void* address, Dl_info* info) __asm__("__real_dladdr");

VQ::RawTables tablesOfTheTest(const VQ::HostPaths& paths)
{
    if (tableFails)
        throw VQ::SmBiosError(paths.tablesDirectory + " is damaged");
    return tables;
}

int placeInTheTest(const void* address, Dl_info* info)
{
    return placeIsUnknown ? 0 : realPlace(address, info);
}

#define SAYS(field, function) EXPECT_STREQ(field, #function)
#define SAYS_OF(field, function) EXPECT_EQ(field, textOf(#function, i))
#define HAS(field, function) EXPECT_EQ(field, expected(SystemProviderFunctions().function, #function))
#define HAS_OF(field, function) EXPECT_EQ(field, expected(SystemProviderFunctions().function, #function, i))
#define HAVE_OF(field, function)                                                                                       \
    EXPECT_EQ(numbersOf(field), (std::vector<int>{numberOf<int>(#function), static_cast<int>(i)}))

class Fields : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(_inventory, nullptr) << systemProviderError(); }

    Variable _zone{"TZ", "XYZ-1:30"}; // of the date of the BIOS, which is made while the module is loaded
    Inventory _inventory = read(open(Stub));
};

TEST_F(Fields, OfTheComputerSystem)
{
    const SystemProviderComputerSystem& computer = *systemProviderComputerSystem(_inventory.get());
    SAYS(computer.name, getCSName);
    SAYS(computer.model, getCSModel);
    SAYS(computer.description, getCSDescription);
    SAYS(computer.ownerName, getCSOwnerName);
    SAYS(computer.ownerContact, getCSOwnerContact);
}

TEST_F(Fields, OfTheOperatingSystem)
{
    const SystemProviderOperatingSystem& os = *systemProviderOperatingSystem(_inventory.get());
    SAYS(os.name, getOSName);
    SAYS(os.version, getOSVersion);
    SAYS(os.codeSet, getOSCodeSet);
    SAYS(os.languageEdition, getOSLanguageEdition);
    HAS(os.type, getOSType);
    HAS(os.distributed, getOSDistributed);
    HAS(os.currentTimeZone, getOSCurrentTimeZone);
    HAS(os.maxNumberOfProcesses, getOSMaxNumberOfProcesses);
    HAS(os.numberOfProcesses, getOSNumberOfProcesses);
    HAS(os.numberOfUsers, getOSNumberOfUsers);
    HAS(os.numberOfLicensedUsers, getOSNumberOfLicensedUsers);
    HAS(os.maxProcessMemorySize, getOSMaxProcessMemorySize);
    HAS(os.freeSpaceInPagingFiles, getOSFreeSpaceInPagingFiles);
    HAS(os.sizeStoredInPagingFiles, getOSSizeStoredInPagingFiles);
    HAS(os.totalVisibleMemorySize, getOSTotalVisibleMemorySize);
    HAS(os.freePhysicalMemory, getOSFreePhysicalMemory);
    HAS(os.freeVirtualMemory, getOSFreeVirtualMemory);
    HAS(os.totalVirtualMemorySize, getOSTotalVirtualMemorySize);
    HAS(os.totalSwapSpaceSize, getOSTotalSwapSpaceSize);
    SAYS(os.installDate, getOSInstallDate);
    SAYS(os.localDateTime, getOSLocalDateTime);
    SAYS(os.lastBootUpTime, getOSLastBootUpTime);
}

TEST_F(Fields, OfTheBios)
{
    const SystemProviderBios& bios = *systemProviderBios(_inventory.get());
    SAYS(bios.manufacturer, getBiosManufacturer);
    SAYS(bios.version, getBiosVersion);
    SAYS(bios.buildNumber, getBiosBuildNumber);
    SAYS(bios.serialNumber, getBiosSerialNumber);
    SAYS(bios.currentLanguage, getBiosCurrentLanguage);
    EXPECT_EQ(textsOf(bios.languages), (std::vector<std::string>{"getBiosLanguages", "twice"}));
    EXPECT_STREQ(bios.releaseDate, "20090214063607.000000+090"); // of the record
    HAS(bios.smBiosMajorVersion, getBiosSmBiosMajorVersion);
    HAS(bios.smBiosMinorVersion, getBiosSmBiosMinorVersion);
    SAYS(bios.smBiosVersion, getBiosSmBiosVersion);
    HAS(bios.loadedStartingAddress, getBiosLoadedStartingAddress);
    HAS(bios.loadedEndingAddress, getBiosLoadedEndingAddress);
}

TEST_F(Fields, OfChassisAndOptions)
{
    const SystemProviderChassis& chassis = *systemProviderChassis(_inventory.get());
    SAYS(chassis.manufacturer, getChassisManufacturer);
    SAYS(chassis.version, getChassisVersion);
    SAYS(chassis.serialNumber, getChassisSerialNumber);
    SAYS(chassis.assetTag, getChassisAssetTag);
    EXPECT_EQ(textsOf(*systemProviderConfigurationOptions(_inventory.get())),
              std::vector<std::string>{"getBBConfigurationOptions"});
}

TEST_F(Fields, OfFirmware)
{
    ASSERT_EQ(systemProviderFirmwareCount(_inventory.get()), static_cast<size_t>(StubFirmware));
    for (unsigned int i = 0; i < StubFirmware; ++i) {
        const SystemProviderFirmware& firmware = *systemProviderFirmware(_inventory.get(), i);
        SAYS_OF(firmware.name, getFirmwareName);
        SAYS_OF(firmware.version, getFirmwareVersion);
        SAYS_OF(firmware.manufacturer, getFirmwareManufacturer);
        SAYS_OF(firmware.serialNumber, getFirmwareSerialNumber);
        SAYS_OF(firmware.buildNumber, getFirmwareBuildNumber);
        SAYS_OF(firmware.releaseDate, getFirmwareReleaseDate);
    }
}

TEST_F(Fields, OfBaseBoards)
{
    ASSERT_EQ(systemProviderBaseBoardCount(_inventory.get()), static_cast<size_t>(StubBaseBoards));
    for (unsigned int i = 0; i < StubBaseBoards; ++i) {
        const SystemProviderBaseBoard& board = *systemProviderBaseBoard(_inventory.get(), i);
        SAYS_OF(board.manufacturer, getBBManufacturer);
        SAYS_OF(board.product, getBBProduct);
        SAYS_OF(board.version, getBBVersion);
        SAYS_OF(board.serialNumber, getBBSerialNumber);
        SAYS_OF(board.assetTag, getBBAssetTag);
        SAYS_OF(board.location, getBBLocation);
    }
}

TEST_F(Fields, OfCaches)
{
    ASSERT_EQ(systemProviderCacheCount(_inventory.get()), static_cast<size_t>(StubCaches));
    for (unsigned int i = 0; i < StubCaches; ++i) {
        const SystemProviderCache& cache = *systemProviderCache(_inventory.get(), i);
        SAYS_OF(cache.designation, getCacheDesignation);
        SAYS_OF(cache.purpose, getCachePurpose);
        HAS_OF(cache.associativity, getCacheAssociativity);
        HAS_OF(cache.writePolicy, getCacheWritePolicy);
        HAS_OF(cache.type, getCacheType);
        HAS_OF(cache.location, getCacheLocation);
        HAS_OF(cache.level, getCacheLevel);
        HAS_OF(cache.errorCorrectionType, getCacheErrorCorrectionType);
        HAS_OF(cache.speed, getCacheSpeed);
        HAS_OF(cache.size, getCacheSize);
        HAS_OF(cache.maximumSize, getCacheMaximumSize);
        HAS_OF(cache.installedSize, getCacheInstalledSize);
        HAS_OF(cache.numberOfBlocks, getCacheNumberOfBlocks);
        HAVE_OF(cache.supportedSramType, getCacheSupportedSramType);
        HAVE_OF(cache.currentSramType, getCacheCurrentSramType);
    }
}

TEST_F(Fields, OfPorts)
{
    ASSERT_EQ(systemProviderPortCount(_inventory.get()), static_cast<size_t>(StubPorts));
    for (unsigned int i = 0; i < StubPorts; ++i) {
        const SystemProviderPort& port = *systemProviderPort(_inventory.get(), i);
        SAYS_OF(port.name, getPortName);
        SAYS_OF(port.model, getPortModel);
        SAYS_OF(port.manufacturer, getPortManufacturer);
        SAYS_OF(port.internalReferenceDesignator, getPortInternalReferenceDesignator);
        SAYS_OF(port.externalReferenceDesignator, getPortExternalReferenceDesignator);
        HAS_OF(port.type, getPortType);
        HAVE_OF(port.connectors, getPortConnectors);
    }
}

TEST_F(Fields, OfSlots)
{
    ASSERT_EQ(systemProviderSlotCount(_inventory.get()), static_cast<size_t>(StubSlots));
    for (unsigned int i = 0; i < StubSlots; ++i)
        SAYS_OF(systemProviderSlot(_inventory.get(), i)->designation, getSlotDesignation);
}

TEST(StubModule, IsThatOfTheInstallationElseThatBesideTheLibrary)
{
    const std::filesystem::path beside = Stub, installed = beside.parent_path() / VQ_INSTALLED_MODULE;
    std::filesystem::remove_all(installed.parent_path());
    EXPECT_EQ(fileOf(open("")), beside);
    std::filesystem::create_directory(installed.parent_path());
    std::filesystem::copy_file(beside, installed);
    EXPECT_EQ(fileOf(open("")), installed);
    std::filesystem::remove_all(installed.parent_path());
    placeIsUnknown = true;
    EXPECT_EQ(fileOf(open("")), "cannot tell where this library stands: name the module");
    placeIsUnknown = false;
}

TEST(StubModule, IsUnloadedWhenClosed)
{
    open(Stub);
    EXPECT_EQ(dlopen(Stub.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(StubFailure, OfTheMachinesTableIsTold)
{
    const Module module = open(Stub);
    tableFails = true;
    EXPECT_EQ(read(module), nullptr);
    tableFails = false;
    EXPECT_STREQ(systemProviderError(), "/sys/firmware/dmi/tables is damaged");
}

// The room for a list is asked for whole, however little of its number 32 bits would hold.
TEST(StubFailure, OfRoomForMoreThan4GibibytesOfOptionsIsALackOfMemory)
{
    if (!GuardsMemory)
        GTEST_SKIP() << "the address sanitizer keeps no process below a limit";
    VQ::Buffer& structures = tables.structures;
    structures = {12, 5, 0, 0, 254, 0, 0}; // 254 options of 9 bytes and more
    for (int doubling = 0; doubling < 21; ++doubling) {
        const VQ::Buffer half = structures;
        structures.insert(structures.end(), half.begin(), half.end());
    }
    const Bytes entryPoint = entryPoint64(0, static_cast<std::uint32_t>(structures.size()));
    tables.entryPoint.assign(entryPoint.begin(), entryPoint.end());
    const Module module = open(Stub);
    rlimit limit = {};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &limit), 0);
    const rlimit lower = {std::min<rlim_t>(limit.rlim_max, 3u << 30), limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &lower), 0);
    EXPECT_EQ(read(module), nullptr);
    EXPECT_STREQ(systemProviderError(), "not enough memory");
    setrlimit(RLIMIT_AS, &limit);
    tables = {};
}

TEST(StubFailure, OfInitOverTheMachineNamesTheTable)
{
    const Variable fails("VQ_STUB_INIT", "out_of_range");
    EXPECT_EQ(read(open(Stub)), nullptr);
    EXPECT_STREQ(systemProviderError(),
                 "the SMBIOS table: an OEM string has a bracketed part of one character, such as -[X]-, at which the "
                 "module fails (beyond the end): update the firmware of the machine");
}

TEST(StubFailure, OfAListThatIsNone)
{
    const Variable damaged("VQ_STUB_LIST", "damaged");
    EXPECT_EQ(read(open(Stub)), nullptr);
    EXPECT_STREQ(systemProviderError(), "the module wrote a list that can't be read: it is no module of this version");
}
