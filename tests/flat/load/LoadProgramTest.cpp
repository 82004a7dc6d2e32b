// C programs over systemprovider_load.h: the example, and one that calls everything with what it must refuse.

#include "tests/testing/Process.h"
#include "tests/testing/ServedTable.h"
#include "tests/testing/TableBuilder.h"

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>

namespace
{
const std::string ModuleFile = VQ_LIB_DIR "/libSystemProvider.so";
const std::string Samples = VQ_SOURCE_DIR "/samples/";

Outcome runExample(const std::string& arguments)
{
    return run(std::string(VQ_EXAMPLE) + " " + arguments + " 2>&1");
}

Outcome runCalls(const std::string& before, const std::string& arguments)
{
    return run(before + std::string(VQ_CALLS) + " " + arguments + " 2>&1");
}

// What the example says of a table that can't be read; the file's name is FILE.
Outcome runExampleOver(const TableBuilder& table)
{
    const std::string file = writeTemporaryFile(table.dump());
    Outcome outcome = runExample(file);
    std::remove(file.c_str());
    const std::size_t found = outcome.output.find(file);
    if (found != std::string::npos)
        outcome.output.replace(found, file.size(), "FILE");
    return outcome;
}

const std::string CallsOfNothing = "of nothing: null null null null null null null null null null null null\n"
                                   "counts of nothing: 0 0 0 0 0\nerror before any: \"\"\n";
const std::string BeyondTheEnd = "beyond the end: null null null null null\n";
}

TEST(LoadExample, PrintsASampleTable)
{
    const Outcome outcome = runExample(Samples + "desktop.bin");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    const std::size_t begin = outcome.output.find("Chassis\n");
    ASSERT_NE(begin, std::string::npos) << outcome.output;
    EXPECT_EQ(outcome.output.substr(begin), R"(Chassis
  Manufacturer: Talvo
  Version: 
  Serial number: TD7-000042
  Options:
BIOS
  Manufacturer: Talvo Firmware
  Version: T5.21
  Released: 20201130000000.000000+000
  SMBIOS: 3.3
  Languages: en-US
Base board 0
  Product: Talvo TD7-BOARD
  Serial number: TB-000042
Cache 0
  Designation: L1 - Cache
  Size: 384 KB
Port 0
  Designator: USB-C
  Connectors: 0 35
Port 1
  Designator: Line Out
  Connectors: 0 31
Slot 0
  Designation: PCIEX16
)");
}

TEST(LoadExample, ReadsTheMachineWithItsOwnModule)
{
    const Outcome outcome = runExample("");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    EXPECT_EQ(outcome.output.rfind("Computer system\n  Name: ", 0), 0u) << outcome.output;
}

TEST(LoadExample, SaysWhyATableCannotBeReadInsteadOfEnding)
{
    Outcome outcome = runExampleOver(TableBuilder().type(13).byte(0x04, 255).type(127));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "inventory: FILE: a structure of type 13 announces 255 languages, which the module would "
                              "count without end: update the firmware of the machine\n");
    outcome = runExampleOver(TableBuilder().type(11).byte(0x04, 1).string("Odd -[X]-").type(127));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output.rfind("inventory: ", 0), 0u);
    EXPECT_NE(outcome.output.find("basic_string::substr"), std::string::npos) << outcome.output;
    outcome = runExample("/etc/passwd");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output.rfind("inventory: /etc/passwd: no SMBIOS entry point", 0), 0u) << outcome.output;
}

TEST(LoadExample, SaysWhyTheModuleCannotBeLoaded)
{
    const Outcome outcome = runExample("--module /nonexistent/libSystemProvider.so");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "inventory: cannot load /nonexistent/libSystemProvider.so: No such file or directory\n");
}

TEST(LoadExample, TellsItsUsage)
{
    const Outcome outcome = runExample("--help");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.output, "usage: inventory [--module MODULE] [DUMP]\n");
}

TEST(LoadCalls, AreRefusedBeyondTheEndAndOfNothing)
{
    const Outcome outcome = runCalls("", ModuleFile + " " + Samples + "server.bin");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, CallsOfNothing + "plain functions: 90, 0 missing; 5 slots\ncounts: 2 2 4 7 5\n" +
                                  BeyondTheEnd + BeyondTheEnd + BeyondTheEnd +
                                  "virtual or not, the computer has a name: yes\n");
}

TEST(LoadCalls, OfADumpAreRefusedWhileTheMachineIsOpen)
{
    const Outcome outcome = runCalls("", ModuleFile);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    EXPECT_NE(outcome.output.find("a dump beside the machine: " + ModuleFile +
                                  " is loaded in this process already and reads the machine's own table: close it "
                                  "before a dump is opened\n"),
              std::string::npos)
        << outcome.output;
}

TEST(LoadCalls, FindFilesWhereTheProgramStandsAndLeaveItThere)
{
    const std::string module = std::filesystem::relative(ModuleFile, Samples);
    const Outcome outcome = runCalls("cd " + Samples + " && ", module + " server.bin");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    EXPECT_EQ(outcome.output.find("working directory"), std::string::npos) << outcome.output;
}

// A kernel that gives no thread a directory of its own makes no difference to a program of one thread.
TEST(LoadCalls, LeaveTheProgramWhereItStandsThoughUnshareIsRefused)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer must be the first library of a program";
#endif
    const Outcome outcome =
        runCalls("cd " + Samples + " && LD_PRELOAD=" + VQ_REFUSE_UNSHARE + " ", ModuleFile + " server.bin");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
    EXPECT_EQ(outcome.output.find("working directory"), std::string::npos) << outcome.output;
    const Outcome failed =
        runCalls("cd " + Samples + " && LD_PRELOAD=" + VQ_REFUSE_UNSHARE + " ", ModuleFile + " README.md");
    EXPECT_EQ(failed.exitCode, 1) << failed.output;
    EXPECT_EQ(failed.output.find("working directory"), std::string::npos) << failed.output;
}

TEST(LoadCalls, EndWithAnErrorWhereMemoryLacks)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the address sanitizer takes more memory than any limit";
#endif
    int refused = 0;
    for (int kilobytes = 12000; kilobytes <= 40000; kilobytes += 300) {
        const Outcome outcome = runCalls("ulimit -c 0; ulimit -v " + std::to_string(kilobytes) + "; exec ",
                                         ModuleFile + " " + Samples + "server.bin");
        const bool started = outcome.output.rfind(CallsOfNothing, 0) == 0;
        EXPECT_TRUE(!started || outcome.exitCode == 0 || outcome.exitCode == 1)
            << kilobytes << " KB: " << outcome.exitCode << "\n"
            << outcome.output;
        refused += outcome.output.find("error: not enough memory") != std::string::npos ||
                   outcome.output.find("error: cannot ") != std::string::npos;
    }
    EXPECT_GE(refused, 3);
}
