// The BMC's firmware, read through stand-ins for the IPMI access library.

#include "inventory/IpmiFirmware.h"
#include "support/common/Text.h"
#include "tests/inventory/IpmiStandIn.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
// Of the sanitizer's runtime, whose headers not every compiler package brings along.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

using Lines = std::vector<std::string>;

// Takes the place of the support library's function in this program: the same, but the version "9.9" fails.
std::string VQ::make_string(const char* text)
{
    std::string taken = text ? text : "";
    if (taken == "9.9")
        throw std::runtime_error("cannot take this version over");
    return taken;
}

namespace
{
std::string pathOfVariant(const std::string& variant)
{
    return VQ_IPMI_DIR "/" + variant + "/libqoripmi.so";
}

// A stand-in that is in the process already: the loader then takes it for the library of that name, and a test can say
// what it answers and see what it was asked.
class LoadedStandIn
{
public:
    explicit LoadedStandIn(const std::string& variant)
        : _path(pathOfVariant(variant)), _handle(dlopen(_path.c_str(), RTLD_NOW)),
          _standIn(_handle ? static_cast<IpmiStandIn*>(dlsym(_handle, "ipmiStandIn")) : nullptr)
    {
        if (!_standIn)
            throw std::runtime_error("no stand-in " + _path);
    }
    ~LoadedStandIn()
    {
        if (_handle)
            dlclose(_handle);
        while (isOpen())
            dlclose(VQ::hLib); // what the library under test left open
    }
    LoadedStandIn(const LoadedStandIn&) = delete;
    LoadedStandIn& operator=(const LoadedStandIn&) = delete;

    IpmiStandIn& operator*() { return *_standIn; }
    IpmiStandIn* operator->() { return _standIn; }
    void* handle() const { return _handle; }

    // Gives up the test's own hold; true when another one keeps the library in the process.
    bool staysOpenByItself()
    {
        dlclose(_handle);
        _handle = nullptr;
        return isOpen();
    }

private:
    bool isOpen() const
    {
        void* handle = dlopen(_path.c_str(), RTLD_NOW | RTLD_NOLOAD);
        if (handle)
            dlclose(handle);
        return handle != nullptr;
    }

    std::string _path;
    void* _handle;
    IpmiStandIn* _standIn;
};

void setIdentity(IpmiStandIn& standIn, std::uint32_t manufacturer, std::uint16_t product, int major, int minor)
{
    for (int i = 0; i < 4; ++i)
        standIn.identity[4 + i] = static_cast<unsigned char>(manufacturer >> (8 * i));
    standIn.identity[8] = static_cast<unsigned char>(product);
    standIn.identity[9] = static_cast<unsigned char>(product >> 8);
    standIn.identity[10] = static_cast<unsigned char>(major);
    standIn.identity[11] = static_cast<unsigned char>(minor);
}

// Runs the current test once more in a process whose loader finds the variant by its normal search. True in there.
bool inProcessThatFinds(const std::string& variant)
{
    if (std::getenv("VQ_TEST_FINDS_IPMI"))
        return true;
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter = std::string("--gtest_filter=") + test.test_suite_name() + "." + test.name();
    const char* before = std::getenv("LD_LIBRARY_PATH");
    const std::string search = VQ_IPMI_DIR "/" + variant + (before ? std::string(":") + before : "");
    const pid_t child = fork();
    if (child == 0) {
        setenv("VQ_TEST_FINDS_IPMI", "1", 1);
        setenv("LD_LIBRARY_PATH", search.c_str(), 1);
        execl("/proc/self/exe", "ipmi_firmware_test", filter.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "in the process of its own, status " << status;
    return false;
}

// What grows when something is not given back.
struct Footprint
{
    long libraryMappings = 0; ///< of the IPMI access library
    long otherMappings = 0;
    std::size_t allocatedBytes = 0;
};

Footprint footprint()
{
    Footprint now;
#ifdef __SANITIZE_ADDRESS__
    now.allocatedBytes = __sanitizer_get_current_allocated_bytes();
#else
    now.allocatedBytes = mallinfo2().uordblks;
#endif
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        ++(line.find("libqoripmi.so") == std::string::npos ? now.otherMappings : now.libraryMappings);
    return now;
}

void expectNoGrowth(const Footprint& before, const Footprint& after)
{
    EXPECT_EQ(after.libraryMappings, before.libraryMappings);
    EXPECT_LE(after.allocatedBytes, before.allocatedBytes + 4096);
#ifndef __SANITIZE_ADDRESS__ // which maps memory to keep what was freed
    EXPECT_LE(after.otherMappings, before.otherMappings);
#endif
}

class IpmiFirmware : public testing::Test
{
protected:
    void SetUp() override
    {
        if (std::getenv("VQ_TEST_FINDS_IPMI"))
            return;
        if (void* own = dlopen("libqoripmi.so", RTLD_LAZY)) {
            dlclose(own);
            GTEST_SKIP() << "this machine has an IPMI access library of its own, which would be read";
        }
        VQ::hLib = nullptr;
        for (VQ::interfaceStruct& entry : VQ::ipmiintStruct)
            entry.function = &untouched;
    }

    char untouched = 0; // its address stands in every entry before a test
};

using InterfaceLink = IpmiFirmware;
}

// ---- layout and names

TEST(IpmiInterface, NamesTheLibraryAndItsFunctions)
{
    EXPECT_STREQ(VQ::IPMILib, "libqoripmi.so");
    EXPECT_STREQ(VQ::ipmiintStruct[0].name, "ipmiOpenLocal");
    EXPECT_STREQ(VQ::ipmiintStruct[1].name, "ipmiClose");
    EXPECT_STREQ(VQ::ipmiintStruct[2].name, "ipmiBmcGet");
    EXPECT_EQ(sizeof VQ::ipmiintStruct / sizeof VQ::ipmiintStruct[0], 3u);
    EXPECT_EQ(VQ::hLib, nullptr);
}

TEST(IpmiInterface, EntryIsANameOf128BytesAndAPointer)
{
    EXPECT_EQ(offsetof(VQ::interfaceStruct, name), 0u);
    EXPECT_EQ(sizeof(VQ::interfaceStruct::name), 128u);
    EXPECT_EQ(offsetof(VQ::interfaceStruct, function), 128u);
    EXPECT_EQ(sizeof(VQ::interfaceStruct), sizeof(void*) == 4 ? 132u : 136u);
}

// ---- names of manufacturers and products

TEST(IpmiNames, OfManufacturers)
{
    EXPECT_EQ(VQ::manStr(2), "QOR");
    EXPECT_EQ(VQ::manStr(343), "Intel");
    EXPECT_EQ(VQ::manStr(10400), "0x0028A0");
    EXPECT_EQ(VQ::manStr(0), "0x000000");
    EXPECT_EQ(VQ::manStr(1), "0x000001");
    EXPECT_EQ(VQ::manStr(342), "0x000156");
    EXPECT_EQ(VQ::manStr(0xFFFFFFFF), "0xFFFFFFFF");
}

TEST(IpmiNames, OfProducts)
{
    EXPECT_EQ(VQ::prodStr(2, 0x0003), "Norvik 410 BMC");
    EXPECT_EQ(VQ::prodStr(2, 0x0004), "Norvik 420 BMC");
    EXPECT_EQ(VQ::prodStr(2, 0x0006), "Norvik 430 BMC");
    EXPECT_EQ(VQ::prodStr(2, 0x0007), "Norvik 440 BMC");
    EXPECT_EQ(VQ::prodStr(2, 0x0043), "NB BMC");
    EXPECT_EQ(VQ::prodStr(2, 0x8835), "Talvo 510 BMC");
    EXPECT_EQ(VQ::prodStr(2, 0x8848), "Talvo 520 BMC");
}

TEST(IpmiNames, OfAProductNotKnownIsItsIdWhoeverMadeIt)
{
    EXPECT_EQ(VQ::prodStr(2, 0x0020), "BMC(0x0020)");
    EXPECT_EQ(VQ::prodStr(2, 0x0005), "BMC(0x0005)");
    EXPECT_EQ(VQ::prodStr(343, 0x0003), "BMC(0x0003)");
    EXPECT_EQ(VQ::prodStr(10400, 0x8848), "BMC(0x8848)");
    EXPECT_EQ(VQ::prodStr(0, 0), "BMC(0x0000)");
    EXPECT_EQ(VQ::prodStr(2, 0xFFFF), "BMC(0xFFFF)");
}

// ---- opening and closing the library

TEST_F(InterfaceLink, FillsEveryEntry)
{
    LoadedStandIn standIn("whole");
    EXPECT_EQ(VQ::openInterfaceLink(VQ::IPMILib, VQ::ipmiintStruct, 3), 1);
    EXPECT_EQ(VQ::hLib, standIn.handle());
    EXPECT_EQ(VQ::ipmiintStruct[0].function, dlsym(standIn.handle(), "ipmiOpenLocal"));
    EXPECT_EQ(VQ::ipmiintStruct[1].function, dlsym(standIn.handle(), "ipmiClose"));
    EXPECT_EQ(VQ::ipmiintStruct[2].function, dlsym(standIn.handle(), "ipmiBmcGet"));
    VQ::closeInterfaceLink();
    EXPECT_EQ(VQ::hLib, standIn.handle()); // not reset
    EXPECT_FALSE(standIn.staysOpenByItself());
}

TEST_F(InterfaceLink, LooksNothingUpForACountBelow1AndIsOpen)
{
    for (const int count : {0, -1}) {
        LoadedStandIn standIn("whole");
        EXPECT_EQ(VQ::openInterfaceLink(VQ::IPMILib, VQ::ipmiintStruct, count), 1);
        EXPECT_EQ(VQ::hLib, standIn.handle());
        EXPECT_EQ(VQ::ipmiintStruct[0].function, &untouched);
        EXPECT_TRUE(standIn.staysOpenByItself());
    }
}

TEST_F(InterfaceLink, LooksUpNoMoreThanTheCount)
{
    LoadedStandIn standIn("whole");
    EXPECT_EQ(VQ::openInterfaceLink(VQ::IPMILib, VQ::ipmiintStruct, 1), 1);
    EXPECT_EQ(VQ::ipmiintStruct[0].function, dlsym(standIn.handle(), "ipmiOpenLocal"));
    EXPECT_EQ(VQ::ipmiintStruct[1].function, &untouched);
}

TEST_F(InterfaceLink, PassesOverAnEntryWithoutAName)
{
    LoadedStandIn standIn("whole");
    VQ::interfaceStruct table[3] = {{"", &untouched}, {"ipmiClose", nullptr}, {"", nullptr}};
    EXPECT_EQ(VQ::openInterfaceLink(VQ::IPMILib, table, 3), 1);
    EXPECT_EQ(table[0].function, &untouched);
    EXPECT_EQ(table[1].function, dlsym(standIn.handle(), "ipmiClose"));
    EXPECT_EQ(table[2].function, nullptr);
}

TEST_F(InterfaceLink, LooksUpANameOfOneLetter)
{
    LoadedStandIn standIn("whole");
    VQ::interfaceStruct table[1] = {{"x", &untouched}};
    EXPECT_EQ(VQ::openInterfaceLink(VQ::IPMILib, table, 1), 0);
    EXPECT_EQ(table[0].function, nullptr);
}

TEST_F(InterfaceLink, EndsAtTheFirstFunctionThatIsMissingAndStaysOpen)
{
    LoadedStandIn standIn("whole");
    VQ::interfaceStruct table[3] = {{"ipmiClose", nullptr}, {"noSuchFunction", &untouched}, {"ipmiBmcGet", &untouched}};
    EXPECT_EQ(VQ::openInterfaceLink(VQ::IPMILib, table, 3), 0);
    EXPECT_EQ(table[0].function, dlsym(standIn.handle(), "ipmiClose"));
    EXPECT_EQ(table[1].function, nullptr);
    EXPECT_EQ(table[2].function, &untouched);
    EXPECT_EQ(VQ::hLib, standIn.handle());
    EXPECT_TRUE(standIn.staysOpenByItself());
}

TEST_F(InterfaceLink, FailsWithoutTheLibraryAndLeavesTheTable)
{
    char none[] = "libqoripmi-that-is-not-there.so";
    VQ::hLib = &untouched;
    EXPECT_EQ(VQ::openInterfaceLink(none, VQ::ipmiintStruct, 3), 0);
    EXPECT_EQ(VQ::hLib, nullptr);
    for (const VQ::interfaceStruct& entry : VQ::ipmiintStruct)
        EXPECT_EQ(entry.function, &untouched);
    EXPECT_EQ(VQ::openInterfaceLink(none, VQ::ipmiintStruct, 0), 0);
    VQ::closeInterfaceLink(); // nothing to close
    EXPECT_EQ(VQ::hLib, nullptr);
}

// ---- reading the BMC

TEST_F(IpmiFirmware, IsNoneWithoutTheLibrary)
{
    VQ::hLib = &untouched;
    EXPECT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    EXPECT_EQ(VQ::hLib, nullptr);
    for (const VQ::interfaceStruct& entry : VQ::ipmiintStruct)
        EXPECT_EQ(entry.function, &untouched);
}

TEST_F(IpmiFirmware, IsOneRecordOfTheBmc)
{
    LoadedStandIn standIn("whole");
    const std::vector<VQ::Firmware> firmwares = VQ::getIpmiFirmwareInstances();
    ASSERT_EQ(firmwares.size(), 1u);
    EXPECT_EQ(firmwares[0].getName(), "NB BMC");
    EXPECT_EQ(firmwares[0].getManufacturer(), "QOR");
    EXPECT_EQ(firmwares[0].getVersion(), "1.17");
    EXPECT_EQ(firmwares[0].getSerialNumber(), "");
    EXPECT_EQ(firmwares[0].getBuildNumber(), "");
    EXPECT_EQ(text(firmwares[0].getReleaseDate().toString()), "00000000000000.000000:000");
}

TEST_F(IpmiFirmware, IsReadBetweenOpenAndCloseOfOneSession)
{
    LoadedStandIn standIn("whole");
    VQ::getIpmiFirmwareInstances();
    EXPECT_STREQ(standIn->calls, "ogc");
    const auto wholePointer = static_cast<std::uintptr_t>(0x9ABCDEF012345678ull);
    EXPECT_EQ(standIn->sessionOfGet, wholePointer);
    EXPECT_EQ(standIn->sessionOfClose, wholePointer);
}

TEST_F(IpmiFirmware, GivesABufferThatAnyIdentityStructureMayStandIn)
{
    LoadedStandIn standIn("whole");
    VQ::getIpmiFirmwareInstances(); // all 32 bytes are written
    EXPECT_EQ(standIn->bufferOfGet % alignof(std::max_align_t), 0u);
}

TEST_F(IpmiFirmware, LeavesTheLibraryClosedWithHandleAndFunctionsAsTheyWere)
{
    LoadedStandIn standIn("whole");
    void* const handle = standIn.handle();
    void* const open = dlsym(handle, "ipmiOpenLocal");
    void* const close = dlsym(handle, "ipmiClose");
    void* const get = dlsym(handle, "ipmiBmcGet");
    VQ::getIpmiFirmwareInstances();
    EXPECT_FALSE(standIn.staysOpenByItself());
    EXPECT_EQ(VQ::hLib, handle);
    EXPECT_EQ(VQ::ipmiintStruct[0].function, open);
    EXPECT_EQ(VQ::ipmiintStruct[1].function, close);
    EXPECT_EQ(VQ::ipmiintStruct[2].function, get);
}

TEST_F(IpmiFirmware, IsNoneWithoutASession)
{
    LoadedStandIn standIn("whole");
    standIn->session = 0;
    EXPECT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    EXPECT_STREQ(standIn->calls, "o"); // neither read nor closed
    EXPECT_EQ(VQ::hLib, standIn.handle());
    EXPECT_FALSE(standIn.staysOpenByItself());
}

TEST_F(IpmiFirmware, IsNoneWhenTheReadFailsAndTheSessionIsClosed)
{
    for (const int result : {1, -1, 0x100}) {
        LoadedStandIn standIn("whole");
        standIn->result = result;
        EXPECT_TRUE(VQ::getIpmiFirmwareInstances().empty());
        EXPECT_STREQ(standIn->calls, "ogc");
        EXPECT_EQ(standIn->sessionOfClose, standIn->session);
        EXPECT_EQ(VQ::hLib, standIn.handle());
        EXPECT_FALSE(standIn.staysOpenByItself());
    }
}

TEST_F(IpmiFirmware, IsNoneFromALibraryWithoutOpen)
{
    LoadedStandIn standIn("without-open");
    EXPECT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    EXPECT_STREQ(standIn->calls, "");
    EXPECT_EQ(VQ::hLib, standIn.handle());
    EXPECT_EQ(VQ::ipmiintStruct[0].function, nullptr);
    EXPECT_EQ(VQ::ipmiintStruct[1].function, &untouched);
    EXPECT_EQ(VQ::ipmiintStruct[2].function, &untouched);
    EXPECT_TRUE(standIn.staysOpenByItself());
}

TEST_F(IpmiFirmware, IsNoneFromALibraryWithoutClose)
{
    LoadedStandIn standIn("without-close");
    EXPECT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    EXPECT_STREQ(standIn->calls, "");
    EXPECT_EQ(VQ::hLib, standIn.handle());
    EXPECT_EQ(VQ::ipmiintStruct[0].function, dlsym(standIn.handle(), "ipmiOpenLocal"));
    EXPECT_EQ(VQ::ipmiintStruct[1].function, nullptr);
    EXPECT_EQ(VQ::ipmiintStruct[2].function, &untouched);
    EXPECT_TRUE(standIn.staysOpenByItself());
}

TEST_F(IpmiFirmware, IsNoneFromALibraryWithoutGet)
{
    LoadedStandIn standIn("without-get");
    EXPECT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    EXPECT_STREQ(standIn->calls, "");
    EXPECT_EQ(VQ::hLib, standIn.handle());
    EXPECT_EQ(VQ::ipmiintStruct[0].function, dlsym(standIn.handle(), "ipmiOpenLocal"));
    EXPECT_EQ(VQ::ipmiintStruct[1].function, dlsym(standIn.handle(), "ipmiClose"));
    EXPECT_EQ(VQ::ipmiintStruct[2].function, nullptr);
    EXPECT_TRUE(standIn.staysOpenByItself());
}

TEST_F(IpmiFirmware, MatchesProductsOfOneManufacturerOnly)
{
    LoadedStandIn standIn("whole");
    setIdentity(*standIn, 343, 0x0003, 0, 0);
    const VQ::Firmware firmware = VQ::getIpmiFirmwareInstances().at(0);
    EXPECT_EQ(firmware.getName(), "BMC(0x0003)");
    EXPECT_EQ(firmware.getManufacturer(), "Intel");
}

TEST_F(IpmiFirmware, ReadsTheManufacturerInAll32Bits)
{
    LoadedStandIn standIn("whole");
    setIdentity(*standIn, 0x12345678, 0x8848, 0, 0);
    const VQ::Firmware firmware = VQ::getIpmiFirmwareInstances().at(0);
    EXPECT_EQ(firmware.getName(), "BMC(0x8848)");
    EXPECT_EQ(firmware.getManufacturer(), "0x12345678");
}

TEST_F(IpmiFirmware, ReadsTheProductInAll16Bits)
{
    LoadedStandIn standIn("whole");
    setIdentity(*standIn, 2, 0x8848, 0, 0);
    EXPECT_EQ(VQ::getIpmiFirmwareInstances().at(0).getName(), "Talvo 520 BMC");
    setIdentity(*standIn, 2, 0x0143, 0, 0);
    EXPECT_EQ(VQ::getIpmiFirmwareInstances().at(0).getName(), "BMC(0x0143)");
}

TEST_F(IpmiFirmware, HasItsVersionInDecimalWithoutPadding)
{
    LoadedStandIn standIn("whole");
    setIdentity(*standIn, 2, 3, 2, 5);
    EXPECT_EQ(VQ::getIpmiFirmwareInstances().at(0).getVersion(), "2.5");
    setIdentity(*standIn, 2, 3, 0, 0);
    EXPECT_EQ(VQ::getIpmiFirmwareInstances().at(0).getVersion(), "0.0");
    setIdentity(*standIn, 2, 3, 255, 255);
    EXPECT_EQ(VQ::getIpmiFirmwareInstances().at(0).getVersion(), "255.255");
}

TEST_F(IpmiFirmware, ThatCannotBeDescribedIsAFailureOfTheList)
{
    LoadedStandIn standIn("whole");
    setIdentity(*standIn, 2, 3, 9, 9);
    EXPECT_THROW(VQ::GetFirmwareInstances(), std::runtime_error);
    RecordingInstanceHandler handler;
    EXPECT_THROW(TestProvider().enumerate(pathOf("QORTAL_BIOS"), handler), std::runtime_error);
    EXPECT_EQ(handler.calls, (Lines{"processing", "instance"}));
}

TEST_F(IpmiFirmware, ThatCannotBeDescribedLeavesNeitherSessionNorLibraryOpen)
{
    LoadedStandIn standIn("whole");
    setIdentity(*standIn, 2, 3, 9, 9);
    EXPECT_THROW(VQ::getIpmiFirmwareInstances(), std::runtime_error);
    EXPECT_STREQ(standIn->calls, "ogc");
    EXPECT_FALSE(standIn.staysOpenByItself());
}

TEST_F(IpmiFirmware, NeedsNoFunctionOfTheLibraryThatIsNotCalled)
{
    if (!inProcessThatFinds("with-a-missing-function"))
        return;
    EXPECT_EQ(VQ::getIpmiFirmwareInstances().size(), 1u);
}

// ---- in the lists

TEST_F(IpmiFirmware, FollowsTheFirmwareOfTheOemStrings)
{
    LoadedStandIn standIn("whole");
    TableBuilder table;
    table.type(11).byte(0x04, 2).string("First -[XXYT-1]-").string("Second -[XXET-2]-");
    table.type(11).byte(0x04, 1).string("Third -[XX8T-3]-");
    const ServedTable served(table);
    Lines names;
    for (const VQ::Firmware& firmware : VQ::GetFirmwareInstances())
        names.push_back(firmware.getName());
    EXPECT_EQ(names, (Lines{"First", "Second", "Third", "NB BMC"}));
}

TEST_F(IpmiFirmware, IsNotReadWhenAnOemStringFails)
{
    LoadedStandIn standIn("whole");
    const ServedTable served(TableBuilder().type(11).byte(0x04, 1).string("-[X]-"));
    EXPECT_THROW(VQ::GetFirmwareInstances(), std::out_of_range);
    EXPECT_STREQ(standIn->calls, "");
}

TEST_F(IpmiFirmware, MissingLeavesTheFirmwareOfTheOemStrings)
{
    LoadedStandIn standIn("without-get");
    const ServedTable served(TableBuilder().type(11).byte(0x04, 1).string("First -[XXYT-1]-"));
    RecordingInstanceHandler handler;
    TestProvider().enumerate(pathOf("QORTAL_BIOS"), handler);
    EXPECT_EQ(handler.calls, (Lines{"processing", "instance", "instance", "complete"}));
}

TEST_F(IpmiFirmware, IsFoundByTheLoadersNormalSearchAndPublished)
{
    if (!inProcessThatFinds("whole"))
        return;
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_BIOS");
    ASSERT_EQ(instances.size(), 2u);
    const Lines expected = {
        "Caption | string | NB BMC",
        "Description | string | NB BMC",
        "Name | string | NB BMC",
        "Status | string | Unknown",
        "BuildNumber | string | ",
        "Manufacturer | string | QOR",
        "SerialNumber | string | ",
        "SoftwareElementID | string | QORTAL_BIOS",
        "SoftwareElementState | uint16 | 3",
        "TargetOperatingSystem | uint16 | 66",
        "Version | string | 1.17",
        "PrimaryBIOS | boolean | FALSE",
    };
    EXPECT_EQ(propertyLines(instances[1]), expected);
    EXPECT_EQ(dlopen("libqoripmi.so", RTLD_LAZY | RTLD_NOLOAD), nullptr); // loaded and released again
}

TEST_F(IpmiFirmware, TenThousandReadsLoadAndReleaseTheLibraryWithoutGrowth)
{
    if (!inProcessThatFinds("whole"))
        return;
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(VQ::getIpmiFirmwareInstances().size(), 1u);
    const Footprint before = footprint();
    EXPECT_EQ(before.libraryMappings, 0); // released again
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(VQ::getIpmiFirmwareInstances().size(), 1u);
    expectNoGrowth(before, footprint());
}

TEST_F(IpmiFirmware, TenThousandReadsOfAnIncompleteLibraryKeepItOpenOnceWithoutGrowth)
{
    if (!inProcessThatFinds("without-get"))
        return;
    for (int i = 0; i < 100; ++i)
        ASSERT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    const Footprint before = footprint();
    EXPECT_GT(before.libraryMappings, 0); // kept
    for (int i = 0; i < 10000; ++i)
        ASSERT_TRUE(VQ::getIpmiFirmwareInstances().empty());
    expectNoGrowth(before, footprint());
}
