#include "os/OperatingSystem.h"

#include "support/common/System.h"
#include "tests/testing/FakeLibc.h"

#include <cstdio>
#include <cstring>
#include <type_traits>

using VQ::DateTime;
using VQ::OperatingSystem;

// The record holds nothing but its table of virtual operations.
static_assert(sizeof(OperatingSystem) == sizeof(void*) && std::has_virtual_destructor_v<OperatingSystem>);
static_assert(std::is_copy_constructible_v<OperatingSystem> && std::is_copy_assignable_v<OperatingSystem>);

static_assert(std::is_same_v<decltype(OperatingSystem().getType()), std::uint16_t>);
static_assert(std::is_same_v<decltype(OperatingSystem().getCurrentTimeZone()), std::int16_t>);
static_assert(std::is_same_v<decltype(OperatingSystem().getTotalPhysicalMemory()), unsigned long long>);
static_assert(std::is_same_v<decltype(OperatingSystem().getNumberOfProcesses()), std::uint32_t>);

namespace
{
constexpr std::time_t Pi2026 = 1773500966; // 2026-03-14 15:09:26 UTC
constexpr bool Wide = sizeof(unsigned long) == 8;

// "2026-03-14 15:09:26.0 +345"
std::string dateText(const DateTime& date)
{
    char text[64];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%u %+d", date.getYear(), date.getMonth(),
                  date.getDay(), date.getHour(), date.getMinute(), date.getSecond(), date.getMillisecond(),
                  date.getOffset());
    return text;
}

class OperatingSystemRecord : public FakeLibcTest
{
protected:
    OperatingSystem system = VQ::GetOperatingSystemInstance();
};

using Memory = OperatingSystemRecord;
using Processes = OperatingSystemRecord;
using TimeZone = OperatingSystemRecord;
using Dates = OperatingSystemRecord;
using KernelVersion = OperatingSystemRecord;
using FailingKernel = OperatingSystemRecord;
}

TEST_F(OperatingSystemRecord, IsLinux)
{
    EXPECT_EQ(system.getType(), 36);
    EXPECT_EQ(system.getName(), "Linux");
}

TEST_F(OperatingSystemRecord, FactsWithoutASourceAreFixed)
{
    libc.figures.totalram = libc.figures.freeram = libc.figures.totalswap = libc.figures.freeswap = 1ul << 30;
    libc.figures.procs = 77;
    EXPECT_EQ(system.getTotalVirtualMemorySize(), 0u);
    EXPECT_EQ(system.getFreeVirtualMemory(), 0u);
    EXPECT_EQ(system.getTotalVisibleMemorySize(), 0u);
    EXPECT_EQ(system.getSizeStoredInPagingFiles(), 0u);
    EXPECT_EQ(system.getFreeSpaceInPagingFiles(), 0u);
    EXPECT_EQ(system.getMaxProcessMemorySize(), 0u);
    EXPECT_EQ(system.getMaxNumberOfProcesses(), 2147483647u);
    EXPECT_EQ(system.getNumberOfUsers(), 0u);
    EXPECT_EQ(system.getNumberOfLicensedUsers(), 0u);
    EXPECT_FALSE(system.getDistributed());
}

TEST_F(KernelVersion, IsTheReleaseOfTheKernel)
{
    std::strcpy(libc.names.sysname, "Linux");
    std::strcpy(libc.names.release, "6.1.0-18-686-pae");
    std::strcpy(libc.names.version, "#1 SMP");
    EXPECT_EQ(system.getVersion(), "6.1.0-18-686-pae");
}

TEST_F(KernelVersion, OfTheGreatestLengthIsWhole)
{
    std::memset(libc.names.release, 'r', sizeof libc.names.release - 1);
    EXPECT_EQ(system.getVersion(), std::string(64, 'r'));
}

TEST_F(Memory, EachFigureIsItsOwnFieldInKibibytes)
{
    libc.figures.totalram = 1073741824;
    libc.figures.freeram = 536870912;
    libc.figures.totalswap = 268435456;
    libc.figures.freeswap = 134217728;
    libc.figures.sharedram = 67108864;
    libc.figures.bufferram = 33554432;
    EXPECT_EQ(system.getTotalPhysicalMemory(), 1048576u);
    EXPECT_EQ(system.getFreePhysicalMemory(), 524288u);
    EXPECT_EQ(system.getTotalSwapSpaceSize(), 262144u);
}

TEST_F(Memory, FractionsOfAKibibyteAreCutOff)
{
    const struct
    {
        unsigned long bytes;
        unsigned long long kibibytes;
    } cases[] = {{0, 0}, {1, 0}, {1023, 0}, {1024, 1}, {1025, 1}, {2047, 1}, {2048, 2}};
    for (const auto& c : cases) {
        libc.figures.totalram = libc.figures.freeram = libc.figures.totalswap = c.bytes;
        EXPECT_EQ(system.getTotalPhysicalMemory(), c.kibibytes) << c.bytes;
        EXPECT_EQ(system.getFreePhysicalMemory(), c.kibibytes) << c.bytes;
        EXPECT_EQ(system.getTotalSwapSpaceSize(), c.kibibytes) << c.bytes;
    }
}

TEST_F(Memory, From2GiBToJustUnder4GiBIsNotTakenAsNegative)
{
    const struct
    {
        unsigned long bytes;
        unsigned long long kibibytes;
    } cases[] = {{0x7FFFFFFF, 2097151}, {0x80000000, 2097152}, {0xFFFFFBFF, 4194302}, {0xFFFFFFFF, 4194303}};
    for (const auto& c : cases) {
        libc.figures.totalram = libc.figures.freeram = libc.figures.totalswap = c.bytes;
        EXPECT_EQ(system.getTotalPhysicalMemory(), c.kibibytes) << c.bytes;
        EXPECT_EQ(system.getFreePhysicalMemory(), c.kibibytes) << c.bytes;
        EXPECT_EQ(system.getTotalSwapSpaceSize(), c.kibibytes) << c.bytes;
    }
}

TEST_F(Memory, UnitOfTheKernelIsNotConsulted)
{
    // 4 GiB, 2 GiB and 1 GiB as a kernel tells them to a 32-bit program: in pages.
    libc.figures.totalram = 1048576;
    libc.figures.freeram = 524288;
    libc.figures.totalswap = 262144;
    for (const unsigned int unit : {0u, 1u, 4096u, 65536u}) {
        libc.figures.mem_unit = unit;
        EXPECT_EQ(system.getTotalPhysicalMemory(), 1024u) << unit;
        EXPECT_EQ(system.getFreePhysicalMemory(), 512u) << unit;
        EXPECT_EQ(system.getTotalSwapSpaceSize(), 256u) << unit;
    }
}

TEST_F(Memory, From4GiBUpIsWholeWhereTheKernelCountsIn64Bits)
{
    if (!Wide)
        GTEST_SKIP() << "a 32-bit sysinfo record cannot hold 4 GiB in bytes";
    const struct
    {
        unsigned long long bytes;
        unsigned long long kibibytes;
    } cases[] = {{0x100000000, 4194304}, {0x1000003FF, 4194304}, {0x123456789000, 19546873380}};
    for (const auto& c : cases) {
        const auto field = static_cast<unsigned long>(c.bytes);
        libc.figures.totalram = libc.figures.freeram = libc.figures.totalswap = field;
        EXPECT_EQ(system.getTotalPhysicalMemory(), c.kibibytes) << c.bytes;
        EXPECT_EQ(system.getFreePhysicalMemory(), c.kibibytes) << c.bytes;
        EXPECT_EQ(system.getTotalSwapSpaceSize(), c.kibibytes) << c.bytes;
    }
}

TEST_F(Memory, IsAskedOfTheKernelByEveryCall)
{
    libc.figures.freeram = 2048;
    EXPECT_EQ(system.getFreePhysicalMemory(), 2u);
    libc.figures.freeram = 4096;
    EXPECT_EQ(system.getFreePhysicalMemory(), 4u);
    EXPECT_EQ(libc.sysinfoCalls, 2);
}

TEST_F(Processes, AreTheKernelsCount)
{
    libc.figures.procs = 143;
    EXPECT_EQ(system.getNumberOfProcesses(), 143u);
}

TEST_F(Processes, GreatestCountIsNotTakenAsNegative)
{
    libc.figures.procs = 65535;
    EXPECT_EQ(system.getNumberOfProcesses(), 65535u);
    libc.figures.procs = 32768;
    EXPECT_EQ(system.getNumberOfProcesses(), 32768u);
}

TEST_F(TimeZone, IsTheOffsetInMinutesCutTowardZero)
{
    const struct
    {
        long seconds;
        std::int16_t minutes;
    } cases[] = {
        {0, 0},
        {-12600, -210},
        {20700, 345},
        {50400, 840},
        {-43200, -720},
        // local mean times of old zones, which have seconds
        {5692, 94},
        {-17762, -296},
        {59, 0},
        {-59, 0},
        {60, 1},
        {-60, -1},
        {-119, -1},
        {93599, 1559},
        {-93599, -1559},
    };
    libc.now = Pi2026;
    for (const auto& c : cases) {
        libc.gmtOffset = c.seconds;
        EXPECT_EQ(system.getCurrentTimeZone(), c.minutes) << c.seconds;
    }
}

TEST_F(TimeZone, FollowsAChangeOfLocalTime)
{
    libc.gmtOffset = 3600;
    EXPECT_EQ(system.getCurrentTimeZone(), 60);
    libc.gmtOffset = 7200;
    EXPECT_EQ(system.getCurrentTimeZone(), 120);
}

TEST_F(TimeZone, IsThatOfTheCurrentTime)
{
    libc.now = Pi2026;
    libc.gmtOffset = 3600;
    libc.summer = Pi2026;
    EXPECT_EQ(system.getCurrentTimeZone(), 120);
    libc.summer = Pi2026 + 1;
    EXPECT_EQ(system.getCurrentTimeZone(), 60);
}

TEST_F(Dates, HaveTheOffsetOfTheirOwnInstant)
{
    libc.now = Pi2026;
    libc.gmtOffset = 3600;
    libc.summer = Pi2026;
    libc.figures.uptime = 60;
    EXPECT_EQ(dateText(system.getLocalDateTime()), "2026-03-14 17:09:26.0 +120");
    EXPECT_EQ(dateText(system.getLastBootUpTime()), "2026-03-14 16:08:26.0 +60");
    EXPECT_EQ(dateText(system.getInstallDate()), "1970-01-01 01:00:00.0 +60");
}

TEST_F(Dates, LocalDateTimeIsNowInLocalTime)
{
    libc.now = Pi2026;
    libc.gmtOffset = 20700;
    EXPECT_EQ(dateText(system.getLocalDateTime()), "2026-03-14 20:54:26.0 +345");
    libc.gmtOffset = -12600;
    EXPECT_EQ(dateText(system.getLocalDateTime()), "2026-03-14 11:39:26.0 -210");
}

TEST_F(Dates, LocalDateTimeReachesThe32BitLimits)
{
    libc.now = 2147483647;
    EXPECT_EQ(dateText(system.getLocalDateTime()), "2038-01-19 03:14:07.0 +0");
    libc.now = -1;
    EXPECT_EQ(dateText(system.getLocalDateTime()), "1969-12-31 23:59:59.0 +0");
}

TEST_F(Dates, LastBootIsNowLessTheUptime)
{
    libc.now = Pi2026;
    libc.gmtOffset = 20700;
    libc.figures.uptime = 86400 + 3600 + 60 + 1;
    EXPECT_EQ(dateText(system.getLastBootUpTime()), "2026-03-13 19:53:25.0 +345");
}

TEST_F(Dates, UptimeLongerThanTheClockGivesADateBefore1970)
{
    libc.now = 100;
    libc.figures.uptime = 200;
    EXPECT_EQ(dateText(system.getLastBootUpTime()), "1969-12-31 23:58:20.0 +0");
}

TEST_F(Dates, InstallDateIsTheEpoch)
{
    libc.now = Pi2026;
    libc.figures.uptime = 1000;
    libc.gmtOffset = 3600;
    EXPECT_EQ(dateText(system.getInstallDate()), "1970-01-01 01:00:00.0 +60");
    EXPECT_FALSE(system.getInstallDate() != DateTime(0, 3));
}

TEST_F(Dates, DoNotUseTheBufferThatThreadsShare)
{
    system.getLocalDateTime();
    system.getLastBootUpTime();
    system.getInstallDate();
    system.getCurrentTimeZone();
    EXPECT_EQ(libc.localtimeCalls, 0);
}

TEST_F(Dates, WithoutLocalTimeThereIsNoDate)
{
    libc.now = Pi2026;
    libc.localtimeFails = true;
    soilStack();
    EXPECT_EQ(dateText(system.getLocalDateTime()), "0000-00-00 00:00:00.0 +0");
    soilStack();
    EXPECT_EQ(system.getCurrentTimeZone(), 0);
}

TEST_F(FailingKernel, GivesNoFiguresRatherThanWhatLayInMemory)
{
    libc.sysinfoFails = true;
    soilStack();
    EXPECT_EQ(system.getTotalPhysicalMemory(), 0u);
    soilStack();
    EXPECT_EQ(system.getFreePhysicalMemory(), 0u);
    soilStack();
    EXPECT_EQ(system.getTotalSwapSpaceSize(), 0u);
    soilStack();
    EXPECT_EQ(system.getNumberOfProcesses(), 0u);
    EXPECT_EQ(libc.sysinfoCalls, 4);
}

TEST_F(FailingKernel, BootedNow)
{
    libc.sysinfoFails = true;
    libc.now = Pi2026;
    soilStack();
    EXPECT_EQ(dateText(system.getLastBootUpTime()), "2026-03-14 15:09:26.0 +0");
}

TEST_F(FailingKernel, HasNoVersionAndNoHostName)
{
    libc.unameFails = true;
    soilStack();
    EXPECT_EQ(system.getVersion(), "");
    soilStack();
    EXPECT_EQ(VQ::System::getName(), L"");
}
