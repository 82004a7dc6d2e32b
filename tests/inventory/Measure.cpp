#include "tests/inventory/Measure.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{
std::atomic<std::size_t> allocationCount{0};
std::atomic<std::size_t> allocationBytes{0};
}

// Both forms are replaced: a sanitizer's own form would not match the replaced delete.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    allocationBytes.fetch_add(size, std::memory_order_relaxed);
    return std::malloc(size != 0 ? size : 1);
}

void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

Allocations allocationsSoFar()
{
    return {allocationCount, allocationBytes};
}

std::size_t enumerate(TestProvider& provider, const char* className)
{
    CountingHandler handler;
    provider.enumerate(pathOf(className), handler);
    return handler.instances;
}
