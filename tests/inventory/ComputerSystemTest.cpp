#include "inventory/ComputerSystem.h"

#include "support/common/DynamicLibrary.h"
#include "support/common/Export.h"
#include "support/smbios/SmBios.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/FakeLibc.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <deque>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace VQ;

namespace
{
std::deque<int> answers;            // of the probe, in the order in which it is asked
std::vector<std::string> questions; // that it was asked
std::vector<std::wstring> lookedUp; // in libraries, for the program's own objects
}

// By the linker's --wrap: the look-up of a function in an optional library, seen from the objects under test.
void* watchedLookUp(const DynamicLibrary*, const std::wstring& name) __asm__("__wrap_" VQ_GET_SYMBOL);
void* lookUp(const DynamicLibrary*, const std::wstring& name) __asm__("__real_" VQ_GET_SYMBOL);

void* watchedLookUp(const DynamicLibrary* library, const std::wstring& name)
{
    lookedUp.push_back(name);
    return lookUp(library, name);
}

// What the probe library of the tests asks for its answers.
extern "C" VQ_EXPORT int vqProbeAnswer(const char* function)
{
    questions.emplace_back(function);
    if (answers.empty())
        return 0;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
}

namespace
{
using Questions = std::vector<std::string>;

// The process stands where "../lib/libqorxenprobe.so" is a library of this kind.
class Probe : public testing::Test
{
protected:
    Probe() : _before(std::filesystem::current_path())
    {
        answers.clear();
        questions.clear();
        lookedUp.clear();
    }
    ~Probe() override { std::filesystem::current_path(_before); }

    static void stand(const std::string& kind) { std::filesystem::current_path(VQ_PROBES "/" + kind + "/run"); }

    // "3 Xen" of a record made now, with these answers of the probe.
    static std::string verdict(std::deque<int> given)
    {
        answers = std::move(given);
        questions.clear();
        const ComputerSystem system;
        return std::to_string(system.getVirtualType()) + " " + system.getVirtualMethod();
    }

    static bool isLoaded()
    {
        void* handle = dlopen("../lib/libqorxenprobe.so", RTLD_LAZY | RTLD_NOLOAD);
        if (handle)
            dlclose(handle);
        return handle != nullptr;
    }

private:
    std::filesystem::path _before;
};

void expectProduct(const TableBuilder& table, const char* model, const char* description)
{
    const ServedTable served(table);
    const ComputerSystem system;
    EXPECT_EQ(system.getModel(), model);
    EXPECT_EQ(system.getDescription(), description);
}

TableBuilder named(const std::string& productName)
{
    TableBuilder table;
    table.type(1).string(0x05, productName).type(127);
    return table;
}

// A table of `count` structures, all of type 126 but for a type 1 at `position`.
TableBuilder withSystemAt(std::size_t position, std::size_t count)
{
    TableBuilder table;
    for (std::size_t i = 0; i < count; ++i) {
        if (i == position)
            table.type(1).string(0x05, "Server -[1234]-");
        else
            table.type(126);
    }
    return table;
}
}

TEST_F(Probe, WithoutALibraryTheSystemIsNotVirtualized)
{
    stand("absent");
    EXPECT_EQ(verdict({1, 1}), "1 ");
    EXPECT_EQ(questions, Questions{});
}

TEST_F(Probe, FileThatIsNoLibraryIsNone)
{
    stand("no-library");
    EXPECT_EQ(verdict({1, 1}), "1 ");
    EXPECT_EQ(questions, Questions{});
}

TEST_F(Probe, GuestIsType3UnderXenAndIsAskedOnce)
{
    stand("answering");
    EXPECT_EQ(verdict({1}), "3 Xen");
    EXPECT_EQ(questions, Questions{"domU"});
}

TEST_F(Probe, AnyAnswerButZeroIsAGuest)
{
    stand("answering");
    EXPECT_EQ(verdict({-1}), "3 Xen");
    EXPECT_EQ(verdict({256}), "3 Xen");
    EXPECT_EQ(verdict({-2147483647 - 1}), "3 Xen");
}

TEST_F(Probe, GuestThatSaysSoOnlyWhenAskedAgainIsType2)
{
    stand("answering");
    EXPECT_EQ(verdict({0, 1}), "2 Xen");
    EXPECT_EQ(questions, (Questions{"domU", "domU"}));
}

TEST_F(Probe, ControlDomainIsNotAskedSoItsAnswerIsNeverGiven)
{
    stand("answering");
    EXPECT_EQ(verdict({0, 0, 1, 1}), "1 ");
    EXPECT_EQ(questions, (Questions{"domU", "domU"}));
}

TEST_F(Probe, FunctionOfTheControlDomainIsLookedUpAfterThatOfTheGuest)
{
    stand("answering");
    EXPECT_EQ(verdict({1}), "3 Xen");
    EXPECT_EQ(lookedUp, (std::vector<std::wstring>{L"running_in_xen_domU", L"running_in_xen_dom0"}));
}

TEST_F(Probe, FunctionOfTheControlDomainMayBeAbsent)
{
    stand("guest-only");
    EXPECT_EQ(verdict({1}), "3 Xen");
    EXPECT_EQ(verdict({0, 1}), "2 Xen");
    EXPECT_EQ(verdict({0, 0}), "1 ");
}

TEST_F(Probe, LibraryWithoutTheGuestFunctionEndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    stand("without-guest");
    EXPECT_DEATH(ComputerSystem(), "");
}

TEST_F(Probe, LibraryIsReleasedAfterwards)
{
    stand("answering");
    for (const int answer : {1, 0}) {
        verdict({answer});
        EXPECT_FALSE(isLoaded());
    }
}

TEST_F(Probe, EachRecordAsksAnew)
{
    stand("answering");
    EXPECT_EQ(verdict({1}), "3 Xen");
    EXPECT_EQ(verdict({0, 0}), "1 ");
    EXPECT_EQ(verdict({0, 1}), "2 Xen");
}

TEST_F(Probe, RecordKeepsItsAnswerAndCopiesDoNotAsk)
{
    stand("answering");
    answers = {1};
    const ComputerSystem system = GetComputerSystemInstance();
    const ComputerSystem copy(system); // NOLINT(performance-unnecessary-copy-initialization): what this test is about
    EXPECT_EQ(copy.getVirtualType(), 3u);
    EXPECT_EQ(copy.getVirtualMethod(), "Xen");
    EXPECT_EQ(system.getVirtualType(), 3u);
    EXPECT_EQ(questions, Questions{"domU"});
}

TEST_F(Probe, LibraryIsTakenRelativeToTheWorkingDirectory)
{
    stand("absent");
    EXPECT_EQ(verdict({1}), "1 ");
    stand("answering");
    EXPECT_EQ(verdict({1}), "3 Xen");
}

TEST(ComputerSystem, ModelIsTheBlockOfTheProductNameAndDescriptionTheRest)
{
    expectProduct(named("Server 100 -[8837ABC]-"), "8837ABC", "Server 100 ");
    expectProduct(named("-[8837ABC]-"), "8837ABC", "");
}

TEST(ComputerSystem, WithoutABlockTheModelIsEmpty)
{
    expectProduct(named("PowerServer 2850"), "", "PowerServer 2850");
    expectProduct(named("Server -[8837ABC"), "", "Server -[8837ABC");
}

TEST(ComputerSystem, ProductNameIsNotTrimmed)
{
    expectProduct(named("  Server  "), "", "  Server  ");
}

TEST(ComputerSystem, WithoutASystemStructureModelAndDescriptionAreEmpty)
{
    expectProduct(TableBuilder().type(0).string(0x05, "B1").type(127), "", "");
    expectProduct(TableBuilder(), "", "");
}

TEST(ComputerSystem, WithoutSmbiosModelAndDescriptionAreEmpty)
{
    const ComputerSystem system;
    EXPECT_EQ(system.getModel(), "");
    EXPECT_EQ(system.getDescription(), "");
}

TEST(ComputerSystem, WithoutAProductNameModelAndDescriptionAreEmpty)
{
    expectProduct(TableBuilder().type(1).string(0x04, "Maker").byte(0x05, 0).type(127), "", "");
    expectProduct(TableBuilder().type(1).string(0x04, "Maker").byte(0x05, 9).type(127), "", "");
    expectProduct(TableBuilder().type(1).string("Not numbered").length(0x05).type(127), "", "");
}

TEST(ComputerSystem, FirstSystemStructureCounts)
{
    TableBuilder table;
    table.type(1).string(0x05, "First -[1]-").type(1).string(0x05, "Second -[2]-").type(127);
    expectProduct(table, "1", "First ");
}

TEST(ComputerSystem, FirstSystemStructureCountsEvenWithoutAProductName)
{
    TableBuilder table;
    table.type(1).byte(0x05, 0).type(1).string(0x05, "Second -[2]-").type(127);
    expectProduct(table, "", "");
}

TEST(ComputerSystem, LastOf255StructuresIsFound)
{
    expectProduct(withSystemAt(254, 255), "1234", "Server ");
}

TEST(ComputerSystem, NoneOf256StructuresIsFound)
{
    expectProduct(withSystemAt(0, 256), "", "");
}

TEST(ComputerSystem, OnlyTheFirstOf257StructuresIsFound)
{
    expectProduct(withSystemAt(0, 257), "1234", "Server ");
    expectProduct(withSystemAt(1, 257), "", "");
}

TEST(ComputerSystem, NameFollowsTheHostName)
{
    const ComputerSystem system;
    fakeLibc().setHostName("before.example");
    EXPECT_EQ(system.getName(), "before.example");
    fakeLibc().setHostName("after");
    EXPECT_EQ(system.getName(), "after");
    fakeLibc().setHostName("h\xC3\xB6st");
    EXPECT_EQ(system.getName(), "h\xC3\xB6st");
    fakeLibc().setHostName("test-host");
}

TEST(ComputerSystem, OwnerIsUnknown)
{
    const ComputerSystem system;
    EXPECT_EQ(system.getOwnerName(), "");
    EXPECT_EQ(system.getOwnerContact(), "");
}

TEST(ComputerSystem, UnreadableTableIsAnErrorOfModelAndDescriptionOnly)
{
    const ServedTable missing(std::string("/no/such/dump.bin"));
    const ComputerSystem system;
    EXPECT_EQ(system.getName(), "test-host");
    EXPECT_THROW(system.getModel(), SmBiosError);
    EXPECT_THROW(system.getDescription(), SmBiosError);
}

TEST_F(Probe, InstanceHasTenPropertiesInTheirOrder)
{
    stand("answering");
    answers = {1};
    const ServedTable served(named("Server 100 -[8837ABC]-"));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_ComputerSystem");
    ASSERT_EQ(instances.size(), 1u);
    const std::vector<std::string> expected = {
        "Caption | string | Computer System",
        "Description | string | Server 100 ",
        "Name | string | test-host",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_ComputerSystem",
        "PrimaryOwnerContact | string | ",
        "PrimaryOwnerName | string | ",
        "Model | string | 8837ABC",
        "VirtualType | uint16 | 3",
        "VirtualizationMethodName | string | Xen",
    };
    EXPECT_EQ(propertyLines(instances[0]), expected);
}

TEST_F(Probe, InstanceOfAMachineWithoutSmbiosAndProbeHasTheSameProperties)
{
    stand("absent");
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_ComputerSystem");
    ASSERT_EQ(instances.size(), 1u);
    const std::vector<std::string> expected = {
        "Caption | string | Computer System",
        "Description | string | ",
        "Name | string | test-host",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_ComputerSystem",
        "PrimaryOwnerContact | string | ",
        "PrimaryOwnerName | string | ",
        "Model | string | ",
        "VirtualType | uint16 | 1",
        "VirtualizationMethodName | string | ",
    };
    EXPECT_EQ(propertyLines(instances[0]), expected);
}

TEST_F(Probe, EachInstanceAsksTheProbeAnew)
{
    stand("answering");
    answers = {0, 1, 0, 0};
    EXPECT_EQ(valueOf(instancesOf("QORTAL_ComputerSystem").at(0), "VirtualType"), "2");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_ComputerSystem").at(0), "VirtualType"), "1");
}

namespace
{
// Writes down how often the probe has been asked by each delivery, and renames the host after it.
struct RenamingHandler : RecordingInstanceHandler
{
    using RecordingInstanceHandler::deliver;
    void deliver(const Pegasus::CIMInstance& instance) override
    {
        RecordingInstanceHandler::deliver(instance);
        asked.push_back(questions.size());
        fakeLibc().setHostName(fakeLibc().names.nodename + std::string("x"));
    }
    std::vector<std::size_t> asked;
};
}

TEST_F(Probe, IsAskedForEveryCacheBeforeItsDelivery)
{
    stand("answering");
    const ServedTable served(TableBuilder().type(7).type(7).type(7).type(127));
    RenamingHandler handler;
    TestProvider().enumerate(pathOf("QORTAL_CacheMemory"), handler);
    EXPECT_EQ(handler.asked, (std::vector<std::size_t>{2, 4, 6})); // twice by each record, as no guest says so
    ASSERT_EQ(handler.instances.size(), 3u);
    EXPECT_EQ(valueOf(handler.instances[0], "SystemName"), "test-host");
    EXPECT_EQ(valueOf(handler.instances[1], "SystemName"), "test-hostx");
    EXPECT_EQ(valueOf(handler.instances[2], "SystemName"), "test-hostxx");
    fakeLibc().setHostName("test-host");
}

TEST_F(Probe, IsAskedForTheHostNameOfTheOperatingSystemAndNotForThatOfTheMemory)
{
    stand("answering");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_OperatingSystem").at(0), "CSName"), "test-host");
    EXPECT_EQ(questions.size(), 2u);
    questions.clear();
    EXPECT_EQ(valueOf(instancesOf("QORx_SystemMemory").at(0), "SystemName"), "test-host");
    EXPECT_EQ(questions.size(), 0u);
}

TEST(ComputerSystem, InstanceIsNamedAfterTheHostAtTheTimeOfTheRequest)
{
    fakeLibc().setHostName("before");
    EXPECT_EQ(
        keyLines(instancesOf("QORTAL_ComputerSystem").at(0).getPath()),
        (std::vector<std::string>{"CreationClassName | STRING | QORTAL_ComputerSystem", "Name | STRING | before"}));
    fakeLibc().setHostName("after");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_ComputerSystem").at(0), "Name"), "after");
    fakeLibc().setHostName("test-host");
}

TEST(ComputerSystem, OddBytesOfAProductNameAreLatin1)
{
    const ServedTable served(named("Caf\xE9 -[\xFC]-"));
    const Pegasus::CIMInstance instance = instancesOf("QORTAL_ComputerSystem").at(0);
    EXPECT_EQ(valueOf(instance, "Description"), "Caf\xC3\xA9 ");
    EXPECT_EQ(valueOf(instance, "Model"), "\xC3\xBC");
}
