// What `init` takes, in which order, and what it leaves when it is called again or interrupted.

#include "flat/Snapshot.h"
#include "support/smbios/SmBios.h"
#include "tests/flat/Calls.h"
#include "tests/testing/ServedTable.h"

#include <stdexcept>
#include <unistd.h>

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

Texts asked;         // the factories, in the order in which they were called
std::string failing; // the one that fails

void ask(const char* factory)
{
    asked.emplace_back(factory);
    if (failing == factory)
        throw std::runtime_error(failing + " fails");
}

// By the linker's --wrap: each factory of a record, seen from the objects under test.
#define WATCHED(Record, factory, linkerName)                                                                           \
    Record watched##factory() __asm__("__wrap_" linkerName);                                                           \
    Record real##factory() __asm__("__real_" linkerName);                                                              \
    Record watched##factory()                                                                                          \
    {                                                                                                                  \
        ask(#factory);                                                                                                 \
        return real##factory();                                                                                        \
    }
}

WATCHED(VQ::ComputerSystem, GetComputerSystemInstance, "_ZN2VQ25GetComputerSystemInstanceEv")
WATCHED(std::vector<VQ::BaseBoard>, GetBaseBoardInstances, "_ZN2VQ21GetBaseBoardInstancesEv")
WATCHED(VQ::Bios, GetBiosInstance, "_ZN2VQ15GetBiosInstanceEv")
WATCHED(std::vector<VQ::Cache>, GetCacheInstances, "_ZN2VQ17GetCacheInstancesEv")
WATCHED(VQ::Chassis, GetChassisInstance, "_ZN2VQ18GetChassisInstanceEv")
WATCHED(std::vector<VQ::Firmware>, GetFirmwareInstances, "_ZN2VQ20GetFirmwareInstancesEv")
WATCHED(VQ::OperatingSystem, GetOperatingSystemInstance, "_ZN2VQ26GetOperatingSystemInstanceEv")
WATCHED(std::vector<VQ::Port>, GetPortInstances, "_ZN2VQ16GetPortInstancesEv")
WATCHED(std::vector<VQ::Slot>, GetSlotInstances, "_ZN2VQ16GetSlotInstancesEv")

namespace
{
const Texts Factories = {"GetComputerSystemInstance",  "GetBaseBoardInstances", "GetBiosInstance",
                         "GetCacheInstances",          "GetChassisInstance",    "GetFirmwareInstances",
                         "GetOperatingSystemInstance", "GetPortInstances",      "GetSlotInstances"};

// What each of the nine objects shows, in the order of the factories. The operating system has no state.
Texts stateByObject()
{
    return {std::to_string(cs.getVirtualType()),
            textOf(getBBManufacturer, 0),
            textOf(getBiosVersion),
            textOf(getCacheDesignation, 0),
            textOf(getChassisManufacturer),
            textOf(getFirmwareName, 0),
            "",
            textOf(getPortExternalReferenceDesignator, 0),
            textOf(getSlotDesignation, 0)};
}

class Snapshot : public testing::Test
{
protected:
    Snapshot() : table(machine("old ", 1, "Old -[XXYT01-1.02]-"))
    {
        failing.clear();
        EXPECT_EQ(init(), 1);
        EXPECT_EQ(state(), StateOfOld);
        asked.clear();
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

TEST_F(Snapshot, IsTakenInTheOrderOfItsObjects)
{
    EXPECT_EQ(init(), 1);
    EXPECT_EQ(asked, Factories);
}

TEST_F(Snapshot, IsNewBeforeTheFactoryThatFailsAndOldFromItOn)
{
    const Texts before = stateByObject();
    for (std::size_t i = 0; i < Factories.size(); ++i) {
        SCOPED_TRACE(Factories[i]);
        table.replace(machine("old ", 1, "Old -[XXYT01-1.02]-"));
        failing.clear();
        EXPECT_EQ(init(), 1);
        ASSERT_EQ(stateByObject(), before);

        const GuestDirectory guest;
        table.replace(machine("new ", 1, "New -[XXYT01-1.02]-"));
        failing = Factories[i];
        EXPECT_THROW(init(), std::runtime_error);
        const Texts after = stateByObject();
        for (std::size_t object = 0; object < Factories.size(); ++object) {
            const bool stateless = before[object].empty();
            EXPECT_EQ(after[object] != before[object], object < i && !stateless) << Factories[object];
        }
    }
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
