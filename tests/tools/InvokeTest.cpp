// Method calls. What reaches the real module runs with the libc functions replaced by a preloaded library, and only
// after that library has shown that it is in place.

#include "tests/tools/ToolRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace
{
class StubInvoke : public testing::Test
{
protected:
    ToolRun run(std::vector<std::string> arguments, const std::string& status = "0")
    {
        arguments.insert(arguments.begin(), {"invoke", "--module", VQ_STUB_MODULE});
        return runTool(arguments, {{"VQ_STUB_LOG", log.name()}, {"VQ_STUB_STATUS", status}});
    }

    std::string calls() const { return log.text(); }

    TemporaryFile log;
};

class RealInvoke : public testing::Test
{
protected:
    void SetUp() override
    {
        const TemporaryFile dryRun;
        const ToolRun version = runTool({"--version"}, powerGuard(dryRun.name()));
        ASSERT_EQ(version.exitCode, 0) << version.errors;
        ASSERT_EQ(dryRun.text(), "armed\n") << "the guard is not in place; no method may be called";
    }

    ToolRun run(std::vector<std::string> arguments, const std::map<std::string, std::string>& more = {})
    {
        arguments.insert(arguments.begin(), "invoke");
        auto environment = powerGuard(log.name());
        environment.insert(more.begin(), more.end());
        return runTool(arguments, environment);
    }

    std::string actions() const { return log.text(); }

    TemporaryFile log;
};

constexpr const char* RefusedReboot =
    "vqinventory: QORTAL_OperatingSystem.Reboot would restart this machine at once, straight through the kernel: no "
    "service is stopped and data not yet on disk is lost. Nothing was done; add --yes to do it\n";
constexpr const char* RefusedShutdown =
    "vqinventory: QORTAL_OperatingSystem.Shutdown would stop this machine now, by running /sbin/shutdown -h now. "
    "Nothing was done; add --yes to do it\n";
}

TEST_F(StubInvoke, RebootAndShutdownAreRefusedWithoutYes)
{
    const ToolRun reboot = run({"QORTAL_OperatingSystem", "Reboot"});
    EXPECT_EQ(reboot.errors, RefusedReboot);
    EXPECT_EQ(reboot.output, "");
    EXPECT_EQ(reboot.exitCode, 2);
    const ToolRun shutdown = run({"QORTAL_OperatingSystem", "Shutdown"});
    EXPECT_EQ(shutdown.errors, RefusedShutdown);
    EXPECT_EQ(shutdown.exitCode, 2);
    EXPECT_EQ(run({"qortal_operatingsystem", "rEBOOT"}).exitCode, 2);
    EXPECT_EQ(run({"Any_Class", "SHUTDOWN"}).exitCode, 2);
    EXPECT_EQ(calls(), "");
}

TEST_F(StubInvoke, CallsTheMethodOnceWithoutParameters)
{
    const ToolRun result = run({"QORTAL_OperatingSystem", "Reboot", "--yes"});
    EXPECT_EQ(calls(), "QORTAL_OperatingSystem Reboot 0\n");
    EXPECT_EQ(result.output, "QORTAL_OperatingSystem.Reboot: ReturnValue 0\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(StubInvoke, OtherMethodsNeedNoYes)
{
    const ToolRun result = run({"Any_Class", "Count"}, "7");
    EXPECT_EQ(calls(), "Any_Class Count 0\n");
    EXPECT_EQ(result.output, "Any_Class.Count: ReturnValue 7\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(StubInvoke, ReturnValueInJson)
{
    const nlohmann::json expected = {{"class", "QORTAL_OperatingSystem"}, {"method", "Shutdown"}, {"ReturnValue", 1}};
    const ToolRun result = run({"QORTAL_OperatingSystem", "Shutdown", "--yes", "--format", "json"}, "1");
    EXPECT_EQ(nlohmann::json::parse(result.output, nullptr, false), expected);
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(StubInvoke, ARefusedRebootIsAnError)
{
    const ToolRun result = run({"QORTAL_OperatingSystem", "Reboot", "--yes"}, "4294967295");
    EXPECT_EQ(result.output, "QORTAL_OperatingSystem.Reboot: ReturnValue 4294967295\n");
    EXPECT_EQ(result.errors, "vqinventory: the kernel refused to restart the machine; run as root\n");
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(StubInvoke, AMethodThatTheModuleIsSilentAboutIsAnError)
{
    const ToolRun result = run({"Any_Class", "Silent"});
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "vqinventory: CIM_ERR_METHOD_NOT_FOUND: Any_Class: the module did not answer the call of "
                             "Silent; the methods are Reboot and Shutdown of QORTAL_OperatingSystem\n");
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(StubInvoke, AFailureIsNamedByItsCode)
{
    const ToolRun result = run({"Any_Class", "Throws"});
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "vqinventory: CIM_ERR_ACCESS_DENIED: Any_Class: not you\n");
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(RealInvoke, WithoutYesNothingHappens)
{
    EXPECT_EQ(run({"QORTAL_OperatingSystem", "Reboot"}).errors, RefusedReboot);
    EXPECT_EQ(run({"QORTAL_OperatingSystem", "Shutdown"}).errors, RefusedShutdown);
    EXPECT_EQ(actions(), "armed\narmed\n");
}

TEST_F(RealInvoke, RebootRestartsThroughTheKernelOnce)
{
    const ToolRun result = run({"qortal_operatingsystem", "REBOOT", "--yes"});
    EXPECT_EQ(actions(), "armed\nreboot 0x1234567\n");
    EXPECT_EQ(result.output, "qortal_operatingsystem.REBOOT: ReturnValue 0\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors;
}

TEST_F(RealInvoke, RebootThatTheKernelRefuses)
{
    const ToolRun result = run({"QORTAL_OperatingSystem", "Reboot", "--yes"}, {{"VQ_POWER_REFUSED", "1"}});
    EXPECT_EQ(actions(), "armed\nreboot 0x1234567\n");
    EXPECT_EQ(result.output, "QORTAL_OperatingSystem.Reboot: ReturnValue 4294967295\n");
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(RealInvoke, ShutdownRunsTheShutdownProgramOnce)
{
    const ToolRun result = run({"QORTAL_OperatingSystem", "Shutdown", "--yes"});
    EXPECT_EQ(actions(), "armed\npopen /sbin/shutdown -h now r\npclose\n");
    EXPECT_EQ(result.output, "QORTAL_OperatingSystem.Shutdown: ReturnValue 1\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors;
}

TEST_F(RealInvoke, UnknownMethodsAndClassesDoNothingAndAreErrors)
{
    EXPECT_EQ(run({"QORTAL_OperatingSystem", "Hibernate"}).exitCode, 1);
    const ToolRun slot = run({"QORTAL_Slot", "Reboot", "--yes"});
    EXPECT_EQ(slot.exitCode, 1);
    EXPECT_EQ(slot.errors, "vqinventory: CIM_ERR_METHOD_NOT_FOUND: QORTAL_Slot: the module did not answer the call of "
                           "Reboot; the methods are Reboot and Shutdown of QORTAL_OperatingSystem\n");
    EXPECT_EQ(actions(), "armed\narmed\n");
}
