#include "tests/machine/Machine.h"
#include "tests/machine/Transcript.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

// The BMCs that these tests expect are those of `boot` and `bmc.py`.

using nlohmann::json;

namespace
{
const std::string Work = VQ_MACHINE_WORK;

// Every machine with BMCs: the first of them, under each width of the kernel.
class Bmc : public Machine, public testing::WithParamInterface<const char*>
{
};

// The machine in which everything was asked.
class AllBmcs : public Machine
{
};

class Xen : public Machine
{
};

// "NB BMC, QOR, 1.17" for each firmware beside the BIOS.
std::vector<std::string> firmware(const Transcript& machine, const std::string& answer)
{
    EXPECT_EQ(machine.answer(answer).status, 0) << answer;
    EXPECT_EQ(machine.answer(answer).errors, "") << answer;
    std::vector<std::string> found;
    const json inventory = machine.inventory(answer);
    for (const json& instance : inventory.at("QORTAL_BIOS")) {
        const json& properties = instance.at("properties");
        found.push_back(properties.at("Name").get<std::string>() + ", " +
                        properties.at("Manufacturer").get<std::string>() + ", " +
                        properties.at("Version").get<std::string>());
    }
    EXPECT_FALSE(found.empty()) << answer << ": the BIOS is always there";
    if (!found.empty())
        found.erase(found.begin());
    return found;
}

using Firmware = std::vector<std::string>;

// What the library answered, without the time: "answer 0: 20 01 ...".
std::string answered(const Transcript& machine, const std::string& name)
{
    const std::string& output = machine.answer(name).output;
    const std::size_t comma = output.find(',');
    const std::size_t colon = output.find(':');
    if (comma == std::string::npos || colon == std::string::npos || output.back() != '\n')
        return "no answer: " + output + machine.answer(name).errors;
    return output.substr(0, comma) + output.substr(colon, output.size() - colon - 1);
}

// And the time, in milliseconds.
int time(const Transcript& machine, const std::string& name)
{
    const std::string& output = machine.answer(name).output;
    return std::stoi(output.substr(output.find(", ") + 2));
}

const std::string Nothing = "answer 1:";
const std::string NoBmc = "answer -1:";
const std::string OwnBmc =
    "answer 0: 20 81 02 bf 02 00 00 00 43 00 01 11 de ad be ef 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
const std::string OwnBmcInSysfs =
    "answer 0: 00 00 00 00 02 00 00 00 43 00 01 11 00 00 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";

// An emulated machine on a busy host may be kept from running for a while, after the library's own two seconds.
constexpr int Limit = 2000;
constexpr int Delays = 1500;

int count(const std::string& text, const std::string& part)
{
    int found = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

#ifdef VQ_MACHINE_HAS_XEN
std::string domainOf(const Transcript& machine, const std::string& answer)
{
    const json inventory = machine.inventory(answer);
    const json properties = inventory.at("QORTAL_ComputerSystem").at(0).at("properties");
    return std::to_string(properties.at("VirtualType").get<int>()) + " " +
           properties.at("VirtualizationMethodName").get<std::string>();
}
#endif
}

INSTANTIATE_TEST_SUITE_P(Kernels, Bmc, testing::Values(VQ_BMC_MACHINES),
                         [](const auto& machine) { return std::string(machine.param); });

TEST_P(Bmc, IsInTheInventoryByTheDeviceAndBySysfs)
{
    const Transcript machine(Work, GetParam());
    EXPECT_NE(machine.answer("known.sysfs.nodes").status, 0) << "there is a device";
    EXPECT_EQ(firmware(machine, "known.sysfs"), Firmware{"NB BMC, QOR, 1.17"});
    EXPECT_EQ(machine.answer("known.device.nodes").status, 0) << "there is no device";
    EXPECT_EQ(firmware(machine, "known.device"), Firmware{"NB BMC, QOR, 1.17"});
}

TEST_P(Bmc, IsNotThereWithoutTheLibraryTheDriverOrTheBmc)
{
    const Transcript machine(Work, GetParam());
    EXPECT_EQ(firmware(machine, "without.library"), Firmware{});
    EXPECT_EQ(answered(machine, "none.driver"), NoBmc);
    EXPECT_EQ(firmware(machine, "none.bmc"), Firmware{});
}

// The device tells all of the identity, sysfs a part of it.
TEST_P(Bmc, FillsTheIdentity)
{
    const Transcript machine(Work, GetParam());
    EXPECT_EQ(
        answered(machine, "known.device.ask"),
        "answer 0: 20 00 02 07 02 00 00 00 43 00 01 11 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(answered(machine, "known.sysfs.ask"), OwnBmcInSysfs);
}

TEST_F(AllBmcs, AreNamedAsTheyTell)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    const std::pair<const char*, const char*> expected[] = {{"intel", "BMC(0x0003), Intel, 2.5"},
                                                            {"binary", "BMC(0x0020), 0x0028A0, 3.26"},
                                                            {"largest", "BMC(0xFFFF), 0x0FFFFF, 127.99"}};
    for (const auto& [name, text] : expected) {
        EXPECT_EQ(firmware(machine, std::string(name) + ".device"), Firmware{text});
        EXPECT_EQ(firmware(machine, std::string(name) + ".sysfs"), Firmware{text});
    }
}

TEST_F(AllBmcs, SimulatorOfOthersIsUnderstood)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    EXPECT_EQ(firmware(machine, "sim.device"), Firmware{"BMC(0xBEEF), 0x0028A0, 4.42"});
    EXPECT_EQ(firmware(machine, "sim.sysfs"), Firmware{"BMC(0xBEEF), 0x0028A0, 4.42"});
    EXPECT_EQ(
        answered(machine, "sim.device.ask"),
        "answer 0: 21 01 02 bf a0 28 00 00 ef be 04 2a 00 00 00 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(AllBmcs, InstallingChangesTheNextAnswerAndRemovingChangesItBack)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    EXPECT_EQ(firmware(machine, "installed"), Firmware{"NB BMC, QOR, 1.17"});
    EXPECT_EQ(firmware(machine, "removed"), Firmware{});
    EXPECT_EQ(firmware(machine, "installed.again"), Firmware{"NB BMC, QOR, 1.17"});
}

// The device is for root, what the driver tells in sysfs for everybody.
TEST_F(AllBmcs, AreShownToOtherUsersBySysfs)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    const Firmware found = firmware(machine, "nobody");
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.back(), "NB BMC, QOR, 1.17");
}

TEST_F(AllBmcs, NodesThatAreNoneOrRefuseLeaveSysfs)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    EXPECT_EQ(answered(machine, "directory"), OwnBmcInSysfs);
    EXPECT_EQ(answered(machine, "refusing"), OwnBmcInSysfs);
    EXPECT_EQ(answered(machine, "another.device"), Nothing);
}

TEST_F(AllBmcs, MisbehaviourIsNoRecordOrTheRightOne)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    for (const char* name : {"own.normal", "own.long", "own.otherNumber", "own.busy-7", "own.late-700", "own.again"})
        EXPECT_EQ(answered(machine, name), OwnBmc) << name;
    for (const char* name : {"own.short", "own.error-0xc1", "own.error-0xff", "own.otherCommand", "own.busy-1000",
                             "own.late-2600", "own.silent"})
        EXPECT_EQ(answered(machine, name), Nothing) << name;
    EXPECT_EQ(firmware(machine, "own.firmware"), Firmware{"NB BMC, QOR, 1.17"});
}

TEST_F(AllBmcs, MisbehaviourCostsNoMoreThanItsTime)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    for (const char* name :
         {"own.busy-1000", "own.late-2600", "own.silent", "own.dead.sysfs", "own.dead.sysfs.again"}) {
        EXPECT_GE(time(machine, name), Limit) << name;
        EXPECT_LT(time(machine, name), Limit + Delays) << name;
    }
    for (const char* name : {"own.short", "own.error-0xc1", "own.error-0xff", "own.otherCommand", "another.device"})
        EXPECT_LT(time(machine, name), Delays) << name;
}

// The driver itself waits for it, and only its reader that was left behind with it.
TEST_F(AllBmcs, DeadOneIsGivenUpInSysfsTooAndRevives)
{
    const Transcript machine(Work, VQ_BMC_MACHINE);
    EXPECT_EQ(answered(machine, "own.dead.sysfs"), Nothing);
    EXPECT_EQ(answered(machine, "own.dead.sysfs.again"), Nothing);
    EXPECT_EQ(count(machine.answer("own.dead.processes").output, "ask_companion"), 1);
    EXPECT_EQ(answered(machine, "own.revived.sysfs"), OwnBmcInSysfs);
    EXPECT_EQ(count(machine.answer("own.revived.processes").output, "ask_companion"), 0);
    EXPECT_EQ(answered(machine, "own.removed"), NoBmc);
}

#ifdef VQ_MACHINE_HAS_XEN
// What the kernel tells there, which the other tests of the probe take for granted.
TEST_F(Xen, ControlDomainIsOne)
{
    const Transcript machine(Work, "xen");
    EXPECT_EQ(machine.answer("type").output, "xen\n");
    EXPECT_EQ(machine.answer("capabilities").output, "control_d\n");
    EXPECT_NE(machine.answer("capabilities.absent").status, 0);
    EXPECT_EQ(machine.answer("probe.without.xenfs").output, "guest 0, control 1\n");
    EXPECT_EQ(machine.answer("probe").output, "guest 0, control 1\n");
}

TEST_F(Xen, ControlDomainIsReportedAsNotVirtualized)
{
    const Transcript machine(Work, "xen");
    EXPECT_EQ(domainOf(machine, "without.library"), "1 ");
    EXPECT_EQ(domainOf(machine, "system"), "1 ");
    EXPECT_EQ(domainOf(machine, "removed"), "1 ");
}
#endif
