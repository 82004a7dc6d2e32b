#include "tests/failure/Injection.h"

#include "tests/failure/Machine.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/sysinfo.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace
{
Failure armed{Call::Allocation, 0};
bool active = false;
bool reached = false;
long seen = 0;
std::atomic<long> blocks{0};

// True when this call is to fail; errno is then set.
bool fails(Call call)
{
    if (!active || call != armed.call)
        return false;
    ++seen;
    if (seen < armed.number || (seen > armed.number && !armed.lasting))
        return false;
    reached = true;
    errno = call == Call::Allocation ? ENOMEM : armed.error;
    return true;
}

template <class Function> Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// What `read` and `pread` answer when they fail: nothing, or a single byte.
template <class Answer> ssize_t answer(Call call, std::size_t size, const Answer& real)
{
    if (!fails(call))
        return real(size);
    return armed.error != 0 || size == 0 ? -1 : real(1);
}
}

Failing::Failing(const Failure& failure)
{
    armed = failure;
    seen = 0;
    reached = false;
    active = true;
}

Failing::~Failing()
{
    active = false;
}

bool Failing::happened()
{
    return reached;
}

long liveBlocks()
{
    return blocks;
}

// In place of the C library's.
#pragma GCC visibility push(default)
extern "C" {

#ifndef __SANITIZE_ADDRESS__
void* __libc_malloc(size_t size);                 // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(size_t count, size_t size);   // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* block, size_t size);   // NOLINT(bugprone-reserved-identifier)
void* __libc_memalign(size_t align, size_t size); // NOLINT(bugprone-reserved-identifier)
void __libc_free(void* block);                    // NOLINT(bugprone-reserved-identifier)

static void* counted(void* block)
{
    blocks += block != nullptr;
    return block;
}

void* malloc(size_t size)
{
    return fails(Call::Allocation) ? nullptr : counted(__libc_malloc(size));
}

void* calloc(size_t count, size_t size)
{
    return fails(Call::Allocation) ? nullptr : counted(__libc_calloc(count, size));
}

void* realloc(void* block, size_t size)
{
    if (fails(Call::Allocation))
        return nullptr;
    void* moved = __libc_realloc(block, size);
    return block ? moved : counted(moved);
}

void* aligned_alloc(size_t align, size_t size)
{
    return fails(Call::Allocation) ? nullptr : counted(__libc_memalign(align, size));
}

void free(void* block)
{
    blocks -= block != nullptr;
    __libc_free(block);
}
#endif

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int mode = flags & O_CREAT ? va_arg(arguments, int) : 0;
    va_end(arguments);
    static const auto real = next<int (*)(const char*, int, ...)>("open64");
    return fails(Call::Open) ? -1 : real(placeOf(path), flags, mode);
}

int stat(const char* path, struct stat* status) noexcept
{
    static const auto real = next<int (*)(const char*, struct stat*)>("stat64");
    return fails(Call::Stat) ? -1 : real(placeOf(path), status);
}

int fstat(int descriptor, struct stat* status) noexcept
{
    static const auto real = next<int (*)(int, struct stat*)>("fstat64");
    return fails(Call::Fstat) ? -1 : real(descriptor, status);
}

ssize_t read(int descriptor, void* buffer, size_t size)
{
    static const auto real = next<ssize_t (*)(int, void*, size_t)>("read");
    return answer(Call::Read, size, [&](size_t most) { return real(descriptor, buffer, most); });
}

ssize_t pread(int descriptor, void* buffer, size_t size, off_t offset)
{
    static const auto real = next<ssize_t (*)(int, void*, size_t, off_t)>("pread64");
    // A table above the kernel's own mapping can't be read, but it can be mapped.
    if (offset >= HighMemory && !fails(Call::Pread)) {
        errno = EFAULT;
        return -1;
    }
    return answer(Call::Pread, size, [&](size_t most) { return real(descriptor, buffer, most, offset); });
}

void* mmap(void* address, size_t length, int protection, int flags, int descriptor, off_t offset) noexcept
{
    static const auto real = next<void* (*)(void*, size_t, int, int, int, off_t)>("mmap64");
    return fails(Call::Mmap) ? MAP_FAILED : real(address, length, protection, flags, descriptor, offset);
}

int uname(utsname* names) noexcept
{
    if (fails(Call::Uname))
        return -1;
    std::strcpy(names->nodename, "a-host-of-some-length.example");
    std::strcpy(names->release, "6.1.0-a-release-of-some-length");
    return 0;
}

int sysinfo(struct sysinfo* figures) noexcept
{
    if (fails(Call::Sysinfo))
        return -1;
    *figures = {};
    figures->uptime = 1000;
    figures->totalram = 1024UL * 1024;
    figures->freeram = 512UL * 1024;
    figures->totalswap = 256UL * 1024;
    figures->procs = 77;
    figures->mem_unit = 1;
    return 0;
}

time_t time(time_t* place) noexcept
{
    constexpr time_t now = 1700000000;
    if (place)
        *place = now;
    return now;
}

void* dlopen(const char* file, int mode) noexcept
{
    static const auto real = next<void* (*)(const char*, int)>("dlopen");
    return fails(Call::Dlopen) ? nullptr : real(libraryOf(file), mode);
}

// Nothing of this program reaches the machine's power.
int reboot(int)
{
    return 0;
}

FILE* popen(const char*, const char*)
{
    return nullptr;
}
}
#pragma GCC visibility pop

bool allocationsCanFail()
{
#ifdef __SANITIZE_ADDRESS__
    return false;
#else
    return true;
#endif
}
