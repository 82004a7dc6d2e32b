// Saved answers and the forms of dumps: what they are read from, and what is wrong with them.

#include "tests/tools/ToolRun.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace
{
const std::string Server = VQ_SOURCE_DIR "/samples/server.bin";
const std::string Desktop = VQ_SOURCE_DIR "/samples/desktop.bin";

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

std::vector<unsigned char> bytesOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TemporaryFile saved(const std::vector<std::string>& arguments)
{
    std::vector<std::string> all = {"--format", "json"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return TemporaryFile{runTool(all).output};
}

// Packs by the system's gzip.
void pack(const std::string& file)
{
    ASSERT_EQ(std::system(("gzip -n " + file).c_str()), 0);
}

class SavedAnswers : public testing::Test
{
protected:
    ToolRun fromJson(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.end(), {"--from-json", file.name()});
        return runTool(arguments);
    }

    TemporaryFile file = saved({"--from-dump", Server});
};
}

TEST_F(SavedAnswers, GiveEveryFormatAsTheModuleDoes)
{
    for (const char* format : {"text", "mof"}) {
        const std::vector<std::string> classes = {"QORTAL_BIOS", "QORTAL_Chassis", "QORTAL_CacheMemory", "QORTAL_Port"};
        std::vector<std::string> asked = {"--format", format, "--from-dump", Server};
        asked.insert(asked.end(), classes.begin(), classes.end());
        std::vector<std::string> read = {"--format", format, "--from-json", file.name()};
        read.insert(read.end(), classes.begin(), classes.end());
        const ToolRun run = runTool(read);
        EXPECT_EQ(run.output, runTool(asked).output);
        EXPECT_TRUE(contains(run.output, "20110307")) << run.output;
        EXPECT_EQ(run.exitCode, 0) << run.errors;
    }
}

TEST_F(SavedAnswers, AreTheSameWhenTheyAreSavedAgain)
{
    EXPECT_EQ(fromJson({"--format", "json"}).output, file.text());
}

TEST_F(SavedAnswers, AreAskedForClassesNamesAndInstances)
{
    EXPECT_EQ(fromJson({"names", "chassis"}).output,
              "QORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"\n");
    const ToolRun got = fromJson({"get", "qortal_chassis.TAG=\"Chassis0\",CreationClassName=\"QORTAL_Chassis\""});
    EXPECT_TRUE(contains(got.output, "    SerialNumber       CH5500417\n")) << got.output << got.errors;
    EXPECT_EQ(got.exitCode, 0);
    const ToolRun none = fromJson({"get", "QORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis1\""});
    EXPECT_EQ(none.output, "");
    EXPECT_TRUE(contains(none.errors, "CIM_ERR_NOT_FOUND: QORTAL_Chassis: no such instance")) << none.errors;
    EXPECT_EQ(none.exitCode, 1);
}

TEST_F(SavedAnswers, KeepFailures)
{
    const TemporaryFile failed = saved({"QORTAL_Foo", "--from-dump", Server});
    const ToolRun run = runTool({"--from-json", failed.name()});
    EXPECT_TRUE(contains(run.errors, "CIM_ERR_INVALID_CLASS: QORTAL_Foo: not served")) << run.errors;
    EXPECT_EQ(run.exitCode, 1);
}

TEST_F(SavedAnswers, OfManyMachinesAreOneDocument)
{
    const TemporaryFile many = saved({"--from-dump", Server, "--from-dump", Desktop});
    const ToolRun run = runTool({"names", "chassis", "--from-json", many.name()});
    EXPECT_EQ(run.output, "== server, from " + Server +
                              "\nQORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"\n\n"
                              "== desktop, from " +
                              Desktop + "\nQORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"\n");
    EXPECT_FALSE(contains(many.text(), "QORTAL_OperatingSystem"));
}

TEST_F(SavedAnswers, MarkWhatADumpDoesNotHold)
{
    const auto machine = nlohmann::json::parse(file.text())["machines"][0];
    EXPECT_EQ(machine["ofAskedMachine"], (nlohmann::json{"QORTAL_OperatingSystem", "QORx_SystemMemory"}));
    EXPECT_EQ(machine["name"], "server");
    EXPECT_EQ(machine["source"], (nlohmann::json{{"kind", "dump"}, {"place", Server}}));
    EXPECT_EQ(machine["moduleVersion"], "1.0.0");
    EXPECT_TRUE(contains(runTool({"os", "--from-dump", Server}).output, ", which read the dump: a dump holds nothing"));
}

TEST_F(SavedAnswers, ThatAreNoneAreReportedWithTheReason)
{
    const std::string whole = file.text();
    const std::vector<std::pair<std::string, const char*>> documents = {
        {"", "it is no JSON, or not all of it is there (at byte 1)"},
        {whole.substr(0, whole.size() / 2), "it is no JSON, or not all of it is there (at byte "},
        {"[1]", "it is JSON, but not what --format json writes"},
        {R"({"format": "systemprovider-inventory", "version": 2, "machines": []})",
         "its form has the version 2, and this program reads version 1; use a newer program"},
        {R"({"format": "systemprovider-inventory", "version": 1, "machines": [{"name": "x"}]})",
         "it does not have the form of saved answers: key 'source' not found"},
        {saved({"names", "--from-dump", Server}).text(), "only the paths of the instances are in it"},
    };
    for (const auto& [document, reason] : documents) {
        const TemporaryFile bad{document};
        const ToolRun run = runTool({"--from-json", bad.name()});
        EXPECT_EQ(run.errors.rfind("vqinventory: " + bad.name() + " holds no saved answers: " + reason, 0), 0u)
            << run.errors;
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(SavedAnswers, TellNobodyHowMuchStackOrTimeTheyTake)
{
    const std::string depth(200000, '[');
    std::string members;
    for (int i = 0; i <= 1000; ++i)
        members += (i > 0 ? ",\"" : "\"") + std::to_string(i) + "\":0";
    const std::vector<std::pair<std::string, const char*>> documents = {
        {R"({"format": "systemprovider-inventory", "version": )" + depth,
         "it is nested deeper than what --format json writes"},
        {"{" + members + "}", "an object in it has more than 1000 members"},
    };
    for (const auto& [document, reason] : documents) {
        const TemporaryFile bad{document};
        const ToolRun run = runTool({"--from-json", bad.name()});
        EXPECT_EQ(run.errors, "vqinventory: " + bad.name() + " holds no saved answers: " + reason + "\n");
        EXPECT_EQ(run.exitCode, 1);
    }
}

TEST_F(SavedAnswers, OfOneNameAreToldApartEvenWhereAMachineIsNamedSo)
{
    auto document = nlohmann::json::parse(file.text());
    auto& machines = document["machines"];
    machines[0]["source"] = {{"kind", "machine"}};
    machines[0]["name"] = "web1";
    machines.push_back(machines[0]);
    machines.push_back(machines[0]);
    machines[2]["name"] = "web1 #2";
    const TemporaryFile many{document.dump()};
    const auto read =
        nlohmann::json::parse(runTool({"--format", "json", "--from-json", many.name()}).output)["machines"];
    EXPECT_EQ(read[0]["name"], "web1");
    EXPECT_EQ(read[1]["name"], "web1 #2");
    EXPECT_EQ(read[2]["name"], "web1 #2 #2");
}

TEST_F(SavedAnswers, HoldNothingThatATerminalObeysInAnyName)
{
    auto document = nlohmann::json::parse(file.text());
    auto& machine = document["machines"][0];
    machine["time"] = "\x1B[2J";
    auto instance = machine["classes"]["QORTAL_Chassis"][0];
    instance["class"] = "A\x1B[2J";
    instance["properties"]["B\x1B[2J"] = "C\x1B[2J";
    machine["classes"]["D\x1B[2J"] = {instance};
    const TemporaryFile hostile{document.dump()};
    for (const char* const format : {"text", "json", "mof", "html", "csv"}) {
        const ToolRun run = runTool({"--format", format, "--from-json", hostile.name()});
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        EXPECT_TRUE(contains(run.output, "[2J")) << format;
        EXPECT_FALSE(contains(run.output, "\x1B")) << format;
    }
    const ToolRun summary = runTool({"summary", "--format", "csv", "--from-json", hostile.name()});
    EXPECT_FALSE(contains(summary.output, "\x1B")) << summary.output;
}

TEST(DumpForms, PackedByGzip)
{
    const TemporaryDirectory directory;
    std::filesystem::copy_file(Server, directory.name() + "/web1.bin");
    pack(directory.name() + "/web1.bin");
    const ToolRun run = runTool({"--format", "json", "chassis", "--from-dump", directory.name() + "/web1.bin.gz"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const auto machine = nlohmann::json::parse(run.output)["machines"][0];
    EXPECT_EQ(machine["name"], "web1");
    EXPECT_EQ(machine["classes"]["QORTAL_Chassis"][0]["properties"]["SerialNumber"], "CH5500417");
}

TEST(DumpForms, PackedAndCutIsReported)
{
    const TemporaryDirectory directory;
    const std::string file = directory.name() + "/web1.bin";
    std::filesystem::copy_file(Server, file);
    pack(file);
    std::filesystem::resize_file(file + ".gz", 100);
    const ToolRun run = runTool({"--from-dump", file + ".gz"});
    EXPECT_EQ(run.errors, "vqinventory: cannot unpack " + file + ".gz: it is damaged, or not all of it is there\n");
    EXPECT_EQ(run.exitCode, 1);
}

TEST(DumpForms, ARawTableTakesItsVersionFromTheEntryPointBesideIt)
{
    const TemporaryDirectory directory;
    const std::vector<unsigned char> dump = bytesOf(Server);
    ASSERT_GT(dump.size(), 0x20u);
    const auto write = [&directory](const char* name, const std::string& bytes) {
        std::ofstream(directory.name() + "/" + name, std::ios::binary) << bytes;
    };
    write("DMI", std::string(dump.begin() + 0x20, dump.end()));
    const std::vector<std::string> arguments = {"bios", "--from-dump", directory.name() + "/DMI"};
    const ToolRun alone = runTool(arguments);
    EXPECT_TRUE(contains(alone.output, "    SMBIOSBIOSVersion      0.0\n")) << alone.output;
    EXPECT_TRUE(contains(alone.errors, "is a table without an entry point")) << alone.errors;
    EXPECT_EQ(alone.exitCode, 0);
    write("smbios_entry_point", std::string(dump.begin(), dump.begin() + 0x20));
    const ToolRun complete = runTool(arguments);
    EXPECT_EQ(complete.output, runTool({"bios", "--from-dump", Server}).output);
    EXPECT_EQ(complete.errors, "");
}

TEST(DumpForms, SeveralMayFollowTheOptionAsAShellWritesThem)
{
    const ToolRun run = runTool({"--from-dump", Server, Desktop, "chassis"});
    EXPECT_TRUE(contains(run.output, "== server, from ")) << run.errors;
    EXPECT_TRUE(contains(run.output, "== desktop, from "));
    EXPECT_EQ(run.exitCode, 0);
}

TEST(DumpForms, FilesOfOneNameAreToldApart)
{
    const TemporaryDirectory directory;
    std::filesystem::copy_file(Desktop, directory.name() + "/server.bin");
    const ToolRun run = runTool({"names", "chassis", "--from-dump", Server, directory.name() + "/server.bin"});
    EXPECT_TRUE(contains(run.output, "== server (" + Server + ")")) << run.output;
    EXPECT_TRUE(contains(run.output, "== server (" + directory.name() + "/server.bin)")) << run.output;
}

TEST(OutputFile, IsReplacedWholeAndKeepsItsMode)
{
    const TemporaryDirectory directory;
    const std::string file = directory.name() + "/answers";
    std::ofstream(file) << "old";
    chmod(file.c_str(), 0640);
    const std::vector<std::string> arguments = {"names", "chassis", "--from-dump", Server, "--output", file};
    const ToolRun run = runTool(arguments);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const std::vector<unsigned char> bytes = bytesOf(file);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
              "QORTAL_Chassis.CreationClassName=\"QORTAL_Chassis\",Tag=\"Chassis0\"\n");
    struct stat status
    {
    };
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(directory.name()))
        files += entry.path().empty() ? 0 : 1;
    EXPECT_EQ(files, 1u);
}

TEST(OutputFile, ThatCannotBeWrittenIsReported)
{
    const ToolRun run = runTool({"names", "chassis", "--from-dump", Server, "--output", "/nowhere/answers"});
    EXPECT_EQ(run.errors, "vqinventory: cannot write /nowhere/answers: No such file or directory\n");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(runTool({"names", "chassis", "--from-dump", Server, "--output", "/dev/full"}).errors,
              "vqinventory: cannot write /dev/full: No space left on device\n");
}
