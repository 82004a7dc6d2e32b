// A real CIM server, asked through two clients' programs. What it answers is what vqinventory shows for the same table.

#include "tests/server/Clients.h"
#include "tests/server/ServerProcesses.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <thread>

namespace
{
const char* const ModuleFile = "libSystemProvider.so";

time_t secondsOf(const std::string& datetime)
{
    struct tm fields = {};
    if (datetime.size() != 25 || strptime(datetime.substr(0, 14).c_str(), "%Y%m%d%H%M%S", &fields) == nullptr)
        throw std::runtime_error("not a datetime: " + datetime);
    return timegm(&fields) - std::stol(datetime.substr(21)) * 60;
}

// What moves from one moment to the next is checked for being near, and then left out of the comparison.
void takeOutMoving(Instance& got, Instance& expected)
{
    for (std::size_t i = 0; i < std::min(got.properties.size(), expected.properties.size()); ++i) {
        Property& property = got.properties[i];
        if (property.name != expected.properties[i].name)
            return;
        const std::string& value = expected.properties[i].values.at(0);
        if (property.name == "LocalDateTime" || property.name == "LastBootUpTime")
            EXPECT_NEAR(secondsOf(property.values.at(0)), secondsOf(value), 60) << property.name;
        else if (property.name == "FreePhysicalMemory" || property.name == "NumberOfProcesses")
            EXPECT_GT(std::stoull(property.values.at(0)), 0u) << property.name;
        else
            continue;
        property.values = expected.properties[i].values = {"moves"};
    }
}

void expectAlike(std::vector<Instance> got, std::vector<Instance> expected)
{
    ASSERT_FALSE(expected.empty());
    for (std::size_t i = 0; i < std::min(got.size(), expected.size()); ++i)
        takeOutMoving(got[i], expected[i]);
    EXPECT_EQ(shown(got), shown(expected));
}

// Instances with one key text are one to a client: it gets the first.
std::map<std::string, Instance> firstByPath(const std::vector<Instance>& instances)
{
    std::map<std::string, Instance> first;
    for (const Instance& instance : instances)
        first.emplace(instance.path, instance);
    return first;
}

std::vector<std::string> recordedCalls()
{
    std::vector<std::string> calls;
    std::ifstream file(setting("VQ_TEST_CALLS"));
    for (std::string line; std::getline(file, line);)
        calls.push_back(line);
    return calls;
}

void forgetCalls()
{
    std::ofstream(setting("VQ_TEST_CALLS")).close();
}

const std::string ChassisPath = R"(QORTAL_Chassis.CreationClassName="QORTAL_Chassis",Tag="Chassis0")";

std::string operatingSystemPath()
{
    return expectedPaths("QORTAL_OperatingSystem").at(0);
}

// No method may be invoked before this holds: the server's process for the module has the tests' own power actions in
// front of libc's.
void needReplacedPowerActions()
{
    CimCli::paths("QORTAL_OperatingSystem"); // the module is loaded now
    const std::vector<int> processes = processesWith(ModuleFile);
    ASSERT_EQ(processes.size(), 1u);
    ASSERT_TRUE(maps(processes[0], "libvqstandins.so"));
    std::ifstream file("/proc/" + std::to_string(processes[0]) + "/environ");
    std::string environment((std::istreambuf_iterator<char>(file)), {});
    ASSERT_NE(environment.find("VQ_TEST_CALLS="), std::string::npos);
}
}

class CimCliClass : public testing::TestWithParam<std::string>
{
};
INSTANTIATE_TEST_SUITE_P(Served, CimCliClass, testing::ValuesIn(ServedClasses),
                         [](const auto& tested) { return tested.param; });

TEST_P(CimCliClass, HasTheInstancesThatVqinventoryShows)
{
    expectAlike(CimCli::instances(GetParam()), expectedInstances(GetParam()));
}

TEST_P(CimCliClass, HasTheNamesThatVqinventoryShows)
{
    EXPECT_EQ(CimCli::paths(GetParam()), expectedPaths(GetParam()));
}

TEST_P(CimCliClass, GetsEveryInstanceByItsPath)
{
    const std::map<std::string, Instance> expected = firstByPath(expectedInstances(GetParam()));
    ASSERT_FALSE(expected.empty());
    for (const auto& [path, instance] : expected)
        expectAlike(CimCli::get(path), {instance});
}

TEST(CimCli, AnswersToAClassInOtherLetters)
{
    std::vector<Instance> expected = expectedInstances("QORTAL_Chassis");
    expected.at(0).path.replace(0, 14, "qortal_CHASSIS");
    EXPECT_EQ(shown(CimCli::instances("qortal_CHASSIS")), shown(expected));
    EXPECT_EQ(shown(CimCli::get(expected[0].path)), shown(expected));
}

TEST(CimCli, IsToldThatAClassIsUnknown)
{
    const Outcome answer = CimCli::ask({"ei", "QORTAL_Nothing"});
    EXPECT_EQ(answer.exitCode, 5);
    EXPECT_NE(answer.output.find("CIM_ERR_INVALID_CLASS: QORTAL_Nothing"), std::string::npos) << answer.output;
}

TEST(CimCli, GetsAnErrorForAnInstanceThatIsNotThere)
{
    const Outcome answer = CimCli::ask({"gi", R"(QORTAL_Chassis.CreationClassName="QORTAL_Chassis",Tag="Chassis7")"});
    EXPECT_EQ(answer.exitCode, 1);
    EXPECT_NE(answer.output.find("CIM_ERR_FAILED"), std::string::npos) << answer.output;
}

TEST(CimCli, IsRefusedToCreateModifyAndDelete)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> refused = {
        {{"ci", "QORTAL_Chassis", "CreationClassName=QORTAL_Chassis", "Tag=Chassis1"}, "createInstance"},
        {{"mi", ChassisPath, "SerialNumber=1"}, "modifyInstance"},
        {{"di", ChassisPath}, "deleteInstance"}};
    for (const auto& [command, operation] : refused) {
        const Outcome answer = CimCli::ask(command);
        EXPECT_EQ(answer.exitCode, 7) << operation;
        EXPECT_NE(answer.output.find("CIM_ERR_NOT_SUPPORTED: SystemProvider::" + operation), std::string::npos)
            << answer.output;
    }
}

TEST(CimCli, RebootGoesToTheKernelAndReportsItsRefusal)
{
    ASSERT_NO_FATAL_FAILURE(needReplacedPowerActions());
    forgetCalls();
    const Outcome answer = CimCli::ask({"im", operatingSystemPath(), "Reboot"});
    EXPECT_EQ(answer.output, "Return Value= 4294967295\n");
    EXPECT_EQ(recordedCalls(), (std::vector<std::string>{"reboot 0x01234567"}));
}

TEST(CimCli, ShutdownRunsTheSystemsProgramAndReturns1)
{
    ASSERT_NO_FATAL_FAILURE(needReplacedPowerActions());
    forgetCalls();
    const Outcome answer = CimCli::ask({"im", operatingSystemPath(), "Shutdown"});
    EXPECT_EQ(answer.output, "Return Value= 1\n");
    EXPECT_EQ(recordedCalls(), (std::vector<std::string>{"popen /sbin/shutdown -h now r", "pclose"}));
}

class WbemCliClass : public testing::TestWithParam<std::string>
{
};
INSTANTIATE_TEST_SUITE_P(Served, WbemCliClass, testing::ValuesIn(ServedClasses),
                         [](const auto& tested) { return tested.param; });

TEST_P(WbemCliClass, HasTheInstancesThatVqinventoryShows)
{
    expectAlike(WbemCli::instances(GetParam()), expectedInstances(GetParam()));
}

TEST_P(WbemCliClass, HasTheNamesThatVqinventoryShows)
{
    EXPECT_EQ(WbemCli::paths(GetParam()), expectedPaths(GetParam()));
}

TEST_P(WbemCliClass, GetsEveryInstanceByItsPath)
{
    const std::map<std::string, Instance> expected = firstByPath(expectedInstances(GetParam()));
    ASSERT_FALSE(expected.empty());
    for (const auto& [path, instance] : expected)
        expectAlike(WbemCli::get(path), {instance});
}

TEST(WbemCli, AnswersToAClassInOtherLetters)
{
    std::vector<Instance> expected = expectedInstances("QORTAL_Chassis");
    expected.at(0).path.replace(0, 14, "qortal_CHASSIS");
    EXPECT_EQ(shown(WbemCli::instances("qortal_CHASSIS")), shown(expected));
}

TEST(WbemCli, IsToldThatAClassIsUnknown)
{
    const Outcome answer = WbemCli::ask("ei", "QORTAL_Nothing");
    EXPECT_NE(answer.exitCode, 0);
    EXPECT_NE(answer.output.find("Cim: (5) CIM_ERR_INVALID_CLASS: QORTAL_Nothing"), std::string::npos) << answer.output;
}

TEST(WbemCli, IsRefusedToCreateModifyAndDelete)
{
    const std::vector<std::pair<Outcome, std::string>> refused = {
        {WbemCli::ask("ci", ChassisPath, {"SerialNumber=1"}), "createInstance"},
        {WbemCli::ask("mi", ChassisPath, {"SerialNumber=1"}), "modifyInstance"},
        {WbemCli::ask("di", ChassisPath), "deleteInstance"}};
    for (const auto& [answer, operation] : refused) {
        EXPECT_NE(answer.exitCode, 0) << operation;
        EXPECT_NE(answer.output.find("Cim: (7) CIM_ERR_NOT_SUPPORTED: SystemProvider::" + operation), std::string::npos)
            << answer.output;
    }
}

TEST(WbemCli, InvokesBothMethods)
{
    ASSERT_NO_FATAL_FAILURE(needReplacedPowerActions());
    forgetCalls();
    const Outcome reboot = WbemCli::ask("cm", operatingSystemPath(), {"Reboot"});
    EXPECT_NE(reboot.output.find(" Reboot: 4294967295\n"), std::string::npos) << reboot.output;
    const Outcome shutdown = WbemCli::ask("cm", operatingSystemPath(), {"Shutdown"});
    EXPECT_NE(shutdown.output.find(" Shutdown: 1\n"), std::string::npos) << shutdown.output;
    EXPECT_EQ(recordedCalls(),
              (std::vector<std::string>{"reboot 0x01234567", "popen /sbin/shutdown -h now r", "pclose"}));
}

TEST(Clients, EightAtOnceAllGetTheSameAnswers)
{
    const std::vector<std::string> asked = {"QORTAL_BIOS", "QORTAL_CacheMemory", "QORTAL_BaseBoard", "QORTAL_Port"};
    std::map<std::string, std::string> expected;
    for (const std::string& className : asked)
        expected[className] = shown(expectedInstances(className));

    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(15);
    std::atomic<int> answers{0};
    std::atomic<int> differing{0};
    std::vector<std::thread> clients;
    for (std::size_t client = 0; client < 8; ++client)
        clients.emplace_back([&, client] {
            for (std::size_t round = client; std::chrono::steady_clock::now() < end; ++round) {
                const std::string& className = asked[round % asked.size()];
                try {
                    if (shown(CimCli::instances(className)) != expected.at(className))
                        ++differing;
                } catch (const std::exception& error) {
                    ++differing;
                    std::fprintf(stderr, "%s\n", error.what());
                }
                ++answers;
            }
        });
    for (std::thread& client : clients)
        client.join();
    std::printf("%d answers\n", answers.load());
    EXPECT_EQ(differing, 0);
    EXPECT_GE(answers, 8 * 4);
}

TEST(Unload, AnIdleModuleLeavesItsProcessAndComesBack)
{
    const std::vector<Instance> expected = expectedInstances("QORTAL_Chassis");
    EXPECT_EQ(shown(CimCli::instances("QORTAL_Chassis")), shown(expected));
    ASSERT_EQ(processesWith(ModuleFile).size(), 1u);

    std::ofstream(setting("VQ_TEST_LATER")).close(); // the server's clock jumps
    CimCli::ask({"ns"});                             // it looks at its clock when something comes
    EXPECT_TRUE(unloads(ModuleFile));

    EXPECT_EQ(shown(CimCli::instances("QORTAL_Chassis")), shown(expected));
    EXPECT_EQ(processesWith(ModuleFile).size(), 1u);
}

TEST(Unload, ADisabledModuleLeavesItsProcessAndComesBackEnabled)
{
    const std::vector<Instance> expected = expectedInstances("QORTAL_Chassis");
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(shown(CimCli::instances("QORTAL_Chassis")), shown(expected));
        ASSERT_EQ(processesWith(ModuleFile).size(), 1u);

        EXPECT_EQ(runProgram({"cimprovider", "-d", "-m", "SystemProviderModule"}).exitCode, 0);
        EXPECT_TRUE(unloads(ModuleFile));
        EXPECT_NE(CimCli::ask({"ei", "QORTAL_Chassis"}).exitCode, 0);

        EXPECT_EQ(runProgram({"cimprovider", "-e", "-m", "SystemProviderModule"}).exitCode, 0);
    }
    EXPECT_EQ(shown(CimCli::instances("QORTAL_Chassis")), shown(expected));
}

TEST(Unload, InTheServersOwnProcessTheModuleIsTheServers)
{
    if (std::getenv("VQ_IN_SERVER") == nullptr)
        GTEST_SKIP() << "the module runs in a provider process here";
    CimCli::paths("QORTAL_Chassis");
    EXPECT_EQ(processesWith(ModuleFile), (std::vector<int>{std::stoi(setting("VQ_SERVER_PID"))}));
}
