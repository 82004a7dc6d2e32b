#include "tests/machine/Machine.h"
#include "tests/machine/Transcript.h"

#include <fstream>
#include <gtest/gtest.h>
#include <regex>

// The firmware that these tests expect is the one that `boot` and MachineStructures.cpp give to the machine.

using nlohmann::json;

namespace
{
const std::string Work = VQ_MACHINE_WORK;

class Inventory : public Machine
{
protected:
    /// The properties of the instances of a class in the small machine, as sysfs shows its table.
    static json instances(const char* className)
    {
        json properties = json::array();
        const json inventory = Transcript(Work, "small").inventory("sysfs.inventory");
        for (const json& instance : inventory.at(className))
            properties.push_back(instance.at("properties"));
        return properties;
    }
};

class Source : public Machine, public testing::WithParamInterface<const char*>
{
};

class Power : public Machine
{
};

std::string firstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

/// The amount on a line of /proc/meminfo, in bytes.
std::uint64_t totalMemory(const Transcript& machine)
{
    std::smatch found;
    const std::string& text = machine.answer("memory").output;
    EXPECT_TRUE(std::regex_search(text, found, std::regex("MemTotal: +([0-9]+) kB")));
    return std::stoull(found.str(1)) * 1024;
}

/// Takes the properties away that differ from one moment to the next.
json withoutMoments(json inventory)
{
    for (json& instance : inventory.at("QORTAL_OperatingSystem"))
        for (const char* property : {"FreePhysicalMemory", "LastBootUpTime", "LocalDateTime", "NumberOfProcesses"})
            EXPECT_EQ(instance.at("properties").erase(property), 1u) << property;
    return inventory;
}

/// The values of a property of all instances of a class.
std::vector<std::string> values(const json& inventory, const char* className, const char* property)
{
    std::vector<std::string> values;
    for (const json& instance : inventory.at(className))
        values.push_back(instance.at("properties").value(property, "Not Specified"));
    return values;
}

/// dmidecode's words for a text that is not there.
std::vector<std::string> emptyAsNotSpecified(std::vector<std::string> texts)
{
    for (std::string& text : texts)
        if (text.empty())
            text = "Not Specified";
    return texts;
}
}

TEST_F(Inventory, BiosAndTheFirmwareThatAnOemStringAnnounces)
{
    EXPECT_EQ(instances("QORTAL_BIOS"), R"([
        {"Caption": "Default System BIOS", "Description": "Default System BIOS", "Name": "Default System BIOS",
         "Status": "OK", "BuildNumber": "MFE132A", "Manufacturer": "Machine Firmware", "SerialNumber": "KD12345",
         "SoftwareElementID": "QORTAL_BIOS", "SoftwareElementState": 3, "TargetOperatingSystem": 66,
         "Version": "1.20", "CurrentLanguage": "de|DE|iso8859-1",
         "ListOfLanguages": ["en|US|iso8859-1", "de|DE|iso8859-1"], "LoadedEndingAddress": 157696,
         "LoadedStartingAddress": 59392, "PrimaryBIOS": true, "ReleaseDate": "20190304000000.000000+000",
         "SMBIOSPresent": true, "SMBIOSBIOSVersion": "2.8", "SMBIOSMajorVersion": 2, "SMBIOSMinorVersion": 8},
        {"Caption": "Diagnostics", "Description": "Diagnostics", "Name": "Diagnostics", "Status": "Unknown",
         "BuildNumber": "DSYT31A", "Manufacturer": "QOR", "SerialNumber": "", "SoftwareElementID": "QORTAL_BIOS",
         "SoftwareElementState": 3, "TargetOperatingSystem": 66, "Version": "4.01", "PrimaryBIOS": false}])"_json);
}

TEST_F(Inventory, BaseBoardWithTheConfigurationOptions)
{
    EXPECT_EQ(instances("QORTAL_BaseBoard"), R"([
        {"Caption": "Base Board", "Description": "Base Board", "Status": "Unknown",
         "CreationClassName": "QORTAL_BaseBoard", "Manufacturer": "Board Maker", "SerialNumber": "BB-778",
         "Tag": "BaseBoard0", "Version": "", "LocationInChassis": "Bay 4",
         "ConfigOptions": ["JP2: 1-2 clears the settings", "JP3: write protection"]}])"_json);
}

TEST_F(Inventory, CachesInBothGranularities)
{
    EXPECT_EQ(instances("QORTAL_CacheMemory"), R"([
        {"Caption": "Cache", "Description": "Cache", "Name": "L1 Cache", "Status": "Unknown",
         "CreationClassName": "QORTAL_CacheMemory", "DeviceID": "Cache0",
         "SystemCreationClassName": "QORTAL_ComputerSystem", "SystemName": "machine32", "NumberOfBlocks": 32,
         "Purpose": "L1 Cache", "Associativity": 7, "CacheType": 4, "Level": 3, "WritePolicy": 3, "CacheSpeed": 3,
         "MaximumInstallableSize": 64, "Location": 0, "InstalledSize": 32},
        {"Caption": "Cache", "Description": "Cache", "Name": "L2 Cache", "Status": "Unknown",
         "CreationClassName": "QORTAL_CacheMemory", "DeviceID": "Cache1",
         "SystemCreationClassName": "QORTAL_ComputerSystem", "SystemName": "machine32", "NumberOfBlocks": 16,
         "Purpose": "L2 Cache", "Associativity": 8, "CacheType": 5, "Level": 4, "WritePolicy": 4, "CacheSpeed": 9,
         "MaximumInstallableSize": 2048, "Location": 1, "InstalledSize": 1024}])"_json);
}

TEST_F(Inventory, Chassis)
{
    EXPECT_EQ(instances("QORTAL_Chassis"), R"([
        {"Caption": "Chassis", "Description": "Chassis", "Status": "Unknown", "CreationClassName": "QORTAL_Chassis",
         "Manufacturer": "Case Maker", "SerialNumber": "CH-555", "Tag": "Chassis0", "Version": "C3"}])"_json);
}

TEST_F(Inventory, ComputerSystem)
{
    EXPECT_EQ(instances("QORTAL_ComputerSystem"), R"([
        {"Caption": "Computer System", "Description": "Server 100 ", "Name": "machine32", "Status": "Unknown",
         "CreationClassName": "QORTAL_ComputerSystem", "PrimaryOwnerContact": "", "PrimaryOwnerName": "",
         "Model": "8837ABC", "VirtualType": 1, "VirtualizationMethodName": ""}])"_json);
}

TEST_F(Inventory, PortConnectors)
{
    EXPECT_EQ(instances("QORTAL_Port"), R"([
        {"Caption": "Port Connector", "Description": "Port Connector", "Name": "COM A", "Status": "Unknown",
         "CreationClassName": "QORTAL_Port", "Tag": "PortConnector0", "ExternalReferenceDesignator": "COM A",
         "InternalReferenceDesignator": "J2A1", "PortType": 9, "ConnectorType": [0, 8]},
        {"Caption": "Port Connector", "Description": "Port Connector", "Name": "", "Status": "Unknown",
         "CreationClassName": "QORTAL_Port", "Tag": "PortConnector1", "InternalReferenceDesignator": "J9",
         "PortType": 255, "ConnectorType": [22, 0]}])"_json);
}

TEST_F(Inventory, Slots)
{
    EXPECT_EQ(instances("QORTAL_Slot"), R"([
        {"Caption": "System Slot", "Description": "System Slot", "Name": "PCI 1", "Status": "Unknown",
         "CreationClassName": "QORTAL_Slot", "Tag": "PCI 1"},
        {"Caption": "System Slot", "Description": "System Slot", "Name": "PCI 2", "Status": "Unknown",
         "CreationClassName": "QORTAL_Slot", "Tag": "PCI 2"}])"_json);
}

TEST_F(Inventory, OperatingSystemIsTheKernelThatWasBooted)
{
    const json inventory = Transcript(Work, "small").inventory("sysfs.inventory");
    json expected = R"({
        "Caption": "Linux", "Description": "Linux", "Name": "Linux", "Status": "Unknown",
        "CreationClassName": "QORTAL_OperatingSystem", "CSCreationClassName": "QORTAL_ComputerSystem",
        "CSName": "machine32", "CurrentTimeZone": 60, "Distributed": false, "FreeSpaceInPagingFiles": 0,
        "FreeVirtualMemory": 0, "MaxNumberOfProcesses": 2147483647, "MaxProcessMemorySize": 0,
        "NumberOfLicensedUsers": 0, "NumberOfUsers": 0, "OSType": 36, "SizeStoredInPagingFiles": 0,
        "TotalSwapSpaceSize": 0, "TotalVirtualMemorySize": 0, "TotalVisibleMemorySize": 0, "CodeSet": "UTF-8",
        "LanguageEdition": "de-DE"})"_json;
    expected["Version"] = firstLine(Transcript(Work, "small").answer("release").output);
    ASSERT_EQ(inventory.at("QORTAL_OperatingSystem").size(), 1u);
    EXPECT_EQ(withoutMoments(inventory).at("QORTAL_OperatingSystem")[0].at("properties"), expected);
}

// The machine's clock was set to 12:00 UTC, and its time zone is an hour ahead.
TEST_F(Inventory, OperatingSystemCarriesTheMachinesOwnTime)
{
    const json system = instances("QORTAL_OperatingSystem").at(0);
    const std::regex withinFiveMinutes("20240229130[0-4][0-5][0-9]\\.000000\\+060");
    const std::string boot = system.at("LastBootUpTime");
    const std::string now = system.at("LocalDateTime");
    EXPECT_TRUE(std::regex_match(boot, withinFiveMinutes)) << boot;
    EXPECT_TRUE(std::regex_match(now, withinFiveMinutes)) << now;
    EXPECT_LE(boot, now);
}

TEST_F(Inventory, OperatingSystemCountsMemoryAndProcesses)
{
    const Transcript machine(Work, "small");
    const json system = instances("QORTAL_OperatingSystem").at(0);
    EXPECT_GT(system.at("FreePhysicalMemory"), 0u);
    EXPECT_LT(system.at("FreePhysicalMemory"), totalMemory(machine) / 1024);
    EXPECT_GT(system.at("NumberOfProcesses"), 1u);
}

TEST_F(Inventory, SystemMemoryIsWhatTheKernelHas)
{
    for (const char* name : {"small", "large", "bare"}) {
        const Transcript machine(Work, name);
        json expected = R"({
            "Caption": "Logical System Memory", "Description": "System Memory", "Name": "System Memory",
            "CreationClassName": "QORx_SystemMemory", "DeviceID": "System Memory",
            "SystemCreationClassName": "QORTAL_ComputerSystem", "SystemName": "machine32", "BlockSize": 1,
            "SequentialAccess": false, "Volatile": true, "StartingAddress": 0})"_json;
        for (const char* property : {"ConsumableBlocks", "NumberOfBlocks", "EndingAddress"})
            expected[property] = totalMemory(machine);
        const json memories = machine.inventory("sysfs.inventory").at("QORx_SystemMemory");
        ASSERT_EQ(memories.size(), 1u);
        EXPECT_EQ(memories[0].at("properties"), expected) << name;
    }
}

#ifdef VQ_MACHINE_HAS_FLAT_EXAMPLE
TEST_F(Inventory, FlatExampleShowsTheSameMachine)
{
    const Answer flat = Transcript(Work, "small").answer("flat.inventory");
    EXPECT_EQ(flat.status, 0);
    EXPECT_EQ(flat.errors, "");
    for (const char* line : {"Name: machine32",
                             "Model: 8837ABC",
                             "Manufacturer: Machine Firmware",
                             "BuildNumber: MFE132A",
                             "SerialNumber: KD12345",
                             "SmBiosVersion: 2.8",
                             "  de|DE|iso8859-1",
                             "LoadedEndingAddress: 157696",
                             "Name: Diagnostics",
                             "Version: 4.01",
                             "SerialNumber: CH-555",
                             "AssetTag: T-1",
                             "Product: Planar 7",
                             "Location: Bay 4",
                             "  JP3: write protection",
                             "Designation: L1 Cache",
                             "MaximumSize: 2048",
                             "InternalReferenceDesignator: J2A1",
                             "ExternalReferenceDesignator: COM A",
                             "Designation: PCI 2"})
        EXPECT_NE(flat.output.find(std::string("\n  ") + line + "\n"), std::string::npos) << line;
}
#endif

INSTANTIATE_TEST_SUITE_P(Machines, Source, testing::Values("small", "large", "bare"),
                         [](const auto& machine) { return std::string(machine.param); });

TEST_P(Source, SysfsAnswersAllClassesWithoutError)
{
    const Transcript machine(Work, GetParam());
    EXPECT_EQ(machine.answer("sysfs.files").output, "DMI\nsmbios_entry_point\n");
    EXPECT_EQ(machine.answer("sysfs.inventory").status, 0);
    EXPECT_EQ(machine.answer("sysfs.inventory").errors, "");
    EXPECT_EQ(machine.inventory("sysfs.inventory").size(), 9u);
}

TEST_P(Source, MemoryDeviceGivesTheSameAnswersAsSysfs)
{
    const Transcript machine(Work, GetParam());
    EXPECT_NE(machine.answer("memory.files").status, 0); // sysfs is not mounted
    EXPECT_EQ(machine.answer("memory.inventory").status, 0);
    EXPECT_EQ(machine.answer("memory.inventory").errors, "");
    EXPECT_EQ(withoutMoments(machine.inventory("memory.inventory")),
              withoutMoments(machine.inventory("sysfs.inventory")));
}

TEST_P(Source, AgreesWithDmidecode)
{
    const Transcript machine(Work, GetParam());
    const std::string& dmidecode = machine.answer("sysfs.dmidecode").output;
    const json inventory = machine.inventory("sysfs.inventory");
    const auto expectSame = [&](const char* className, const char* property, const char* title, const char* field) {
        EXPECT_EQ(emptyAsNotSpecified(values(inventory, className, property)), dmidecodeValues(dmidecode, title, field))
            << className << "." << property;
    };
    expectSame("QORTAL_BaseBoard", "Manufacturer", "Base Board Information", "Manufacturer");
    expectSame("QORTAL_BaseBoard", "SerialNumber", "Base Board Information", "Serial Number");
    expectSame("QORTAL_BaseBoard", "LocationInChassis", "Base Board Information", "Location In Chassis");
    expectSame("QORTAL_Chassis", "Manufacturer", "Chassis Information", "Manufacturer");
    expectSame("QORTAL_Chassis", "SerialNumber", "Chassis Information", "Serial Number");
    expectSame("QORTAL_Chassis", "Version", "Chassis Information", "Version");
    expectSame("QORTAL_CacheMemory", "Name", "Cache Information", "Socket Designation");
    expectSame("QORTAL_Port", "InternalReferenceDesignator", "Port Connector Information",
               "Internal Reference Designator");
    expectSame("QORTAL_Slot", "Name", "System Slot Information", "Designation");
    const json bios = inventory.at("QORTAL_BIOS").at(0).at("properties");
    EXPECT_EQ(dmidecodeValues(dmidecode, "BIOS Information", "Vendor"), std::vector<std::string>{bios["Manufacturer"]});
    const std::string version = bios["SMBIOSBIOSVersion"];
    EXPECT_NE(dmidecode.find("\nSMBIOS " + version), std::string::npos) << version;
}

// That the three machines are the three cases: the kernel lets a process read the area below 1 MiB, and only map what
// lies above its own memory.
TEST_F(Machine, TablesLieInAllThreePlaces)
{
    const Transcript small(Work, "small");
    const Transcript large(Work, "large");
    const Transcript bare(Work, "bare");
    EXPECT_GT(dmidecodeTableAddress(small.answer("sysfs.dmidecode").output), totalMemory(small));
    EXPECT_NE(small.answer("memory.read").errors.find("Bad address"), std::string::npos);
    EXPECT_GT(dmidecodeTableAddress(large.answer("sysfs.dmidecode").output), 896ull << 20);
    EXPECT_NE(large.answer("memory.read").errors.find("Bad address"), std::string::npos);
    EXPECT_LT(dmidecodeTableAddress(bare.answer("sysfs.dmidecode").output), 0x100000u);
    EXPECT_EQ(bare.answer("memory.read").status, 0);
}

TEST_F(Machine, EntryPointOf64BitsIsRead)
{
    const json bios = Transcript(Work, "large").inventory("memory.inventory").at("QORTAL_BIOS").at(0);
    EXPECT_EQ(bios.at("properties").at("SMBIOSBIOSVersion"), "3.0");
    EXPECT_EQ(bios.at("properties").at("Manufacturer"), "Machine Firmware");
}

TEST_F(Machine, TableThatOnlyRootMayReadIsAnErrorThatSaysSo)
{
    const Transcript machine(Work, "small");
    const Answer& sysfs = machine.answer("nobody.sysfs");
    EXPECT_EQ(sysfs.status, 1);
    EXPECT_NE(sysfs.errors.find("/sys/firmware/dmi/tables/smbios_entry_point: Permission denied"), std::string::npos)
        << sysfs.errors;
    EXPECT_NE(sysfs.errors.find("root"), std::string::npos);
    const Answer& memory = machine.answer("nobody.memory");
    EXPECT_EQ(memory.status, 1);
    EXPECT_NE(memory.errors.find("/dev/mem: Permission denied"), std::string::npos) << memory.errors;
}

TEST_F(Machine, ClassesThatNeedNoTableAreServedToEveryUser)
{
    const Transcript machine(Work, "small");
    EXPECT_EQ(machine.answer("nobody.system").status, 0);
    EXPECT_EQ(machine.inventory("nobody.system").at("QORx_SystemMemory"),
              machine.inventory("sysfs.inventory").at("QORx_SystemMemory"));
}

TEST_F(Power, RefusedRebootReturnsTheKernelsRefusal)
{
    const Answer refused = Transcript(Work, "small").answer("nobody.reboot");
    EXPECT_TRUE(refused.returned);
    EXPECT_EQ(refused.output, "QORTAL_OperatingSystem.Reboot: ReturnValue 4294967295\n");
}

TEST_F(Power, RebootDoesNotReturnAndRestartsTheMachine)
{
    const Transcript machine(Work, "small");
    EXPECT_FALSE(machine.answer("reboot").returned);
    EXPECT_GE(machine.events("RESET", "guest-reset"), 1);
    const std::size_t restart = machine.find("@begin reboot");
    const std::size_t secondBoot = machine.find("@boot second");
    ASSERT_NE(restart, Transcript::npos);
    ASSERT_NE(secondBoot, Transcript::npos);
    EXPECT_LT(restart, secondBoot);
}

TEST_F(Power, ShutdownRunsTheSystemsProgramReturns1AndTheMachinePowersOff)
{
    const Transcript machine(Work, "small");
    const Answer shutdown = machine.answer("shutdown");
    EXPECT_NE(machine.find("@shutdown called with 2 arguments: -h now"), Transcript::npos);
    EXPECT_EQ(shutdown.status, 0);
    EXPECT_EQ(shutdown.output, "QORTAL_OperatingSystem.Shutdown: ReturnValue 1\n");
    EXPECT_EQ(machine.find("@still running"), Transcript::npos);
    EXPECT_EQ(machine.events("SHUTDOWN", "guest-shutdown"), 1);
}
