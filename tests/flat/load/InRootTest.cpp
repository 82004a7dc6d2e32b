// What inRoot() does where the system refuses something. By the linker's --wrap: what it asks of the system, seen from
// the objects under test.

#include "flat/load/InRoot.h"

#include "flat/load/Failure.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <unistd.h>

using VQ::Load::Failure;
using VQ::Load::inRoot;

namespace
{
// What the calls fail with; 0: they do what they are for.
int unshareError = 0;
int chdirError = 0;
int openError = 0;
int threadError = 0;
int openFlags = 0;

const std::string Here = std::filesystem::current_path();

std::string target(const char* link)
{
    return std::filesystem::read_symlink(link);
}

std::ptrdiff_t openFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

std::string failureOf(const std::function<void()>& work)
{
    try {
        inRoot(work);
        return "";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

struct Silent : std::exception
{
    const char* what() const noexcept override { return ""; }
};

// With and without a kernel that gives a thread a directory of its own.
class InRoot : public testing::TestWithParam<int>
{
protected:
    InRoot() { unshareError = GetParam(); }
    ~InRoot() override
    {
        unshareError = chdirError = openError = threadError = 0;
        EXPECT_EQ(std::filesystem::current_path(), Here);
        EXPECT_EQ(openFiles(), _files);
    }
    InRoot(const InRoot&) = delete;
    InRoot& operator=(const InRoot&) = delete;

private:
    std::ptrdiff_t _files = openFiles();
};

using Refused = InRoot;
}

// The names that the linker gives the calls, and those of the system itself.
int askedUnshare(int flags) __asm__("__wrap_unshare");
int realUnshare(int flags) __asm__("__real_unshare");
int askedChdir(const char* path) __asm__("__wrap_chdir");
int realChdir(const char* path) __asm__("__real_chdir");
int askedOpen(const char* path, int flags) __asm__("__wrap_open");
int askedOpen64(const char* path, int flags) __asm__("__wrap_open64");
int realOpen(const char* path, int flags) __asm__("__real_open");
#define VQ_START_THREAD "_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE"
void askedThread(std::thread* thread, void* state, void (*depend)()) __asm__("__wrap_" VQ_START_THREAD);
void realThread(std::thread* thread, void* state, void (*depend)()) __asm__("__real_" VQ_START_THREAD);

namespace
{
int failedWith(int error)
{
    errno = error;
    return -1;
}
}

int askedUnshare(int flags)
{
    return unshareError ? failedWith(unshareError) : realUnshare(flags);
}

int askedChdir(const char* path)
{
    return chdirError ? failedWith(chdirError) : realChdir(path);
}

int askedOpen(const char* path, int flags)
{
    openFlags = flags;
    return openError ? failedWith(openError) : realOpen(path, flags);
}

int askedOpen64(const char* path, int flags)
{
    return askedOpen(path, flags);
}

void askedThread(std::thread* thread, void* state, void (*depend)())
{
    if (threadError)
        throw std::system_error(threadError, std::generic_category());
    realThread(thread, state, depend);
}

TEST_P(InRoot, WorksThereAndHasTheProgramWhereItWas)
{
    std::string thread;
    std::string process;
    inRoot([&] {
        thread = target("/proc/thread-self/cwd");
        process = target("/proc/self/cwd");
    });
    EXPECT_EQ(thread, "/");
    EXPECT_EQ(process, GetParam() ? "/" : Here) << "another thread of the program sees it move only where it must";
}

TEST_P(InRoot, TellsWhatTheWorkThrew)
{
    EXPECT_EQ(failureOf([] { throw std::runtime_error("no table"); }), "no table");
    EXPECT_EQ(failureOf([] { throw Silent(); }), "an exception without a text");
    EXPECT_EQ(failureOf([] { throw 1; }), "an exception of an unknown kind");
    EXPECT_THROW(inRoot([] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST_P(InRoot, DoesNotWorkElsewhere)
{
    chdirError = EACCES;
    bool worked = false;
    EXPECT_EQ(failureOf([&worked] { worked = true; }), "cannot go to /: Permission denied");
    EXPECT_FALSE(worked);
}

TEST_P(InRoot, NeedsAThread)
{
    threadError = EAGAIN;
    EXPECT_EQ(failureOf([] {}).rfind("cannot start a thread: ", 0), 0u);
}

INSTANTIATE_TEST_SUITE_P(Kernels, InRoot, testing::Values(0, EPERM));

TEST_P(Refused, DoesNotMoveTheProgramWhenItCannotComeBack)
{
    openError = ENOENT;
    bool worked = false;
    EXPECT_EQ(failureOf([&worked] { worked = true; }), "cannot tell the working directory: No such file or directory");
    EXPECT_FALSE(worked);
}

// A directory may be entered by who may not read it, and a program's first free descriptor is 0 when it has no input.
TEST_P(Refused, NeedsNoRightToReadTheDirectoryAndNoCertainDescriptor)
{
    const int input = dup(0);
    close(0);
    bool worked = false;
    EXPECT_EQ(failureOf([&worked] { worked = true; }), "");
    dup2(input, 0);
    close(input);
    EXPECT_TRUE(worked);
    EXPECT_EQ(openFlags, O_PATH | O_DIRECTORY | O_CLOEXEC);
}

INSTANTIATE_TEST_SUITE_P(Kernels, Refused, testing::Values(EPERM));
