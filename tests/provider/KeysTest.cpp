// The keys of every class, as they stand in the path of a delivered instance.

#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/utsname.h>

using namespace Pegasus;
using Lines = std::vector<std::string>;

namespace
{
std::string hostName()
{
    utsname names{};
    uname(&names);
    return names.nodename;
}

// The keys of the last instance of a class over this table.
Lines keysOf(const char* className, const TableBuilder& table)
{
    const ServedTable served(table);
    const std::vector<CIMInstance> instances = instancesOf(className);
    return instances.empty() ? Lines{} : keyLines(instances.back().getPath());
}
}

TEST(Keys, OfTheBios)
{
    EXPECT_EQ(keysOf("QORTAL_BIOS", TableBuilder().type(0).string(0x05, "B1.07").type(127)),
              (Lines{"Name | STRING | Default System BIOS", "SoftwareElementID | STRING | QORTAL_BIOS",
                     "SoftwareElementState | NUMERIC | 3", "TargetOperatingSystem | NUMERIC | 66",
                     "Version | STRING | B1.07"}));
}

TEST(Keys, OfFirmware)
{
    TableBuilder table;
    table.type(11).byte(0x04, 1).string("Diagnostics -[XXYT01-1.02]-").type(127);
    const ServedTable served(table);
    const std::vector<CIMInstance> instances = instancesOf("QORTAL_BIOS");
    ASSERT_EQ(instances.size(), 2u);
    EXPECT_EQ(keyLines(instances[1].getPath()),
              (Lines{"Name | STRING | " + valueOf(instances[1], "Name"), "SoftwareElementID | STRING | QORTAL_BIOS",
                     "SoftwareElementState | NUMERIC | 3", "TargetOperatingSystem | NUMERIC | 66",
                     "Version | STRING | 1.02"}));
}

TEST(Keys, OfTheChassis)
{
    EXPECT_EQ(keysOf("QORTAL_Chassis", TableBuilder().type(3).length(0x0D).type(127)),
              (Lines{"CreationClassName | STRING | QORTAL_Chassis", "Tag | STRING | Chassis0"}));
}

TEST(Keys, OfABaseBoard)
{
    EXPECT_EQ(keysOf("QORTAL_BaseBoard", TableBuilder().type(2).length(0x0B).type(2).length(0x0B).type(127)),
              (Lines{"CreationClassName | STRING | QORTAL_BaseBoard", "Tag | STRING | BaseBoard1"}));
}

TEST(Keys, OfACache)
{
    EXPECT_EQ(
        keysOf("QORTAL_CacheMemory", TableBuilder().type(7).length(0x13).type(7).length(0x13).type(127)),
        (Lines{"CreationClassName | STRING | QORTAL_CacheMemory", "DeviceID | STRING | Cache1",
               "SystemCreationClassName | STRING | QORTAL_ComputerSystem", "SystemName | STRING | " + hostName()}));
}

TEST(Keys, OfAPort)
{
    EXPECT_EQ(keysOf("QORTAL_Port", TableBuilder().type(8).length(0x09).type(8).length(0x09).type(127)),
              (Lines{"CreationClassName | STRING | QORTAL_Port", "Tag | STRING | PortConnector1"}));
}

TEST(Keys, OfASlot)
{
    EXPECT_EQ(keysOf("QORTAL_Slot", TableBuilder().type(9).string(0x04, "PCI 3").type(127)),
              (Lines{"CreationClassName | STRING | QORTAL_Slot", "Tag | STRING | PCI 3"}));
}

TEST(Keys, OfTheComputerSystem)
{
    EXPECT_EQ(keysOf("QORTAL_ComputerSystem", TableBuilder().type(127)),
              (Lines{"CreationClassName | STRING | QORTAL_ComputerSystem", "Name | STRING | " + hostName()}));
}

TEST(Keys, OfTheOperatingSystem)
{
    const std::vector<CIMInstance> instances = instancesOf("QORTAL_OperatingSystem");
    ASSERT_EQ(instances.size(), 1u);
    EXPECT_EQ(keyLines(instances[0].getPath()),
              (Lines{"CreationClassName | STRING | QORTAL_OperatingSystem",
                     "CSCreationClassName | STRING | QORTAL_ComputerSystem", "CSName | STRING | " + hostName(),
                     "Name | STRING | " + valueOf(instances[0], "Name")}));
}

TEST(Keys, OfTheSystemMemoryCarryTheNameDeviceIdThoughThePropertyIsDeviceID)
{
    const std::vector<CIMInstance> instances = instancesOf("QORx_SystemMemory");
    ASSERT_EQ(instances.size(), 1u);
    const Lines keys = keyLines(instances[0].getPath());
    ASSERT_EQ(keys.size(), 4u);
    EXPECT_EQ(keys[0], "CreationClassName | STRING | " + valueOf(instances[0], "CreationClassName"));
    EXPECT_EQ(keys[1], "DeviceId | STRING | " + valueOf(instances[0], "DeviceID"));
    EXPECT_EQ(keys[2], "SystemCreationClassName | STRING | " + valueOf(instances[0], "SystemCreationClassName"));
    EXPECT_EQ(keys[3], "SystemName | STRING | " + hostName());
    const Lines properties = propertyLines(instances[0]);
    EXPECT_TRUE(std::any_of(properties.begin(), properties.end(),
                            [](const std::string& line) { return line.rfind("DeviceID | string", 0) == 0; }));
}
