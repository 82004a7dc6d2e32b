#include "tests/inventory/Measure.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{
std::atomic<std::size_t> allocationCount{0};
std::atomic<std::size_t> allocationBytes{0};
}

void* operator new(std::size_t size)
{
    allocationCount.fetch_add(1, std::memory_order_relaxed);
    allocationBytes.fetch_add(size, std::memory_order_relaxed);
    if (void* memory = std::malloc(size != 0 ? size : 1))
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
