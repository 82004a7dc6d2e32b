// Modules and dump files that can't be used.

#include "tests/tools/ToolRun.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
void expectFailure(const ToolRun& run, const std::string& message)
{
    EXPECT_EQ(run.errors, "vqinventory: " + message + "\n");
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.exitCode, 1);
}

// Without having read anything much: ctest ends a test that hangs.
void expectFailureAtOnce(const ToolRun& run, const std::string& message)
{
    expectFailure(run, message);
    EXPECT_LT(run.peakKilobytes, 200000);
}

ToolRun runModule(const std::string& file)
{
    return runTool({"--module", file, "QORTAL_OperatingSystem"});
}

ToolRun runStub(const char* creation)
{
    return runTool({"--module", VQ_STUB_MODULE, "Stub_Types"}, {{"VQ_STUB_CREATE", creation}});
}

ToolRun runDump(const std::string& file)
{
    return runTool({"--from-dump", file, "QORTAL_Slot"});
}

constexpr const char* NotADump = " is not an SMBIOS dump: expected \"_SM3_\" (5F 53 4D 33 5F), \"_SM_\" "
                                 "(5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) at its start, found ";
}

TEST(ToolModule, AMissingModuleIsReportedWithTheLoadersReason)
{
    expectFailure(runModule("/nowhere/module.so"),
                  "cannot load /nowhere/module.so: cannot open shared object file: No such file or directory");
    expectFailure(runToolIn("/usr", {"--module", "nomodule.so", "QORTAL_OperatingSystem"}),
                  "cannot load /usr/nomodule.so: cannot open shared object file: No such file or directory");
}

TEST(ToolModule, AFileThatIsNoLibraryIsReportedWithTheLoadersReason)
{
    const TemporaryFile text{"this is a text, and more than sixty-four bytes of it, so that it could be a header...\n"};
    expectFailure(runModule(text.name()), "cannot load " + text.name() + ": invalid ELF header");
    const TemporaryFile empty;
    expectFailure(runModule(empty.name()), "cannot load " + empty.name() + ": file too short");
}

TEST(ToolModule, AModuleOfTheOtherWidthIsReportedWithAHint)
{
    std::ifstream in(VQ_STUB_MODULE, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    std::string other = bytes.str();
    ASSERT_GT(other.size(), 64u);
    const bool own64 = other[4] == 2; // EI_CLASS
    other[4] = own64 ? 1 : 2;
    const TemporaryFile module{other};
    const ToolRun run = runModule(module.name());
    expectFailure(run, "cannot load " + module.name() + ": wrong ELF class: ELFCLASS" + (own64 ? "32" : "64") +
                           "\nvqinventory: This vqinventory is a " + (own64 ? "64" : "32") +
                           "-bit program: it needs a module of the same width.");
}

TEST(ToolModule, AModuleOfTheOtherCimLibraryIsTurnedAwayBeforeItRuns)
{
    const bool standalone = std::string(VQ_CIM_LIBRARY) == "standalone";
    const std::string module = VQ_OTHER_MODULE;
    expectFailure(runModule(module), "cannot load " + module + ": it was built with the " +
                                         (standalone ? "openpegasus" : "standalone") +
                                         " CIM library, and this vqinventory with the " VQ_CIM_LIBRARY " one");
}

TEST(ToolModule, AModuleThatOnlySpeaksOfTheOtherCimLibraryIsNotTurnedAwayForIt)
{
    std::ifstream library(VQ_LIB_DIR "/libvqcommon.so", std::ios::binary);
    std::ostringstream bytes;
    bytes << library.rdbuf() << '\0' << "libpegcommon.so.1" << '\0' << "libvqcim.so" << '\0';
    const TemporaryFile module{bytes.str()};
    expectFailure(runModule(module.name()), module.name() + " does not export PegasusCreateProvider");
}

TEST(ToolModule, ALibraryThatIsNoModuleIsReported)
{
    expectFailure(runModule(VQ_LIB_DIR "/libvqcommon.so"),
                  VQ_LIB_DIR "/libvqcommon.so does not export PegasusCreateProvider");
}

TEST(ToolModule, AModuleWithoutAProviderIsReported)
{
    const std::string none = VQ_STUB_MODULE " has no provider \"SystemProvider\" of instances and methods";
    expectFailure(runStub("null"), none);
    expectFailure(runStub("methods-only"), none);
}

TEST(ToolModule, AProviderThatDoesNotStartIsReported)
{
    expectFailure(runStub("throw"), VQ_STUB_MODULE " failed to create its provider: out of providers");
    expectFailure(runStub("initialize-throws"), VQ_STUB_MODULE " failed to initialize its provider: not today");
}

TEST(ToolModule, IsFoundByALink)
{
    const TemporaryDirectory directory;
    const std::string link = directory.name() + "/module.so";
    std::filesystem::create_symlink(VQ_MODULE, link);
    const TemporaryFile dump{TableBuilder().type(9).string(0x04, "PCI 1").type(127)};
    const ToolRun run = runTool({"names", "QORTAL_Slot", "--module", link, "--from-dump", dump.name()});
    EXPECT_EQ(run.output, "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 1\"\n") << run.errors;
    EXPECT_EQ(run.exitCode, 0);
}

TEST(ToolFiles, AreLookedForWhereThePersonStands)
{
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.name() + "/below");
    std::filesystem::create_symlink(VQ_MODULE, directory.name() + "/module.so");
    const TemporaryFile dump{TableBuilder().type(9).string(0x04, "PCI 1").type(127)};
    std::filesystem::copy_file(dump.name(), directory.name() + "/below/dump.bin");
    const ToolRun run = runToolIn(directory.name() + "/below",
                                  {"names", "QORTAL_Slot", "--module", "../module.so", "--from-dump", "dump.bin"});
    EXPECT_EQ(run.output, "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 1\"\n") << run.errors;
}

TEST(ToolFiles, ThatAreNoRegularOnesAreRefusedAtOnce)
{
    const TemporaryDirectory directory;
    const std::string pipe = directory.name() + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& file : {std::string("/dev/zero"), std::string("/tmp"), pipe}) {
        expectFailureAtOnce(runModule(file), "cannot load " + file + ": it must be a regular file");
        expectFailureAtOnce(runDump(file), file + " is not an SMBIOS dump: it must be a regular file");
    }
}

TEST(ToolFiles, ThatAreTooLongAreRefusedAtOnce)
{
    const TemporaryFile dump{TableBuilder().type(127)};
    std::filesystem::resize_file(dump.name(), 1073741824); // with a hole that takes no space
    expectFailureAtOnce(runModule(dump.name()), "cannot load " + dump.name() +
                                                    ": it has 1073741824 bytes, and no more than 268435456 are "
                                                    "accepted");
    expectFailureAtOnce(runDump(dump.name()), dump.name() + " is not an SMBIOS dump: it has 1073741824 bytes, and no "
                                                            "more than 67108896 are accepted");
}

TEST(ToolDump, EveryFormOfTheEntryPointIsServed)
{
    TableBuilder table;
    table.type(9).string(0x04, "PCI 1").type(127);
    const TemporaryFile form32{table};
    const TemporaryFile form64{table.form64()};
    const TemporaryFile formDmi{table.formDmi()};
    for (const TemporaryFile* dump : {&form32, &form64, &formDmi}) {
        const ToolRun run = runTool({"names", "QORTAL_Slot", "--from-dump", dump->name()});
        EXPECT_EQ(run.output, "QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 1\"\n") << run.errors;
    }
}

TEST(ToolDump, AFileThatIsNoDumpIsReportedWithWhatWasExpectedAndFound)
{
    const TemporaryFile text{"root:x:0:0\n"};
    expectFailure(runDump(text.name()), text.name() + NotADump + "72 6F 6F 74 3A");
    const TemporaryFile tooShort{"_SM"};
    expectFailure(runDump(tooShort.name()), tooShort.name() + NotADump + "5F 53 4D");
    const TemporaryFile empty;
    expectFailure(runDump(empty.name()), empty.name() + NotADump + "nothing");
}

TEST(ToolDump, AFileThatIsNotThereIsReported)
{
    expectFailure(runDump("/nowhere/dump.bin"), "cannot read /nowhere/dump.bin: No such file or directory");
    expectFailure(runDump(""), "cannot read : No such file or directory");
}

TEST(ToolDump, AFileWithoutReadPermissionIsReported)
{
    if (geteuid() == 0 && prctl(PR_CAPBSET_READ, CAP_SETPCAP) != 1)
        GTEST_SKIP() << "this root can't give up the right to read every file";
    const TemporaryFile dump{TableBuilder().type(127)};
    chmod(dump.name().c_str(), 0);
    expectFailure(runDump(dump.name()), "cannot read " + dump.name() + ": Permission denied");
}

TEST(ToolDump, ADamagedEntryPointIsReportedByTheModule)
{
    std::vector<unsigned char> bytes = TableBuilder().type(9).string(0x04, "PCI 1").type(127).dump();
    bytes[0x04] = 0xEE; // the checksum
    const TemporaryFile dump{bytes};
    expectFailure(runDump(dump.name()), "CIM_ERR_FAILED: QORTAL_Slot: " + dump.name() +
                                            ": no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), "
                                            "\"_SM_\" (5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact "
                                            "entry point, found 5F 53 4D 5F EE");
}

TEST(ToolDump, ADamagedTableCostsTheOperatingSystemNothing)
{
    const TemporaryFile dump{"_SM_ and nothing that follows it"};
    const ToolRun run = runTool({"--from-dump", dump.name()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output.rfind("QORTAL_OperatingSystem: operating system, 1 instance", 0), 0u) << run.output;
    EXPECT_NE(run.output.find("\nQORx_SystemMemory: system memory, 1 instance"), std::string::npos) << run.output;
    const std::string reason = "vqinventory: CIM_ERR_FAILED: QORTAL_ComputerSystem, QORTAL_BIOS, QORTAL_Chassis, "
                               "QORTAL_BaseBoard, QORTAL_CacheMemory, QORTAL_Slot, QORTAL_Port: ";
    EXPECT_EQ(run.errors.rfind(reason, 0), 0u) << run.errors;
}

TEST(ToolDump, AModuleWithoutTheReaderOfDumpsIsReported)
{
    const TemporaryFile dump{TableBuilder().type(127)};
    const std::string reader =
        (std::filesystem::canonical(VQ_STUB_MODULE).parent_path() / "from-dump" / "libvqsmbios.so").string();
    expectFailure(runTool({"--module", VQ_STUB_MODULE, "--from-dump", dump.name()}),
                  "cannot load " + reader + ": cannot open shared object file: No such file or directory");
    expectFailure(runTool({"--module", "/nowhere/module.so", "--from-dump", dump.name()}),
                  "cannot load /nowhere/module.so: No such file or directory");
}
