// The record of the running system against what the kernel and the system's own programs say elsewhere.

#include "os/OperatingSystem.h"
#include "tests/testing/Process.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <sys/reboot.h>
#include <sys/sysinfo.h>
#include <vector>

using VQ::DateTime;
using VQ::OperatingSystem;

// Nothing here asks for a power action. If something did, it would end here.
#pragma GCC visibility push(default)
extern "C" {
int reboot(int) noexcept
{
    std::abort();
}
FILE* popen(const char*, const char*)
{
    std::abort();
}
int pclose(FILE*)
{
    std::abort();
}
}
#pragma GCC visibility pop

namespace
{
// The number that follows `name` in a file of lines "name: number".
std::optional<unsigned long long> numberIn(const char* file, const std::string& name)
{
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);)
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            return std::strtoull(line.c_str() + name.size() + 1, nullptr, 10);
    return std::nullopt;
}

std::string firstLineOf(const char* file)
{
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

// The first line that a command prints; nothing where it fails.
std::optional<std::string> answerOf(const std::string& command)
{
    const Outcome outcome = run(command + " 2>/dev/null");
    if (outcome.exitCode != 0)
        return std::nullopt;
    return outcome.output.substr(0, outcome.output.find('\n'));
}

// Kibibytes as `sysinfo` counts them here: a kernel tells a 32-bit program in pages what does not fit it in bytes.
unsigned long long asReported(unsigned long long kibibytes)
{
    struct sysinfo figures = {};
    sysinfo(&figures);
    return kibibytes * 1024 / figures.mem_unit / 1024;
}

// The instant of a date, in seconds since 1970.
long instantOf(const DateTime& date)
{
    std::tm fields = {};
    fields.tm_year = date.getYear() - 1900;
    fields.tm_mon = date.getMonth() - 1;
    fields.tm_mday = date.getDay();
    fields.tm_hour = date.getHour();
    fields.tm_min = date.getMinute();
    fields.tm_sec = date.getSecond();
    return timegm(&fields) - date.getOffset() * 60L;
}

// A figure that moves lies between two readings of it, give or take `slack`; tried anew when the machine was too busy.
template <class Read, class Get> void expectBetween(Read read, Get get, unsigned long long slack)
{
    unsigned long long before = 0;
    unsigned long long value = 0;
    unsigned long long after = 0;
    for (int attempt = 0; attempt < 5; ++attempt) {
        before = read();
        value = get();
        after = read();
        if (value + slack >= std::min(before, after) && value <= std::max(before, after) + slack)
            return;
    }
    ADD_FAILURE() << value << " is not between " << before << " and " << after << ", give or take " << slack;
}

// Sets variables for one test, for this program and the programs it starts.
class Environment
{
public:
    ~Environment()
    {
        for (const auto& [name, value] : _before)
            put(name.c_str(), value ? value->c_str() : nullptr);
    }

    void set(const char* name, const char* value)
    {
        const char* before = std::getenv(name);
        _before.emplace(name, before ? std::optional<std::string>(before) : std::nullopt);
        put(name, value);
    }
    void unset(const char* name) { set(name, nullptr); }

private:
    static void put(const char* name, const char* value)
    {
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }

    std::map<std::string, std::optional<std::string>> _before;
};

class RunningKernel : public testing::Test
{
protected:
    Environment environment;
    OperatingSystem system;
};

class RunningKernelIn : public RunningKernel, public testing::WithParamInterface<const char*>
{
};

using RunningLocale = RunningKernel;
}

#define SKIP_WITHOUT(answer, what)                                                                                     \
    if (!(answer))                                                                                                     \
    GTEST_SKIP() << "this machine has no " << (what)

TEST_F(RunningKernel, TotalMemoryIsThatOfMeminfo)
{
    const auto total = numberIn("/proc/meminfo", "MemTotal");
    SKIP_WITHOUT(total, "MemTotal in /proc/meminfo");
    EXPECT_GT(*total, 0u);
    EXPECT_EQ(system.getTotalPhysicalMemory(), asReported(*total));
}

TEST_F(RunningKernel, SwapSpaceIsThatOfMeminfo)
{
    const auto total = numberIn("/proc/meminfo", "SwapTotal");
    SKIP_WITHOUT(total, "SwapTotal in /proc/meminfo");
    EXPECT_EQ(system.getTotalSwapSpaceSize(), asReported(*total));
}

TEST_F(RunningKernel, FreeMemoryIsThatOfMeminfoWithin64MiB)
{
    SKIP_WITHOUT(numberIn("/proc/meminfo", "MemFree"), "MemFree in /proc/meminfo");
    expectBetween([] { return asReported(numberIn("/proc/meminfo", "MemFree").value_or(0)); },
                  [this] { return system.getFreePhysicalMemory(); }, asReported(64ULL * 1024));
}

TEST_F(RunningKernel, ProcessesAreTheTasksOfLoadavgWithin20)
{
    // "0.20 0.18 0.12 1/80 11206": running and all tasks before the last process
    const auto tasks = [] {
        const std::string line = firstLineOf("/proc/loadavg");
        return std::strtoull(line.substr(line.find('/') + 1).c_str(), nullptr, 10) & 0xFFFF;
    };
    SKIP_WITHOUT(!firstLineOf("/proc/loadavg").empty(), "/proc/loadavg");
    expectBetween(
        tasks, [this] { return system.getNumberOfProcesses(); }, 20);
}

TEST_F(RunningKernel, VersionIsItsRelease)
{
    const std::string release = firstLineOf("/proc/sys/kernel/osrelease");
    SKIP_WITHOUT(!release.empty(), "/proc/sys/kernel/osrelease");
    EXPECT_EQ(system.getVersion(), release);
}

TEST_F(RunningKernel, LastBootIsNowLessTheUptimeOfProc)
{
    SKIP_WITHOUT(!firstLineOf("/proc/uptime").empty(), "/proc/uptime");
    const auto booted = [] {
        const double uptime = std::strtod(firstLineOf("/proc/uptime").c_str(), nullptr);
        return static_cast<unsigned long long>(std::time(nullptr) - static_cast<long>(uptime));
    };
    expectBetween(
        booted, [this] { return static_cast<unsigned long long>(instantOf(system.getLastBootUpTime())); }, 1);
}

TEST_P(RunningKernelIn, TimeZoneIsThatOfDate)
{
    environment.set("TZ", GetParam());
    const auto zone = answerOf("date +%z"); // "+0545"
    SKIP_WITHOUT(zone, "program date");
    const long hundreds = std::strtol(zone->c_str(), nullptr, 10);
    EXPECT_EQ(system.getCurrentTimeZone(), hundreds / 100 * 60 + hundreds % 100) << *zone;
}

TEST_P(RunningKernelIn, LocalDateTimeIsThatOfDate)
{
    environment.set("TZ", GetParam());
    const auto now = [] { return answerOf("date '+%Y-%m-%d %H:%M:%S'"); };
    SKIP_WITHOUT(now(), "program date");
    const auto local = [&now] {
        std::tm fields = {};
        strptime(now().value_or("").c_str(), "%Y-%m-%d %H:%M:%S", &fields);
        return static_cast<unsigned long long>(timegm(&fields));
    };
    const auto mine = [this] {
        const DateTime date = system.getLocalDateTime();
        return static_cast<unsigned long long>(instantOf(date) + date.getOffset() * 60L);
    };
    expectBetween(local, mine, 0);
}

// The machine's own zone, and zones that need no database.
INSTANTIATE_TEST_SUITE_P(Zones, RunningKernelIn,
                         testing::Values(nullptr, "UTC0", "XXX-5:45", "XXX3:30", "XXX-14", "XXX12",
                                         "CET-1CEST,M3.5.0,M10.5.0/3", "XXX4:56:02"));

TEST_F(RunningLocale, CodeSetOfTheVariableIsTheCharmapThatItSelects)
{
    environment.unset("LC_ALL");
    environment.unset("LC_CTYPE");
    environment.set("LANG", "C.UTF-8");
    const auto charmap = answerOf("locale charmap");
    SKIP_WITHOUT(charmap, "program locale");
    EXPECT_EQ(system.getCodeSet(), *charmap);
}

// The record selects no locale: without LANG the code set is that of the process, which is the C locale's until the
// process selects another.
TEST_F(RunningLocale, CodeSetWithoutTheVariableIsTheCharmapOfTheCLocale)
{
    environment.unset("LANG");
    environment.set("LC_CTYPE", "C.UTF-8");
    environment.set("LC_ALL", "C");
    const auto charmap = answerOf("locale charmap");
    SKIP_WITHOUT(charmap, "program locale");
    EXPECT_EQ(system.getCodeSet(), *charmap);
}

TEST_F(RunningLocale, CodeSetWithoutTheVariableFollowsTheLocaleOfTheProcess)
{
    environment.unset("LANG");
    environment.set("LC_ALL", "C.UTF-8");
    const auto charmap = answerOf("locale charmap");
    SKIP_WITHOUT(charmap, "program locale");
    SKIP_WITHOUT(std::setlocale(LC_CTYPE, ""), "locale C.UTF-8");
    const std::string codeSet = system.getCodeSet();
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(codeSet, *charmap);
    EXPECT_EQ(codeSet, "UTF-8");
}
