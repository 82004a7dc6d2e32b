// The system BIOS: the record read from types 0, 1 and 13, and its instance.

#include "inventory/Bios.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>
#include <stdexcept>

using Lines = std::vector<std::string>;

namespace
{
// Every field that the BIOS is read from differs from every other, and from its neighbours that are not read.
TableBuilder distinctFields()
{
    TableBuilder table;
    table.version(2, 7);
    table.type(0)
        .string("Unused 0")
        .string(0x04, "Vendor")
        .string(0x05, "Text -[ABCDE12-1.05]-")
        .word(0x06, 0xE000)
        .string(0x08, "06/23/2005")
        .byte(0x09, 0x0F)
        .byte(0x14, 8)
        .byte(0x15, 9);
    table.type(1)
        .string(0x04, "System Maker")
        .string(0x05, "System Product")
        .string(0x06, "System Version")
        .string(0x07, "System Serial")
        .byte(0x15, 1);
    table.type(13).byte(0x04, 3).string("en|US").string("fr|FR").string("de|DE").byte(0x15, 2);
    return table;
}

// A machine whose only BIOS field is the version text.
VQ::Bios biosOfVersion(const std::string& version)
{
    const ServedTable served(TableBuilder().type(0).string(0x05, version));
    return VQ::GetBiosInstance();
}

TableBuilder releaseDate(const std::string& text)
{
    return TableBuilder().type(0).string(0x08, text).type(1).type(13);
}

Pegasus::CIMInstance onlyBiosInstance()
{
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_BIOS");
    if (instances.size() != 1)
        throw std::runtime_error("not one instance but " + std::to_string(instances.size()));
    return instances[0];
}
}

TEST(BiosInstance, HasItsPropertiesInOrder)
{
    const ServedTable served(distinctFields());
    const Lines expected = {
        "Caption | string | Default System BIOS",
        "Description | string | Default System BIOS",
        "Name | string | Default System BIOS",
        "Status | string | OK",
        "BuildNumber | string | ABCDE12",
        "Manufacturer | string | Vendor",
        "SerialNumber | string | System Serial",
        "SoftwareElementID | string | QORTAL_BIOS",
        "SoftwareElementState | uint16 | 3",
        "TargetOperatingSystem | uint16 | 66",
        "Version | string | 1.05",
        "CurrentLanguage | string | fr|FR",
        "ListOfLanguages | string[3] | \"en|US\" \"fr|FR\" \"de|DE\"",
        "LoadedEndingAddress | uint64 | 188416",
        "LoadedStartingAddress | uint64 | 57344",
        "PrimaryBIOS | boolean | TRUE",
        "ReleaseDate | datetime | 20050623000000.000000+000",
        "SMBIOSPresent | boolean | TRUE",
        "SMBIOSBIOSVersion | string | 2.7",
        "SMBIOSMajorVersion | uint16 | 2",
        "SMBIOSMinorVersion | uint16 | 7",
    };
    EXPECT_EQ(propertyLines(onlyBiosInstance()), expected);
}

TEST(BiosInstance, HasFiveKeys)
{
    const ServedTable served(distinctFields());
    const Lines expected = {
        "Name | STRING | Default System BIOS",
        "SoftwareElementID | STRING | QORTAL_BIOS",
        "SoftwareElementState | NUMERIC | 3",
        "TargetOperatingSystem | NUMERIC | 66",
        "Version | STRING | 1.05",
    };
    EXPECT_EQ(keyLines(onlyBiosInstance().getPath()), expected);
}

TEST(BiosInstance, IsDeliveredEmptyOnAMachineWithoutSmBios)
{
    const Lines expected = {
        "Caption | string | Default System BIOS",
        "Description | string | Default System BIOS",
        "Name | string | Default System BIOS",
        "Status | string | OK",
        "BuildNumber | string | ",
        "Manufacturer | string | ",
        "SerialNumber | string | ",
        "SoftwareElementID | string | QORTAL_BIOS",
        "SoftwareElementState | uint16 | 3",
        "TargetOperatingSystem | uint16 | 66",
        "Version | string | ",
        "CurrentLanguage | string | ",
        "ListOfLanguages | string[0] | ",
        "LoadedEndingAddress | uint64 | 1048576",
        "LoadedStartingAddress | uint64 | 0",
        "PrimaryBIOS | boolean | TRUE",
        "ReleaseDate | datetime | **************.******+000",
        "SMBIOSPresent | boolean | TRUE",
        "SMBIOSBIOSVersion | string | 0.0",
        "SMBIOSMajorVersion | uint16 | 0",
        "SMBIOSMinorVersion | uint16 | 0",
    };
    EXPECT_EQ(propertyLines(onlyBiosInstance()), expected);
}

TEST(BiosInstance, NamesTheSmBiosVersionByMajorAndMinor)
{
    {
        const ServedTable served(TableBuilder().version(2, 4).type(127));
        EXPECT_EQ(valueOf(onlyBiosInstance(), "SMBIOSBIOSVersion"), "2.4");
    }
    const ServedTable served(TableBuilder().version(2, 31).type(127));
    EXPECT_EQ(valueOf(onlyBiosInstance(), "SMBIOSBIOSVersion"), "2.31");
}

TEST(BiosInstance, HasEachSmBiosVersionInEightBitsWithoutSign)
{
    const ServedTable served(TableBuilder().version(128, 255).type(127));
    const Pegasus::CIMInstance bios = onlyBiosInstance();
    EXPECT_EQ(valueOf(bios, "SMBIOSBIOSVersion"), "128.255");
    EXPECT_EQ(valueOf(bios, "SMBIOSMajorVersion"), "128");
    EXPECT_EQ(valueOf(bios, "SMBIOSMinorVersion"), "255");
}

TEST(BiosInstance, FailureToDeliverItCostsNeitherTheFirmwareNorTheCompletion)
{
    struct RefusesTheBios : RecordingInstanceHandler
    {
        void deliver(const Pegasus::CIMInstance& instance) override
        {
            if (valueOf(instance, "PrimaryBIOS") == "TRUE")
                throw std::runtime_error("no room");
            RecordingInstanceHandler::deliver(instance);
        }
    };
    TableBuilder table = distinctFields();
    table.type(11).byte(0x04, 1).string("Diagnostics -[XXYT01-1.02]-");
    const ServedTable served(table);
    RefusesTheBios handler;
    TestProvider().enumerate(pathOf("QORTAL_BIOS"), handler);
    EXPECT_EQ(handler.calls, (Lines{"processing", "instance", "complete"}));
    EXPECT_EQ(valueOf(handler.instances.at(0), "Name"), "Diagnostics");
}

TEST(Bios, ReadsTheFirstStructureOfEachType)
{
    TableBuilder table = distinctFields();
    table.type(0).string(0x04, "Second Vendor").string(0x05, "Second");
    table.type(1).string(0x07, "Second Serial");
    table.type(13).byte(0x04, 1).string(0x15, "second");
    const ServedTable served(table);
    const VQ::Bios bios = VQ::GetBiosInstance();
    EXPECT_EQ(bios.getManufacturer(), "Vendor");
    EXPECT_EQ(bios.getVersion(), "1.05");
    EXPECT_EQ(bios.getSerialNumber(), "System Serial");
    EXPECT_EQ(bios.getCurrentLanguage(), "fr|FR");
    EXPECT_EQ(bios.getLanguages(), (Lines{"en|US", "fr|FR", "de|DE"}));
}

TEST(Bios, IsFoundBehindMoreStructuresThanEightBitsCount)
{
    TableBuilder table;
    for (int i = 0; i < 300; ++i)
        table.type(126);
    table.type(0).string(0x04, "Vendor").type(1).string(0x07, "Serial").type(13).byte(0x04, 1).string(0x15, "en");
    const ServedTable served(table);
    const VQ::Bios bios = VQ::GetBiosInstance();
    EXPECT_EQ(bios.getManufacturer(), "Vendor");
    EXPECT_EQ(bios.getSerialNumber(), "Serial");
    EXPECT_EQ(bios.getLanguages(), Lines{"en"});
}

// ---- version and build number

struct VersionCase
{
    const char* text;
    const char* buildNumber;
    const char* version;
};

class BiosVersion : public testing::TestWithParam<VersionCase>
{
};

TEST_P(BiosVersion, IsSplit)
{
    const VQ::Bios bios = biosOfVersion(GetParam().text);
    EXPECT_EQ(bios.getBuildNumber(), GetParam().buildNumber);
    EXPECT_EQ(bios.getVersion(), GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(AtTheDash, BiosVersion,
                         testing::Values(VersionCase{"-[ABCDE12-1.05]-", "ABCDE12", "1.05"},
                                         VersionCase{"B1 -[ABCDE12-1.05]- x", "ABCDE12", "1.05"},
                                         VersionCase{"-[ABCDEF-1-2-3]-", "ABCDEF", "123"},
                                         VersionCase{"-[ AB - 1 ]-", "AB", "1"}));
// As many characters as stand before the dash, the dash among them: not the whole rest.
INSTANTIATE_TEST_SUITE_P(CutAtTheDashsPosition, BiosVersion,
                         testing::Values(VersionCase{"-[AB-1.05]-", "AB", "1"},
                                         VersionCase{"-[ABC-1.05]-", "ABC", "1."}, VersionCase{"-[A-1.05]-", "A", ""},
                                         VersionCase{"-[-1.05]-", "", ""},
                                         VersionCase{"-[ABCD-1.2.3]-", "ABCD", "1.2"}));
INSTANTIATE_TEST_SUITE_P(OfBlanksOnlyIsLeftAsItIs, BiosVersion,
                         testing::Values(VersionCase{"-[   -1.05]-", "   ", "1."},
                                         VersionCase{"-[ABC-  ]-", "ABC", "  "}));
INSTANTIATE_TEST_SUITE_P(WithoutADashIsBothUnchanged, BiosVersion,
                         testing::Values(VersionCase{"Text -[ABCD42]-", "ABCD42", "ABCD42"},
                                         VersionCase{"-[ AB ]-", " AB ", " AB "}));
INSTANTIATE_TEST_SUITE_P(WithoutArchitectedDataIsTheSameTextTwice, BiosVersion,
                         testing::Values(VersionCase{"1.2.3", "1.2.3", "1.2.3"}, VersionCase{" A-1 ", " A-1 ", " A-1 "},
                                         VersionCase{"A -[]- B", "A  B", "A  B"},
                                         VersionCase{"A -[AB-1", "A -[AB-1", "A -[AB-1"},
                                         VersionCase{"  ", "  ", "  "}));

TEST(Bios, VersionAndBuildNumberAreEmptyWithoutAVersionText)
{
    const ServedTable served(TableBuilder().type(0).string(0x04, "Vendor").byte(0x05, 0));
    EXPECT_EQ(VQ::GetBiosInstance().getVersion(), "");
    EXPECT_EQ(VQ::GetBiosInstance().getBuildNumber(), "");
}

// ---- release date

struct DateCase
{
    const char* text;
    int year, month, day;
    const char* released; // as the instance says it
};

class BiosReleaseDate : public testing::TestWithParam<DateCase>
{
};

TEST_P(BiosReleaseDate, IsRead)
{
    const ServedTable served(releaseDate(GetParam().text));
    const VQ::DateTime date = VQ::GetBiosInstance().getReleaseDate();
    EXPECT_EQ(date.getYear(), GetParam().year);
    EXPECT_EQ(date.getMonth(), GetParam().month);
    EXPECT_EQ(date.getDay(), GetParam().day);
    EXPECT_EQ(date.getHour(), 0);
    EXPECT_EQ(date.getOffset(), 0);
    EXPECT_EQ(valueOf(onlyBiosInstance(), "ReleaseDate"), GetParam().released);
}

INSTANTIATE_TEST_SUITE_P(AtFixedPositions, BiosReleaseDate,
                         testing::Values(DateCase{"06/23/05", 2005, 6, 23, "20050623000000.000000+000"},
                                         DateCase{"12/31/99", 1999, 12, 31, "19991231000000.000000+000"},
                                         DateCase{"01/15/2007", 2007, 1, 15, "20070115000000.000000+000"},
                                         DateCase{"02/29/2008", 2008, 2, 29, "20080229000000.000000+000"},
                                         DateCase{"06-23-2005", 2005, 6, 23, "20050623000000.000000+000"}));
INSTANTIATE_TEST_SUITE_P(CenturyOfAYear, BiosReleaseDate,
                         testing::Values(DateCase{"01/02/00", 2000, 1, 2, "20000102000000.000000+000"},
                                         DateCase{"01/02/69", 2069, 1, 2, "20690102000000.000000+000"},
                                         DateCase{"01/02/70", 1970, 1, 2, "19700102000000.000000+000"},
                                         DateCase{"01/02/99", 1999, 1, 2, "19990102000000.000000+000"},
                                         DateCase{"01/02/100", 100, 1, 2, "01000102000000.000000+000"}));
// Positions 0, 3 and 6, whatever stands there.
INSTANTIATE_TEST_SUITE_P(OfOneDigitIsMisread, BiosReleaseDate,
                         testing::Values(DateCase{"1/5/2004", 2004, 1, 0, "200401********.******+000"},
                                         DateCase{"1/15/2004", 2004, 1, 5, "20040105000000.000000+000"},
                                         DateCase{"11/5/2004", 2004, 11, 5, "20041105000000.000000+000"},
                                         DateCase{"2/28/1998", 998, 2, 8, "09980208000000.000000+000"}));
INSTANTIATE_TEST_SUITE_P(ThatIsNoDate, BiosReleaseDate,
                         testing::Values(DateCase{"04/31/2010", 2010, 4, 31, "201004********.******+000"},
                                         DateCase{"02/29/2007", 2007, 2, 29, "200702********.******+000"},
                                         DateCase{"13/01/2010", 2010, 13, 1, "2010**********.******+000"},
                                         DateCase{"ab/cd/efgh", 2000, 0, 0, "2000**********.******+000"},
                                         DateCase{"7", 2000, 7, 0, "200007********.******+000"},
                                         DateCase{"06/", 2000, 6, 0, "200006********.******+000"},
                                         DateCase{"06/23", 2000, 6, 23, "20000623000000.000000+000"},
                                         DateCase{"06/23/", 2000, 6, 23, "20000623000000.000000+000"}));
INSTANTIATE_TEST_SUITE_P(NarrowedToTheFieldsWidth, BiosReleaseDate,
                         testing::Values(DateCase{"300", 2000, 44, 0, "2000**********.******+000"},
                                         DateCase{"-1/02/2003", 2003, 255, 2, "2003**********.******+000"},
                                         DateCase{"01/02/70000", 4464, 1, 2, "44640102000000.000000+000"},
                                         DateCase{"01/02/65541", 2005, 1, 2, "20050102000000.000000+000"},
                                         DateCase{"01/02/12345", 12345, 1, 2, "**************.******+000"}));

TEST(Bios, HasNoReleaseDateWithoutADateText)
{
    const ServedTable served(TableBuilder().type(0).string(0x04, "Vendor").byte(0x08, 0));
    EXPECT_FALSE(VQ::GetBiosInstance().getReleaseDate() != VQ::DateTime());
    EXPECT_EQ(valueOf(onlyBiosInstance(), "ReleaseDate"), "**************.******+000");
}

// ---- addresses

struct AddressCase
{
    std::uint16_t segment;
    unsigned long long starting, ending;
};

class BiosAddresses : public testing::TestWithParam<AddressCase>
{
};

TEST_P(BiosAddresses, FollowFromTheSegmentAlone)
{
    // Neither is multiplied by 16, and the ROM size has no part in them.
    const ServedTable served(TableBuilder().type(0).word(0x06, GetParam().segment).byte(0x09, 0x0F));
    EXPECT_EQ(VQ::GetBiosInstance().getLoadedStartingAddress(), GetParam().starting);
    EXPECT_EQ(VQ::GetBiosInstance().getLoadedEndingAddress(), GetParam().ending);
}

INSTANTIATE_TEST_SUITE_P(Segments, BiosAddresses,
                         testing::Values(AddressCase{0xE000, 0xE000, 0x2E000}, AddressCase{0, 0, 0x100000},
                                         AddressCase{0xFFFF, 0xFFFF, 0x1000F}, AddressCase{1, 1, 0xFFFF1}));

// ---- languages, and what is read where a structure is missing

TEST(Bios, WithNoInstallableLanguagesStillHasACurrentOne)
{
    const ServedTable served(TableBuilder().type(0).type(1).type(13).byte(0x04, 0).string(0x15, "en"));
    EXPECT_TRUE(VQ::GetBiosInstance().getLanguages().empty());
    EXPECT_EQ(VQ::GetBiosInstance().getCurrentLanguage(), "en");
    EXPECT_EQ(valueOf(onlyBiosInstance(), "ListOfLanguages"), "");
}

TEST(Bios, HasAnEmptyTextForEachAnnouncedLanguageThatIsMissing)
{
    const ServedTable served(TableBuilder().type(13).byte(0x04, 4).string("en").string("de").byte(0x15, 3));
    EXPECT_EQ(VQ::GetBiosInstance().getLanguages(), (Lines{"en", "de", "", ""}));
    EXPECT_EQ(VQ::GetBiosInstance().getCurrentLanguage(), "");
}

TEST(Bios, ListsOnlyTheAnnouncedLanguages)
{
    const ServedTable served(TableBuilder().type(13).byte(0x04, 1).string("en").string("de").byte(0x15, 2));
    EXPECT_EQ(VQ::GetBiosInstance().getLanguages(), Lines{"en"});
    EXPECT_EQ(VQ::GetBiosInstance().getCurrentLanguage(), "de");
}

TEST(Bios, WithoutType13TakesTheLanguagesFromType1)
{
    // 04h is the number of the Manufacturer text there, 15h a byte of the UUID.
    TableBuilder table;
    table.type(0).string(0x04, "Vendor");
    table.type(1).string("First").string(0x04, "Maker").string("Third").string(0x07, "Serial").byte(0x15, 3);
    const ServedTable served(table);
    EXPECT_EQ(VQ::GetBiosInstance().getLanguages(), (Lines{"First", "Maker"}));
    EXPECT_EQ(VQ::GetBiosInstance().getCurrentLanguage(), "Third");
    EXPECT_EQ(VQ::GetBiosInstance().getSerialNumber(), "Serial");
}

TEST(Bios, WithoutType1And13TakesSerialNumberAndLanguagesFromType0)
{
    // 04h is the number of the Vendor text there, 07h the high byte of the segment, 15h the minor release.
    TableBuilder table;
    table.type(0).string("First").string(0x04, "Vendor").string("Third").string("Fourth");
    table.word(0x06, 0x0300).byte(0x15, 4);
    const ServedTable served(table);
    const VQ::Bios bios = VQ::GetBiosInstance();
    EXPECT_EQ(bios.getManufacturer(), "Vendor");
    EXPECT_EQ(bios.getSerialNumber(), "Third");
    EXPECT_EQ(bios.getLanguages(), (Lines{"First", "Vendor"}));
    EXPECT_EQ(bios.getCurrentLanguage(), "Fourth");
}

TEST(Bios, WithoutType1TakesTheSerialNumberFromType0)
{
    TableBuilder table;
    table.type(0).string(0x04, "Vendor").string("Second").word(0x06, 0x0200);
    table.type(13).byte(0x04, 1).string(0x15, "en");
    const ServedTable served(table);
    EXPECT_EQ(VQ::GetBiosInstance().getSerialNumber(), "Second");
    EXPECT_EQ(VQ::GetBiosInstance().getLanguages(), Lines{"en"});
}

TEST(Bios, WithoutType0ReadsTheOthersAlone)
{
    TableBuilder table;
    table.type(1).string(0x04, "Maker").string(0x05, "Product").string(0x07, "Serial").string(0x08, "06/23/2005");
    const ServedTable served(table);
    const VQ::Bios bios = VQ::GetBiosInstance();
    EXPECT_EQ(bios.getVersion(), "");
    EXPECT_EQ(bios.getBuildNumber(), "");
    EXPECT_EQ(bios.getManufacturer(), "");
    EXPECT_FALSE(bios.getReleaseDate() != VQ::DateTime());
    EXPECT_EQ(bios.getLoadedStartingAddress(), 0u);
    EXPECT_EQ(bios.getLoadedEndingAddress(), 0x100000u);
    EXPECT_EQ(bios.getSerialNumber(), "Serial");
    EXPECT_EQ(bios.getLanguages(), Lines{"Maker"});
}

TEST(Bios, OfAShortStructureReadsTheMissingFieldsAsNone)
{
    const ServedTable served(TableBuilder().type(0).string(0x04, "Vendor").string("06/23/2005").type(13).string("en"));
    const VQ::Bios bios = VQ::GetBiosInstance();
    EXPECT_EQ(bios.getManufacturer(), "Vendor");
    EXPECT_EQ(bios.getVersion(), "");
    EXPECT_FALSE(bios.getReleaseDate() != VQ::DateTime());
    EXPECT_EQ(bios.getLoadedEndingAddress(), 0x100000u);
    EXPECT_TRUE(bios.getLanguages().empty());
    EXPECT_EQ(bios.getCurrentLanguage(), "");
}
