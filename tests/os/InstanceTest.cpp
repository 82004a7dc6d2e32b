// The instances of the two classes, row by row, over fixed answers of libc.

#include "tests/testing/CimLines.h"
#include "tests/testing/FakeLibc.h"
#include "tests/testing/Provider.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

using Lines = std::vector<std::string>;

namespace
{
class OsInstances : public FakeLibcTest
{
protected:
    OsInstances()
    {
        libc.now = 1773500966; // 2026-03-14 15:09:26 UTC
        libc.gmtOffset = 20700;
        libc.figures.uptime = 90061;
        libc.figures.totalram = 0x80000000;
        libc.figures.freeram = 1234567890;
        libc.figures.totalswap = 0xFFFFFFFF;
        libc.figures.procs = 65535;
        libc.figures.mem_unit = 4096;
        std::strcpy(libc.names.nodename, "host-1");
        std::strcpy(libc.names.release, "6.1.0-18-686-pae");
        libc.codeSet = "LIBC";
        setenv("LANG", "de_DE.UTF-8", 1);
    }

    // The one instance of the class.
    static Pegasus::CIMInstance only(const char* className)
    {
        const std::vector<Pegasus::CIMInstance> instances = instancesOf(className);
        if (instances.size() != 1)
            throw std::runtime_error("not one instance");
        return instances[0];
    }
};

using OperatingSystemInstance = OsInstances;
using SystemMemoryInstance = OsInstances;

Lines without(const Lines& lines, const std::vector<std::string>& names)
{
    Lines rest;
    for (const std::string& line : lines) {
        bool named = false;
        for (const std::string& name : names)
            named = named || line.rfind(name + " |", 0) == 0;
        if (!named)
            rest.push_back(line);
    }
    return rest;
}
}

TEST_F(OperatingSystemInstance, HasItsPropertiesInOrder)
{
    const Lines expected = {
        "Caption | string | Linux",
        "Description | string | Linux",
        "Name | string | Linux",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_OperatingSystem",
        "CSCreationClassName | string | QORTAL_ComputerSystem",
        "CSName | string | host-1",
        "CurrentTimeZone | sint16 | 345",
        "Distributed | boolean | FALSE",
        "FreePhysicalMemory | uint64 | 1205632",
        "FreeSpaceInPagingFiles | uint64 | 0",
        "FreeVirtualMemory | uint64 | 0",
        "LastBootUpTime | datetime | 20260313195325.000000+345",
        "LocalDateTime | datetime | 20260314205426.000000+345",
        "MaxNumberOfProcesses | uint32 | 2147483647",
        "MaxProcessMemorySize | uint64 | 0",
        "NumberOfLicensedUsers | uint32 | 0",
        "NumberOfProcesses | uint32 | 65535",
        "NumberOfUsers | uint32 | 0",
        "OSType | uint16 | 36",
        "SizeStoredInPagingFiles | uint64 | 0",
        "TotalSwapSpaceSize | uint64 | 4194303",
        "TotalVirtualMemorySize | uint64 | 0",
        "TotalVisibleMemorySize | uint64 | 0",
        "Version | string | 6.1.0-18-686-pae",
        "CodeSet | string | UTF-8",
        "LanguageEdition | string | de-DE",
    };
    EXPECT_EQ(expected.size(), 27u);
    EXPECT_EQ(propertyLines(only("QORTAL_OperatingSystem")), expected);
}

TEST_F(OperatingSystemInstance, HasItsKeys)
{
    const Lines expected = {
        "CreationClassName | STRING | QORTAL_OperatingSystem",
        "CSCreationClassName | STRING | QORTAL_ComputerSystem",
        "CSName | STRING | host-1",
        "Name | STRING | Linux",
    };
    EXPECT_EQ(keyLines(only("QORTAL_OperatingSystem").getPath()), expected);
}

TEST_F(OperatingSystemInstance, CreationClassNameIsFixedHoweverTheClientWritesTheClass)
{
    const Pegasus::CIMInstance instance = only("qortal_OPERATINGsystem");
    EXPECT_EQ(text(instance.getPath().getClassName().getString()), "qortal_OPERATINGsystem");
    EXPECT_EQ(valueOf(instance, "CreationClassName"), "QORTAL_OperatingSystem");
}

TEST_F(OperatingSystemInstance, WestOfUtcHasANegativeOffset)
{
    libc.gmtOffset = -12600;
    const Pegasus::CIMInstance instance = only("QORTAL_OperatingSystem");
    EXPECT_EQ(valueOf(instance, "CurrentTimeZone"), "-210");
    EXPECT_EQ(valueOf(instance, "LocalDateTime"), "20260314113926.000000-210");
    EXPECT_EQ(valueOf(instance, "LastBootUpTime"), "20260313103825.000000-210");
}

TEST_F(OperatingSystemInstance, AsksTheKernelForEachFigureByItself)
{
    only("QORTAL_OperatingSystem");
    EXPECT_EQ(libc.sysinfoCalls, 4); // free memory, uptime, processes, swap
}

TEST_F(OperatingSystemInstance, OfAKernelThatAnswersNothingIsStillWhole)
{
    const Lines before = propertyLines(only("QORTAL_OperatingSystem"));
    libc.sysinfoFails = libc.unameFails = true;
    soilStack();
    const Pegasus::CIMInstance instance = only("QORTAL_OperatingSystem");
    EXPECT_EQ(valueOf(instance, "CSName"), "");
    EXPECT_EQ(valueOf(instance, "FreePhysicalMemory"), "0");
    EXPECT_EQ(valueOf(instance, "LastBootUpTime"), "20260314205426.000000+345");
    EXPECT_EQ(valueOf(instance, "NumberOfProcesses"), "0");
    EXPECT_EQ(valueOf(instance, "TotalSwapSpaceSize"), "0");
    EXPECT_EQ(valueOf(instance, "Version"), "");
    const std::vector<std::string> changed = {
        "CSName", "FreePhysicalMemory", "LastBootUpTime", "NumberOfProcesses", "TotalSwapSpaceSize", "Version"};
    EXPECT_EQ(without(propertyLines(instance), changed), without(before, changed));
}

TEST_F(OperatingSystemInstance, OfABrokenLocalTimeHasUnknownDates)
{
    libc.localtimeFails = true;
    const Pegasus::CIMInstance instance = only("QORTAL_OperatingSystem");
    EXPECT_EQ(instance.getPropertyCount(), 27u);
    EXPECT_EQ(valueOf(instance, "LocalDateTime"), "**************.******+000");
    EXPECT_EQ(valueOf(instance, "LastBootUpTime"), "**************.******+000");
    EXPECT_EQ(valueOf(instance, "CurrentTimeZone"), "0");
    EXPECT_EQ(valueOf(instance, "InstallDate"), "absent");
}

TEST_F(OperatingSystemInstance, TakesEnvironmentTextThatIsNotUtf8)
{
    setenv("LANG", "\xE9_x.\xFF", 1);
    const Pegasus::CIMInstance instance = only("QORTAL_OperatingSystem");
    EXPECT_EQ(valueOf(instance, "LanguageEdition"), "\xC3\xA9-x");
    EXPECT_EQ(valueOf(instance, "CodeSet"), "\xC3\xBF");
}

TEST_F(SystemMemoryInstance, HasItsPropertiesInOrder)
{
    const Lines expected = {
        "Caption | string | Logical System Memory",
        "Description | string | System Memory",
        "Name | string | System Memory",
        "CreationClassName | string | QORx_SystemMemory",
        "DeviceID | string | System Memory",
        "SystemCreationClassName | string | QORTAL_ComputerSystem",
        "SystemName | string | host-1",
        "BlockSize | uint64 | 1",
        "ConsumableBlocks | uint64 | 2147483648",
        "NumberOfBlocks | uint64 | 2147483648",
        "SequentialAccess | boolean | FALSE",
        "Volatile | boolean | TRUE",
        "StartingAddress | uint64 | 0",
        "EndingAddress | uint64 | 2147483648",
    };
    EXPECT_EQ(expected.size(), 14u);
    EXPECT_EQ(propertyLines(only("QORx_SystemMemory")), expected);
}

TEST_F(SystemMemoryInstance, HasAKeyDeviceIdThatHoldsTheDeviceID)
{
    const Lines expected = {
        "CreationClassName | STRING | QORx_SystemMemory",
        "DeviceId | STRING | System Memory",
        "SystemCreationClassName | STRING | QORTAL_ComputerSystem",
        "SystemName | STRING | host-1",
    };
    EXPECT_EQ(keyLines(only("QORx_SystemMemory").getPath()), expected);
}

TEST_F(SystemMemoryInstance, CreationClassNameIsTheClassAsTheClientWroteIt)
{
    const Pegasus::CIMInstance instance = only("qorx_SYSTEMmemory");
    EXPECT_EQ(valueOf(instance, "CreationClassName"), "qorx_SYSTEMmemory");
    EXPECT_EQ(keyLines(instance.getPath())[0], "CreationClassName | STRING | qorx_SYSTEMmemory");
}

TEST_F(SystemMemoryInstance, SizeIsAMultipleOf1024)
{
    const struct
    {
        unsigned long reported;
        const char* bytes;
    } cases[] = {
        {0, "0"}, {1023, "0"}, {1024, "1024"}, {2147484671, "2147483648"}, {0xFFFFFFFF, "4294966272"},
    };
    for (const auto& c : cases) {
        libc.figures.totalram = c.reported;
        const Pegasus::CIMInstance instance = only("QORx_SystemMemory");
        EXPECT_EQ(valueOf(instance, "ConsumableBlocks"), c.bytes);
        EXPECT_EQ(valueOf(instance, "NumberOfBlocks"), c.bytes);
        EXPECT_EQ(valueOf(instance, "EndingAddress"), c.bytes);
        EXPECT_EQ(valueOf(instance, "BlockSize"), "1");
    }
}

TEST_F(SystemMemoryInstance, Of4GiBIsWhole)
{
    if (sizeof(unsigned long) == 4)
        GTEST_SKIP() << "a 32-bit sysinfo record cannot hold 4 GiB in bytes";
    libc.figures.totalram = static_cast<unsigned long>(0x100000000);
    const Pegasus::CIMInstance instance = only("QORx_SystemMemory");
    EXPECT_EQ(valueOf(instance, "ConsumableBlocks"), "4294967296");
    EXPECT_EQ(valueOf(instance, "NumberOfBlocks"), "4294967296");
    EXPECT_EQ(valueOf(instance, "EndingAddress"), "4294967296");
    EXPECT_EQ(valueOf(instance, "BlockSize"), "1");
}

TEST_F(SystemMemoryInstance, OfAKernelThatAnswersNothingIsStillWhole)
{
    libc.sysinfoFails = libc.unameFails = true;
    soilStack();
    const Pegasus::CIMInstance instance = only("QORx_SystemMemory");
    EXPECT_EQ(instance.getPropertyCount(), 14u);
    EXPECT_EQ(valueOf(instance, "SystemName"), "");
    EXPECT_EQ(valueOf(instance, "NumberOfBlocks"), "0");
}
