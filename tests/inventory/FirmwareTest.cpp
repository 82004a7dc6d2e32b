// Firmware that the OEM strings (type 11) announce: records, and their instances in the BIOS class.

#include "inventory/SmBiosFirmware.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>
#include <stdexcept>

using Lines = std::vector<std::string>;

namespace
{
TableBuilder& addOemStrings(TableBuilder& table, const Lines& strings)
{
    table.type(11).byte(0x04, static_cast<std::uint8_t>(strings.size()));
    for (const std::string& string : strings)
        table.string(string);
    return table;
}

std::vector<VQ::Firmware> firmwareOf(const Lines& oemStrings)
{
    TableBuilder table;
    const ServedTable served(addOemStrings(table, oemStrings));
    return VQ::GetFirmwareInstances();
}

Lines namesOf(const std::vector<VQ::Firmware>& firmwares)
{
    Lines names;
    for (const VQ::Firmware& firmware : firmwares)
        names.push_back(firmware.getName());
    return names;
}
}

TEST(FirmwareInstance, HasItsPropertiesInOrder)
{
    TableBuilder table;
    table.type(0).type(1).type(13);
    const ServedTable served(addOemStrings(table, {"Diagnostics -[XXYT01-1.02]-"}));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_BIOS");
    ASSERT_EQ(instances.size(), 2u);
    const Lines expected = {
        "Caption | string | Diagnostics",    "Description | string | Diagnostics",
        "Name | string | Diagnostics",       "Status | string | Unknown",
        "BuildNumber | string | XXYT01",     "Manufacturer | string | QOR",
        "SerialNumber | string | ",          "SoftwareElementID | string | QORTAL_BIOS",
        "SoftwareElementState | uint16 | 3", "TargetOperatingSystem | uint16 | 66",
        "Version | string | 1.02",           "PrimaryBIOS | boolean | FALSE",
    };
    EXPECT_EQ(propertyLines(instances[1]), expected);
    const Lines keys = {
        "Name | STRING | Diagnostics",
        "SoftwareElementID | STRING | QORTAL_BIOS",
        "SoftwareElementState | NUMERIC | 3",
        "TargetOperatingSystem | NUMERIC | 66",
        "Version | STRING | 1.02",
    };
    EXPECT_EQ(keyLines(instances[1].getPath()), keys);
}

TEST(FirmwareInstance, FollowsTheBiosInTheOrderOfTheRecords)
{
    TableBuilder table;
    const ServedTable served(addOemStrings(table, {"B -[XXYT-1]-", "A -[XXET-2]-"}));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_BIOS");
    ASSERT_EQ(instances.size(), 3u);
    EXPECT_EQ(valueOf(instances[0], "PrimaryBIOS"), "TRUE");
    EXPECT_EQ(valueOf(instances[1], "Name"), "B");
    EXPECT_EQ(valueOf(instances[2], "Name"), "A");
}

TEST(FirmwareInstance, IsDeliveredForEachOfTwoRecordsAlike)
{
    TableBuilder table;
    const ServedTable served(addOemStrings(table, {"A -[XXYT-1]-", "A -[XXYT-1]-"}));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_BIOS");
    ASSERT_EQ(instances.size(), 3u);
    EXPECT_EQ(propertyLines(instances[1]), propertyLines(instances[2]));
    EXPECT_TRUE(instances[1].getPath() == instances[2].getPath());
}

TEST(FirmwareInstance, OneCharacterOfArchitectedDataEndsTheRequestAfterTheBios)
{
    TableBuilder table;
    const ServedTable served(addOemStrings(table, {"Diagnostics -[XXYT01-1.02]-", "Odd -[X]-"}));
    TestProvider provider;
    RecordingInstanceHandler handler;
    EXPECT_THROW(provider.enumerate(pathOf("QORTAL_BIOS"), handler), std::out_of_range);
    EXPECT_EQ(handler.calls, (Lines{"processing", "instance"}));
    EXPECT_EQ(valueOf(handler.instances.at(0), "PrimaryBIOS"), "TRUE");

    RecordingPathHandler names;
    EXPECT_THROW(provider.enumerateNames(pathOf("QORTAL_BIOS"), names), std::out_of_range);
    EXPECT_EQ(names.calls, Lines{"processing"});
}

// ---- the record

TEST(Firmware, TakesNameVersionAndManufacturer)
{
    VQ::Firmware firmware;
    firmware.setName("Name");
    firmware.setVersion("Version");
    firmware.setManufacturer("Manufacturer");
    const VQ::Firmware copy(firmware);
    EXPECT_EQ(copy.getName(), "Name");
    EXPECT_EQ(copy.getVersion(), "Version");
    EXPECT_EQ(copy.getManufacturer(), "Manufacturer");
    EXPECT_EQ(copy.getSerialNumber(), "");
    EXPECT_EQ(copy.getBuildNumber(), "");
}

TEST(SmBiosFirmware, IsMadeFromTheStringOfItsIndex)
{
    TableBuilder table;
    const ServedTable served(addOemStrings(table, {"One -[AAYT-1.0]-", "Two -[BBYT-2.0]-"}));
    const VQ::SmBios smBios;
    const VQ::SmBiosFirmware firmware(smBios.getTables().at(0), 2);
    EXPECT_EQ(firmware.getName(), "Two");
    EXPECT_EQ(firmware.getBuildNumber(), "BBYT");
    EXPECT_EQ(firmware.getVersion(), "2.0");
    EXPECT_EQ(firmware.getManufacturer(), "QOR");
    EXPECT_EQ(firmware.getSerialNumber(), "");
    EXPECT_EQ(text(firmware.getReleaseDate().toString()), "00000000000000.000000:000");
}

TEST(SmBiosFirmware, OfAMissingStringHasTheManufacturerOnly)
{
    const VQ::SmBiosFirmware firmware(VQ::SmBios::Table(), 1);
    EXPECT_EQ(firmware.getManufacturer(), "QOR");
    EXPECT_EQ(firmware.getName(), "");
    EXPECT_EQ(firmware.getBuildNumber(), "");
    EXPECT_EQ(firmware.getVersion(), "");
}

TEST(SmBiosFirmware, ManufacturerIsTheSameWhateverTheStringSays)
{
    EXPECT_EQ(firmwareOf({"Intel BMC -[INYT01-1.00]-"}).at(0).getManufacturer(), "QOR");
}

TEST(SmBiosFirmware, NameIsTheTextAroundTheBlockWithoutBlanksAtItsEnds)
{
    EXPECT_EQ(firmwareOf({"  System Diagnostics  -[XXYT]-  "}).at(0).getName(), "System Diagnostics");
    EXPECT_EQ(firmwareOf({"Left -[XXYT]- right"}).at(0).getName(), "Left  right");
    EXPECT_EQ(firmwareOf({"-[XXYT]-"}).at(0).getName(), "");
    EXPECT_EQ(firmwareOf({"  -[XXYT]-"}).at(0).getName(), "  ");
}

struct BlockCase
{
    const char* oemString;
    const char* buildNumber;
    const char* version;
};

class FirmwareVersion : public testing::TestWithParam<BlockCase>
{
};

TEST_P(FirmwareVersion, IsSplit)
{
    TableBuilder table;
    const ServedTable served(addOemStrings(table, {GetParam().oemString}));
    const VQ::SmBiosFirmware firmware(VQ::SmBios().getTables().at(0), 1);
    EXPECT_EQ(firmware.getBuildNumber(), GetParam().buildNumber);
    EXPECT_EQ(firmware.getVersion(), GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(AtTheDash, FirmwareVersion,
                         testing::Values(BlockCase{"-[XXYT01A-1.02]-", "XXYT01A", "1.02"},
                                         BlockCase{"-[XXYT01-1-2]-", "XXYT01", "12"},
                                         BlockCase{"-[ XXYT - 1 ]-", "XXYT", "1"}));
// As many characters as stand before the dash, the dash among them: not the whole rest.
INSTANTIATE_TEST_SUITE_P(CutAtTheDashsPosition, FirmwareVersion,
                         testing::Values(BlockCase{"-[ABC-1.23]-", "ABC", "1."},
                                         BlockCase{"-[XXYT-1.23]-", "XXYT", "1.2"}, BlockCase{"-[A-1.23]-", "A", ""},
                                         BlockCase{"-[-XYT]-", "", ""}));
INSTANTIATE_TEST_SUITE_P(OfBlanksOnlyIsLeftAsItIs, FirmwareVersion,
                         testing::Values(BlockCase{"-[    -YT]-", "    ", "YT"},
                                         BlockCase{"-[XXYT-    ]-", "XXYT", "   "}, BlockCase{"-[   ]-", "   ", ""}));
INSTANTIATE_TEST_SUITE_P(WithoutADashIsEmpty, FirmwareVersion,
                         testing::Values(BlockCase{"-[XXYTZZ]-", "XXYTZZ", ""}, BlockCase{"-[ XYTZ ]-", "XYTZ", ""}));

// ---- which strings announce firmware

TEST(FirmwareSelection, TakesTheFourCodes)
{
    const Lines strings = {"a -[XXYT1]-", "b -[XXET1]-", "c -[XX8T1]-", "d -[XXE21]-"};
    EXPECT_EQ(namesOf(firmwareOf(strings)), (Lines{"a", "b", "c", "d"}));
}

TEST(FirmwareSelection, TakesNoOtherCode)
{
    const Lines strings = {"-[XXYZ]-",  "-[XXyt1]-", "-[XXTY1]-", "-[YTXX1]-", "-[XYTX1]-",
                           "-[XXXYT]-", "-[XX E2]-", "-[XX8 1]-", "-[XXE81]-", "-[XX2E1]-"};
    EXPECT_TRUE(firmwareOf(strings).empty());
}

TEST(FirmwareSelection, TakesTheCodeWithOrWithoutAnythingAfterIt)
{
    EXPECT_EQ(namesOf(firmwareOf({"a -[XXYT]-", "b -[XXYTZZ]-"})), (Lines{"a", "b"}));
}

TEST(FirmwareSelection, PassesOverThreeAndTwoCharacters)
{
    EXPECT_EQ(namesOf(firmwareOf({"-[XXY]-", "-[XXE]-", "-[YT]-", "-[E2]-", "a -[XXYT]-"})), Lines{"a"});
}

TEST(FirmwareSelection, PassesOverStringsWithoutArchitectedData)
{
    EXPECT_EQ(namesOf(firmwareOf({"XXYT", "-[]-", "-[XXYT", "XXYT]-", "a -[XXYT]-"})), Lines{"a"});
}

TEST(FirmwareSelection, FailsForASingleCharacter)
{
    EXPECT_THROW(firmwareOf({"-[X]-"}), std::out_of_range);
    EXPECT_THROW(firmwareOf({"a -[XXYT]-", "-[ ]-"}), std::out_of_range);
}

TEST(FirmwareSelection, KeepsTheOrderOfStringsAndStructures)
{
    TableBuilder table;
    addOemStrings(table, {"1 -[XXE2]-", "no", "2 -[XXYT]-"});
    table.type(12).byte(0x04, 1).string("not an OEM string -[XXYT]-");
    addOemStrings(table, {"3 -[XX8T]-"});
    const ServedTable served(table);
    EXPECT_EQ(namesOf(VQ::GetFirmwareInstances()), (Lines{"1", "2", "3"}));
}

TEST(FirmwareSelection, FindsStringsBehindMoreStructuresThanEightBitsCount)
{
    for (const int structures : {256, 300}) {
        TableBuilder table;
        for (int i = 1; i < structures; ++i)
            table.type(126);
        const ServedTable served(addOemStrings(table, {"a -[XXYT]-"}));
        EXPECT_EQ(namesOf(VQ::GetFirmwareInstances()), Lines{"a"}) << structures;
    }
}

TEST(FirmwareSelection, ReadsAsManyStringsAsAreAnnounced)
{
    const ServedTable fewer(TableBuilder().type(11).byte(0x04, 1).string("a -[XXYT]-").string("b -[XXYT]-"));
    EXPECT_EQ(namesOf(VQ::GetFirmwareInstances()), Lines{"a"});
}

TEST(FirmwareSelection, PassesOverAnnouncedStringsThatAreMissing)
{
    const ServedTable more(TableBuilder().type(11).byte(0x04, 200).string("a -[XXYT]-"));
    EXPECT_EQ(namesOf(VQ::GetFirmwareInstances()), Lines{"a"});
}

TEST(FirmwareSelection, EndsAfter255Strings)
{
    Lines strings(254, "no");
    strings.emplace_back("the last -[XXYT]-");
    EXPECT_EQ(namesOf(firmwareOf(strings)), Lines{"the last"});
}

TEST(FirmwareSelection, FindsNothingOnAMachineWithoutSmBios)
{
    EXPECT_TRUE(VQ::GetFirmwareInstances().empty());
}
