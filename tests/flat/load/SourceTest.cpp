// The copy of a dump, where the system refuses something. By the linker's --wrap: what Source.cpp asks of it.

#include "flat/load/Source.h"

#include "flat/load/Failure.h"
#include "support/smbios/SmBios.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using VQ::Load::DumpCopy;

namespace
{
std::size_t largestWrite = static_cast<std::size_t>(-1);
bool interrupted = false; // every other write
int writeError = 0;
int createError = 0;

std::ptrdiff_t openFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

std::vector<unsigned char> contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string failureToCopy(const std::string& file)
{
    try {
        const DumpCopy copy(file);
        return "";
    } catch (const VQ::Load::Failure& failure) {
        return failure.what();
    } catch (const VQ::SmBiosError& error) {
        return error.what();
    }
}

class Copy : public testing::Test
{
protected:
    ~Copy() override
    {
        largestWrite = static_cast<std::size_t>(-1);
        interrupted = false;
        writeError = createError = 0;
        EXPECT_EQ(openFiles(), _files);
        std::remove(_file.c_str());
    }
    Copy() = default;
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    const std::vector<unsigned char> _bytes = [] {
        std::vector<unsigned char> bytes(10000);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<unsigned char>(i % 251);
        return bytes;
    }();
    const std::string _file = writeTemporaryFile(_bytes);

private:
    std::ptrdiff_t _files = openFiles();
};
}

ssize_t askedWrite(int file, const void* bytes, size_t size) __asm__("__wrap_write");
ssize_t realWrite(int file, const void* bytes, size_t size) __asm__("__real_write");
int askedCreate(const char* name, unsigned flags) __asm__("__wrap_memfd_create");
int realCreate(const char* name, unsigned flags) __asm__("__real_memfd_create");

ssize_t askedWrite(int file, const void* bytes, size_t size)
{
    static bool turn = false;
    turn = interrupted && !turn;
    if (writeError || turn) {
        errno = writeError ? writeError : EINTR;
        return -1;
    }
    return realWrite(file, bytes, std::min(size, largestWrite));
}

int askedCreate(const char* name, unsigned flags)
{
    errno = createError;
    return createError ? -1 : realCreate(name, flags);
}

TEST_F(Copy, IsTheFileByteForByte)
{
    const DumpCopy copy(_file);
    EXPECT_EQ(copy.file(), _file);
    EXPECT_EQ(contentOf(copy.path()), _bytes);
    EXPECT_EQ(std::filesystem::read_symlink(copy.path()), "/memfd:systemprovider-dump (deleted)");
}

TEST_F(Copy, IsWholeThoughItIsWrittenInPartsAndInterrupted)
{
    largestWrite = 999;
    interrupted = true;
    EXPECT_EQ(contentOf(DumpCopy(_file).path()), _bytes);
}

TEST_F(Copy, MayHaveTheFirstDescriptor)
{
    const int input = dup(0);
    close(0);
    const std::string failure = failureToCopy(_file);
    dup2(input, 0);
    close(input);
    EXPECT_EQ(failure, "");
}

TEST_F(Copy, ThatCannotBeMadeIsTold)
{
    createError = EMFILE;
    EXPECT_EQ(failureToCopy(_file), "cannot keep a copy of the dump: Too many open files");
    createError = 0;
    writeError = ENOSPC;
    EXPECT_EQ(failureToCopy(_file), "cannot keep a copy of the dump: No space left on device");
}

TEST_F(Copy, OfWhatMayNotBeReadTellsWhatHelps)
{
    chmod(_file.c_str(), 0);
    const uid_t user = geteuid();
    if (user == 0) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    const std::string failure = failureToCopy(_file);
    if (user == 0) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_EQ(failure, "cannot open " + _file + ": Permission denied (the dump file must be readable)");
}
