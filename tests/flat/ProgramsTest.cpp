// C programs over the module: the example, and one that loads and unloads it many times.

#include "tests/testing/Process.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace
{
const std::string ModuleFile = VQ_LIB_DIR "/libSystemProvider.so";
const std::string ReaderFile = VQ_LIB_DIR "/from-dump/libvqsmbios.so";
const std::string RealTables = VQ_SOURCE_DIR "/../shared/dumps";

Outcome runExample(const std::string& arguments)
{
    return run(std::string(VQ_EXAMPLE) + " " + arguments + " 2>&1");
}

class DumpFile
{
public:
    explicit DumpFile(const TableBuilder& table) : _path(writeTemporaryFile(table.dump())) {}
    ~DumpFile() { std::remove(_path.c_str()); }
    DumpFile(const DumpFile&) = delete;
    DumpFile& operator=(const DumpFile&) = delete;
    const std::string& path() const { return _path; }

private:
    std::string _path;
};

TableBuilder machine()
{
    TableBuilder table;
    table.version(2, 3);
    table.type(0)
        .string(0x04, "Vendor")
        .string(0x05, "Text -[ABCDE12-1.05]-")
        .string(0x08, "06/23/05")
        .word(0x06, 0xE000);
    table.type(1).string(0x05, "Server -[8837ABC]-").string(0x07, "S1");
    table.type(13).byte(0x04, 2).byte(0x15, 1).string("en").string("de");
    table.type(11).byte(0x04, 1).string("Diagnostics -[XXYT01-1.02]-");
    table.type(3).string(0x04, "Case maker").string(0x06, "V1").string(0x07, "S2").string(0x08, "A2");
    table.type(2).string(0x04, "Maker").string(0x05, "Board").string(0x07, "S3").string(0x08, "A3").string(0x0A, "Top");
    table.type(12).byte(0x04, 2).string("JP1: open").string("JP2: closed");
    table.type(7).string(0x04, "L1").word(0x05, 0x0180).word(0x07, 64).word(0x09, 32).byte(0x0F, 5).byte(0x12, 4);
    table.type(8).string(0x04, "J1").byte(0x05, 1).string(0x06, "COM1").byte(0x07, 8).byte(0x08, 9);
    table.type(9).string(0x04, "PCI 1");
    return table.type(127);
}

// All that the example prints of `machine()`, but for the running system.
const char* const Inventory = R"(BIOS
  Manufacturer: Vendor
  Version: 1.05
  BuildNumber: ABCDE12
  SerialNumber: S1
  CurrentLanguage: en
  Languages: 2
    en
    de
TIME Format : 20050623000000.000000+000
  ReleaseDate: 20050623000000.000000+000
  SmBiosMajorVersion: 2
  SmBiosMinorVersion: 3
  SmBiosVersion: 2.3
  LoadedStartingAddress: 57344
  LoadedEndingAddress: 188416
Firmware 0
  Name: Diagnostics
  Version: 1.02
  Manufacturer: QOR
  SerialNumber: 
  BuildNumber: XXYT01
  ReleaseDate: 00000000000000.000000:000
Chassis
  Manufacturer: Case maker
  Version: V1
  SerialNumber: S2
  AssetTag: A2
Base board 0
  Manufacturer: Maker
  Product: Board
  Version: 
  SerialNumber: S3
  AssetTag: A3
  Location: Top
Configuration
  Options: 2
    JP1: open
    JP2: closed
Cache 0
  Designation: L1
  Purpose: L1
  Associativity: 4
  WritePolicy: 3
  Type: 0
  Location: 0
  Level: 3
  ErrorCorrectionType: 0
  Speed: 5
  Size: 32
  MaximumSize: 64
  InstalledSize: 32
  NumberOfBlocks: 32
  SupportedSramType:
  CurrentSramType:
Port 0
  Name: 
  Model: 
  Manufacturer: 
  InternalReferenceDesignator: J1
  ExternalReferenceDesignator: COM1
  Type: 9
  Connectors: 1 8
Slot 0
  Designation: PCI 1
)";

std::string hostName()
{
    char name[65] = {};
    gethostname(name, sizeof name - 1);
    return name;
}

// How many lines begin like this.
long countOf(const std::string& output, const std::string& beginning)
{
    std::istringstream lines(output);
    long count = 0;
    for (std::string line; std::getline(lines, line);)
        count += line.compare(0, beginning.size(), beginning) == 0;
    return count;
}

// A table, and how many structures of each type it holds.
struct Records
{
    std::string file;
    long boards;
    long caches;
    long ports;
    long slots;
};

// The tables of real machines: columns 1, 8 and 10 to 12 of their index.
std::vector<Records> realTables()
{
    std::vector<Records> found;
    std::ifstream index(RealTables + "/INDEX.tsv");
    std::string line;
    std::getline(index, line);
    while (std::getline(index, line)) {
        std::istringstream fields(line);
        std::vector<std::string> columns;
        for (std::string column; std::getline(fields, column, '\t');)
            columns.push_back(column);
        const auto number = [&columns](std::size_t column) {
            return std::strtol(columns.at(column).c_str(), nullptr, 10);
        };
        found.push_back({RealTables + "/" + columns.at(0), number(7), number(9), number(10), number(11)});
    }
    return found;
}

void expectRecords(const Records& table)
{
    SCOPED_TRACE(table.file);
    const Outcome outcome = runExample(ModuleFile + " " + table.file);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    EXPECT_EQ(countOf(outcome.output, "Base board "), table.boards);
    EXPECT_EQ(countOf(outcome.output, "Cache "), table.caches);
    EXPECT_EQ(countOf(outcome.output, "Port "), table.ports);
    EXPECT_EQ(countOf(outcome.output, "Slot "), table.slots);
}
}

TEST(Example, PrintsTheComputerSystem)
{
    const DumpFile dump(machine());
    const Outcome outcome = runExample(ModuleFile + " " + dump.path());
    EXPECT_EQ(outcome.exitCode, 0);
    const std::string expected = "Computer system\n  Name: " + hostName() +
                                 "\n  Model: 8837ABC\n  Description: Server \n  OwnerName: \n  OwnerContact: \n";
    EXPECT_EQ(outcome.output.substr(0, expected.size()), expected);
}

TEST(Example, PrintsEveryFactOfTheTable)
{
    const DumpFile dump(machine());
    const Outcome outcome = runExample(ModuleFile + " " + dump.path());
    EXPECT_EQ(outcome.exitCode, 0);
    const std::size_t begin = outcome.output.find("BIOS\n");
    ASSERT_NE(begin, std::string::npos) << outcome.output;
    EXPECT_EQ(outcome.output.substr(begin), Inventory);
}

TEST(Example, PrintsEveryRecordOfTheSampleTables)
{
    const std::string samples = VQ_SOURCE_DIR "/samples/";
    expectRecords({samples + "server.bin", 2, 4, 7, 5});
    expectRecords({samples + "desktop.bin", 1, 1, 2, 1});
}

TEST(Example, PrintsEveryRecordOfRealTables)
{
    const std::vector<Records> tables = realTables();
    if (tables.empty())
        GTEST_SKIP() << "the tables of real machines are not here: " << RealTables;
    for (const Records& table : tables)
        expectRecords(table);
}

TEST(Example, OfAMachineWithoutRecordsPrintsNone)
{
    const DumpFile dump(TableBuilder().type(127));
    const Outcome outcome = runExample(ModuleFile + " " + dump.path());
    EXPECT_EQ(outcome.exitCode, 0);
    for (const char* record : {"Base board ", "Cache ", "Port ", "Slot ", "Firmware "})
        EXPECT_EQ(countOf(outcome.output, record), 0) << record;
    EXPECT_EQ(countOf(outcome.output, "Chassis"), 1);
    EXPECT_EQ(countOf(outcome.output, "  Options: 0"), 1);
}

TEST(Example, SaysWhyTheModuleCannotBeLoaded)
{
    const Outcome outcome = runExample("/nonexistent/libSystemProvider.so");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_NE(outcome.output.find("No such file or directory"), std::string::npos) << outcome.output;
}

TEST(Example, TellsItsUsage)
{
    const Outcome outcome = runExample("");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.output, "usage: flat_inventory MODULE [DUMP]\n");
}

TEST(Reloading, AThousandTimesLeavesNothingBehind)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer keeps released memory, so that growth can't be told";
#endif
    const DumpFile dump(machine());
    const Outcome outcome =
        run(std::string(VQ_RELOAD) + " " + ModuleFile + " " + ReaderFile + " " + dump.path() + " 1000 2>&1");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
}
