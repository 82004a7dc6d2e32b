#include "tests/support/smbios/Platform.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
Platform* asked = nullptr;

template <class Function> Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// True when this call is one that a signal interrupts.
bool interrupts()
{
    static bool turn = false;
    turn = asked->interrupted && !turn;
    return turn;
}

ssize_t failWith(int error)
{
    errno = error;
    return -1;
}
}

Platform::Platform()
{
    asked = this;
}

Platform::~Platform()
{
    asked = nullptr;
}

// In place of the C library's; 64-bit file offsets give most of them another name than they are written with here.
#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = flags & O_CREAT ? va_arg(arguments, int) : 0;
    va_end(arguments);
    if (asked) {
        asked->opened.emplace_back(path);
        asked->openFlags = flags;
        if (asked->interruptedOpens > 0) {
            --asked->interruptedOpens;
            errno = EINTR;
            return -1;
        }
        if (asked->openError) {
            errno = asked->openError;
            return -1;
        }
    }
    static const auto real = next<int (*)(const char*, int, ...)>("open64");
    return real(path, flags, mode);
}

ssize_t read(int descriptor, void* buffer, size_t size)
{
    static const auto real = next<ssize_t (*)(int, void*, size_t)>("read");
    if (!asked)
        return real(descriptor, buffer, size);
    if (asked->readError)
        return failWith(asked->readError);
    if (interrupts())
        return failWith(EINTR);
    asked->largestRead = std::max(asked->largestRead, size);
    const ssize_t got = real(descriptor, buffer, std::min(size, asked->largestAnswer));
    if (got >= 0)
        asked->reads.push_back(static_cast<std::size_t>(got));
    return got;
}

ssize_t pread(int descriptor, void* buffer, size_t size, off_t offset)
{
    static const auto real = next<ssize_t (*)(int, void*, size_t, off_t)>("pread64");
    if (!asked)
        return real(descriptor, buffer, size, offset);
    asked->wanted.push_back(size);
    if (asked->preadError && offset >= static_cast<off_t>(asked->preadErrorFrom))
        return failWith(asked->preadError);
    if (interrupts())
        return failWith(EINTR);
    return real(descriptor, buffer, std::min(size, asked->largestAnswer), offset);
}

int fstat(int descriptor, struct stat* status) noexcept
{
    static const auto real = next<int (*)(int, struct stat*)>("fstat64");
    if (asked && asked->fstatError) {
        errno = asked->fstatError;
        return -1;
    }
    const int result = real(descriptor, status);
    if (asked && asked->claimedSize > 0)
        status->st_size = static_cast<off_t>(asked->claimedSize);
    return result;
}

void* mmap(void* address, size_t length, int protection, int flags, int descriptor, off_t offset) noexcept
{
    if (asked)
        asked->mappedFrom = static_cast<std::uint64_t>(offset);
    if (asked && asked->mmapError) {
        errno = asked->mmapError;
        return MAP_FAILED;
    }
    static const auto real = next<void* (*)(void*, size_t, int, int, int, off_t)>("mmap64");
    if (asked)
        ++asked->mapped;
    return real(address, length, protection, flags, descriptor, offset);
}

int munmap(void* address, size_t length) noexcept
{
    static const auto real = next<int (*)(void*, size_t)>("munmap");
    if (asked)
        --asked->mapped;
    return real(address, length);
}
}
#pragma GCC visibility pop
