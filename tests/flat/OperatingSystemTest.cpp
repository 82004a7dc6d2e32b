// The operating-system accessors, over fixed answers of libc and the kernel.

#include "flat/systemprovider.h"
#include "tests/flat/Calls.h"
#include "tests/flat/FixedSystem.h"

#include <cstdlib>

namespace
{
class OperatingSystem : public testing::Test
{
protected:
    void SetUp() override
    {
        fixedSystem() = FixedSystem();
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
    EXPECT_EQ(getOSDistributed(), 0);
}

TEST_F(OperatingSystem, TimeZoneIsPositiveToTheEast)
{
    fixedSystem().minutesEast = 345;
    EXPECT_EQ(getOSCurrentTimeZone(), 345);
}

TEST_F(OperatingSystem, TimeZoneIsNegativeToTheWest)
{
    fixedSystem().minutesEast = -210;
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
    fixedSystem().freeram = 0xFFFFFFFFul;
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
    fixedSystem().minutesEast = -300;
    EXPECT_EQ(textOf(getOSInstallDate), "19691231190000.000000+000");
    EXPECT_EQ(textOf(getOSLocalDateTime), "20050307120000.000000+000");
    EXPECT_EQ(textOf(getOSLastBootUpTime), "20050307105959.000000+000");
}

TEST_F(OperatingSystem, DatesAreReadAnewOnEachCall)
{
    EXPECT_EQ(textOf(getOSLocalDateTime), "20050307170000.000000+000");
    fixedSystem().now += 61;
    EXPECT_EQ(textOf(getOSLocalDateTime), "20050307170101.000000+000");
    EXPECT_EQ(textOf(getOSLastBootUpTime), "20050307160100.000000+000");
}
