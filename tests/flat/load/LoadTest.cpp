// systemprovider_load.h as a C++ program uses it. The dumps are read by the reader that this program holds as well, so
// the machine is read by the C programs only (LoadProgramTest.cpp). The memory is guarded: a text or list that is
// longer than the room made for it ends the program.

#include "flat/systemprovider_load.h"
#include "flat/systemprovider_packed.h"
#include "tests/flat/load/GuardedMemory.h"
#include "tests/testing/EntryPoints.h"
#include "tests/testing/FullTable.h"
#include "tests/testing/ServedTable.h"

#include <cstdio>
#include <dlfcn.h>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace
{
const char* const ModuleFile = VQ_LIB_DIR "/libSystemProvider.so";

using Module = std::unique_ptr<SystemProvider, void (*)(SystemProvider*)>;
using Inventory = std::unique_ptr<SystemProviderInventory, void (*)(SystemProviderInventory*)>;

// A file that is removed again.
class TemporaryFile
{
public:
    explicit TemporaryFile(const std::vector<unsigned char>& bytes) : _path(writeTemporaryFile(bytes)) {}
    explicit TemporaryFile(const TableBuilder& table) : TemporaryFile(table.dump()) {}
    ~TemporaryFile() { std::remove(_path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::string& path() const { return _path; }

private:
    std::string _path;
};

Module open(const std::string& dump, const char* module = ModuleFile)
{
    return {systemProviderOpen(module, dump.c_str()), systemProviderClose};
}

Inventory read(const Module& module)
{
    return {systemProviderRead(module.get()), systemProviderFree};
}

Inventory inventoryOf(const TableBuilder& table)
{
    const TemporaryFile dump(table);
    Inventory inventory = read(open(dump.path()));
    EXPECT_NE(inventory, nullptr) << systemProviderError();
    return inventory;
}

// Why the table can't be read. Its file is FILE.
std::string failureOf(const TableBuilder& table)
{
    const TemporaryFile dump(table);
    const Module module = open(dump.path());
    EXPECT_NE(module, nullptr) << systemProviderError();
    EXPECT_EQ(read(module), nullptr);
    std::string text = systemProviderError();
    const std::size_t found = text.find(dump.path());
    return found == std::string::npos ? text : text.replace(found, dump.path().size(), "FILE");
}

std::string failureToOpen(const std::string& dump, const std::string& module = ModuleFile)
{
    EXPECT_EQ(open(dump, module.c_str()), nullptr);
    return systemProviderError();
}

// The module in another file, in which the first of these texts is the second, of the same length.
std::vector<unsigned char> moduleWith(const std::string& text, const std::string& other)
{
    std::ifstream in(ModuleFile, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    std::string bytes = out.str();
    const std::size_t found = bytes.find(text);
    EXPECT_NE(found, std::string::npos);
    bytes.replace(found, text.size(), other);
    return {bytes.begin(), bytes.end()};
}

std::vector<std::string> textsOf(const SystemProviderTexts& texts)
{
    return {texts.values, texts.values + texts.count};
}

std::vector<int> numbersOf(const SystemProviderNumbers& numbers)
{
    return {numbers.values, numbers.values + numbers.count};
}

TableBuilder slots(std::initializer_list<const char*> designations)
{
    TableBuilder table;
    for (const char* designation : designations)
        table.type(9).string(0x04, designation);
    return table.type(127);
}
}

TEST(Load, PlainFunctionsReadTheDumpWithoutAnInventory)
{
    const TemporaryFile old(slots({"old"}));
    const Module before = open(old.path());
    const Inventory inventory = read(before);
    const TemporaryFile dump(slots({"one", "two"}));
    const Module module = open(dump.path());
    ASSERT_NE(module, nullptr) << systemProviderError();
    systemProviderFunctions(module.get())->init();
    EXPECT_EQ(systemProviderFunctions(module.get())->getSlotCount(), 2);
}

// The accessor says the date on standard output, too, so the library does not ask it.
TEST(Load, GivesTheDateOfTheBiosAsItsAccessorWritesIt)
{
    const TemporaryFile dump(fullTable());
    const Module module = open(dump.path());
    const Inventory inventory = read(module);
    ASSERT_NE(inventory, nullptr) << systemProviderError();
    char date[32];
    systemProviderFunctions(module.get())->getBiosReleaseDate(date);
    EXPECT_STREQ(systemProviderBios(inventory.get())->releaseDate, date);
    EXPECT_STRNE(date, "00000000000000.000000+000");
}

TEST(Load, GivesListsAsArrays)
{
    TableBuilder table;
    table.type(13).byte(0x04, 2).byte(0x15, 2).string("en").string("de");
    table.type(12).byte(0x04, 3).string("JP1: open").string("JP2: closed"); // the third is announced and lacks
    table.type(8).byte(0x05, 1).byte(0x07, 8).byte(0x08, 9);
    const Inventory inventory = inventoryOf(table.type(127));
    using Texts = std::vector<std::string>;
    EXPECT_EQ(textsOf(systemProviderBios(inventory.get())->languages), (Texts{"en", "de"}));
    EXPECT_EQ(textsOf(*systemProviderConfigurationOptions(inventory.get())), (Texts{"JP1: open", "JP2: closed", ""}));
    ASSERT_EQ(systemProviderPortCount(inventory.get()), 1u);
    EXPECT_EQ(numbersOf(systemProviderPort(inventory.get(), 0)->connectors), (std::vector<int>{1, 8}));
}

TEST(Load, TellsTheRunningSystem)
{
    setenv("LANG", ("de_DE." + std::string(100000, 'X')).c_str(), 1); // longer than any buffer that one thinks of
    const Inventory inventory = inventoryOf(TableBuilder().type(127));
    unsetenv("LANG");
    const SystemProviderOperatingSystem& os = *systemProviderOperatingSystem(inventory.get());
    EXPECT_STREQ(os.name, "Linux");
    EXPECT_STRNE(os.version, "");
    EXPECT_EQ(os.codeSet, std::string(100000, 'X'));
    EXPECT_STREQ(os.languageEdition, "de-DE");
    EXPECT_EQ(os.type, 36);
    EXPECT_EQ(os.distributed, 0);
    EXPECT_EQ(os.maxNumberOfProcesses, 2147483647u);
    EXPECT_GT(os.numberOfProcesses, 0u);
    EXPECT_EQ(os.numberOfUsers, 0u);
    EXPECT_GT(os.freePhysicalMemory, 0u);
    EXPECT_EQ(std::string(os.localDateTime).size(), 25u);
    EXPECT_LT(std::string(os.lastBootUpTime), os.localDateTime);
    EXPECT_LT(std::string(os.installDate), os.lastBootUpTime);
}

TEST(Load, TakesALanguageOfTheEnvironmentOfAnyLength)
{
    unsetenv("LANG"); // it would be taken first
    setenv("LC_CTYPE", ("de_" + std::string(100000, 'X')).c_str(), 1);
    const Inventory inventory = inventoryOf(TableBuilder().type(127));
    unsetenv("LC_CTYPE");
    EXPECT_EQ(systemProviderOperatingSystem(inventory.get())->languageEdition, "de-" + std::string(100000, 'X'));
}

TEST(Load, WritesNothingToStandardOutput)
{
    testing::internal::CaptureStdout();
    inventoryOf(fullTable());
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Load, OfAMachineWithoutRecordsGivesNone)
{
    const Inventory inventory = inventoryOf(TableBuilder().type(127));
    EXPECT_EQ(systemProviderSlotCount(inventory.get()), 0u);
    EXPECT_EQ(systemProviderSlot(inventory.get(), 0), nullptr);
    EXPECT_STREQ(systemProviderChassis(inventory.get())->manufacturer, "");
    EXPECT_STREQ(systemProviderBios(inventory.get())->releaseDate, "00000000000000.000000+000");
}

TEST(Load, TakesATextOf60Kilobytes)
{
    const std::string text(60000, 'x');
    TableBuilder table;
    table.type(9).string(0x04, text);
    table.type(12).byte(0x04, 1).string(text);
    const Inventory inventory = inventoryOf(table.form64().type(127));
    ASSERT_EQ(systemProviderSlotCount(inventory.get()), 1u);
    EXPECT_EQ(systemProviderSlot(inventory.get(), 0)->designation, text);
    EXPECT_EQ(textsOf(*systemProviderConfigurationOptions(inventory.get())), std::vector<std::string>{text});
}

// Counts and indexes have more than 16 bits, those of a list in a record too.
TEST(Load, TakesMoreThan65536RecordsOfAKind)
{
    TableBuilder table;
    table.form64();
    for (unsigned i = 0; i <= 65536; ++i)
        table.type(8).byte(0x05, static_cast<unsigned char>(i >> 16)).byte(0x07, 9);
    const Inventory inventory = inventoryOf(table.type(127));
    ASSERT_EQ(systemProviderPortCount(inventory.get()), 65537u);
    EXPECT_EQ(numbersOf(systemProviderPort(inventory.get(), 0)->connectors), (std::vector<int>{0, 9}));
    EXPECT_EQ(numbersOf(systemProviderPort(inventory.get(), 65536)->connectors), (std::vector<int>{1, 9}));
    EXPECT_EQ(systemProviderPort(inventory.get(), 65537), nullptr);
}

TEST(Load, TakesMoreThan65536ConfigurationOptions)
{
    TableBuilder table;
    table.form64();
    for (unsigned i = 0; i < 260; ++i)
        table.type(12).byte(0x04, 254);
    table.type(12).byte(0x04, 1).string("the last");
    const Inventory inventory = inventoryOf(table.type(127));
    const SystemProviderTexts& options = *systemProviderConfigurationOptions(inventory.get());
    ASSERT_EQ(options.count, 260u * 254 + 1);
    EXPECT_STREQ(options.values[0], "");
    EXPECT_STREQ(options.values[std::size_t{260} * 254], "the last");
}

TEST(Load, Takes254Languages)
{
    TableBuilder table;
    table.type(13).byte(0x04, 254);
    for (unsigned i = 0; i < 254; ++i)
        table.string(std::string(100, static_cast<char>('a' + i % 26)));
    const Inventory inventory = inventoryOf(table.form64().type(127));
    const SystemProviderTexts& languages = systemProviderBios(inventory.get())->languages;
    ASSERT_EQ(languages.count, 254u);
    EXPECT_EQ(languages.values[253], std::string(100, 'a' + 253 % 26));
}

TEST(Load, AnInventoryStaysAsItWasWhateverIsReadAfterIt)
{
    const TemporaryFile old(slots({"old 0", "old 1"}));
    const TemporaryFile young(slots({"young"}));
    Module module = open(old.path());
    const Inventory first = read(module);
    module = open(young.path());
    const Inventory second = read(module);
    module.reset();
    ASSERT_EQ(systemProviderSlotCount(first.get()), 2u);
    EXPECT_STREQ(systemProviderSlot(first.get(), 1)->designation, "old 1");
    ASSERT_EQ(systemProviderSlotCount(second.get()), 1u);
    EXPECT_STREQ(systemProviderSlot(second.get(), 0)->designation, "young");
}

TEST(Load, TwoDumpsAreOpenAtOnce)
{
    const TemporaryFile left(slots({"left"}));
    const TemporaryFile right(slots({"right"}));
    const Module leftModule = open(left.path());
    const Module rightModule = open(right.path());
    EXPECT_STREQ(systemProviderSlot(read(leftModule).get(), 0)->designation, "left");
    EXPECT_STREQ(systemProviderSlot(read(rightModule).get(), 0)->designation, "right");
    EXPECT_STREQ(systemProviderSlot(read(leftModule).get(), 0)->designation, "left");
}

TEST(Load, ADumpThatChangesAfterwardsMakesNoDifference)
{
    const TemporaryFile dump(slots({"one", "two"}));
    const Module module = open(dump.path());
    std::ofstream(dump.path(), std::ios::trunc) << "no table any more";
    const Inventory inventory = read(module);
    ASSERT_NE(inventory, nullptr) << systemProviderError();
    EXPECT_EQ(systemProviderSlotCount(inventory.get()), 2u);
}

TEST(Load, ThreadsReadAtOnce)
{
    const TemporaryFile dump(fullTable());
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&dump] {
            const Module module = open(dump.path());
            for (int round = 0; round < 5; ++round) {
                const Inventory inventory = read(module);
                ASSERT_NE(inventory, nullptr) << systemProviderError();
                EXPECT_GT(systemProviderSlotCount(inventory.get()), 0u);
            }
            EXPECT_EQ(systemProviderOpen("/nonexistent", nullptr), nullptr);
            EXPECT_STREQ(systemProviderError(), "cannot load /nonexistent: No such file or directory");
        });
    for (std::thread& thread : threads)
        thread.join();
}

// Every allocation of opening and reading fails, the first one alone and from it on; until none is left to fail.
TEST(LoadFailure, OfMemoryIsToldAndLeavesEverythingUseful)
{
    if (!GuardsMemory)
        GTEST_SKIP() << "the address sanitizer has an own allocation";
    // With a copy of the module its libraries are there before: a lack of memory ends the program while OpenPegasus's
    // are loaded.
    const TemporaryFile copy(moduleWith("getSlotDesignation", "getSlotDesignation"));
    void* const libraries = dlopen(copy.path().c_str(), RTLD_NOW);
    ASSERT_NE(libraries, nullptr) << dlerror();
    const TemporaryFile dump(slots({"a slot with a text that has to be allocated"}));
    for (const bool lasting : {false, true}) {
        unsigned failures = 0;
        for (std::size_t first = 1;; ++first) {
            failAllocation(first, lasting);
            const Module module = open(dump.path());
            const Inventory inventory = module ? read(module) : Inventory(nullptr, systemProviderFree);
            if (!failAllocation(0)) {
                ASSERT_NE(inventory, nullptr) << systemProviderError();
                break;
            }
            if (inventory)
                continue; // what failed has an answer without memory
            ++failures;
            ASSERT_STREQ(systemProviderError(), "not enough memory") << first;
        }
        EXPECT_GT(failures, 20u);
    }
    dlclose(libraries);
    EXPECT_NE(failureToOpen("/nonexistent").find("/nonexistent"), std::string::npos);
}

// The text of another failure may need more memory than there is, too; that of the one before is never told again.
TEST(LoadFailure, WhoseTextCannotBeKeptIsALackOfMemory)
{
    if (!GuardsMemory)
        GTEST_SKIP() << "the address sanitizer has an own allocation";
    const std::string dump = "/the-dump-that-is-not-there";
    unsigned lacking = 0;
    for (std::size_t first = 1; first < 40; ++first) {
        failureToOpen("/the-failure-before");
        failAllocation(first, true);
        const Module module = open(dump);
        failAllocation(0);
        ASSERT_EQ(module, nullptr);
        const std::string text = systemProviderError();
        lacking += text == "not enough memory";
        EXPECT_TRUE(text == "not enough memory" || text.find(dump) != std::string::npos) << first << ": " << text;
    }
    EXPECT_GT(lacking, 2u);
}

TEST(LoadFailure, OfADamagedTableHasTheReadersText)
{
    const TemporaryFile dump(std::vector<unsigned char>(64, 0x41));
    const Module module = open(dump.path());
    ASSERT_NE(module, nullptr) << systemProviderError();
    EXPECT_EQ(read(module), nullptr);
    EXPECT_EQ(systemProviderError(), dump.path() + ": no SMBIOS entry point: expected the bytes \"_SM3_\" "
                                                   "(5F 53 4D 33 5F), \"_SM_\" (5F 53 4D 5F) or \"_DMI_\" "
                                                   "(5F 44 4D 49 5F) of an intact entry point, found 41 41 41 41 41");
}

TEST(LoadFailure, OfAnUnreadableDumpNamesItAndTheReason)
{
    EXPECT_EQ(failureToOpen("/nonexistent"), "cannot open /nonexistent: No such file or directory");
    EXPECT_EQ(failureToOpen("/"), "/: it must be a regular file");
    EXPECT_EQ(failureToOpen("/dev/zero"), "/dev/zero: it must be a regular file");
}

TEST(LoadFailure, OfAFactoryIsCaughtThoughItLeavesInit)
{
    TableBuilder table;
    table.type(11).byte(0x04, 1).string("Odd -[X]-");
    const std::string text = failureOf(table.type(127));
    EXPECT_EQ(
        text.rfind("FILE: an OEM string has a bracketed part of one character, such as -[X]-, at which the module "
                   "fails (basic_string::substr",
                   0),
        0u)
        << text;
    EXPECT_NE(text.find("): update the firmware of the machine"), std::string::npos) << text;
}

TEST(LoadFailure, OfATableThatTheModuleWouldCountWithoutEnd)
{
    const std::string end = ", which the module would count without end: update the firmware of the machine";
    EXPECT_EQ(failureOf(TableBuilder().type(13).byte(0x04, 255).type(127)),
              "FILE: a structure of type 13 announces 255 languages" + end);
    EXPECT_EQ(failureOf(TableBuilder().type(1).byte(0x04, 255).type(127)),
              "FILE: a structure of type 1 announces 255 languages" + end);
    EXPECT_EQ(failureOf(TableBuilder().type(0).byte(0x04, 255).type(127)),
              "FILE: a structure of type 0 announces 255 languages" + end);
    EXPECT_EQ(failureOf(TableBuilder().type(12).byte(0x04, 1).type(12).byte(0x04, 255).type(127)),
              "FILE: a structure of type 12 announces 255 configuration options" + end);
    TableBuilder behind64KiB;
    behind64KiB.type(9).string(0x04, std::string(70000, 'x')).type(13).byte(0x04, 255);
    EXPECT_EQ(failureOf(behind64KiB.form64().type(127)), "FILE: a structure of type 13 announces 255 languages" + end);
}

TEST(LoadFailure, IsNotOfATableWhoseCountsOf255AreNotRead)
{
    TableBuilder table;
    table.type(13).byte(0x04, 254).type(13).byte(0x04, 255); // the first one is read
    table.type(1).byte(0x04, 255).type(0).byte(0x04, 255).type(12).byte(0x04, 254).type(127);
    const Inventory inventory = inventoryOf(table);
    EXPECT_EQ(systemProviderBios(inventory.get())->languages.count, 254u);
    EXPECT_EQ(systemProviderConfigurationOptions(inventory.get())->count, 254u);
}

TEST(LoadFailure, IsNotOfWhatStandsBehindTheTable)
{
    const std::vector<unsigned char> table = TableBuilder().type(9).string(0x04, "slot").structures();
    const std::vector<unsigned char> behind = TableBuilder().type(13).byte(0x04, 255).structures();
    std::vector<unsigned char> dump = entryPoint64(32, static_cast<std::uint32_t>(table.size()));
    dump.resize(32);
    dump.insert(dump.end(), table.begin(), table.end());
    dump.insert(dump.end(), behind.begin(), behind.end());
    const TemporaryFile file(dump);
    EXPECT_EQ(systemProviderSlotCount(read(open(file.path())).get()), 1u) << systemProviderError();
}

TEST(LoadFailure, LeavesTheModuleAsUsefulAsBefore)
{
    const TemporaryFile bad(TableBuilder().type(13).byte(0x04, 255).type(127));
    const TemporaryFile good(slots({"good"}));
    const Module badModule = open(bad.path());
    const Module goodModule = open(good.path());
    EXPECT_EQ(read(badModule), nullptr);
    EXPECT_EQ(systemProviderSlotCount(read(goodModule).get()), 1u);
}

TEST(LoadFailure, OfAModuleThatIsNotThereOrNoModule)
{
    EXPECT_EQ(failureToOpen("", "/nonexistent"), "cannot load /nonexistent: No such file or directory");
    const std::string text = failureToOpen("", "/etc/passwd");
    EXPECT_EQ(text, "cannot load /etc/passwd: invalid ELF header");
}

TEST(LoadFailure, OfAModuleOfTheOtherWidthSaysWhichIsNeeded)
{
    const bool wide = sizeof(void*) == 8;
    const char magic[] = {'\x7F', 'E', 'L', 'F', wide ? '\2' : '\1', '\0'};
    const char other[] = {'\x7F', 'E', 'L', 'F', wide ? '\1' : '\2', '\0'};
    const TemporaryFile module(moduleWith(magic, other));
    EXPECT_EQ(failureToOpen("", module.path()),
              "cannot load " + module.path() + ": wrong ELF class: " + (wide ? "ELFCLASS32" : "ELFCLASS64") +
                  "; this is a " + (wide ? "64" : "32") + "-bit program, which needs the module of the same width");
}

TEST(LoadFailure, OfAModuleWithoutItsLibrariesNamesThem)
{
    const std::string reason = ": cannot open shared object file: No such file or directory";
    const TemporaryFile module(moduleWith("libvqpegasus.so", "libvqnothere.so"));
    EXPECT_EQ(failureToOpen("", module.path()), "cannot load " + module.path() + ": libvqnothere.so" + reason);
    const TemporaryFile other(moduleWith("libvqpegasus.so", "libpegabsent.so"));
    EXPECT_EQ(failureToOpen("", other.path()),
              "cannot load " + other.path() + ": libpegabsent.so" + reason +
                  "; the module needs the libraries of OpenPegasus: tell the loader where they are (ldconfig)");
}

TEST(LoadFailure, OfAModuleThatLacksAFunctionNamesIt)
{
    const TemporaryFile module(moduleWith("getSlotDesignation", "getSlotDesignatiom"));
    EXPECT_EQ(failureToOpen("", module.path()),
              module.path() + " does not export getSlotDesignation: it is no module of this version");
    EXPECT_EQ(failureToOpen("", VQ_LIB_DIR "/libvqcommon.so"),
              VQ_LIB_DIR "/libvqcommon.so does not export init: it is no module of this version");
}

TEST(LoadFailure, OfAModuleWithoutTheReaderOfDumpsNamesThat)
{
    const TemporaryFile module(moduleWith("getSlotDesignation", "getSlotDesignation"));
    EXPECT_NE(failureToOpen(VQ_SOURCE_DIR "/samples/server.bin", module.path()).find("/from-dump/libvqsmbios.so"),
              std::string::npos)
        << systemProviderError();
}

TEST(LoadFailure, OfTheMachineWhileTheProcessReadsDumps)
{
    EXPECT_EQ(failureToOpen(""), std::string(ModuleFile) + " is loaded in this process already and reads a dump: close "
                                                           "it before the machine is opened");
}
