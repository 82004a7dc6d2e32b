// The commands and what they print for people, over the real module and a table of the test's own.

#include "tests/tools/ToolRun.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/sysinfo.h>

namespace
{
constexpr const char* NoTable = "vqinventory: this machine has no SMBIOS table, so the firmware and hardware classes "
                                "have no facts to show (--from-dump FILE takes the table of a file)\n";
constexpr const char* TheClasses =
    "QORTAL_ComputerSystem, QORTAL_BIOS, QORTAL_Chassis, QORTAL_BaseBoard, QORTAL_CacheMemory, QORTAL_Slot, "
    "QORTAL_Port, QORTAL_OperatingSystem, QORx_SystemMemory";

TableBuilder machine()
{
    TableBuilder table;
    table.type(0).string(0x04, "Maker").string(0x05, "1.23").string(0x08, "06/23/2005").word(0x06, 0xE000);
    table.type(1).string(0x05, "Server 100 -[8837ABC]-").string(0x07, "S1");
    table.type(2).string(0x04, "Maker").length(0x0B);
    table.type(3).string(0x04, "Maker").string(0x07, "C\x1B[2J1").length(0x09);
    table.type(7).string(0x04, "L2 \xE9").word(0x05, 0x0101).word(0x07, 512).word(0x09, 256).byte(0x0F, 15);
    table.byte(0x11, 5).byte(0x12, 7);
    table.type(8).string(0x06, "COM1").byte(0x07, 8).byte(0x08, 9);
    table.type(9).string(0x04, "PCI 1");
    table.type(9).string(0x04, "PCI 2");
    table.type(12).byte(0x04, 2).string("Jumper 1 closed").string("Jumper 2 open");
    table.type(127);
    return table;
}

class Tool : public testing::Test
{
protected:
    // A run that reads the table above.
    ToolRun run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.end(), {"--from-dump", dump.name()});
        return runTool(arguments);
    }

    TemporaryFile dump{machine()};
};

// The lines that begin a section.
std::vector<std::string> headings(const std::string& output)
{
    std::vector<std::string> found;
    std::istringstream in(output);
    for (std::string line; std::getline(in, line);)
        if (!line.empty() && line[0] != ' ')
            found.push_back(line);
    return found;
}

// On a machine with more memory than this program can count.
std::string memoryNotice()
{
    struct sysinfo info
    {
    };
    if (sysinfo(&info) != 0 || info.mem_unit == 1)
        return "";
    return "vqinventory: this machine has more memory than 32 bits can count, so the memory figures of a 32-bit server "
           "are too small by the factor " +
           std::to_string(info.mem_unit) + "\n";
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}
}

TEST_F(Tool, ShowsAllNineClassesWithoutArguments)
{
    const ToolRun shown = run({});
    const std::vector<std::string> expected = {
        "QORTAL_ComputerSystem: computer system, 1 instance (* marks a key)",
        "QORTAL_BIOS: system BIOS and other firmware, 1 instance (* marks a key)",
        "QORTAL_Chassis: chassis, 1 instance (* marks a key)",
        "QORTAL_BaseBoard: base boards, 1 instance (* marks a key)",
        "QORTAL_CacheMemory: processor caches, 1 instance (* marks a key)",
        "QORTAL_Slot: system slots, 2 instances (* marks a key)",
        "QORTAL_Port: port connectors, 1 instance (* marks a key)",
        "QORTAL_OperatingSystem: operating system, 1 instance (* marks a key)",
        "QORx_SystemMemory: system memory, 1 instance (* marks a key)",
    };
    EXPECT_EQ(headings(shown.output), expected);
    EXPECT_EQ(shown.errors, "");
    EXPECT_EQ(shown.exitCode, 0);
}

TEST_F(Tool, ShowsKeysFirstAndEachInstanceApart)
{
    EXPECT_EQ(run({"QORTAL_Slot"}).output, "QORTAL_Slot: system slots, 2 instances (* marks a key)\n"
                                           "\n"
                                           "  * CreationClassName  QORTAL_Slot\n"
                                           "  * Tag                PCI 1\n"
                                           "    Caption            System Slot\n"
                                           "    Description        System Slot\n"
                                           "    Name               PCI 1\n"
                                           "    Status             Unknown\n"
                                           "\n"
                                           "  * CreationClassName  QORTAL_Slot\n"
                                           "  * Tag                PCI 2\n"
                                           "    Caption            System Slot\n"
                                           "    Description        System Slot\n"
                                           "    Name               PCI 2\n"
                                           "    Status             Unknown\n");
}

TEST_F(Tool, WritesUnitsAndTheMeaningOfCodesBesideTheNumbers)
{
    const std::string caches = run({"QORTAL_CacheMemory"}).output;
    for (const char* line : {"    Associativity            7 (8-way Set-Associative)\n",
                             "    CacheType                5 (Unified)\n", "    Level                    4 (L2)\n",
                             "    WritePolicy              3 (Write Back)\n", "    CacheSpeed               15 ns\n",
                             "    MaximumInstallableSize   512 KB\n", "    Location                 0 (Internal)\n",
                             "    InstalledSize            256 KB\n", "    NumberOfBlocks           256\n"})
        EXPECT_TRUE(contains(caches, line)) << line << caches;
    const std::string system = run({"QORTAL_OperatingSystem", "QORx_SystemMemory"}).output;
    for (const char* line : {"    OSType                   36 (Linux)\n", "    FreeVirtualMemory        0 KiB\n",
                             "    BlockSize                1 bytes\n", "    StartingAddress          0 bytes\n"})
        EXPECT_TRUE(contains(system, line)) << line << system;
    EXPECT_TRUE(contains(run({"QORTAL_ComputerSystem"}).output,
                         "    VirtualType               1 (not virtualized, or not known)\n"));
}

TEST_F(Tool, ShowsTheTextsOfTheSchemaForCodesOldAndNew)
{
    const TemporaryFile ports{
        TableBuilder().type(8).byte(0x05, 0x12).byte(0x07, 0x23).byte(0x08, 0x23).type(8).byte(0x08, 0x99)};
    const std::string shown = runTool({"QORTAL_Port", "--from-dump", ports.name()}).output;
    for (const char* line :
         {"18 (Access Bus (USB))\n", "35 (USB Type-C Receptacle)\n", "35 (Thunderbolt)\n", "153 (Reserved)\n"})
        EXPECT_TRUE(contains(shown, line)) << line << shown;
}

TEST_F(Tool, ShowsAddressesInHexadecimalToo)
{
    const std::string bios = run({"QORTAL_BIOS"}).output;
    EXPECT_TRUE(contains(bios, "    LoadedStartingAddress  57344 (0xE000)\n")) << bios;
    EXPECT_TRUE(contains(bios, "  * SoftwareElementState   3 (Running)\n")) << bios;
    EXPECT_TRUE(contains(bios, "  * TargetOperatingSystem  66 (Not Applicable)\n")) << bios;
}

TEST_F(Tool, ShowsEachElementOfAListOnALineOfItsOwn)
{
    const std::string board = run({"QORTAL_BaseBoard"}).output;
    EXPECT_TRUE(contains(board, "    ConfigOptions      Jumper 1 closed\n"
                                "                       Jumper 2 open\n"))
        << board;
    const std::string port = run({"QORTAL_Port"}).output;
    EXPECT_TRUE(contains(port, "    ConnectorType                0 (None)\n"
                               "                                 8 (DB-9 pin male)\n"))
        << port;
    EXPECT_TRUE(contains(port, "    PortType                     9 (Serial Port 16550A Compatible)\n")) << port;
}

TEST_F(Tool, ShowsEmptyTextAsTwoQuotesAndAnEmptyListAsSuch)
{
    const std::string bios = run({"QORTAL_BIOS"}).output;
    EXPECT_TRUE(contains(bios, "    CurrentLanguage        \"\"\n")) << bios;
    EXPECT_TRUE(contains(bios, "    ListOfLanguages        (empty list)\n")) << bios;
}

TEST_F(Tool, ShowsAClassWithoutInstancesAsSuch)
{
    const TemporaryFile empty{TableBuilder().type(127)};
    const ToolRun shown = runTool({"QORTAL_Slot", "--from-dump", empty.name()});
    EXPECT_EQ(shown.output, "QORTAL_Slot: system slots, no instances\n");
    EXPECT_EQ(shown.exitCode, 0);
}

TEST_F(Tool, KeepsControlCharactersFromTheTerminal)
{
    const std::string chassis = run({"QORTAL_Chassis"}).output;
    EXPECT_TRUE(contains(chassis, "    SerialNumber       C\\x1B[2J1\n")) << chassis;
    EXPECT_FALSE(contains(chassis, "\x1B"));
}

TEST_F(Tool, ShowsFirmwareBytesThatAreNoUtf8AsLatin1)
{
    const std::string caches = run({"QORTAL_CacheMemory"}).output;
    EXPECT_TRUE(contains(caches, "    Name                     L2 \xC3\xA9\n")) << caches;
}

TEST_F(Tool, TakesClassNamesInAnyLetterCaseAndEachOnce)
{
    const ToolRun shown = run({"qortal_slot", "QORX_SYSTEMMEMORY", "QORTAL_Slot"});
    const std::vector<std::string> expected = {"QORTAL_Slot: system slots, 2 instances (* marks a key)",
                                               "QORx_SystemMemory: system memory, 1 instance (* marks a key)"};
    EXPECT_EQ(headings(shown.output), expected);
    EXPECT_EQ(shown.exitCode, 0);
}

TEST_F(Tool, ReportsAClassThatIsNotServedAndShowsTheOthers)
{
    const ToolRun shown = run({"QORTAL_Foo", "QORTAL_Slot", "CIM_Slot"});
    EXPECT_EQ(headings(shown.output),
              std::vector<std::string>{"QORTAL_Slot: system slots, 2 instances (* marks a key)"});
    EXPECT_EQ(shown.errors, "vqinventory: CIM_ERR_INVALID_CLASS: QORTAL_Foo, CIM_Slot: not served; the classes are " +
                                std::string(TheClasses) + "\n");
    EXPECT_EQ(shown.exitCode, 1);
}

TEST_F(Tool, NamesPrintsThePathsOfAllClassesOneOnEachLine)
{
    const ToolRun names = run({"names"});
    const std::vector<std::string> lines = headings(names.output);
    ASSERT_EQ(lines.size(), 10u) << names.output;
    EXPECT_EQ(lines[5], "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 1\"");
    EXPECT_EQ(lines[6], "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 2\"");
    EXPECT_EQ(lines[2], "QORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"");
    EXPECT_EQ(names.errors, "");
    EXPECT_EQ(names.exitCode, 0);
}

TEST_F(Tool, NamesOfChosenClasses)
{
    const ToolRun names = run({"names", "qortal_slot", "QORTAL_Chassis"});
    EXPECT_EQ(names.output, "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 1\"\n"
                            "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 2\"\n"
                            "QORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"\n");
    EXPECT_EQ(names.exitCode, 0);
}

TEST_F(Tool, NamesReportsAClassThatIsNotServedAndPrintsTheOthers)
{
    const ToolRun names = run({"names", "QORTAL_Foo", "QORTAL_Chassis"});
    EXPECT_EQ(names.output, "QORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"\n");
    EXPECT_TRUE(contains(names.errors, "vqinventory: CIM_ERR_INVALID_CLASS: QORTAL_Foo: not served")) << names.errors;
    EXPECT_EQ(names.exitCode, 1);
}

TEST_F(Tool, GetPrintsTheInstanceOfEveryPathThatNamesPrints)
{
    for (const std::string& path : headings(run({"names"}).output)) {
        const ToolRun got = run({"get", path});
        EXPECT_EQ(got.exitCode, 0) << path << got.errors;
        EXPECT_EQ(got.errors, "") << path;
        const std::string className = path.substr(0, path.find('.'));
        ASSERT_EQ(headings(got.output).size(), 1u) << path;
        EXPECT_EQ(headings(got.output)[0].rfind(className + ": ", 0), 0u) << path;
        EXPECT_TRUE(contains(headings(got.output)[0], ", 1 instance (")) << path;
    }
}

TEST_F(Tool, GetIgnoresLetterCaseOfNamesAndTheHostAndNamespace)
{
    const ToolRun got = run({"get", "//host/root/cimv2:qortal_slot.TAG=\"PCI 2\",creationclassname=\"QORTAL_Slot\""});
    EXPECT_EQ(got.exitCode, 0) << got.errors;
    EXPECT_TRUE(contains(got.output, "QORTAL_Slot: system slots, 1 instance (* marks a key)\n")) << got.output;
    EXPECT_TRUE(contains(got.output, "  * Tag                PCI 2\n")) << got.output;
}

TEST_F(Tool, GetTakesAPathAsOtherClientsPrintIt)
{
    for (const char* server : {"localhost:5988/root/cimv2:", "//host.example:5989/root/cimv2:", "root/cimv2:"}) {
        const ToolRun got =
            run({"get", server + std::string("QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 2\"")});
        EXPECT_EQ(got.exitCode, 0) << server << got.errors;
        EXPECT_TRUE(contains(got.output, "  * Tag                PCI 2\n")) << server << got.output;
    }
}

TEST_F(Tool, TakesClassesByTheirShortNames)
{
    for (const char* name : {"slot", "Slot", "slots", "SLOT"})
        EXPECT_EQ(headings(run({name}).output),
                  std::vector<std::string>{"QORTAL_Slot: system slots, 2 instances (* marks a key)"})
            << name;
    EXPECT_TRUE(contains(run({"memory"}).output, "QORx_SystemMemory: "));
}

TEST_F(Tool, SuggestsTheClassThatAMisspeltNameMayMean)
{
    EXPECT_TRUE(contains(run({"QORTAL_Chasis"}).errors, "not served; did you mean QORTAL_Chassis? the classes are "));
    EXPECT_TRUE(contains(run({"baseborad"}).errors, "did you mean QORTAL_BaseBoard?"));
    EXPECT_FALSE(contains(run({"QORTAL_Foo"}).errors, "did you mean"));
}

TEST_F(Tool, SaysThatATableEndsEarly)
{
    std::vector<unsigned char> bytes = machine().dump();
    bytes.resize(bytes.size() - 40);
    const TemporaryFile cut{bytes};
    const ToolRun shown = runTool({"slot", "--from-dump", cut.name()});
    EXPECT_TRUE(contains(shown.errors, "vqinventory: SMBIOS table: it ends early: 8 of 10 structures")) << shown.errors;
    EXPECT_EQ(shown.exitCode, 0);
}

TEST_F(Tool, NamesTheTextOfFirmwareThatKeepsAClassFromBeingAnswered)
{
    const TemporaryFile odd{TableBuilder().type(11).byte(0x04, 2).string("fine -[AB-1]-").string("Odd -[X]- here")};
    EXPECT_TRUE(contains(runTool({"bios", "--from-dump", odd.name()}).errors,
                         "has a bracketed part of one character, \"Odd -[X]- here\": no request"));
}

TEST_F(Tool, TellsTextsOfFirmwareFromItsOwnWords)
{
    const TemporaryFile odd{
        TableBuilder().type(3).string(0x04, "\"\"").string(0x06, "(null)").string(0x07, "a\\x1Bb").length(0x09)};
    const std::string chassis = runTool({"chassis", "--from-dump", odd.name()}).output;
    EXPECT_TRUE(contains(chassis, "    Manufacturer       \"\\\"\\\"\"\n")) << chassis;
    EXPECT_TRUE(contains(chassis, "    Version            \"(null)\"\n")) << chassis;
    EXPECT_TRUE(contains(chassis, "    SerialNumber       a\\\\x1Bb\n")) << chassis;
}

TEST_F(Tool, DoublesABackslashInQuotesToo)
{
    const TemporaryFile odd{TableBuilder().type(3).string(0x04, " a\\b").length(0x09)};
    const std::string chassis = runTool({"chassis", "--from-dump", odd.name()}).output;
    EXPECT_TRUE(contains(chassis, "    Manufacturer       \" a\\\\b\"\n")) << chassis;
}

TEST_F(Tool, WritesTheDayOfTheFirmwareWithoutATime)
{
    EXPECT_TRUE(contains(run({"bios"}).output, "    ReleaseDate            20050623000000.000000+000 (2005-06-23)\n"));
}

TEST_F(Tool, GetOfAnInstanceThatIsNotThereFails)
{
    const ToolRun got = run({"get", "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 9\""});
    EXPECT_EQ(got.output, "");
    EXPECT_EQ(got.errors, "vqinventory: CIM_ERR_NOT_FOUND: QORTAL_Slot: no such instance: "
                          "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 9\"\n");
    EXPECT_EQ(got.exitCode, 1);
}

TEST_F(Tool, GetOfAClassThatIsNotServedFails)
{
    const ToolRun got = run({"get", "QORTAL_Foo.Tag=\"1\""});
    EXPECT_EQ(got.output, "");
    EXPECT_EQ(got.errors, "vqinventory: CIM_ERR_INVALID_CLASS: QORTAL_Foo: not served; the classes are " +
                              std::string(TheClasses) + "\n");
    EXPECT_EQ(got.exitCode, 1);
}

TEST(ToolAnswers, KeepsWhatWasDeliveredBeforeAFailureAndReportsEachReasonOnce)
{
    const ToolRun shown = runTool({"--module", VQ_STUB_MODULE, "QORTAL_ComputerSystem", "QORTAL_Chassis", "QORTAL_Slot",
                                   "QORTAL_CacheMemory", "QORTAL_Port", "QORTAL_BaseBoard", "QORTAL_OperatingSystem"});
    EXPECT_EQ(shown.output, "QORTAL_ComputerSystem: computer system, 2 instances (* marks a key)\n"
                            "\n"
                            "  * Tag      one\n"
                            "    Caption  caption\n"
                            "\n"
                            "  * Tag      two\n"
                            "    Caption  caption\n"
                            "\n"
                            "QORTAL_Chassis: chassis, 1 instance, then an error (* marks a key)\n"
                            "\n"
                            "  * Tag      first\n"
                            "    Caption  caption\n");
    EXPECT_EQ(
        shown.errors,
        std::string(NoTable) +
            "vqinventory: CIM_ERR_FAILED: QORTAL_Chassis, QORTAL_Slot, QORTAL_Port: the table\\x1B[31m is broken\n"
            "vqinventory: CIM_ERR_ACCESS_DENIED: QORTAL_CacheMemory: not you\n"
            "vqinventory: CIM_ERR_FAILED: QORTAL_BaseBoard: a CIM library's own exception\n"
            "vqinventory: CIM_ERR_FAILED: QORTAL_OperatingSystem: an exception of an unknown type\n");
    EXPECT_EQ(shown.exitCode, 1);
}

TEST(ToolNotice, TellsOnceThatTheMachineHasNoTable)
{
    const ToolRun shown = runTool({"--module", VQ_STUB_MODULE, "QORTAL_ComputerSystem", "QORTAL_BIOS"});
    EXPECT_EQ(shown.errors, NoTable);
    EXPECT_TRUE(contains(shown.output, "QORTAL_BIOS: system BIOS and other firmware, 1 instance")) << shown.output;
    EXPECT_EQ(shown.exitCode, 0);
}

TEST(ToolNotice, SaysNothingOfTheTableToClassesThatDoNotComeFromIt)
{
    const ToolRun shown = runTool({"--module", VQ_STUB_MODULE, "Stub_Types"});
    EXPECT_EQ(shown.errors, "");
    EXPECT_EQ(shown.exitCode, 0);
}

TEST(ToolNotice, OnThisMachineWithoutATable)
{
    if (std::filesystem::exists("/sys/firmware/dmi/tables") || std::filesystem::exists("/dev/mem"))
        GTEST_SKIP() << "this machine may have an SMBIOS table";
    const ToolRun shown = runTool({});
    EXPECT_EQ(headings(shown.output).size(), 9u) << shown.output;
    EXPECT_EQ(shown.errors, NoTable + memoryNotice());
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_EQ(runTool({"QORTAL_OperatingSystem"}).errors, "");
}

TEST(ToolNotice, SaysWhenTheMemoryIsInTheKernelsUnits)
{
    EXPECT_EQ(runTool({"QORx_SystemMemory"}).errors, memoryNotice());
    EXPECT_EQ(runTool({"names", "QORx_SystemMemory"}).errors, "");
}

TEST(ToolUsage, HelpNamesEveryCommandOptionAndClass)
{
    const ToolRun help = runTool({"--help"});
    for (const char* word : {"summary",
                             "names",
                             "get",
                             "compare",
                             "invoke",
                             "check",
                             "--format",
                             "--from-dump",
                             "--from-json",
                             "--output",
                             "--redact",
                             "--module",
                             "--help",
                             "--version",
                             "QORTAL_ComputerSystem",
                             "QORTAL_BIOS",
                             "QORTAL_Chassis",
                             "QORTAL_BaseBoard",
                             "QORTAL_CacheMemory",
                             "QORTAL_Slot",
                             "QORTAL_Port",
                             "QORTAL_OperatingSystem",
                             "QORx_SystemMemory"})
        EXPECT_TRUE(contains(help.output, word)) << word;
    EXPECT_EQ(help.errors, "");
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(contains(runTool({"invoke", "--help"}).output, "--yes"));
}

TEST(ToolUsage, VersionNamesWidthAndCimLibrary)
{
    const ToolRun version = runTool({"--version"});
    EXPECT_EQ(version.output,
              "vqinventory 1.0.0 (" + std::to_string(8 * sizeof(void*)) + "-bit, " VQ_CIM_LIBRARY " CIM library)\n");
    EXPECT_EQ(version.exitCode, 0);
}

namespace
{
struct Misuse
{
    std::vector<std::string> arguments;
    const char* message;
};

void expectMisuse(const Misuse& misuse)
{
    const ToolRun run = runTool(misuse.arguments);
    std::string line = "vqinventory";
    for (const std::string& argument : misuse.arguments)
        line += " '" + argument + "'";
    EXPECT_EQ(run.exitCode, 2) << line;
    EXPECT_EQ(run.output, "") << line;
    EXPECT_EQ(run.errors.rfind("vqinventory: " + std::string(misuse.message), 0), 0u) << line << ": " << run.errors;
}
}

TEST(ToolUsage, WrongOptionsAreUsageErrors)
{
    expectMisuse({{"--bogus"}, "The following argument was not expected: --bogus\nvqinventory: --help shows"});
    expectMisuse({{"--format", "xml"}, "--format: xml not in {text,json,mof,html,csv,prometheus}\n"});
    expectMisuse({{"--format", "json", "--format", "text"}, "--format"});
    expectMisuse({{"--from-dump"}, "--from-dump: 1 required FILE missing\n"});
    expectMisuse({{"--module"}, "--module: 1 required FILE missing\n"});
    expectMisuse({{"--from-dump", "a", "--from-json", "b"}, "--from-dump and --from-json do not go together"});
    expectMisuse({{"--from-dump", "-", "--from-dump", "-"}, "standard input (-) can be read once only\n"});
    expectMisuse({{"check", "--redact"}, "--redact hides in answers"});
    expectMisuse({{"check", "--from-json", "a"}, "invoke and check ask the module of this machine"});
    expectMisuse({{"check", "--from-dump", "a", "--from-dump", "b"}, "invoke and check ask the module"});
    expectMisuse({{"--yes"}, "The following argument was not expected: --yes\n"});
}

TEST(ToolUsage, TextsThatAreNoNamesOrPathsAreUsageErrors)
{
    expectMisuse({{"1a"}, "\"1a\" is not the name of a class\n"});
    expectMisuse({{""}, "\"\" is not the name of a class\n"});
    expectMisuse({{"names", "a b"}, "\"a b\" is not the name of a class\n"});
    expectMisuse({{"caf\xE9"}, "\"caf\\xE9\" is not the name of a class\n"});
    expectMisuse(
        {{"get", "QORTAL_Slot.Tag="}, "\"QORTAL_Slot.Tag=\" is not an object path (CLASS.KEY=\"VALUE\",...): "});
    expectMisuse({{"get", ""}, "\"\" is not an object path"});
    expectMisuse({{"get", "QORTAL_Slot.Tag=\"\xE9\""}, "\"QORTAL_Slot.Tag=\"\\xE9\"\" is not an object path"});
    expectMisuse({{"invoke", "1a", "Reboot"}, "\"1a\" is not the name of a class\n"});
    expectMisuse({{"invoke", "QORTAL_OperatingSystem", ""}, "\"\" is not the name of a method\n"});
}

TEST(ToolUsage, APathThatTheShellTookTheQuotesFromGetsAHint)
{
    for (const char* path : {"QORTAL_Slot.CreationClassName=QORTAL_Slot,Tag=PCI 1",
                             "localhost:5988/root/cimv2:QORTAL_Chassis.Tag=Chassis0"}) {
        const ToolRun run = runTool({"get", path});
        EXPECT_EQ(
            run.errors.rfind("vqinventory: \"" + std::string(path) +
                                 "\" has no quotes around its values: the shell took them. Put the path in single",
                             0),
            0u)
            << run.errors;
        EXPECT_EQ(run.exitCode, 2);
    }
}

TEST(ToolUsage, CommandsWithTooManyOrTooFewArgumentsAreUsageErrors)
{
    expectMisuse({{"get"}, "PATH is required\n"});
    expectMisuse({{"get", "QORTAL_Slot", "QORTAL_Port"}, "unexpected argument \"QORTAL_Port\"\n"});
    expectMisuse({{"invoke", "QORTAL_OperatingSystem"}, "METHOD is required\n"});
    expectMisuse({{"invoke", "QORTAL_OperatingSystem", "Foo", "Bar"}, "unexpected argument \"Bar\"\n"});
    expectMisuse({{"QORTAL_Slot", "names"}, "unexpected argument \"QORTAL_Slot\"\n"});
}

TEST(ToolUsage, MofIsForInstancesOnly)
{
    expectMisuse({{"--format", "mof", "names"}, "--format mof is for instances; names prints text or json\n"});
    expectMisuse({{"invoke", "--format", "mof", "QORTAL_OperatingSystem", "Foo"},
                  "--format mof is for instances; invoke and check print text or json\n"});
}

TEST(ToolOutput, AFullDiskIsAnError)
{
    const ToolRun run = runToolInto("/dev/full", {"QORTAL_OperatingSystem"});
    EXPECT_EQ(run.errors, "vqinventory: cannot write to standard output: No space left on device\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(runToolInto("/dev/full", {"--help"}).exitCode, 1);
}

TEST(ToolOutput, AReaderThatStopsIsNoError)
{
    const ToolRun run = runToolIntoBrokenPipe({"QORTAL_OperatingSystem"});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(runToolIntoBrokenPipe({"QORTAL_Foo"}).exitCode, 1);
}
