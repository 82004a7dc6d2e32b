// What `init` takes from the table, and what it leaves when it is called again or interrupted.

#include "flat/Snapshot.h"
#include "support/smbios/SmBios.h"
#include "tests/flat/Calls.h"
#include "tests/flat/FixedSystem.h"
#include "tests/testing/ServedTable.h"

#include <stdexcept>
#include <unistd.h>

using Integers = std::vector<std::int32_t>;
using Texts = std::vector<std::string>;

namespace
{
// A machine of which every fact carries the mark, with so many records in each list.
TableBuilder machine(const std::string& mark, int records, const std::string& oemString)
{
    TableBuilder table;
    table.type(0).string(0x04, mark + "vendor").string(0x05, mark + "bios").length(0x09);
    for (int i = 0; i < records; ++i) {
        const std::string number = mark + std::to_string(i);
        table.type(2).string(0x04, "board " + number).length(0x0B);
        table.type(7).string(0x04, "cache " + number).length(0x13);
        table.type(8).string(0x06, "port " + number).length(0x09);
        table.type(9).string(0x04, "slot " + number);
    }
    table.type(3).string(0x04, mark + "chassis").length(0x09);
    return table.type(11).byte(0x04, 1).string(oemString).type(127);
}

// The state of all nine objects, one line for each; what an object of no own state shows is left out.
Texts state()
{
    Texts lines = {"cs " + std::to_string(cs.getVirtualType()), "bios " + textOf(getBiosVersion),
                   "chassis " + textOf(getChassisManufacturer)};
    for (const VQ::BaseBoard& record : bb)
        lines.push_back(record.getManufacturer());
    for (const VQ::Cache& record : caches)
        lines.push_back(record.getDesignation());
    for (const VQ::Firmware& record : firmwares)
        lines.push_back("firmware " + record.getName());
    for (const VQ::Port& record : ports)
        lines.push_back(record.getExternalReferenceDesignator());
    for (const VQ::Slot& record : slots)
        lines.push_back(record.getDesignation());
    return lines;
}

const Texts StateOfOld = {"cs 1",        "bios old bios", "chassis old chassis", "board old 0",
                          "cache old 0", "firmware Old",  "port old 0",          "slot old 0"};

// While it lives, the working directory is that of a program on a Xen guest: the probe library is found from there.
class GuestDirectory
{
public:
    GuestDirectory()
    {
        char path[4096];
        _old = getcwd(path, sizeof path) ? path : "/";
        EXPECT_EQ(chdir(VQ_GUEST_DIR), 0);
    }
    ~GuestDirectory() { EXPECT_EQ(chdir(_old.c_str()), 0); }
    GuestDirectory(const GuestDirectory&) = delete;
    GuestDirectory& operator=(const GuestDirectory&) = delete;

private:
    std::string _old;
};

class Snapshot : public testing::Test
{
protected:
    Snapshot() : table(machine("old ", 1, "Old -[XXYT01-1.02]-"))
    {
        fixedSystem() = FixedSystem();
        EXPECT_EQ(init(), 1);
        EXPECT_EQ(state(), StateOfOld);
    }
    ServedTable table;
};
}

TEST_F(Snapshot, HoldsOneRecordOfEachSingleKind)
{
    EXPECT_EQ(getCount(), 1);
    table.replace(TableBuilder().type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(getCount(), 1);
}

TEST_F(Snapshot, CountsEachListByItself)
{
    TableBuilder counted;
    for (int i = 0; i < 5; ++i) {
        counted.type(7).length(0x13);
        if (i < 4)
            counted.type(8).length(0x09);
        if (i < 3)
            counted.type(9).length(0x05);
        if (i < 2)
            counted.type(2).length(0x0B);
    }
    counted.type(11).byte(0x04, 6);
    for (const char* text : {"-[11YT]-", "-[22ET]-", "-[338T]-", "-[44E2]-", "-[55YT]-", "-[66YT]-"})
        counted.string(text);
    table.replace(counted.type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(getBBCount(), 2);
    EXPECT_EQ(getSlotCount(), 3);
    EXPECT_EQ(getPortCount(), 4);
    EXPECT_EQ(getCacheCount(), 5);
    EXPECT_EQ(getFirmwareCount(), 6);
}

TEST_F(Snapshot, DoesNotAccumulate)
{
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(state(), StateOfOld);
}

TEST_F(Snapshot, StaysAsItIsWhenTheTableChanges)
{
    table.replace(machine("new ", 2, "New -[XXYT01-1.02]-"));
    EXPECT_EQ(state(), StateOfOld);
}

TEST_F(Snapshot, IsTakenAnewByInit)
{
    const GuestDirectory guest;
    table.replace(machine("new ", 2, "New -[XXYT01-1.02]-"));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(state(),
              (Texts{"cs 3", "bios new bios", "chassis new chassis", "board new 0", "board new 1", "cache new 0",
                     "cache new 1", "firmware New", "port new 0", "port new 1", "slot new 0", "slot new 1"}));
}

TEST_F(Snapshot, OfATableWithoutRecordsIsEmptyAgain)
{
    table.replace(TableBuilder().type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(state(), (Texts{"cs 1", "bios ", "chassis "}));
}

TEST_F(Snapshot, IsNewUpToTheChassisAndOldFromTheFirmwareOnWhenAnOemStringEndsInit)
{
    const GuestDirectory guest;
    table.replace(machine("new ", 2, "New -[A]-"));
    EXPECT_THROW(init(), std::out_of_range);
    EXPECT_EQ(state(), (Texts{"cs 3", "bios new bios", "chassis new chassis", "board new 0", "board new 1",
                              "cache new 0", "cache new 1", "firmware Old", "port old 0", "slot old 0"}));
    EXPECT_EQ(textOf(getOSName), "Linux");
}

TEST_F(Snapshot, CanBeTakenAfterAnInitThatWasInterrupted)
{
    table.replace(machine("new ", 2, "New -[A]-"));
    EXPECT_THROW(init(), std::out_of_range);
    table.replace(machine("old ", 1, "Old -[XXYT01-1.02]-"));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(state(), StateOfOld);
}

TEST_F(Snapshot, KeepsAllButTheComputerSystemWhenTheTableCannotBeRead)
{
    const GuestDirectory guest;
    const ServedTable unreadable(std::string("/nonexistent/table"));
    EXPECT_THROW(init(), VQ::SmBiosError);
    Texts expected = StateOfOld;
    expected[0] = "cs 3";
    EXPECT_EQ(state(), expected);
}

TEST_F(Snapshot, TakesTheBiosFromItsStructures)
{
    TableBuilder bios;
    bios.version(2, 6);
    bios.type(0)
        .string(0x04, "vendor")
        .string(0x05, "text -[ABCDE12-1.05]-")
        .string(0x08, "06/23/2005")
        .word(0x06, 0xE000);
    bios.type(1).string(0x05, "product").string(0x07, "serial");
    bios.type(13).byte(0x04, 2).byte(0x15, 2).string("en").string("de");
    table.replace(bios.type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(textOf(getBiosManufacturer), "vendor");
    EXPECT_EQ(textOf(getBiosVersion), "1.05");
    EXPECT_EQ(textOf(getBiosBuildNumber), "ABCDE12");
    EXPECT_EQ(textOf(getBiosSerialNumber), "serial");
    EXPECT_EQ(textOf(getBiosCurrentLanguage), "de");
    EXPECT_EQ(textsOf(getBiosLanguages), (Texts{"en", "de"}));
    EXPECT_EQ(textOf(getBiosReleaseDate), "20050623000000.000000+000");
    EXPECT_EQ(getBiosSmBiosMajorVersion(), 2);
    EXPECT_EQ(getBiosSmBiosMinorVersion(), 6);
    EXPECT_EQ(getBiosLoadedStartingAddress(), 57344u);
    EXPECT_EQ(getBiosLoadedEndingAddress(), 188416u);
}

TEST_F(Snapshot, TakesChassisAndBaseBoardFromTheirStructures)
{
    TableBuilder boards;
    boards.type(3).string(0x04, "c maker").string(0x06, "c version").string(0x07, "c serial").string(0x08, "c tag");
    boards.type(2)
        .string(0x04, "b maker")
        .string(0x05, "b product")
        .string(0x06, "b version")
        .string(0x07, "b serial")
        .string(0x08, "b tag")
        .string(0x0A, "b location");
    table.replace(boards.type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(textOf(getChassisManufacturer), "c maker");
    EXPECT_EQ(textOf(getChassisVersion), "c version");
    EXPECT_EQ(textOf(getChassisSerialNumber), "c serial");
    EXPECT_EQ(textOf(getChassisAssetTag), "c tag");
    EXPECT_EQ(textOf(getBBManufacturer, 0), "b maker");
    EXPECT_EQ(textOf(getBBProduct, 0), "b product");
    EXPECT_EQ(textOf(getBBVersion, 0), ""); // never read where the product can be
    EXPECT_EQ(textOf(getBBSerialNumber, 0), "b serial");
    EXPECT_EQ(textOf(getBBAssetTag, 0), "b tag");
    EXPECT_EQ(textOf(getBBLocation, 0), "b location");
}

TEST_F(Snapshot, TakesCachesFromTheirStructures)
{
    TableBuilder cache;
    cache.type(7)
        .string(0x04, "L1")
        .word(0x05, 0x0121) // write back, external, level 2
        .word(0x07, 0x0200)
        .word(0x09, 0x8100)
        .byte(0x0F, 15)
        .byte(0x10, 16)
        .byte(0x11, 17)
        .byte(0x12, 18);
    table.replace(cache.type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(textOf(getCacheDesignation, 0), "L1");
    EXPECT_EQ(textOf(getCachePurpose, 0), "L1");
    EXPECT_EQ(getCacheWritePolicy(0), 3);
    EXPECT_EQ(getCacheLocation(0), 1);
    EXPECT_EQ(getCacheLevel(0), 4);
    EXPECT_EQ(getCacheMaximumSize(0), 512u);
    EXPECT_EQ(getCacheSize(0), 16384u);
    EXPECT_EQ(getCacheInstalledSize(0), 16384u);
    EXPECT_EQ(getCacheNumberOfBlocks(0), 256u);
    EXPECT_EQ(getCacheSpeed(0), 15u);
    EXPECT_EQ(getCacheErrorCorrectionType(0), 16);
    EXPECT_EQ(getCacheType(0), 17);
    EXPECT_EQ(getCacheAssociativity(0), 18);
    EXPECT_EQ(integersOf(getCacheSupportedSramType, 0), Integers{});
    EXPECT_EQ(integersOf(getCacheCurrentSramType, 0), Integers{});
}

TEST_F(Snapshot, TakesPortsSlotsAndFirmwareFromTheirStructures)
{
    TableBuilder devices;
    devices.type(8).string(0x04, " J1 ").byte(0x05, 7).string(0x06, " COM1 ").byte(0x07, 8).byte(0x08, 9);
    devices.type(9).string(0x04, " PCI 1 ");
    devices.type(11).byte(0x04, 1).string("Diagnostics -[XXYT01-1.02]-");
    table.replace(devices.type(127));
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(textOf(getPortName, 0), "");
    EXPECT_EQ(textOf(getPortModel, 0), "");
    EXPECT_EQ(textOf(getPortManufacturer, 0), "");
    EXPECT_EQ(textOf(getPortInternalReferenceDesignator, 0), "J1");
    EXPECT_EQ(textOf(getPortExternalReferenceDesignator, 0), "COM1");
    EXPECT_EQ(getPortType(0), 9);
    EXPECT_EQ(integersOf(getPortConnectors, 0), (Integers{7, 8}));
    EXPECT_EQ(textOf(getSlotDesignation, 0), " PCI 1 ");
    EXPECT_EQ(textOf(getFirmwareName, 0), "Diagnostics");
    EXPECT_EQ(textOf(getFirmwareVersion, 0), "1.02");
    EXPECT_EQ(textOf(getFirmwareManufacturer, 0), "QOR");
    EXPECT_EQ(textOf(getFirmwareSerialNumber, 0), "");
    EXPECT_EQ(textOf(getFirmwareBuildNumber, 0), "XXYT01");
    EXPECT_EQ(textOf(getFirmwareReleaseDate, 0), "00000000000000.000000:000");
}
