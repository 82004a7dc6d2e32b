// The operating-system accessors, over fixed answers of libc and the kernel.

#include "flat/systemprovider.h"
#include "tests/flat/Calls.h"
#include "tests/testing/FakeLibc.h"

#include <cstdlib>
#include <cstring>

namespace
{
// The figures are unlike each other, and no accessor forwards to `totalram`.
class OperatingSystem : public FakeLibcTest
{
protected:
    OperatingSystem()
    {
        libc.now = 1110214800; // 2005-03-07 17:00:00 UTC
        libc.figures.uptime = 3601;
        libc.figures.totalram = 7340032;
        libc.figures.freeram = 5242880;
        libc.figures.totalswap = 3145728;
        libc.figures.procs = 54321;
        libc.figures.mem_unit = 4096; // no accessor may look at it
        std::strcpy(libc.names.sysname, "sysname");
        std::strcpy(libc.names.release, "9.8.7-fixed");
        std::strcpy(libc.names.version, "version");
        std::strcpy(libc.names.machine, "machine");
        libc.codeSet = "FIXED-CODESET";
        setenv("LANG", "de_DE.ISO-8859-1", 1);
        setenv("LC_CTYPE", "fr_FR.UTF-8", 1);
    }
};
}

TEST_F(OperatingSystem, NameIsLinux)
{
    EXPECT_EQ(textOf(getOSName), "Linux");
}

TEST_F(OperatingSystem, VersionIsTheKernelsRelease)
{
    EXPECT_EQ(textOf(getOSVersion), "9.8.7-fixed");
}

TEST_F(OperatingSystem, CodeSetIsThatOfLang)
{
    EXPECT_EQ(textOf(getOSCodeSet), "ISO-8859-1");
}

TEST_F(OperatingSystem, CodeSetIsThatOfLibcWithoutLang)
{
    unsetenv("LANG");
    EXPECT_EQ(textOf(getOSCodeSet), "FIXED-CODESET");
}

TEST_F(OperatingSystem, LanguageEditionIsTheLanguageOfLang)
{
    EXPECT_EQ(textOf(getOSLanguageEdition), "de-DE");
}

TEST_F(OperatingSystem, LanguageEditionIsEmptyWithoutAnyLanguage)
{
    unsetenv("LANG");
    unsetenv("LC_CTYPE");
    EXPECT_EQ(textOf(getOSLanguageEdition), "");
}

TEST_F(OperatingSystem, TypeIsThatOfLinux)
{
    EXPECT_EQ(getOSType(), 36);
}

TEST_F(OperatingSystem, IsNotDistributed)
{
    libc.gmtOffset = 345L * 60; // so that nothing else beside it is 0
    EXPECT_EQ(getOSDistributed(), 0);
}

TEST_F(OperatingSystem, TimeZoneIsPositiveToTheEast)
{
    libc.gmtOffset = 345L * 60;
    EXPECT_EQ(getOSCurrentTimeZone(), 345);
}

TEST_F(OperatingSystem, TimeZoneIsNegativeToTheWest)
{
    libc.gmtOffset = -210L * 60;
    EXPECT_EQ(getOSCurrentTimeZone(), -210);
}

TEST_F(OperatingSystem, ProcessesAreThoseOfTheKernelInSixteenBits)
{
    EXPECT_EQ(getOSNumberOfProcesses(), 54321u);
}

TEST_F(OperatingSystem, LargestNumberOfProcessesIsFixed)
{
    EXPECT_EQ(getOSMaxNumberOfProcesses(), 2147483647u);
}

TEST_F(OperatingSystem, UsersAreNotCounted)
{
    EXPECT_EQ(getOSNumberOfUsers(), 0u);
    EXPECT_EQ(getOSNumberOfLicensedUsers(), 0u);
}

TEST_F(OperatingSystem, FreePhysicalMemoryIsFreeramInKibibytes)
{
    EXPECT_EQ(getOSFreePhysicalMemory(), 5120u);
}

TEST_F(OperatingSystem, SwapSpaceIsTotalswapInKibibytes)
{
    EXPECT_EQ(getOSTotalSwapSpaceSize(), 3072u);
}

TEST_F(OperatingSystem, MemoryIsNeverNegative)
{
    libc.figures.freeram = 0xFFFFFFFFul;
    EXPECT_EQ(getOSFreePhysicalMemory(), 4194303u);
}

TEST_F(OperatingSystem, MemoryFiguresWithoutSourceAreZero)
{
    EXPECT_EQ(getOSMaxProcessMemorySize(), 0u);
    EXPECT_EQ(getOSFreeSpaceInPagingFiles(), 0u);
    EXPECT_EQ(getOSSizeStoredInPagingFiles(), 0u);
    EXPECT_EQ(getOSTotalVisibleMemorySize(), 0u);
    EXPECT_EQ(getOSFreeVirtualMemory(), 0u);
    EXPECT_EQ(getOSTotalVirtualMemorySize(), 0u);
}

TEST_F(OperatingSystem, DatesAreLocalTimeWithOffsetFieldZero)
{
    libc.gmtOffset = -300L * 60;
    EXPECT_EQ(textOf(getOSInstallDate), "19691231190000.000000+000");
    EXPECT_EQ(textOf(getOSLocalDateTime), "20050307120000.000000+000");
    EXPECT_EQ(textOf(getOSLastBootUpTime), "20050307105959.000000+000");
}

TEST_F(OperatingSystem, DatesAreReadAnewOnEachCall)
{
    EXPECT_EQ(textOf(getOSLocalDateTime), "20050307170000.000000+000");
    libc.now += 61;
    EXPECT_EQ(textOf(getOSLocalDateTime), "20050307170101.000000+000");
    EXPECT_EQ(textOf(getOSLastBootUpTime), "20050307160100.000000+000");
}
