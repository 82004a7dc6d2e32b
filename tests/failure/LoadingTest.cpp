// Loading and unloading the module while allocations fail: the load fails or works, and the process goes on.

#include "tests/failure/Injection.h"
#include "tests/failure/Machine.h"
#include "tests/failure/Module.h"

#include <algorithm>
#include <cstdio>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <new>

using namespace Pegasus;

namespace
{
// How far a server came.
enum class Loaded
{
    NotAtAll,
    WithoutProvider, ///< the entry gave null, so the server unloads the module and reports that it did not load
    NoMemory,        ///< the entry threw
    Whole,
};

// One round of a server; allocations fail until the provider is there.
Loaded loadOnce(const Failure& failure, bool& happened)
{
    Loaded loaded = Loaded::NotAtAll;
    CIMProvider* provider = nullptr;
    void* module = nullptr;
    {
        const Failing failing(failure);
        module = loadModule();
        if (module) {
            try {
                provider = createProvider(module);
                loaded = provider ? Loaded::Whole : Loaded::WithoutProvider;
            } catch (const std::bad_alloc&) {
                loaded = Loaded::NoMemory;
            }
        }
    }
    happened = Failing::happened();
    if (provider)
        provider->terminate();
    EXPECT_TRUE(!module || dlclose(module) == 0);
    return loaded;
}

// The answer of a module that is loaded for it.
Lines slots()
{
    const LoadedModule module;
    Request request(module, Request::Operation::Enumerate, "QORTAL_Slot");
    request.perform();
    return request.answer();
}

class Loading : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        if (!allocationsCanFail())
            GTEST_SKIP() << "the sanitizer has the allocator for itself";
        for (int i = 0; i < 3; ++i)
            const LoadedModule module; // the loader and the C library settle
    }

    const Machine machine{Machine::Place::Sysfs};
};
}

TEST_P(Loading, FailsOrWorksWhicheverAllocationFails)
{
    constexpr long bound = 10000;
    const Lines expected = slots();
    ASSERT_EQ(std::count(expected.begin(), expected.end(), "instance"), 1);
    int times[4] = {};
    long number = 1;
    for (bool happened = true; happened; ++number) {
        ASSERT_LT(number, bound);
        const Holdings before = holdings();
        ++times[static_cast<int>(loadOnce({Call::Allocation, number, GetParam()}, happened))];
        ASSERT_EQ(holdings(), before) << "allocation " << number;
        ASSERT_EQ(slots(), expected) << "the next server's round, after allocation " << number;
    }
    std::printf("%ld allocations: %d did not load, %d had no provider, %d threw, %d worked\n", number - 2, times[0],
                times[1], times[2], times[3]);
    EXPECT_GT(times[static_cast<int>(Loaded::NotAtAll)], 0);
    EXPECT_GT(times[static_cast<int>(Loaded::WithoutProvider)], 0);
    EXPECT_GT(times[static_cast<int>(Loaded::NoMemory)], 0);
}

TEST_P(Loading, IsUndoneWhicheverAllocationFails)
{
    constexpr long bound = 1000;
    bool happened = true;
    for (long number = 1; happened; ++number) {
        ASSERT_LT(number, bound);
        const Holdings before = holdings();
        void* module = loadModule();
        CIMProvider* provider = createProvider(module);
        {
            const Failing failing({Call::Allocation, number, GetParam()});
            provider->terminate();
            EXPECT_EQ(dlclose(module), 0);
            happened = Failing::happened();
        }
        ASSERT_EQ(holdings(), before) << "allocation " << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Once, Loading, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Lasting, Loading, testing::Values(true));
