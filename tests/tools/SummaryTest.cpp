// The summary, what changed, and what is hidden.

#include "tests/tools/ToolRun.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace
{
const std::string Server = VQ_SOURCE_DIR "/samples/server.bin";
const std::string Desktop = VQ_SOURCE_DIR "/samples/desktop.bin";

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::size_t columns(const std::string& line)
{
    return static_cast<std::size_t>(
        std::count_if(line.begin(), line.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

TableBuilder machine(const char* serial, const char* version)
{
    TableBuilder table;
    table.type(0).string(0x04, "Maker").string(0x05, version).string(0x08, "06/23/2005");
    table.type(1).string(0x05, "Server 100").string(0x07, serial);
    table.type(9).string(0x04, "PCI 1");
    return table;
}

ToolRun compare(const std::string& before, const std::string& after, const std::string& format = "text")
{
    return runTool({"compare", before, after, "--format", format});
}
}

TEST(Summary, IsOneScreenWithWhatPeopleWantToKnow)
{
    const ToolRun run = runTool({"summary", "--from-dump", Server});
    EXPECT_EQ(
        run.output,
        "server\n"
        "  from the dump " +
            Server.substr(0) +
            "\n"
            "  Machine         Norvik Server 410 (8837ABC)\n"
            "  Serial number   KQ0A417\n"
            "  Chassis         Rack 2U\n"
            "  Firmware        NVE128A 1.27 of 2011-03-07, Norvik, SMBIOS 2.6\n"
            "                  Norvik Update Agent NVYT04A 1.12, QOR\n"
            "                  Norvik Diagnostics NVETB1 2.05, QOR\n"
            "  Boards          Norvik, serial BD11000417, at Tray 1, rear\n"
            "                  Talvo, serial BD11000991, at T\xC3\xBCr 2, 3 options\n"
            "  Caches          1 x L1 data 192 KB, 1 x L2 1.5 MB, 1 x L3 12 MB, 1 x beyond L3 instruction not\n"
            "                  installed\n"
            "  Slots           2 PCI Express x8, 1 PCI Express x16, 1 PCI-X, 1 other\n"
            "                  PCI Express x16, PCI Express x8, PCI Express x8, PCI-X 133, Emplacement n\xC2\xB0 5\n"
            "  Connectors      outside: 2 USB, 1 serial, 1 video, 1 network, 1 other\n"
            "                  inside: 1 SATA/SAS\n"
            "  Not told        operating system, memory\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.exitCode, 0);
}

TEST(Summary, TellsOfTheSystemThatRuns)
{
    const std::string summary = runTool({"summary"}).output;
    EXPECT_TRUE(contains(summary, "\n  Memory          ")) << summary;
    EXPECT_TRUE(contains(summary, " GiB, ") || contains(summary, " MiB, ")) << summary;
    EXPECT_TRUE(contains(summary, "\n  System          Linux ")) << summary;
    EXPECT_TRUE(contains(summary, ", up ")) << summary;
}

TEST(Summary, LeavesOutWhatMakersOfFirmwareLeftAsItWas)
{
    TableBuilder table;
    table.type(0).string(0x04, "Maker").string(0x05, "1.23").string(0x08, "06/23/2005");
    table.type(1).string(0x05, "System Product Name").string(0x07, "To Be Filled By O.E.M.");
    table.type(3).string(0x04, "Default string").string(0x07, "XXXXXXX").length(0x09);
    table.type(2).string(0x04, "Board Maker").string(0x07, "0123456789").length(0x0B);
    const TemporaryFile dump{table};
    const std::string summary = runTool({"summary", "--from-dump", dump.name()}).output;
    EXPECT_TRUE(contains(summary, "  Machine         Board Maker\n")) << summary;
    EXPECT_TRUE(contains(summary, "  Not told        product name, serial number, caches, slots, connectors,"))
        << summary;
    for (const char* placeholder : {"Product Name", "Filled", "Default", "XXXX", "0123"})
        EXPECT_FALSE(contains(summary, placeholder)) << placeholder << summary;
}

TEST(Summary, FitsAScreenWhateverTheFirmwareSays)
{
    TableBuilder table;
    const std::string longText(60, 'x');
    for (int i = 0; i < 200; ++i) {
        table.type(2).string(0x04, longText + " " + longText).string(0x07, "S" + std::to_string(i)).length(0x0B);
        table.type(9).string(0x04, "slot " + std::to_string(i) + " " + longText);
        table.type(7)
            .word(0x05, 0x0100)
            .word(0x07, static_cast<unsigned short>(i))
            .word(0x09, static_cast<unsigned short>(i))
            .length(0x13);
    }
    const TemporaryFile dump{table};
    const std::vector<std::string> lines = linesOf(runTool({"summary", "--from-dump", dump.name()}).output);
    EXPECT_GT(lines.size(), 10u);
    EXPECT_LE(lines.size(), 40u);
    for (const std::string& line : lines)
        EXPECT_LE(columns(line), 100u) << line;
}

TEST(Summary, OfSeveralMachinesIsATable)
{
    const std::vector<std::string> lines = linesOf(runTool({"summary", "--from-dump", Server, Desktop}).output);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].rfind("Name     Machine", 0), 0u) << lines[0];
    EXPECT_TRUE(contains(lines[1], "server   Norvik Server 410 (8837ABC)  KQ0A417")) << lines[1];
    EXPECT_TRUE(contains(lines[2], "desktop  ")) << lines[2];
}

TEST(Summary, HasNoColoursInAFile)
{
    EXPECT_FALSE(contains(runTool({"summary"}, {{"TERM", "xterm"}}).output, "\x1B"));
}

TEST(Compare, EqualAnswersHaveNoDifferenceAndExitCodeZero)
{
    const ToolRun run = compare(Server, Server);
    EXPECT_TRUE(contains(run.output, "\nno difference\n")) << run.output;
    EXPECT_EQ(run.exitCode, 0) << run.errors;
}

TEST(Compare, LeavesOutWhatAlwaysMovesUnlessAskedFor)
{
    auto document = nlohmann::json::parse(runTool({"--format", "json"}).output);
    auto& properties = document["machines"][0]["classes"]["QORTAL_OperatingSystem"][0]["properties"];
    properties["LocalDateTime"] = "20200101000000.000000+000";
    properties["FreePhysicalMemory"] = 1;
    properties["NumberOfProcesses"] = 1;
    const TemporaryFile saved{document.dump()};
    const ToolRun run = runTool({"compare", saved.name()});
    EXPECT_TRUE(contains(run.output, "after:  this machine\n")) << run.output;
    EXPECT_TRUE(contains(run.output, "\nno difference\n")) << run.output;
    EXPECT_EQ(run.exitCode, 0) << run.output << run.errors;
    const ToolRun all = runTool({"compare", "--all", saved.name()});
    for (const char* moving : {"LocalDateTime ", "FreePhysicalMemory ", "NumberOfProcesses "})
        EXPECT_TRUE(contains(all.output, moving)) << moving << all.output;
    EXPECT_EQ(all.exitCode, 1);
}

TEST(Compare, TakesTheTimeOfTheStartForTheSameWithinAMinute)
{
    auto document = nlohmann::json::parse(runTool({"os", "--format", "json"}).output);
    const auto startedAt = [&document](const char* time) {
        document["machines"][0]["classes"]["QORTAL_OperatingSystem"][0]["properties"]["LastBootUpTime"] = time;
        return document.dump();
    };
    const TemporaryFile one{startedAt("20200101000030.000000+000")}, near{startedAt("20200101010029.000000+060")},
        later{startedAt("20200101000131.000000+000")};
    EXPECT_EQ(compare(one.name(), near.name()).exitCode, 0);
    const ToolRun restarted = compare(one.name(), later.name());
    EXPECT_TRUE(contains(restarted.output, "LastBootUpTime  2020-01-01 00:00:30 +00:00 -> 2020-01-01 00:01:31 +00:00"))
        << restarted.output;
    EXPECT_EQ(restarted.exitCode, 1);
}

TEST(Compare, TellsWhatChangedWasReplacedAddedAndRemoved)
{
    TableBuilder old = machine("S1", "1.23");
    old.type(9).string(0x04, "PCI 2");
    TableBuilder now = machine("S2", "1.24");
    now.type(9).string(0x04, "PCI 3");
    const TemporaryFile before{old}, after{now};
    const ToolRun run = compare(before.name(), after.name());
    EXPECT_TRUE(contains(run.output, "    replaced  Name Default System BIOS, Version 1.24\n"
                                     "              BuildNumber   1.23 -> 1.24\n"
                                     "              SerialNumber  S1 -> S2\n"
                                     "              Version       1.23 -> 1.24\n"))
        << run.output;
    EXPECT_TRUE(contains(run.output, "    removed   Tag PCI 2\n    added     Tag PCI 3\n")) << run.output;
    EXPECT_TRUE(contains(run.output, "\n1 replaced, 1 added, 1 removed\n")) << run.output;
    EXPECT_EQ(run.exitCode, 1);
}

TEST(Compare, GivesTheSameAsJson)
{
    const TemporaryFile before{machine("S1", "1.23")}, after{machine("S1", "1.24")};
    const ToolRun run = compare(before.name(), after.name(), "json");
    const auto document = nlohmann::json::parse(run.output);
    EXPECT_EQ(document["format"], "systemprovider-comparison");
    EXPECT_EQ(document["same"], false);
    const auto changes = document["machines"][0]["changes"];
    ASSERT_EQ(changes.size(), 1u) << run.output;
    EXPECT_EQ(changes[0]["kind"], "changed");
    EXPECT_EQ(changes[0]["class"], "QORTAL_BIOS");
    EXPECT_EQ(changes[0]["properties"][0],
              (nlohmann::json{{"name", "BuildNumber"}, {"before", "1.23"}, {"after", "1.24"}}));
}

TEST(Compare, ManyMachinesComeAndGo)
{
    const auto saved = [](const std::vector<std::string>& dumps) {
        std::vector<std::string> arguments = {"--format", "json"};
        for (const std::string& dump : dumps)
            arguments.insert(arguments.end(), {"--from-dump", dump});
        return runTool(arguments).output;
    };
    const TemporaryFile other{machine("S1", "1.23")};
    const TemporaryFile before{saved({Server, Desktop})}, after{saved({Server, other.name()})};
    const ToolRun run = compare(before.name(), after.name());
    EXPECT_TRUE(contains(run.output, "desktop: removed\n")) << run.output;
    EXPECT_TRUE(contains(run.output, "\n1 machine added, 1 machine removed\n")) << run.output;
    EXPECT_FALSE(contains(run.output, "server: "));
    EXPECT_EQ(run.exitCode, 1);
}

TEST(Compare, EndsInTroubleWithTwo)
{
    EXPECT_EQ(compare("/nowhere/before.json", Server).exitCode, 2);
    const TemporaryFile text{"no answers"};
    const ToolRun run = compare(text.name(), Server);
    EXPECT_TRUE(contains(run.errors, " holds no saved answers: it is no JSON")) << run.errors;
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(runTool({"compare", Server, Server, "--format", "mof"}).exitCode, 2);
}

TEST(Redact, HidesSerialNumbersHostNamesAndPlacesInEveryFormat)
{
    // secrets of letters: digits could stand in a time or an amount of memory
    TableBuilder table = machine("SN-QXWV-X", "1.23");
    table.type(3).string(0x04, "Maker").string(0x07, "CH-ZQJK").length(0x09);
    table.type(2).string(0x04, "Maker").string(0x07, "SN-QXWV-X").length(0x0B);
    table.type(12).byte(0x04, 1).string("tag SN-QXWV-X here");
    const TemporaryFile dump{table};
    const std::string host =
        nlohmann::json::parse(runTool({"system", "--format", "json"}).output)["machines"][0]["name"];
    for (const std::vector<std::string>& command : {std::vector<std::string>{},
                                                    {"summary"},
                                                    {"--format", "json"},
                                                    {"--format", "mof"},
                                                    {"--format", "html"},
                                                    {"--format", "csv"},
                                                    {"names"}}) {
        std::vector<std::string> arguments = command;
        arguments.insert(arguments.end(), {"--redact", "--from-dump", dump.name()});
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        for (const std::string& secret : {std::string("QXWV"), std::string("ZQJK"), dump.name(), '"' + host + '"'})
            EXPECT_FALSE(contains(run.output, secret)) << secret << "\n" << run.output;
    }
    const std::string text = runTool({"board", "--redact", "--from-dump", dump.name()}).output;
    EXPECT_TRUE(contains(text, "    SerialNumber       (serial number 1)\n")) << text;
    EXPECT_TRUE(contains(text, "    ConfigOptions      tag (serial number 1) here\n")) << text;
}

TEST(Redact, StillShowsThatHardwareWasReplaced)
{
    const TemporaryFile before{machine("SN-QXWV", "1.23")}, after{machine("SN-ZQJK", "1.23")};
    const ToolRun run = runTool({"compare", "--redact", before.name(), after.name()});
    EXPECT_TRUE(contains(run.output, "SerialNumber  (serial number 1) -> (serial number 2)\n")) << run.output;
    for (const char* secret : {"QXWV", "ZQJK"})
        EXPECT_FALSE(contains(run.output, secret)) << secret << run.output;
}

TEST(Csv, HasALineForEachInstance)
{
    TableBuilder table;
    table.type(9).string(0x04, "PCI, \"1\"");
    table.type(9).string(0x04, "=1+2");
    const TemporaryFile dump{table};
    EXPECT_EQ(runTool({"slot", "--format", "csv", "--from-dump", dump.name()}).output,
              "class,Caption,Description,Name,Status,CreationClassName,Tag\n"
              "QORTAL_Slot,System Slot,System Slot,\"PCI, \"\"1\"\"\",Unknown,QORTAL_Slot,\"PCI, \"\"1\"\"\"\n"
              "QORTAL_Slot,System Slot,System Slot,'=1+2,Unknown,QORTAL_Slot,'=1+2\n");
}

TEST(Csv, HasALineForEachOfSeveralMachines)
{
    const std::vector<std::string> lines = linesOf(runTool({"--format", "csv", "--from-dump", Server, Desktop}).output);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].rfind("name,maker,product,model,serial number,BIOS version,BIOS date,", 0), 0u) << lines[0];
    EXPECT_EQ(
        lines[1].rfind("server,Norvik,Norvik Server 410,8837ABC,KQ0A417,NVE128A 1.27,2011-03-07,Norvik,2.6,2,", 0), 0u)
        << lines[1];
}
