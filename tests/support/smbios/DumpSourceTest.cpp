#include "support/smbios/DumpSource.h"

#include "support/smbios/SmBios.h"
#include "tests/testing/EntryPoints.h"
#include "tests/testing/ServedTable.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace VQ;

namespace
{
TableBuilder smallTable()
{
    TableBuilder table;
    table.type(7).string(0x04, "L1").type(127);
    return table;
}

std::string errorText()
{
    try {
        const SmBios smBios;
    } catch (const SmBiosError& error) {
        return error.what();
    }
    return "no error";
}

// A file with these bytes while it lives, served.
class ServedFile
{
public:
    explicit ServedFile(const std::vector<unsigned char>& bytes) : file(writeTemporaryFile(bytes)), _served(file) {}
    ~ServedFile() { std::filesystem::remove(file); }

    const std::string file;

private:
    ServedTable _served;
};
}

TEST(DumpSource, ServesTheDump)
{
    const ServedTable served(smallTable());
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_EQ(smBios.getMinorVersion(), 4);
    ASSERT_EQ(smBios.getTables().size(), 2u);
    EXPECT_STREQ(smBios.getTables()[0].getString(1), "L1");
}

TEST(DumpSource, ServesADumpOfThe64BitForm)
{
    const ServedTable served(smallTable().form64().version(3, 7));
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 3);
    EXPECT_EQ(smBios.getMinorVersion(), 7);
    EXPECT_EQ(smBios.getTables().size(), 2u);
}

TEST(DumpSource, ServesADumpOfVersion20)
{
    const ServedTable served(smallTable().formDmi().version(2, 0));
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_EQ(smBios.getMinorVersion(), 0);
    ASSERT_EQ(smBios.getTables().size(), 2u);
    EXPECT_STREQ(smBios.getTables()[0].getString(1), "L1");
}

TEST(DumpSource, ServesChosenTypes)
{
    const ServedTable served(smallTable());
    const SmBios smBios{3, 127};
    EXPECT_EQ(smBios.getMajorVersion(), 2);
    EXPECT_EQ(smBios.getMinorVersion(), 4);
    ASSERT_EQ(smBios.getTables().size(), 1u);
    EXPECT_EQ(smBios.getTables()[0].getType(), 127);
}

TEST(DumpSource, ReadsTheFileAnewForEachReader)
{
    ServedTable served(smallTable());
    EXPECT_EQ(SmBios().getTables().size(), 2u);
    served.replace(TableBuilder().type(127));
    EXPECT_EQ(SmBios().getTables().size(), 1u);
}

TEST(DumpSource, WithoutAFileIsAMachineWithoutSmbios)
{
    vqServeSmBiosDump("");
    const SmBios smBios;
    EXPECT_EQ(smBios.getMajorVersion(), 0);
    EXPECT_EQ(smBios.getMinorVersion(), 0);
    EXPECT_TRUE(smBios.getTables().empty());
}

TEST(DumpSource, MissingFileIsAnError)
{
    const ServedTable served(std::string("/no/such/dump.bin"));
    EXPECT_EQ(errorText(), "cannot open /no/such/dump.bin: No such file or directory");
}

TEST(DumpSource, UnreadableFileIsAnErrorThatTellsWhatHelps)
{
    const ServedFile dump(smallTable().dump());
    std::filesystem::permissions(dump.file, std::filesystem::perms::none);
    const uid_t user = geteuid();
    ASSERT_TRUE(user != 0 || seteuid(65534) == 0);
    EXPECT_EQ(errorText(), "cannot open " + dump.file + ": Permission denied (the dump file must be readable)");
    ASSERT_EQ(seteuid(user), 0);
}

TEST(DumpSource, WhatIsNoRegularFileIsAnError)
{
    const std::string pipe = writeTemporaryFile({});
    std::filesystem::remove(pipe);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0) << "in the place of a file of the tests' own";
    for (const std::string& file : {std::string("/"), std::string("/dev/zero"), pipe}) {
        const ServedTable served(file);
        EXPECT_EQ(errorText(), file + ": it must be a regular file");
    }
    std::filesystem::remove(pipe);
}

TEST(DumpSource, FileThatIsTooLongIsAnErrorAndNotRead)
{
    const ServedFile dump(smallTable().dump());
    std::filesystem::resize_file(dump.file, 67108896);
    EXPECT_EQ(errorText(), "no error");
    std::filesystem::resize_file(dump.file, 67108897);
    EXPECT_EQ(errorText(), dump.file + ": it has 67108897 bytes, and no more than 67108896 are accepted");
}

TEST(DumpSource, FileThatIsNoDumpIsAnErrorThatTellsWhichBytesWereExpected)
{
    const ServedFile dump({'M', 'Z', 0x90, 0, 3, 0, 0});
    EXPECT_EQ(errorText(), dump.file + ": no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), "
                                       "\"_SM_\" (5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact entry "
                                       "point, found 4D 5A 90 00 03");
}

TEST(DumpSource, EmptyFileIsAnErrorToo)
{
    const ServedFile dump({});
    EXPECT_EQ(errorText(), dump.file + ": no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), "
                                       "\"_SM_\" (5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact entry "
                                       "point, found nothing");
}

TEST(DumpSource, TableBeyondTheEndOfTheFileIsAnError)
{
    std::vector<unsigned char> bytes = smallTable().form64().dump();
    bytes.resize(24);
    const ServedFile dump(bytes);
    EXPECT_EQ(errorText(), dump.file + ": its entry point announces the SMBIOS table at byte 32, but the file has 24 "
                                       "bytes");
}

// dmidecode writes the table behind the entry point, and others may write it elsewhere.
TEST(DumpSource, TableIsReadWhereTheEntryPointSays)
{
    const std::vector<unsigned char> structures = smallTable().structures();
    for (const std::size_t address : {32, 48, 4096}) {
        const auto size = static_cast<std::uint32_t>(structures.size());
        std::vector<unsigned char> bytes = entryPoint64(address, size);
        bytes.resize(address, 0xFF);
        bytes.insert(bytes.end(), structures.begin(), structures.end());
        const ServedFile dump(bytes);
        EXPECT_EQ(SmBios().getTables().size(), 2u) << address;
    }
}

TEST(DumpSource, TableAbove4GiBIsBeyondTheEndToo)
{
    std::vector<unsigned char> bytes = entryPoint64(0x100000020, 8);
    bytes.resize(64);
    const ServedFile dump(bytes);
    EXPECT_EQ(errorText(), dump.file + ": its entry point announces the SMBIOS table at byte 4294967328, but the file "
                                       "has 64 bytes");
}

TEST(DumpSource, DumpThatIsCutOffKeepsItsWholeStructures)
{
    std::vector<unsigned char> bytes = smallTable().dump();
    bytes.pop_back();
    const ServedFile dump(bytes);
    EXPECT_EQ(SmBios().getTables().size(), 1u);
}
