// The two methods, down to the libc calls that they make.

#include "os/OperatingSystem.h"
#include "tests/os/PowerRecorder.h"
#include "tests/testing/Provider.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/OperationContext.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <gtest/gtest.h>
#include <mutex>
#include <stdexcept>
#include <sys/reboot.h>
#include <thread>

using namespace Pegasus;
using Lines = std::vector<std::string>;

// Where the linker put the record's actions.
extern const char systemReboot[] __asm__("_ZNK2VQ15OperatingSystem12systemRebootEv");
extern const char systemShutdown[] __asm__("_ZNK2VQ15OperatingSystem14systemShutdownEv");

namespace
{
const char* const OperatingSystemName = "QORTAL_OperatingSystem";
const Lines None;
const Lines RebootAction = {"reboot 0x01234567"};
const Lines ShutdownAction = {"popen [/sbin/shutdown -h now] r", "pclose"};
const Lines Refused = {"processing", "result uint32 4294967295", "complete"};
const Lines Succeeded = {"processing", "result uint32 1", "complete"};

class PowerMethods : public testing::Test
{
protected:
    PowerMethods() { actions = PowerRecorder(); }
    ~PowerMethods() override { actions = PowerRecorder(); }

    // The handler's calls.
    Lines invoke(const CIMObjectPath& path, const CIMName& method,
                 const Array<CIMParamValue>& in = Array<CIMParamValue>())
    {
        RecordingMethodHandler handler;
        provider.methods().invokeMethod(OperationContext(), path, method, in, handler);
        return handler.calls;
    }

    Lines invoke(const char* className, const char* method) { return invoke(pathOf(className), CIMName(method)); }

    PowerRecorder& actions = powerRecorder();
    TestProvider provider;
};

using PowerActions = PowerMethods;

// Lets threads go on once so many of them have arrived.
class Rendezvous
{
public:
    explicit Rendezvous(int expected) : _missing(expected) {}

    void arrive()
    {
        std::unique_lock<std::mutex> lock(_mutex);
        --_missing;
        _arrived.notify_all();
        _met = _arrived.wait_for(lock, std::chrono::seconds(20), [this] { return _missing <= 0; }) && _met;
    }

    bool met() const { return _met && _missing == 0; }

private:
    std::mutex _mutex;
    std::condition_variable _arrived;
    int _missing;
    bool _met = true;
};
}

TEST(PowerRecorder, StandsInForEveryFunctionThatCouldReachTheMachine)
{
    for (const char* function : recordedFunctions())
        EXPECT_TRUE(bindsToThisProgram(function)) << function;
    EXPECT_TRUE(liesInThisProgram(reinterpret_cast<const void*>(&reboot)));
    EXPECT_TRUE(liesInThisProgram(reinterpret_cast<const void*>(&popen)));
    EXPECT_TRUE(liesInThisProgram(reinterpret_cast<const void*>(&pclose)));
}

TEST(PowerRecorder, TellsTheProgramsFunctionsFromThoseOfLibraries)
{
    EXPECT_FALSE(bindsToThisProgram("getpid"));
    EXPECT_FALSE(bindsToThisProgram("no_such_function"));
}

// The linker binds calls within one program to the program's own definitions.
TEST(PowerRecorder, IsInTheSameProgramAsTheModulesActions)
{
    EXPECT_TRUE(liesInThisProgram(systemReboot));
    EXPECT_TRUE(liesInThisProgram(systemShutdown));
}

TEST_F(PowerActions, RebootRestartsAtOnceAndPassesTheRefusalOn)
{
    errno = 0;
    EXPECT_EQ(VQ::OperatingSystem().systemReboot(), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(actions.calls, RebootAction);
}

TEST_F(PowerActions, RebootReturnsWhatTheKernelReturns)
{
    actions.rebootResult = 0;
    EXPECT_EQ(VQ::OperatingSystem().systemReboot(), 0);
    actions.rebootResult = 7;
    EXPECT_EQ(VQ::OperatingSystem().systemReboot(), 7);
}

TEST_F(PowerActions, ShutdownRunsTheSystemsProgramAndWaitsForIt)
{
    EXPECT_EQ(VQ::OperatingSystem().systemShutdown(), 1);
    EXPECT_EQ(actions.calls, ShutdownAction);
}

TEST_F(PowerActions, ShutdownIsASuccessThoughItsProgramFails)
{
    for (const int result : {-1, 1, 127 << 8, 9}) {
        actions.calls.clear();
        actions.pcloseResult = result;
        EXPECT_EQ(VQ::OperatingSystem().systemShutdown(), 1) << result;
        EXPECT_EQ(actions.calls, ShutdownAction);
    }
}

TEST_F(PowerActions, ShutdownIsASuccessThoughItsProgramCannotBeStarted)
{
    actions.popenFails = true;
    EXPECT_EQ(VQ::OperatingSystem().systemShutdown(), 1);
    EXPECT_EQ(actions.calls, Lines{"popen [/sbin/shutdown -h now] r"});
}

TEST_F(PowerMethods, RebootInAnyLetterCaseRebootsOnce)
{
    for (const char* className : {"QORTAL_OperatingSystem", "qortal_operatingsystem", "QORTAL_OPERATINGSYSTEM"}) {
        for (const char* method : {"Reboot", "reboot", "REBOOT", "rEbOOt"}) {
            actions.calls.clear();
            EXPECT_EQ(invoke(className, method), Refused) << className << " " << method;
            EXPECT_EQ(actions.calls, RebootAction) << className << " " << method;
        }
    }
}

TEST_F(PowerMethods, ShutdownInAnyLetterCaseShutsDownOnce)
{
    for (const char* className : {"QORTAL_OperatingSystem", "qortal_operatingsystem", "QORTAL_OPERATINGSYSTEM"}) {
        for (const char* method : {"Shutdown", "shutdown", "SHUTDOWN", "sHutDowN"}) {
            actions.calls.clear();
            EXPECT_EQ(invoke(className, method), Succeeded) << className << " " << method;
            EXPECT_EQ(actions.calls, ShutdownAction) << className << " " << method;
        }
    }
}

TEST_F(PowerMethods, ResultOfRebootIsTheUnsignedFormOfTheStatus)
{
    actions.rebootResult = 0;
    const Lines zero = {"processing", "result uint32 0", "complete"};
    EXPECT_EQ(invoke(OperatingSystemName, "Reboot"), zero);
    actions.rebootResult = -2147483647 - 1;
    const Lines lowest = {"processing", "result uint32 2147483648", "complete"};
    EXPECT_EQ(invoke(OperatingSystemName, "Reboot"), lowest);
}

TEST_F(PowerMethods, ResultOfShutdownIsOneWhateverHappened)
{
    actions.pcloseResult = -1;
    EXPECT_EQ(invoke(OperatingSystemName, "Shutdown"), Succeeded);
    actions.popenFails = true;
    EXPECT_EQ(invoke(OperatingSystemName, "Shutdown"), Succeeded);
}

TEST_F(PowerMethods, OtherClassesAreSilentlyIgnored)
{
    for (const char* className : {"QORTAL_ComputerSystem", "QORTAL_BIOS", "QORTAL_Chassis", "QORTAL_BaseBoard",
                                  "QORTAL_CacheMemory", "QORTAL_Port", "QORTAL_Slot", "QORx_SystemMemory",
                                  "CIM_OperatingSystem", "QORTAL_OperatingSystem2", "QORTAL_OperatingSyste"}) {
        EXPECT_EQ(invoke(className, "Reboot"), None) << className;
        EXPECT_EQ(invoke(className, "Shutdown"), None) << className;
    }
    EXPECT_EQ(invoke(CIMObjectPath(), CIMName("Reboot")), None);
    EXPECT_EQ(actions.calls, None);
}

TEST_F(PowerMethods, OtherMethodsAreSilentlyIgnored)
{
    for (const char* method : {"Reset", "Reboot2", "Reboo", "ShutDown_", "Shut", "RequestStateChange", "X"})
        EXPECT_EQ(invoke(OperatingSystemName, method), None) << method;
    EXPECT_EQ(invoke(pathOf(OperatingSystemName), CIMName()), None);
    EXPECT_EQ(actions.calls, None);
}

TEST_F(PowerMethods, InputParametersAreIgnored)
{
    Array<CIMParamValue> in;
    in.append(CIMParamValue("Force", CIMValue(Boolean(true))));
    in.append(CIMParamValue("Command", CIMValue(String("/bin/other"))));
    EXPECT_EQ(invoke(pathOf(OperatingSystemName), CIMName("Shutdown"), in), Succeeded);
    EXPECT_EQ(actions.calls, ShutdownAction);
    actions.calls.clear();
    EXPECT_EQ(invoke(pathOf(OperatingSystemName), CIMName("Reboot"), in), Refused);
    EXPECT_EQ(actions.calls, RebootAction);
}

TEST_F(PowerMethods, KeysHostAndNamespaceOfThePathAreIgnored)
{
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("CSName"), String("another-host"), CIMKeyBinding::STRING));
    keys.append(CIMKeyBinding(CIMName("Name"), String("Plan 9"), CIMKeyBinding::STRING));
    const CIMObjectPath elsewhere("other.example", CIMNamespaceName("root/other"), CIMName(OperatingSystemName), keys);
    EXPECT_EQ(invoke(elsewhere, CIMName("Shutdown")), Succeeded);
    EXPECT_EQ(actions.calls, ShutdownAction);
    actions.calls.clear();
    EXPECT_EQ(invoke(elsewhere, CIMName("Reboot")), Refused);
    EXPECT_EQ(actions.calls, RebootAction);
}

TEST_F(PowerMethods, ExceptionOfTheActionReachesTheServerBeforeComplete)
{
    actions.during = [] { throw std::runtime_error("no more processes"); };
    RecordingMethodHandler handler;
    try {
        provider.invoke(pathOf(OperatingSystemName), "Shutdown", handler);
        FAIL() << "no exception";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "no more processes");
    }
    EXPECT_EQ(handler.calls, Lines{"processing"});
}

TEST_F(PowerMethods, TwoCallsRunAtOnce)
{
    Rendezvous bothInside(2);
    actions.during = [&bothInside] { bothInside.arrive(); };
    RecordingMethodHandler first;
    RecordingMethodHandler second;
    std::thread rebooting([&] { provider.invoke(pathOf(OperatingSystemName), "Reboot", first); });
    std::thread shuttingDown([&] { provider.invoke(pathOf(OperatingSystemName), "Shutdown", second); });
    rebooting.join();
    shuttingDown.join();
    EXPECT_TRUE(bothInside.met());
    EXPECT_EQ(first.calls, Refused);
    EXPECT_EQ(second.calls, Succeeded);
    EXPECT_EQ(actions.calls.size(), 3u);
}
