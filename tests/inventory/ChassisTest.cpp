// The enclosure: the record read from the first type 3 structure, and its instance.

#include "inventory/SmBiosChassis.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

namespace
{
TableBuilder& addChassis(TableBuilder& table, const std::string& prefix)
{
    return table.type(3)
        .string("Unused")
        .string(0x04, prefix + "Maker")
        .byte(0x05, 0x17)
        .string(0x06, prefix + "Version")
        .string(0x07, prefix + "Serial")
        .string(0x08, prefix + "Asset");
}

// So many structures in all, the chassis at this place.
std::string manufacturerOfChassisAt(int place, int structures)
{
    TableBuilder table;
    for (int i = 0; i < structures; ++i) {
        if (i == place)
            addChassis(table, "Found ");
        else
            table.type(126);
    }
    const ServedTable served(table);
    return VQ::GetChassisInstance().getManufacturer();
}
}

TEST(ChassisInstance, HasItsPropertiesInOrder)
{
    TableBuilder table;
    const ServedTable served(addChassis(table, ""));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_Chassis");
    ASSERT_EQ(instances.size(), 1u);
    const Lines expected = {
        "Caption | string | Chassis",    "Description | string | Chassis",
        "Status | string | Unknown",     "CreationClassName | string | QORTAL_Chassis",
        "Manufacturer | string | Maker", "SerialNumber | string | Serial",
        "Tag | string | Chassis0",       "Version | string | Version",
    };
    EXPECT_EQ(propertyLines(instances[0]), expected);
    EXPECT_EQ(keyLines(instances[0].getPath()),
              (Lines{"CreationClassName | STRING | QORTAL_Chassis", "Tag | STRING | Chassis0"}));
}

TEST(ChassisInstance, IsDeliveredEmptyOnAMachineWithoutAChassis)
{
    const ServedTable served(TableBuilder().type(0).type(127));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_Chassis");
    ASSERT_EQ(instances.size(), 1u);
    EXPECT_EQ(valueOf(instances[0], "Manufacturer"), "");
    EXPECT_EQ(valueOf(instances[0], "SerialNumber"), "");
    EXPECT_EQ(valueOf(instances[0], "Version"), "");
    EXPECT_EQ(valueOf(instances[0], "Tag"), "Chassis0");
}

TEST(Chassis, ReadsFourTexts)
{
    TableBuilder table;
    const ServedTable served(addChassis(table, ""));
    const VQ::Chassis chassis = VQ::GetChassisInstance();
    EXPECT_EQ(chassis.getManufacturer(), "Maker");
    EXPECT_EQ(chassis.getVersion(), "Version");
    EXPECT_EQ(chassis.getSerialNumber(), "Serial");
    EXPECT_EQ(chassis.getAssetTag(), "Asset");
}

TEST(Chassis, IsTheFirstOfSeveral)
{
    TableBuilder table;
    addChassis(table, "First ");
    const ServedTable served(addChassis(table, "Second "));
    EXPECT_EQ(VQ::GetChassisInstance().getManufacturer(), "First Maker");
}

TEST(Chassis, HasNoTextForANumberOfNoString)
{
    const ServedTable served(TableBuilder().type(3).byte(0x04, 0).byte(0x06, 2).byte(0x07, 200).string(0x08, "Asset"));
    const VQ::Chassis chassis = VQ::GetChassisInstance();
    EXPECT_EQ(chassis.getManufacturer(), "");
    EXPECT_EQ(chassis.getVersion(), "");
    EXPECT_EQ(chassis.getSerialNumber(), "");
    EXPECT_EQ(chassis.getAssetTag(), "Asset");
}

TEST(Chassis, OfAShortStructureReadsTheMissingFieldsAsNone)
{
    const ServedTable served(TableBuilder().type(3).string(0x04, "Maker").string("Version"));
    EXPECT_EQ(VQ::GetChassisInstance().getManufacturer(), "Maker");
    EXPECT_EQ(VQ::GetChassisInstance().getVersion(), "");
}

// Structures are counted in 8 bits: of 255 all are examined, of 256 none, of 257 the first.
TEST(Chassis, IsFoundAtTheEndOf255Structures)
{
    EXPECT_EQ(manufacturerOfChassisAt(254, 255), "Found Maker");
}

TEST(Chassis, IsNotFoundAmong256Structures)
{
    EXPECT_EQ(manufacturerOfChassisAt(0, 256), "");
    EXPECT_EQ(manufacturerOfChassisAt(255, 256), "");
}

TEST(Chassis, IsFoundOnlyAsTheFirstOf257Structures)
{
    EXPECT_EQ(manufacturerOfChassisAt(0, 257), "Found Maker");
    EXPECT_EQ(manufacturerOfChassisAt(1, 257), "");
    EXPECT_EQ(manufacturerOfChassisAt(256, 257), "");
}
