// Every accessor of a record, over records in which no two fields are alike: an accessor that read its neighbour's
// field would show. The records are filled directly, so that fields which this system never fills are told apart as
// well.

#include "flat/Snapshot.h"
#include "tests/flat/Calls.h"
#include "tests/testing/FakeLibc.h"
#include "tests/testing/ServedTable.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/String.h>

#include <functional>

using Integers = std::vector<std::int32_t>;
using Texts = std::vector<std::string>;

namespace
{
struct BaseBoardWith : VQ::BaseBoard
{
    explicit BaseBoardWith(const std::string& mark)
    {
        _manufacturer = mark + "manufacturer";
        _serialNumber = mark + "serial number";
        _assetTag = mark + "asset tag";
        _version = mark + "version";
        _product = mark + "product";
        _location = mark + "location";
    }
};

struct BiosWith : VQ::Bios
{
    BiosWith()
    {
        _version = "version";
        _buildNumber = "build number";
        _smBiosMajorVersion = 0xFFFE;
        _smBiosMinorVersion = 0xFFFD;
        _loadedStartingAddress = 0x8123456789ABCDEFull;
        _loadedEndingAddress = 0xFEDCBA9876543210ull;
        _manufacturer = "manufacturer";
        _serialNumber = "serial number";
        _currentLanguage = "current language";
        _languages = {"language 1", "", "language 3"};
    }
    void setReleaseDate(const VQ::DateTime& date) { _releaseDate = date; }
    void setSmBiosVersion(std::uint16_t major, std::uint16_t minor)
    {
        _smBiosMajorVersion = major;
        _smBiosMinorVersion = minor;
    }
};

struct CacheWith : VQ::Cache
{
    CacheWith(const std::string& mark, std::uint16_t first)
    {
        const auto code = [first](int n) { return static_cast<std::uint16_t>(first + n); };
        _associativity = code(1);
        _errorCorrectionType = code(2);
        _level = code(3);
        _location = code(4);
        _type = code(5);
        _writePolicy = code(6);
        _size = 0xFFFF0000u + code(7);
        _maximumSize = 0xFFFF0000u + code(8);
        _speed = 0xFFFF0000u + code(9);
        _numberOfBlocks = 0xFFFF0000u + code(10);
        _designation = mark + "designation";
        _purpose = mark + "purpose";
        _currentSramType = {code(11), code(12)};
        _supportedSramType = {code(13)};
    }
};

struct ChassisWith : VQ::Chassis
{
    ChassisWith()
    {
        _manufacturer = "manufacturer";
        _version = "version";
        _serialNumber = "serial number";
        _assetTag = "asset tag";
    }
};

struct FirmwareWith : VQ::Firmware
{
    FirmwareWith(const std::string& mark, const char* date)
    {
        _name = mark + "name";
        _version = mark + "version";
        _releaseDate = Pegasus::CIMDateTime(Pegasus::String(date));
        _manufacturer = mark + "manufacturer";
        _serialNumber = mark + "serial number";
        _buildNumber = mark + "build number";
    }
};

struct PortWith : VQ::Port
{
    PortWith(const std::string& mark, std::uint16_t first)
    {
        _manufacturer = mark + "manufacturer";
        _model = mark + "model";
        _name = mark + "name";
        _externalReferenceDesignator = mark + "external";
        _internalReferenceDesignator = mark + "internal";
        _type = static_cast<std::uint16_t>(first + 1);
        _connectors = {static_cast<std::uint16_t>(first + 2), static_cast<std::uint16_t>(first + 3)};
    }
};

struct SlotWith : VQ::Slot
{
    explicit SlotWith(const std::string& designation) { _designation = designation; }
};

using BiosAccessors = FakeLibcTest;
using ComputerSystemAccessors = FakeLibcTest;

std::string printedBy(const std::function<void()>& action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}
}

TEST(BaseBoardAccessors, ReadTheirOwnFieldOfTheirOwnRecord)
{
    bb = {BaseBoardWith("first "), BaseBoardWith("second ")};
    EXPECT_EQ(getBBCount(), 2);
    EXPECT_EQ(textOf(getBBManufacturer, 0), "first manufacturer");
    EXPECT_EQ(textOf(getBBProduct, 0), "first product");
    EXPECT_EQ(textOf(getBBVersion, 0), "first version");
    EXPECT_EQ(textOf(getBBSerialNumber, 0), "first serial number");
    EXPECT_EQ(textOf(getBBAssetTag, 0), "first asset tag");
    EXPECT_EQ(textOf(getBBLocation, 0), "first location");
    EXPECT_EQ(textOf(getBBManufacturer, 1), "second manufacturer");
    EXPECT_EQ(textOf(getBBProduct, 1), "second product");
    EXPECT_EQ(textOf(getBBVersion, 1), "second version");
    EXPECT_EQ(textOf(getBBSerialNumber, 1), "second serial number");
    EXPECT_EQ(textOf(getBBAssetTag, 1), "second asset tag");
    EXPECT_EQ(textOf(getBBLocation, 1), "second location");
}

TEST_F(BiosAccessors, ReadTheirOwnField)
{
    bios = BiosWith();
    EXPECT_EQ(textOf(getBiosManufacturer), "manufacturer");
    EXPECT_EQ(textOf(getBiosVersion), "version");
    EXPECT_EQ(textOf(getBiosBuildNumber), "build number");
    EXPECT_EQ(textOf(getBiosSerialNumber), "serial number");
    EXPECT_EQ(textOf(getBiosCurrentLanguage), "current language");
    EXPECT_EQ(textsOf(getBiosLanguages), (Texts{"language 1", "", "language 3"}));
    EXPECT_EQ(getBiosSmBiosMajorVersion(), 65534);
    EXPECT_EQ(getBiosSmBiosMinorVersion(), 65533);
    EXPECT_EQ(getBiosLoadedStartingAddress(), 0x8123456789ABCDEFull);
    EXPECT_EQ(getBiosLoadedEndingAddress(), 0xFEDCBA9876543210ull);
}

TEST_F(BiosAccessors, SmBiosVersionIsTwoNumbersAndReturnsItsLength)
{
    BiosWith record;
    MarkedBuffer buffer;
    record.setSmBiosVersion(2, 3);
    bios = record;
    EXPECT_EQ(getBiosSmBiosVersion(buffer.data()), 3);
    EXPECT_EQ(textIn(buffer), "2.3");
    record.setSmBiosVersion(65535, 65534);
    bios = record;
    EXPECT_EQ(getBiosSmBiosVersion(buffer.data()), 11);
    EXPECT_EQ(textIn(buffer), "65535.65534");
}

TEST_F(BiosAccessors, ReleaseDateIsDeliveredAndPrinted)
{
    BiosWith record;
    VQ::DateTime date;
    date.setYear(2005);
    date.setMonth(3);
    date.setDay(7);
    record.setReleaseDate(date);
    bios = record;
    MarkedBuffer buffer;
    EXPECT_EQ(printedBy([&buffer] { getBiosReleaseDate(buffer.data()); }), "TIME Format : 20050307000000.000000+000\n");
    EXPECT_EQ(textIn(buffer), "20050307000000.000000+000");
}

TEST_F(BiosAccessors, ReleaseDateHasTheDatesOwnOffset)
{
    libc.gmtOffset = -300L * 60;
    BiosWith record;
    record.setReleaseDate(VQ::DateTime(1110214800, 3)); // 2005-03-07 17:00:00 UTC
    bios = record;
    MarkedBuffer buffer;
    EXPECT_EQ(printedBy([&buffer] { getBiosReleaseDate(buffer.data()); }),
              "TIME Format : 20050307120000.000000+-300\n");
    EXPECT_EQ(textIn(buffer), "20050307120000.000000+-300");
}

TEST(CacheAccessors, ReadTheirOwnFieldOfTheirOwnRecord)
{
    caches = {CacheWith("first ", 100), CacheWith("second ", 65500)};
    EXPECT_EQ(getCacheCount(), 2);
    EXPECT_EQ(textOf(getCacheDesignation, 0), "first designation");
    EXPECT_EQ(textOf(getCachePurpose, 0), "first purpose");
    EXPECT_EQ(getCacheAssociativity(0), 101);
    EXPECT_EQ(getCacheErrorCorrectionType(0), 102);
    EXPECT_EQ(getCacheLevel(0), 103);
    EXPECT_EQ(getCacheLocation(0), 104);
    EXPECT_EQ(getCacheType(0), 105);
    EXPECT_EQ(getCacheWritePolicy(0), 106);
    EXPECT_EQ(getCacheSize(0), 4294901867u);
    EXPECT_EQ(getCacheInstalledSize(0), 4294901867u);
    EXPECT_EQ(getCacheMaximumSize(0), 4294901868u);
    EXPECT_EQ(getCacheSpeed(0), 4294901869u);
    EXPECT_EQ(getCacheNumberOfBlocks(0), 4294901870ull);
    EXPECT_EQ(integersOf(getCacheCurrentSramType, 0), (Integers{111, 112}));
    EXPECT_EQ(integersOf(getCacheSupportedSramType, 0), (Integers{113}));
    EXPECT_EQ(textOf(getCacheDesignation, 1), "second designation");
    EXPECT_EQ(textOf(getCachePurpose, 1), "second purpose");
    EXPECT_EQ(getCacheAssociativity(1), 65501);
    EXPECT_EQ(getCacheErrorCorrectionType(1), 65502);
    EXPECT_EQ(getCacheLevel(1), 65503);
    EXPECT_EQ(getCacheLocation(1), 65504);
    EXPECT_EQ(getCacheType(1), 65505);
    EXPECT_EQ(getCacheWritePolicy(1), 65506);
    EXPECT_EQ(getCacheSize(1), 4294967267u);
    EXPECT_EQ(getCacheInstalledSize(1), 4294967267u);
    EXPECT_EQ(getCacheMaximumSize(1), 4294967268u);
    EXPECT_EQ(getCacheSpeed(1), 4294967269u);
    EXPECT_EQ(getCacheNumberOfBlocks(1), 4294967270ull);
    EXPECT_EQ(integersOf(getCacheCurrentSramType, 1), (Integers{65511, 65512}));
    EXPECT_EQ(integersOf(getCacheSupportedSramType, 1), (Integers{65513}));
}

TEST(ChassisAccessors, ReadTheirOwnField)
{
    chassis = ChassisWith();
    EXPECT_EQ(textOf(getChassisManufacturer), "manufacturer");
    EXPECT_EQ(textOf(getChassisVersion), "version");
    EXPECT_EQ(textOf(getChassisSerialNumber), "serial number");
    EXPECT_EQ(textOf(getChassisAssetTag), "asset tag");
}

TEST(FirmwareAccessors, ReadTheirOwnFieldOfTheirOwnRecord)
{
    firmwares = {FirmwareWith("first ", "20050307120000.000000+060"),
                 FirmwareWith("second ", "19991231235959.123456-300")};
    EXPECT_EQ(getFirmwareCount(), 2);
    EXPECT_EQ(textOf(getFirmwareName, 0), "first name");
    EXPECT_EQ(textOf(getFirmwareVersion, 0), "first version");
    EXPECT_EQ(textOf(getFirmwareManufacturer, 0), "first manufacturer");
    EXPECT_EQ(textOf(getFirmwareSerialNumber, 0), "first serial number");
    EXPECT_EQ(textOf(getFirmwareBuildNumber, 0), "first build number");
    EXPECT_EQ(textOf(getFirmwareReleaseDate, 0), "20050307120000.000000+060");
    EXPECT_EQ(textOf(getFirmwareName, 1), "second name");
    EXPECT_EQ(textOf(getFirmwareVersion, 1), "second version");
    EXPECT_EQ(textOf(getFirmwareManufacturer, 1), "second manufacturer");
    EXPECT_EQ(textOf(getFirmwareSerialNumber, 1), "second serial number");
    EXPECT_EQ(textOf(getFirmwareBuildNumber, 1), "second build number");
    EXPECT_EQ(textOf(getFirmwareReleaseDate, 1), "19991231235959.123456-300");
}

TEST(PortAccessors, ReadTheirOwnFieldOfTheirOwnRecord)
{
    ports = {PortWith("first ", 200), PortWith("second ", 65530)};
    EXPECT_EQ(getPortCount(), 2);
    EXPECT_EQ(textOf(getPortName, 0), "first name");
    EXPECT_EQ(textOf(getPortModel, 0), "first model");
    EXPECT_EQ(textOf(getPortManufacturer, 0), "first manufacturer");
    EXPECT_EQ(textOf(getPortInternalReferenceDesignator, 0), "first internal");
    EXPECT_EQ(textOf(getPortExternalReferenceDesignator, 0), "first external");
    EXPECT_EQ(getPortType(0), 201);
    EXPECT_EQ(integersOf(getPortConnectors, 0), (Integers{202, 203}));
    EXPECT_EQ(textOf(getPortName, 1), "second name");
    EXPECT_EQ(textOf(getPortModel, 1), "second model");
    EXPECT_EQ(textOf(getPortManufacturer, 1), "second manufacturer");
    EXPECT_EQ(textOf(getPortInternalReferenceDesignator, 1), "second internal");
    EXPECT_EQ(textOf(getPortExternalReferenceDesignator, 1), "second external");
    EXPECT_EQ(getPortType(1), 65531);
    EXPECT_EQ(integersOf(getPortConnectors, 1), (Integers{65532, 65533}));
}

TEST(SlotAccessors, ReadTheirOwnRecord)
{
    slots = {SlotWith("first"), SlotWith(""), SlotWith(" third ")};
    EXPECT_EQ(getSlotCount(), 3);
    EXPECT_EQ(textOf(getSlotDesignation, 0), "first");
    EXPECT_EQ(textOf(getSlotDesignation, 1), "");
    EXPECT_EQ(textOf(getSlotDesignation, 2), " third ");
}

TEST(Lists, MayHoldMoreRecordsThan16BitsCount)
{
    bb.assign(70000, BaseBoardWith(""));
    bb.back() = BaseBoardWith("last ");
    caches.assign(70000, CacheWith("", 1));
    caches.back() = CacheWith("last ", 1);
    firmwares.assign(70000, VQ::Firmware());
    firmwares.back().setName("last name");
    ports.assign(70000, PortWith("", 1));
    ports.back() = PortWith("last ", 1);
    slots.assign(70000, SlotWith(""));
    slots.back() = SlotWith("last designation");
    EXPECT_EQ(getBBCount(), 70000);
    EXPECT_EQ(textOf(getBBProduct, 69999), "last product");
    EXPECT_EQ(getCacheCount(), 70000);
    EXPECT_EQ(textOf(getCacheDesignation, 69999), "last designation");
    EXPECT_EQ(getFirmwareCount(), 70000);
    EXPECT_EQ(textOf(getFirmwareName, 69999), "last name");
    EXPECT_EQ(getPortCount(), 70000);
    EXPECT_EQ(textOf(getPortInternalReferenceDesignator, 69999), "last internal");
    EXPECT_EQ(getSlotCount(), 70000);
    EXPECT_EQ(textOf(getSlotDesignation, 69999), "last designation");
    bb.clear();
    caches.clear();
    firmwares.clear();
    ports.clear();
    slots.clear();
}

TEST_F(ComputerSystemAccessors, ReadLive)
{
    ServedTable table(TableBuilder().type(1).string(0x05, "Server -[8837ABC]-").type(127));
    EXPECT_EQ(textOf(getCSName), "test-host");
    EXPECT_EQ(textOf(getCSModel), "8837ABC");
    EXPECT_EQ(textOf(getCSDescription), "Server ");
    EXPECT_EQ(textOf(getCSOwnerName), "");
    EXPECT_EQ(textOf(getCSOwnerContact), "");
    table.replace(TableBuilder().type(1).string(0x05, "Desk -[1A]- 2").type(127));
    libc.setHostName("renamed");
    EXPECT_EQ(textOf(getCSName), "renamed");
    EXPECT_EQ(textOf(getCSModel), "1A");
    EXPECT_EQ(textOf(getCSDescription), "Desk  2");
}

TEST_F(ComputerSystemAccessors, NameAndModelHaveASecondName)
{
    const ServedTable table(TableBuilder().type(1).string(0x05, "Server -[8837ABC]-").type(127));
    EXPECT_EQ(textOf(getName), "test-host");
    EXPECT_EQ(textOf(getModel), "8837ABC");
}

TEST_F(ComputerSystemAccessors, LongestNodeNameFitsTheDocumentedBuffer)
{
    libc.setHostName(std::string(64, '\xE9')); // no UTF-8: each byte is one character of two bytes
    EXPECT_EQ(textOf(getCSName).size() + 1, 129u);
}

TEST(ConfigurationOptions, AreReadLiveAndWithoutASnapshot)
{
    ServedTable table(TableBuilder().type(12).byte(0x04, 2).string("JP1: open").string("JP2: closed").type(127));
    EXPECT_EQ(textsOf(getBBConfigurationOptions), (Texts{"JP1: open", "JP2: closed"}));
    table.replace(TableBuilder().type(12).byte(0x04, 1).string("A").type(12).byte(0x04, 2).string("B").type(127));
    EXPECT_EQ(textsOf(getBBConfigurationOptions), (Texts{"A", "B", ""}));
    table.replace(TableBuilder().type(127));
    EXPECT_EQ(textsOf(getBBConfigurationOptions), Texts{});
}

TEST(PowerRequests, RebootPrintsALineAndReturnsZero)
{
    int result = -1;
    EXPECT_EQ(printedBy([&result] { result = Reboot(); }), "Reboot requested\n");
    EXPECT_EQ(result, 0);
}

TEST(PowerRequests, ShutdownPrintsALineAndReturnsZero)
{
    int result = -1;
    EXPECT_EQ(printedBy([&result] { result = Shutdown(); }), "Shutdown requested\n");
    EXPECT_EQ(result, 0);
}
