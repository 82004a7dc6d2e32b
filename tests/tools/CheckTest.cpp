// `vqinventory check`: what it says of tables and modules that nobody should ask.

#include "tests/tools/ToolRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace
{
const std::string AllAsked = "ok       QORTAL_ComputerSystem: 1 instance\n"
                             "ok       QORTAL_BIOS: 1 instance\n"
                             "ok       QORTAL_Chassis: 1 instance\n"
                             "ok       QORTAL_BaseBoard: 0 instances\n"
                             "ok       QORTAL_CacheMemory: 0 instances\n"
                             "ok       QORTAL_Slot: 1 instance\n"
                             "ok       QORTAL_Port: 0 instances\n"
                             "ok       QORTAL_OperatingSystem: 1 instance\n"
                             "ok       QORx_SystemMemory: 1 instance\n";

// What `check` prints, without what it says of this machine's memory and of the optional libraries, which may be
// installed.
struct Check
{
    explicit Check(const ToolRun& run) : exitCode(run.exitCode), errors(run.errors)
    {
        std::istringstream in(run.output);
        for (std::string line; std::getline(in, line);)
            if (line.find("BMC: ") == 9 || line.find("Xen: ") == 9)
                companions += line + "\n";
            else if (line.find("QORx_SystemMemory: this machine") == std::string::npos)
                output += line + "\n";
    }

    bool has(const std::string& text) const { return output.find(text) != std::string::npos; }

    int exitCode;
    std::string output;
    std::string companions;
    std::string errors;
};

class ToolCheck : public testing::Test
{
protected:
    Check check(const std::vector<unsigned char>& dump)
    {
        const TemporaryFile file{dump};
        name = file.name();
        return Check(runTool({"check", "--from-dump", name}));
    }
    Check check(const TableBuilder& table) { return check(table.dump()); }

    std::string loaded() const { return "ok       module: " VQ_MODULE " can be loaded\n"; }

    std::string name; // of the last dump
};

TableBuilder oneSlot()
{
    return TableBuilder().type(9).string(0x04, "PCI 1");
}

// A table whose options make every answer for the boards larger.
TableBuilder optionsTimesBoards(unsigned structures, unsigned boards)
{
    TableBuilder table;
    for (unsigned i = 0; i < structures; ++i)
        table.type(12).byte(0x04, 254);
    for (unsigned i = 0; i < boards; ++i)
        table.type(2);
    return table;
}

std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}
}

TEST_F(ToolCheck, FindsNoProblemWhereThereIsNone)
{
    const Check sound = check(oneSlot().type(127));
    EXPECT_EQ(sound.output, "ok       SMBIOS table: version 2.4, 2 of 2 structures, 18 of 18 bytes, from " + name +
                                "\n" + loaded() + AllAsked + "no problem found\n");
    EXPECT_EQ(sound.errors, "");
    EXPECT_EQ(sound.exitCode, 0);
    const Check form64 = check(oneSlot().type(127).form64());
    EXPECT_TRUE(form64.has("ok       SMBIOS table: version 2.4, 2 structures, 18 bytes, from ")) << form64.output;
    EXPECT_EQ(form64.exitCode, 0);
}

// What they answer is looked at where they are installed, by the tests of their packages.
TEST_F(ToolCheck, SaysOfBothOptionalLibrariesWhetherTheyAreThere)
{
    const std::string said = check(oneSlot().type(127)).companions;
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 2) << said;
    EXPECT_EQ(said.find(" BMC: "), 8u) << said;
    EXPECT_NE(said.find(" Xen: "), std::string::npos) << said;
}

TEST_F(ToolCheck, ReportsADamagedTableAndGoesOn)
{
    const Check damaged = check(std::vector<unsigned char>{'_', 'S', 'M', '_', 0, 1, 2, 3});
    EXPECT_EQ(
        damaged.output.rfind("problem  SMBIOS table: " + name + ": no SMBIOS entry point: expected the bytes ", 0), 0u)
        << damaged.output;
    EXPECT_TRUE(damaged.has(", found 5F 53 4D 5F 00\n" + loaded() +
                            "ok       QORTAL_OperatingSystem: 1 instance\n"
                            "ok       QORx_SystemMemory: 1 instance\n"
                            "1 problem found\n"))
        << damaged.output;
    EXPECT_EQ(damaged.exitCode, 1);
}

TEST_F(ToolCheck, SaysWhereAndWhyATableEndsEarly)
{
    struct Case
    {
        std::vector<unsigned char> broken;
        const char* read;
        const char* why;
    };
    const Case cases[] = {
        {{8, 3, 0, 0, 0, 0},
         "1 of 3 structures, 12 of 24 bytes",
         "at byte 12 a structure of type 8 says that it is 3 byte(s) long, shorter than its header"},
        {{8, 200, 0, 0, 0, 0},
         "1 of 3 structures, 12 of 24 bytes",
         "at byte 12 a structure of type 8 says that it is 200 bytes long, and 12 are left"},
        {{8, 12, 0, 0, 'C', 'O'},
         "1 of 3 structures, 12 of 24 bytes",
         "at byte 12 a structure of type 8 has texts that do not end"},
    };
    for (const Case& one : cases) {
        const Check cut = check(oneSlot().raw(one.broken).type(127));
        EXPECT_TRUE(cut.has("problem  SMBIOS table: it ends early: " + std::string(one.read) + " can be read; " +
                            one.why + ". What stands behind is missing in all answers: make the dump again\n"))
            << cut.output;
        EXPECT_TRUE(cut.has(AllAsked + "1 problem found\n")) << cut.output;
        EXPECT_EQ(cut.exitCode, 1);
    }
}

TEST_F(ToolCheck, SaysThatATableWithoutACountEndsEarly)
{
    const Check cut = check(oneSlot().form64().raw({8, 3, 0, 0, 0, 0}).type(127));
    EXPECT_TRUE(cut.has("problem  SMBIOS table: it ends early: 1 structures, 12 of 24 bytes can be read; at byte 12 a "
                        "structure of type 8 says that it is 3 byte(s) long"))
        << cut.output;
}

TEST_F(ToolCheck, SaysThatAFileEndsBeforeItsTable)
{
    std::vector<unsigned char> dump = oneSlot().type(9).string(0x04, "PCI 2").type(127).dump();
    dump.resize(dump.size() - 9); // the last structure, and a part of the one before
    const Check cut = check(dump);
    EXPECT_TRUE(
        cut.has("problem  SMBIOS table: it ends early: 1 of 3 structures, 12 of 30 bytes can be read; at byte 12 "
                "a structure of type 9 has texts that do not end; only 21 bytes of it are there"))
        << cut.output;
    dump.resize(32 + 12); // at a structure's end
    EXPECT_TRUE(check(dump).has("1 of 3 structures, 12 of 30 bytes can be read; at byte 12 only 12 bytes of it are "
                                "there"));
}

TEST_F(ToolCheck, NotesAFileThatEndsBehindTheEndOfTable)
{
    std::vector<unsigned char> dump = oneSlot().type(127).raw({0, 0, 0, 0}).dump();
    dump.resize(dump.size() - 4);
    const Check ended = check(dump);
    EXPECT_TRUE(
        ended.has("note     SMBIOS table: it announces 22 bytes, and only 18 are there; nothing is missing, since "
                  "it is marked as ended before\n"))
        << ended.output;
    EXPECT_EQ(ended.exitCode, 0);
}

TEST_F(ToolCheck, NotesAnEndOfTableBeforeTheAnnouncedCount)
{
    const Check marked = check(oneSlot().type(127).type(9).string(0x04, "PCI 2"));
    EXPECT_TRUE(marked.has("note     SMBIOS table: it announces 3 structures and ends after 2\n")) << marked.output;
    EXPECT_EQ(marked.exitCode, 0);
}

TEST_F(ToolCheck, NamesTheTextsThatXmlCannotCarry)
{
    const Check odd =
        check(TableBuilder().type(9).string(0x04, "PCI\x01 1").type(9).string(0x04, "tab\there").type(127));
    const std::string refused = "problem  QORTAL_Slot: a client with a strict XML parser refuses the whole answer: ";
    const std::string path = " of QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI\\x01 1\" holds a control "
                             "character: PCI\\x01 1\n";
    EXPECT_TRUE(odd.has("ok       QORTAL_Slot: 2 instances\n" + refused + "Name" + path + refused + "Tag" + path +
                        "ok       QORTAL_Port: 0 instances\n"))
        << odd.output;
    EXPECT_EQ(odd.exitCode, 1);
    TableBuilder many;
    for (unsigned i = 0; i < 20; ++i)
        many.type(9).string(0x04, "\x02");
    EXPECT_TRUE(check(many).has("problem  QORTAL_Slot: 37 more texts with control characters\n"));
    EXPECT_TRUE(check(TableBuilder().type(9).string(0x04, "\xEF\xBF\xBF")).has("Tag of QORTAL_Slot."));
}

TEST_F(ToolCheck, DoesNotAskForAListThatNeverEnds)
{
    const std::string endless = ", which the module counts in 8 bits without ever reaching the end: ";
    const Check options = check(oneSlot().type(2).type(12).byte(0x04, 255));
    EXPECT_TRUE(options.has("problem  QORTAL_BaseBoard: not asked: a structure of type 12 announces 255 configuration "
                            "options" +
                            endless))
        << options.output;
    EXPECT_FALSE(options.has("QORTAL_BaseBoard: 1 instance"));
    EXPECT_TRUE(options.has("ok       QORTAL_BIOS: 1 instance\n"));
    EXPECT_EQ(options.exitCode, 1);

    const std::string languages = "problem  QORTAL_BIOS: not asked: a structure of type ";
    EXPECT_TRUE(check(TableBuilder().type(0).type(1).type(13).byte(0x04, 255))
                    .has(languages + "13 announces 255 languages" + endless));
    EXPECT_TRUE(
        check(TableBuilder().type(0).type(1).byte(0x04, 255)).has(languages + "1 announces 255 languages" + endless));
    EXPECT_TRUE(check(TableBuilder().type(0).byte(0x04, 255)).has(languages + "0 announces 255 languages" + endless));
    // The first structure of the type counts, and type 13 before the others.
    EXPECT_TRUE(check(TableBuilder().type(1).byte(0x04, 255).type(13).byte(0x04, 1).type(13).byte(0x04, 255))
                    .has("ok       QORTAL_BIOS: 1 instance\n"));
}

TEST_F(ToolCheck, ComputesWhatATableThatMultipliesWillCost)
{
    // 59 KB that every board multiplies.
    const Check huge = check(optionsTimesBoards(8600, 30));
    EXPECT_TRUE(
        huge.has("problem  QORTAL_BaseBoard: not asked: 2184400 configuration options on each of 30 boards make "
                 "an answer of about 999 MiB, which takes about four times that in the server"))
        << huge.output;
    EXPECT_EQ(huge.exitCode, 1);
    const Check large = check(optionsTimesBoards(300, 2));
    EXPECT_TRUE(
        large.has("note     QORTAL_BaseBoard: 76200 configuration options on each of 2 boards make an answer of "
                  "about 2 MiB\n"))
        << large.output;
    EXPECT_TRUE(large.has("ok       QORTAL_BaseBoard: 2 instances\n"));
    EXPECT_EQ(large.exitCode, 0);
    // Without a board there is nothing to multiply.
    EXPECT_TRUE(check(optionsTimesBoards(300, 0)).has("ok       QORTAL_BaseBoard: 0 instances\n"));
}

TEST_F(ToolCheck, NamesTheFaultOfFirmwareThatNoRequestIsAnsweredFor)
{
    const Check odd = check(TableBuilder().type(11).byte(0x04, 1).string("-[X]-"));
    EXPECT_TRUE(odd.has("problem  QORTAL_BIOS: CIM_ERR_FAILED: basic_string::substr")) << odd.output;
    EXPECT_TRUE(
        odd.has("; an OEM string of the firmware has a bracketed part of one character, \"-[X]-\": no request"));
}

TEST_F(ToolCheck, OutlivesAModuleThatIsCut)
{
    const TemporaryFile cut{contentOf(VQ_MODULE).substr(0, 20000)};
    const Check dead = Check(runTool({"check", "--module", cut.name()}));
    EXPECT_TRUE(dead.has("problem  module: ")) << dead.output;
    EXPECT_TRUE(dead.has(cut.name())) << dead.output;
    EXPECT_TRUE(dead.has("; if the file is damaged, install the package again\n1 problem found\n")) << dead.output;
    EXPECT_FALSE(dead.has("can be loaded"));
    EXPECT_EQ(dead.exitCode, 1);
}

TEST_F(ToolCheck, OutlivesAModuleThatDies)
{
    const Check dead = Check(runTool({"check", "--module", VQ_STUB_MODULE}, {{"VQ_STUB_DIES", "QORTAL_BIOS"}}));
    EXPECT_TRUE(dead.has("ok       QORTAL_ComputerSystem: 2 instances\n"
                         "problem  module: " VQ_STUB_MODULE " ended the process that asked it, when asked for "
                         "QORTAL_BIOS: Aborted; if the file is damaged, install the package again\n"
                         "1 problem found\n"))
        << dead.output;
    EXPECT_EQ(dead.exitCode, 1);
}

TEST_F(ToolCheck, ReportsWhatAClassFailsWithAndGoesOn)
{
    const Check failing = Check(runTool({"check", "--module", VQ_STUB_MODULE}));
    EXPECT_TRUE(failing.has("ok       QORTAL_BIOS: 1 instance\n"
                            "problem  QORTAL_Chassis: CIM_ERR_FAILED: the table\\x1B[31m is broken\n"
                            "problem  QORTAL_BaseBoard: CIM_ERR_FAILED: a CIM library's own exception\n"
                            "problem  QORTAL_CacheMemory: CIM_ERR_ACCESS_DENIED: not you\n"))
        << failing.output;
    EXPECT_TRUE(failing.has("7 problems found\n")) << failing.output;
}

TEST_F(ToolCheck, ReportsAMissingModuleAfterTheTable)
{
    const TemporaryFile dump{oneSlot().type(127)};
    const Check missing = Check(runTool({"check", "--module", "/nowhere/module.so", "--from-dump", dump.name()}));
    EXPECT_EQ(missing.output, "ok       SMBIOS table: version 2.4, 2 of 2 structures, 18 of 18 bytes, from " +
                                  dump.name() +
                                  "\n"
                                  "problem  module: cannot load /nowhere/module.so: No such file or directory; if the "
                                  "file is damaged, install the package again\n"
                                  "1 problem found\n");
}

TEST_F(ToolCheck, IsJsonForMonitoringWhateverTheFirmwareSays)
{
    TableBuilder table;
    table.type(9).string(0x04, "a\"b\\c\x01\x1B[31m\xFF\n").type(127);
    const TemporaryFile dump{table};
    const ToolRun run = runTool({"check", "--format", "json", "--from-dump", dump.name()});
    const auto json = nlohmann::json::parse(run.output, nullptr, false);
    ASSERT_FALSE(json.is_discarded()) << run.output;
    EXPECT_EQ(json["problems"], 2);
    EXPECT_EQ(json["findings"][0]["kind"], "ok");
    EXPECT_EQ(json["table"]["structures"], 2);
    EXPECT_EQ(json["table"]["announcedStructures"], 2);
    EXPECT_EQ(json["classes"]["QORTAL_Slot"]["instances"], 1);
    EXPECT_EQ(json["classes"].size(), 9u);
    EXPECT_EQ(run.exitCode, 1);
}

TEST_F(ToolCheck, HasNoMof)
{
    const ToolRun run = runTool({"check", "--format", "mof"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "vqinventory: --format mof is for instances; invoke and check print text or json\n");
}
