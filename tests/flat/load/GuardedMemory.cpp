// An array of bytes ends where memory begins that nobody may touch, so that a byte written beyond it ends the program;
// and an allocation can be made to fail.

#include "tests/flat/load/GuardedMemory.h"

#ifdef __SANITIZE_ADDRESS__

bool failAllocation(std::size_t, bool)
{
    return false;
}

#else

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace
{
constexpr std::size_t PageSize = 4096;

std::atomic<std::size_t> untilFailure{0};
std::atomic<bool> failureLasts{false};
std::atomic<bool> hasFailed{false};

void mayFail()
{
    std::size_t left = untilFailure.load();
    while (left != 0 && !untilFailure.compare_exchange_weak(left, left == 1 && failureLasts ? 1 : left - 1)) {
    }
    if (left != 1)
        return;
    hasFailed = true;
    throw std::bad_alloc();
}

// The pages of an array, the untouchable one at the end included. The first holds their number of bytes.
std::size_t pagesFor(std::size_t size)
{
    return (size + PageSize - 1) / PageSize * PageSize + 2 * PageSize;
}
}

bool failAllocation(std::size_t first, bool lasting)
{
    untilFailure = 0;
    failureLasts = lasting;
    const bool failed = hasFailed.exchange(false);
    untilFailure = first;
    return failed;
}

void* operator new(std::size_t size)
{
    mayFail();
    if (void* bytes = std::malloc(size ? size : 1))
        return bytes;
    throw std::bad_alloc();
}

void operator delete(void* bytes) noexcept
{
    std::free(bytes);
}

void operator delete(void* bytes, std::size_t) noexcept
{
    std::free(bytes);
}

void* operator new[](std::size_t size)
{
    mayFail();
    if (size > SIZE_MAX - 3 * PageSize)
        throw std::bad_alloc();
    const std::size_t pages = pagesFor(size);
    void* const mapped = mmap(nullptr, pages, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    unsigned char* const first = static_cast<unsigned char*>(mapped);
    mprotect(first + pages - PageSize, PageSize, PROT_NONE);
    *static_cast<std::size_t*>(mapped) = pages;
    return first + pages - PageSize - size;
}

void operator delete[](void* bytes) noexcept
{
    if (!bytes)
        return;
    // The array begins in the second page.
    const auto second = reinterpret_cast<std::uintptr_t>(bytes) / PageSize * PageSize;
    void* const first = reinterpret_cast<void*>(second - PageSize);
    munmap(first, *static_cast<std::size_t*>(first));
}

void operator delete[](void* bytes, std::size_t) noexcept
{
    operator delete[](bytes);
}

#endif
