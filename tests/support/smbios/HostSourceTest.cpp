#include "support/smbios/HostSource.h"

#include "support/smbios/File.h"
#include "support/smbios/SmBios.h"
#include "tests/support/smbios/Platform.h"
#include "tests/testing/EntryPoints.h"
#include "tests/testing/TableBuilder.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace VQ;

namespace
{
HostPaths hostPaths;
}

// The reader of this program reads the places of the test.
RawTables VQ::readRawTables()
{
    return readHostTables(hostPaths);
}

namespace
{
constexpr std::size_t AreaAddress = 0xF0000;
constexpr std::size_t AreaEnd = 0x100000;
constexpr std::size_t TableAddress = 0xE1230;

const char* const SysfsAdvice = " (the SMBIOS table is readable by root only: run as root)";
const char* const MemoryAdvice =
    " (the SMBIOS table is readable by root only, and only where the kernel is not locked down)";

// Rights count for other users only; a test that runs as root gives it up.
class Unprivileged
{
public:
    Unprivileged() : _user(geteuid())
    {
        if (_user == 0 && seteuid(65534) != 0)
            throw std::runtime_error("cannot give up root");
    }
    ~Unprivileged() { EXPECT_EQ(seteuid(_user), 0); }

private:
    uid_t _user;
};

// Memory from 1 MiB on can't be read, as on a 32-bit kernel; it can be mapped.
class Unreadable : public Platform
{
public:
    Unreadable()
    {
        preadError = EFAULT;
        preadErrorFrom = 0x100000;
    }
};

class Places : public testing::Test
{
protected:
    Places()
    {
        std::string name = testing::TempDir() + "vq-host-XXXXXX";
        if (!mkdtemp(name.data()))
            throw std::runtime_error("cannot create " + name);
        directory = name;
        forEverybody(directory, 0755);
        hostPaths.tablesDirectory = name + "/tables";
        hostPaths.memoryDevice = name + "/mem";
    }
    ~Places() override
    {
        hostPaths = HostPaths();
        std::filesystem::remove_all(directory);
    }

    // Whatever umask the test has.
    static void forEverybody(const std::filesystem::path& path, unsigned mode)
    {
        std::filesystem::permissions(path, std::filesystem::perms(mode));
    }

    static void write(const std::string& file, const Bytes& bytes)
    {
        std::ofstream out(file, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        forEverybody(file, 0644);
    }

    static std::string errorText()
    {
        try {
            const SmBios smBios;
        } catch (const SmBiosError& error) {
            return error.what();
        }
        return "no error";
    }

    static void expectNothing()
    {
        const SmBios smBios;
        EXPECT_EQ(smBios.getMajorVersion(), 0);
        EXPECT_EQ(smBios.getMinorVersion(), 0);
        EXPECT_TRUE(smBios.getTables().empty());
    }

    static TableBuilder smallTable()
    {
        TableBuilder table;
        table.type(7).string(0x04, "L1").type(127);
        return table;
    }

    // A table of `size` bytes in all: one structure with one long string, so nothing may be lost or doubled.
    static Bytes tableOfSize(std::size_t size)
    {
        std::string text(size - 7, ' ');
        for (std::size_t i = 0; i < text.size(); ++i)
            text[i] = static_cast<char>('A' + i * 7 % 26 + i / 4096 % 5);
        return TableBuilder().type(11).byte(0x04, 1).string(text).structures();
    }

    std::filesystem::path directory;
};

class Sysfs : public Places
{
protected:
    Sysfs()
    {
        std::filesystem::create_directory(hostPaths.tablesDirectory);
        forEverybody(hostPaths.tablesDirectory, 0755);
    }

    static std::string entryPointFile() { return hostPaths.tablesDirectory + "/smbios_entry_point"; }
    static std::string tableFile() { return hostPaths.tablesDirectory + "/DMI"; }
    static void offer(const Bytes& entryPoint, const Bytes& table)
    {
        write(entryPointFile(), entryPoint);
        write(tableFile(), table);
    }
    static void offerSmallTable() { offer(entryPoint32(0xE0000, 1000, 2), smallTable().structures()); }
};

class Memory : public Places
{
protected:
    Memory() : image(AreaEnd) {}

    void place(std::size_t address, const Bytes& bytes)
    {
        image.resize(std::max(image.size(), address + bytes.size()));
        std::copy(bytes.begin(), bytes.end(), image.begin() + static_cast<long>(address));
    }
    void placeSmallTable()
    {
        const Bytes table = smallTable().structures();
        place(TableAddress, table);
        place(0xF1230, entryPoint32(TableAddress, static_cast<std::uint16_t>(table.size()), 2));
    }
    void offer() const { write(hostPaths.memoryDevice, image); }

    // What the reader says of the image: "2.4: 7 127".
    std::string read() const
    {
        offer();
        return summary();
    }
    static std::string summary()
    {
        const SmBios smBios;
        std::string text = std::to_string(smBios.getMajorVersion()) + "." + std::to_string(smBios.getMinorVersion());
        text += ":";
        for (const SmBios::Table& table : smBios.getTables())
            text += " " + std::to_string(table.getType());
        return text;
    }

    Bytes image;
};
}

TEST_F(Sysfs, ReadsEntryPointAndTable)
{
    offerSmallTable();
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_EQ(smBios.getMinorVersion(), 4);
    ASSERT_EQ(smBios.getTables().size(), 2u);
    EXPECT_STREQ(smBios.getTables()[0].getString(1), "L1");
    EXPECT_EQ(&smBios.getTables(), &smBios.getTables());
}

TEST_F(Sysfs, ReadsA64BitEntryPoint)
{
    offer(entryPoint64(0x123456789A, 1000), smallTable().structures());
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 3);
    EXPECT_EQ(smBios.getMinorVersion(), 2);
    EXPECT_EQ(smBios.getTables().size(), 2u);
}

TEST_F(Sysfs, ReadsTheEntryPointOf1EhBytesThatOldFirmwareHas)
{
    Bytes entryPoint = entryPoint32(0xE0000, 1000, 2);
    entryPoint[0x05] = 0x1E;
    setChecksum(entryPoint, 0x00, 0x1E, 0x04);
    entryPoint.resize(0x1E);
    offer(entryPoint, smallTable().structures());
    EXPECT_EQ(SmBios().getTables().size(), 2u);
}

TEST_F(Sysfs, TableIsReadInOneAnswerForEachPageAndOneForItsEnd)
{
    const Bytes table = tableOfSize(3 * 4096 + 100);
    offer(entryPoint64(0, 1000000), table);
    Platform platform;
    platform.largestAnswer = 4096;
    const SmBios smBios;
    EXPECT_EQ(platform.reads, (std::vector<std::size_t>{24, 0, 4096, 4096, 4096, 100, 0}));
    EXPECT_EQ(platform.opened, (std::vector<std::string>{entryPointFile(), tableFile()}));
    ASSERT_EQ(smBios.getTables().size(), 1u);
    EXPECT_EQ(smBios.getTables()[0].getData(), table);
}

TEST_F(Sysfs, TableOfWholePagesIsRead)
{
    for (const std::size_t size : {4095u, 4096u, 4097u, 8192u}) {
        const Bytes table = tableOfSize(size);
        offer(entryPoint64(0, 1000000), table);
        Platform platform;
        platform.largestAnswer = 4096;
        const SmBios smBios;
        ASSERT_EQ(smBios.getTables().size(), 1u) << size;
        EXPECT_EQ(smBios.getTables()[0].getData(), table) << size;
    }
}

TEST_F(Sysfs, TableOfMoreThan64KilobytesIsWhole)
{
    const Bytes table = tableOfSize(200000);
    offer(entryPoint64(0, 1000000), table);
    const SmBios smBios;
    ASSERT_EQ(smBios.getTables().size(), 1u);
    EXPECT_EQ(smBios.getTables()[0].getData(), table);
}

TEST_F(Sysfs, TableOfMoreThan20000StructuresIsWhole)
{
    TableBuilder table;
    for (std::uint16_t i = 0; i < 21000; ++i)
        table.type(9).handle(i);
    offer(entryPoint64(0, 1000000), table.structures());
    const SmBios smBios;
    ASSERT_EQ(smBios.getTables().size(), 21000u);
    EXPECT_EQ(smBios.getTables().back().getHandle(), 20999);
}

TEST_F(Sysfs, InterruptedAndSmallAnswersAreReadOn)
{
    const Bytes table = tableOfSize(1000);
    offer(entryPoint64(0, 1000000), table);
    Platform platform;
    platform.largestAnswer = 7;
    platform.interrupted = true;
    const SmBios smBios;
    ASSERT_EQ(smBios.getTables().size(), 1u);
    EXPECT_EQ(smBios.getTables()[0].getData(), table);
}

TEST_F(Sysfs, AnnouncedLengthLimitsTheTable)
{
    const Bytes table = smallTable().structures(); // 9 and 6 bytes
    offer(entryPoint64(0, 14), table);
    EXPECT_EQ(SmBios().getTables().size(), 1u);
    offer(entryPoint32(0xE0000, 14, 2), table);
    EXPECT_EQ(SmBios().getTables().size(), 1u);
    offer(entryPoint64(0, 15), table);
    EXPECT_EQ(SmBios().getTables().size(), 2u);
    offer(entryPoint64(0, 0), table);
    EXPECT_EQ(SmBios().getTables().size(), 0u);
}

TEST_F(Sysfs, EntryPointOfVersion20IsRead)
{
    offer(entryPointDmi(0xE0000, 1000, 2), smallTable().structures());
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_EQ(smBios.getMinorVersion(), 0);
    EXPECT_EQ(smBios.getTables().size(), 2u);
}

TEST_F(Sysfs, AnnouncedLengthMayBeLongerThanTheTable)
{
    offer(entryPoint64(0, 0xFFFFFFFF), smallTable().structures());
    EXPECT_EQ(SmBios().getTables().size(), 2u);
}

TEST_F(Sysfs, AnnouncedCountLimitsTheStructuresOfVersion2Only)
{
    TableBuilder table;
    table.type(7).type(8).type(127);
    offer(entryPoint32(0xE0000, 1000, 2), table.structures());
    EXPECT_EQ(SmBios().getTables().size(), 2u);
    offer(entryPoint64(0, 1000), table.structures());
    EXPECT_EQ(SmBios().getTables().size(), 3u);
}

TEST_F(Sysfs, EmptyTableHasAVersionAndNoStructures)
{
    offer(entryPoint32(0xE0000, 0, 0), {});
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_TRUE(smBios.getTables().empty());
}

TEST_F(Sysfs, EachReaderSeesTheCurrentTable)
{
    offerSmallTable();
    const SmBios before;
    offer(entryPoint64(0, 1000), TableBuilder().type(8).structures());
    const SmBios after;
    EXPECT_EQ(before.getTables().size(), 2u);
    EXPECT_EQ(after.getTables().size(), 1u);
    EXPECT_EQ(after.getMajorVersion(), 3);
}

TEST_F(Sysfs, MemoryIsNotOpenedWhereTheDirectoryIs)
{
    offerSmallTable();
    const Platform platform;
    const SmBios smBios;
    EXPECT_EQ(platform.opened, (std::vector<std::string>{entryPointFile(), tableFile()}));
}

TEST_F(Sysfs, MissingFileIsAnError)
{
    EXPECT_EQ(errorText(), "cannot open " + entryPointFile() + ": No such file or directory");
    write(entryPointFile(), entryPoint32(0xE0000, 1000, 2));
    EXPECT_EQ(errorText(), "cannot open " + tableFile() + ": No such file or directory");
}

TEST_F(Sysfs, UnreadableFileIsAnErrorThatTellsWhatHelps)
{
    offerSmallTable();
    std::filesystem::permissions(tableFile(), std::filesystem::perms::none);
    {
        const Unprivileged user;
        EXPECT_EQ(errorText(), "cannot open " + tableFile() + ": Permission denied" + SysfsAdvice);
    }
    std::filesystem::permissions(entryPointFile(), std::filesystem::perms::none);
    const Unprivileged user;
    EXPECT_EQ(errorText(), "cannot open " + entryPointFile() + ": Permission denied" + SysfsAdvice);
}

TEST_F(Sysfs, DirectoryThatCannotBeEnteredIsNotAMachineWithoutSmbios)
{
    offerSmallTable();
    std::filesystem::permissions(directory, std::filesystem::perms::none);
    {
        const Unprivileged user;
        EXPECT_EQ(errorText(), "cannot open " + entryPointFile() + ": Permission denied" + SysfsAdvice);
    }
    std::filesystem::permissions(directory, std::filesystem::perms(0755));
}

TEST_F(Sysfs, FailedReadIsAnError)
{
    offerSmallTable();
    Platform platform;
    platform.readError = EIO;
    EXPECT_EQ(errorText(), "cannot read " + entryPointFile() + ": Input/output error");
    platform.readError = EPERM;
    EXPECT_EQ(errorText(), "cannot read " + entryPointFile() + ": Operation not permitted" + SysfsAdvice);
}

TEST_F(Sysfs, DirectoryInPlaceOfAFileIsAnError)
{
    write(entryPointFile(), entryPoint32(0xE0000, 1000, 2));
    std::filesystem::create_directory(tableFile());
    EXPECT_EQ(errorText(), "cannot read " + tableFile() + ": Is a directory");
}

TEST_F(Sysfs, WhatIsNoEntryPointIsAnErrorThatTellsTheFile)
{
    offer({'n', 'o', 'n', 'e'}, smallTable().structures());
    EXPECT_EQ(errorText(),
              entryPointFile() +
                  ": no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), \"_SM_\" "
                  "(5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact entry point, found 6E 6F 6E 65");
}

TEST_F(Sysfs, EmptyEntryPointIsAnErrorAndNotAMachineWithoutSmbios)
{
    offer({}, smallTable().structures());
    EXPECT_EQ(errorText(), entryPointFile() + ": no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), "
                                              "\"_SM_\" (5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact "
                                              "entry point, found nothing");
}

TEST_F(Sysfs, InterruptedOpeningIsTriedAgain)
{
    offerSmallTable();
    Platform platform;
    platform.interruptedOpens = 2;
    EXPECT_EQ(SmBios().getTables().size(), 2u);
    EXPECT_EQ(platform.opened.size(), 4u);
}

TEST_F(Sysfs, FilesMayHaveTheFirstDescriptor)
{
    offerSmallTable();
    const int input = dup(0);
    close(0);
    std::size_t structures = 0;
    EXPECT_NO_THROW(structures = SmBios().getTables().size());
    const bool closed = fcntl(0, F_GETFD) < 0;
    dup2(input, 0);
    close(input);
    EXPECT_EQ(structures, 2u);
    EXPECT_TRUE(closed);
}

TEST_F(Sysfs, SizeThatTheFileSystemClaimsIsNotAllocatedBeforeTheBytesCome)
{
    offerSmallTable();
    Platform platform;
    platform.claimedSize = std::uint64_t{2} << 40;
    EXPECT_EQ(SmBios().getTables().size(), 2u);
    EXPECT_LE(platform.largestRead, 2u << 20);
}

TEST_F(Memory, EntryPointLeadsToTheTable)
{
    placeSmallTable();
    offer();
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_EQ(smBios.getMinorVersion(), 4);
    ASSERT_EQ(smBios.getTables().size(), 2u);
    EXPECT_STREQ(smBios.getTables()[0].getString(1), "L1");
}

TEST_F(Memory, IsReadWhereAPartOfTheDirectorysPathIsAFile)
{
    placeSmallTable();
    write(hostPaths.tablesDirectory, {});
    hostPaths.tablesDirectory += "/below";
    EXPECT_EQ(read(), "2.4: 7 127");
}

TEST_F(Memory, EntryPointOf64BitsComesBeforeOneOf32)
{
    placeSmallTable();
    place(0xE8000, TableBuilder().type(8).structures());
    place(0xFFFE0, entryPoint64(0xE8000, 1000));
    EXPECT_EQ(read(), "3.2: 8");
}

TEST_F(Memory, EntryPointOfVersion20CountsWhereThereIsNoOther)
{
    place(TableAddress, smallTable().structures());
    place(0xF0000, entryPointDmi(TableAddress, 15, 2));
    EXPECT_EQ(read(), "2.0: 7 127");
    place(0xE8000, TableBuilder().type(8).structures());
    place(0xFFFE0, entryPoint32(0xE8000, 6, 1));
    EXPECT_EQ(read(), "2.4: 8");
}

TEST_F(Memory, EntryPointOfVersion20CountsInADamagedOneOf32Bits)
{
    place(TableAddress, smallTable().structures());
    Bytes damaged = entryPoint32(TableAddress, 15, 2);
    damaged[0x06] ^= 0x10; // the version, under the outer checksum only
    place(0xF1230, damaged);
    EXPECT_EQ(read(), "2.4: 7 127") << "as its BCD revision says";
}

TEST_F(Memory, EntryPointIsFoundAtBothEndsOfTheArea)
{
    const Bytes table = smallTable().structures();
    place(TableAddress, table);
    place(0xF0000, entryPoint64(TableAddress, 15));
    EXPECT_EQ(read(), "3.2: 7 127");
    place(0xF0000, Bytes(32));
    place(0xFFFE0, entryPoint32(TableAddress, 15, 2));
    EXPECT_EQ(read(), "2.4: 7 127");
}

TEST_F(Memory, EntryPointStandsOnAStepOf16Bytes)
{
    const Bytes table = smallTable().structures();
    place(TableAddress, table);
    place(0xF1008, entryPoint32(TableAddress, 15, 2));
    place(0xF2001, entryPoint64(TableAddress, 15));
    offer();
    expectNothing();
    place(0xF3010, entryPoint32(TableAddress, 15, 2));
    EXPECT_EQ(read(), "2.4: 7 127");
}

TEST_F(Memory, EntryPointOutsideOfTheAreaDoesNotCount)
{
    place(TableAddress, smallTable().structures());
    place(AreaAddress - 0x20, entryPoint32(TableAddress, 15, 2));
    place(AreaEnd, entryPoint32(TableAddress, 15, 2));
    offer();
    expectNothing();
}

TEST_F(Memory, CandidateWhoseChecksumDoesNotHoldIsPassedOver)
{
    Bytes broken = entryPoint64(0xD0000, 1000);
    broken[0x0C] ^= 1;
    place(0xF0100, broken);
    broken = entryPoint32(0xD0000, 1000, 9);
    broken[0x1C] ^= 1;
    place(0xF0200, broken);
    placeSmallTable();
    EXPECT_EQ(read(), "2.4: 7 127");
}

TEST_F(Memory, FirstIntactEntryPointCounts)
{
    placeSmallTable(); // at F1230h
    place(0xE8000, TableBuilder().type(8).structures());
    place(0xF2000, entryPoint32(0xE8000, 6, 1));
    EXPECT_EQ(read(), "2.4: 7 127");
}

TEST_F(Memory, NoEntryPointIsNothing)
{
    offer();
    expectNothing();
}

TEST_F(Memory, MissingDeviceIsNothing)
{
    expectNothing();
}

TEST_F(Memory, DeviceWithoutADriverIsNothingAndAnyOtherFailureAnError)
{
    Platform platform;
    for (const int error : {ENXIO, ENODEV}) {
        platform.openError = error;
        expectNothing();
    }
    platform.openError = EIO;
    EXPECT_EQ(errorText(), "cannot open " + hostPaths.memoryDevice + ": Input/output error");
}

TEST_F(Places, FileThatCannotBeLookedAtIsRefused)
{
    write(hostPaths.memoryDevice, Bytes(10));
    const File file(hostPaths.memoryDevice, "advice");
    Platform platform;
    platform.fstatError = EIO;
    EXPECT_EQ(file.size(), 0u);
    try {
        file.requireRegular(100);
        FAIL() << "it was accepted";
    } catch (const SmBiosError& error) {
        EXPECT_EQ(error.what(), "cannot look at " + hostPaths.memoryDevice + ": Input/output error");
    }
}

TEST_F(Places, PipeHasNoPlaceToReadFrom)
{
    ASSERT_EQ(mkfifo(hostPaths.memoryDevice.c_str(), 0600), 0);
    File file(hostPaths.memoryDevice, "advice");
    try {
        file.seek(4);
        FAIL() << "it was sought in";
    } catch (const SmBiosError& error) {
        EXPECT_EQ(error.what(), "cannot read " + hostPaths.memoryDevice + ": Illegal seek");
    }
}

TEST_F(Memory, UnreadableDeviceIsAnErrorThatTellsWhatHelps)
{
    placeSmallTable();
    offer();
    std::filesystem::permissions(hostPaths.memoryDevice, std::filesystem::perms::none);
    const Unprivileged user;
    EXPECT_EQ(errorText(), "cannot open " + hostPaths.memoryDevice + ": Permission denied" + MemoryAdvice);
}

TEST_F(Memory, LockedDownDeviceIsAnErrorThatTellsWhatHelps)
{
    placeSmallTable();
    offer();
    Platform platform;
    platform.preadError = EPERM;
    EXPECT_EQ(errorText(), "cannot read " + hostPaths.memoryDevice + ": Operation not permitted" + MemoryAdvice);
}

TEST_F(Memory, DeviceThatEndsBeforeTheAreaIsAnError)
{
    write(hostPaths.memoryDevice, Bytes(AreaAddress));
    EXPECT_EQ(errorText(), "cannot read " + hostPaths.memoryDevice + ": No data available");
}

TEST_F(Memory, DeviceThatEndsWithinTheAreaIsSearchedToItsEnd)
{
    placeSmallTable();
    image.resize(0xF1230 + 0x1F);
    EXPECT_EQ(read(), "2.4: 7 127");
    image.resize(image.size() - 1);
    offer();
    expectNothing();
}

TEST_F(Memory, TableAboveTheEndOfTheDeviceIsAnError)
{
    place(0xF1230, entryPoint32(0x200000, 15, 2));
    offer();
    EXPECT_EQ(errorText(), "cannot read " + hostPaths.memoryDevice + ": No data available");
}

TEST_F(Memory, TableAtAnAddressThatNoFileReachesIsAnError)
{
    place(0xF1230, entryPoint64(0xFFFFFFFFFFFFFFF0, 15));
    offer();
    EXPECT_EQ(errorText(), "cannot read " + hostPaths.memoryDevice + ": Invalid argument");
}

TEST_F(Memory, TableAbove4GigabytesIsReadInBothWidths)
{
    constexpr std::uint64_t high = 0x123456780;
    place(0xF1230, entryPoint64(high, 15));
    offer();
    const Bytes table = smallTable().structures();
    std::fstream device(hostPaths.memoryDevice, std::ios::binary | std::ios::in | std::ios::out);
    device.seekp(static_cast<std::streamoff>(high));
    device.write(reinterpret_cast<const char*>(table.data()), static_cast<std::streamsize>(table.size()));
    device.close();
    EXPECT_EQ(summary(), "3.2: 7 127");
}

TEST_F(Memory, TableThatTheDeviceCutsOffKeepsItsWholeStructures)
{
    place(0x110000, TableBuilder().type(7).type(8).type(9).structures());
    place(0xF1230, entryPoint32(0x110000, 18, 3));
    image.resize(image.size() - 1);
    EXPECT_EQ(read(), "2.4: 7 8");
}

TEST_F(Memory, TableOfMoreThan64KilobytesIsWhole)
{
    const Bytes table = tableOfSize(200000);
    place(0x110000, table);
    place(0xF1230, entryPoint64(0x110000, static_cast<std::uint32_t>(table.size())));
    offer();
    const SmBios smBios;
    ASSERT_EQ(smBios.getTables().size(), 1u);
    EXPECT_EQ(smBios.getTables()[0].getData(), table);
}

TEST_F(Memory, AnnouncedLengthOfNothingIsAnEmptyTable)
{
    place(0xF1230, entryPoint32(TableAddress, 0, 0));
    EXPECT_EQ(read(), "2.4:");
}

TEST_F(Memory, NoMoreThan64MegabytesAreReadHoweverMuchIsAnnounced)
{
    place(0x110000, smallTable().structures());
    place(0xF1230, entryPoint64(0x110000, 0xFFFFFFFF));
    offer();
    const Platform platform;
    EXPECT_EQ(summary(), "3.2: 7 127");
    EXPECT_EQ(*std::max_element(platform.wanted.begin(), platform.wanted.end()), 64u << 20);
}

TEST_F(Memory, InterruptedAndSmallAnswersAreReadOn)
{
    placeSmallTable();
    offer();
    Platform platform;
    platform.largestAnswer = 1000;
    platform.interrupted = true;
    EXPECT_EQ(summary(), "2.4: 7 127");
}

TEST_F(Memory, EndOfAFileIsNoInterruptionWhateverFailedBefore)
{
    write(hostPaths.memoryDevice, Bytes(10));
    File file(hostPaths.memoryDevice, "advice");
    errno = EINTR;
    EXPECT_EQ(file.readAt(4, 100).size(), 6u);
    EXPECT_EQ(file.readAll(100).size(), 10u);
    errno = EFAULT; // nor a reason to map what is not there
    EXPECT_EQ(file.readAt(4, 100).size(), 6u);
}

TEST_F(Memory, TableThatCannotBeReadIsMapped)
{
    constexpr std::size_t unaligned = 0x110FF3; // into the page after it
    const Bytes table = TableBuilder().type(7).string(0x04, "A text of some length").type(127).structures();
    place(unaligned, table);
    place(0xF1230, entryPoint32(unaligned, static_cast<std::uint16_t>(table.size()), 2));
    offer();
    Unreadable platform;
    const SmBios smBios;
    ASSERT_EQ(smBios.getTables().size(), 2u);
    EXPECT_STREQ(smBios.getTables()[0].getString(1), "A text of some length");
    EXPECT_EQ(platform.mapped, 0);
}

TEST_F(Memory, MappedTableOfMoreThan64KilobytesIsWhole)
{
    const Bytes table = tableOfSize(200000);
    place(0x110000, table);
    place(0xF1230, entryPoint64(0x110000, static_cast<std::uint32_t>(table.size())));
    offer();
    Unreadable platform;
    const SmBios smBios;
    ASSERT_EQ(smBios.getTables().size(), 1u);
    EXPECT_EQ(smBios.getTables()[0].getData(), table);
}

TEST_F(Memory, TableThatCanNeitherBeReadNorMappedIsAnError)
{
    place(0x110000, smallTable().structures());
    place(0xF1230, entryPoint32(0x110000, 15, 2));
    offer();
    Unreadable platform;
    platform.mmapError = EPERM;
    EXPECT_EQ(errorText(), "cannot read " + hostPaths.memoryDevice + ": Operation not permitted" + MemoryAdvice);
}

TEST_F(Memory, IsNamedAsTheOriginOfTheTable)
{
    placeSmallTable();
    offer();
    EXPECT_EQ(readHostTables(hostPaths).origin, hostPaths.memoryDevice);
}

TEST_F(Memory, TableAbove4GiBIsMappedThere)
{
    place(0xF1230, entryPoint64(0x110001230, 15));
    offer();
    Unreadable platform;
    platform.mmapError = EPERM;
    EXPECT_NE(errorText(), "no error");
    EXPECT_EQ(platform.mappedFrom, 0x110001000u);
}

TEST_F(Memory, IsNotHandedToOtherProgramsAndNotWaitedFor)
{
    placeSmallTable();
    offer();
    Platform platform;
    const SmBios smBios;
    EXPECT_EQ(platform.openFlags & ~O_LARGEFILE, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

TEST_F(Memory, ErrorAfterTheFirstByteOfTheTableIsAnErrorToo)
{
    place(0x110000, tableOfSize(8192));
    place(0xF1230, entryPoint32(0x110000, 8192, 1));
    offer();
    for (const int error : {EIO, EPERM, EFAULT}) {
        Platform platform;
        platform.preadError = error;
        platform.preadErrorFrom = 0x111000; // one page into the table
        platform.mmapError = EPERM;
        platform.largestAnswer = 4096;
        const bool wantsRights = error != EIO; // the mapping that stands in for EFAULT is refused with EPERM
        EXPECT_EQ(errorText(),
                  "cannot read " + hostPaths.memoryDevice +
                      (wantsRights ? std::string(": Operation not permitted") + MemoryAdvice : ": Input/output error"));
    }
}

TEST_F(Memory, ErrorWithinTheAreaIsNotAMachineWithoutSmbios)
{
    placeSmallTable();
    offer();
    for (const int error : {EIO, EPERM, EFAULT}) {
        Platform platform;
        platform.preadError = error;
        platform.preadErrorFrom = AreaAddress + 0x1000;
        platform.mmapError = EPERM;
        platform.largestAnswer = 4096;
        EXPECT_NE(errorText(), "no error") << error;
    }
}

TEST_F(Memory, EveryErrorIsARuntimeError)
{
    write(hostPaths.memoryDevice, {});
    EXPECT_THROW(SmBios(), std::runtime_error);
}
