// Requests while allocations fail: each ends in std::bad_alloc or in a right answer, nothing is left behind, and the
// next request is right.

#include "tests/failure/Documented.h"
#include "tests/failure/Injection.h"
#include "tests/failure/Machine.h"
#include "tests/failure/Module.h"
#include "tests/testing/Accessors.h"

#include <Pegasus/Common/Exception.h>

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <new>

using Operation = Request::Operation;

namespace
{
constexpr long Bound = 100000;

class Allocations : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        if (!allocationsCanFail())
            GTEST_SKIP() << "the sanitizer has the allocator for itself";
    }

    // Lets each allocation of the request fail. The number of runs.
    long failEach(const LoadedModule& module, Operation operation, const char* className)
    {
        SCOPED_TRACE(nameOf(operation, className));
        for (int i = 0; i < 2; ++i)
            Request(module, operation, className).perform(); // what is made once is made
        Request clean(module, operation, className);
        clean.perform();
        const Lines expected = clean.answer();
        bool happened = true;
        long number = 1;
        for (; happened && !HasFailure() && number < Bound; ++number) {
            SCOPED_TRACE("allocation " + std::to_string(number));
            const Holdings before = holdings();
            happened = performOnce(module, operation, className, expected, number);
            {
                Request next(module, operation, className);
                next.perform();
                EXPECT_EQ(next.answer(), expected);
            }
            EXPECT_EQ(holdings(), before); // after it, since the C library too makes up for what it could not keep
        }
        EXPECT_LT(number, Bound);
        return number - 1;
    }

    const Machine machine{Machine::Place::Sysfs};

private:
    static bool performOnce(const LoadedModule& module, Operation operation, const char* className,
                            const Lines& expected, long number)
    {
        Request request(module, operation, className);
        bool happened = true;
        bool threw = false;
        try {
            const Failing failing({Call::Allocation, number, GetParam()});
            request.perform();
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        happened = Failing::happened();
        const Lines answer = request.answer();
        if (threw) {
            EXPECT_TRUE(happened);
            EXPECT_FALSE(isCompleted(answer));
        } else if (answer != expected) {
            EXPECT_TRUE(happened && isDocumentedLess(answer, expected, className)) << testing::PrintToString(answer);
        }
        return happened;
    }
};

// Create, modify and delete are refused by an exception of their own.
bool isRefused(Request& request)
{
    try {
        request.perform();
    } catch (const Pegasus::CIMException& refused) {
        return refused.getCode() == Pegasus::CIM_ERR_NOT_SUPPORTED;
    }
    return false;
}
}

TEST_P(Allocations, OfEachRequestOfEachClassFailOneByOne)
{
    const LoadedModule module;
    long runs = 0;
    for (const char* className : AllClasses)
        for (const Operation operation : {Operation::Enumerate, Operation::Names, Operation::Get})
            runs += failEach(module, operation, className);
    for (const Operation operation : {Operation::Reboot, Operation::Shutdown})
        runs += failEach(module, operation, "QORTAL_OperatingSystem");
    std::printf("%ld runs\n", runs);
}

TEST_P(Allocations, OfTheFirstRequestAfterLoadingFailOneByOne)
{
    for (const char* className : AllClasses) {
        SCOPED_TRACE(className);
        Lines expected;
        for (int i = 0; i < 3; ++i) {
            const LoadedModule module;
            Request request(module, Operation::Enumerate, className);
            request.perform();
            expected = request.answer();
        }
        bool happened = true;
        for (long number = 1; happened && !HasFailure() && number < Bound; ++number) {
            const Holdings before = holdings();
            {
                const LoadedModule module;
                {
                    Request request(module, Operation::Enumerate, className);
                    try {
                        const Failing failing({Call::Allocation, number, GetParam()});
                        request.perform();
                    } catch (const std::bad_alloc&) {
                    }
                    happened = Failing::happened();
                }
                Request next(module, Operation::Enumerate, className);
                next.perform();
                ASSERT_EQ(next.answer(), expected) << "after allocation " << number;
            }
            ASSERT_EQ(holdings(), before) << "allocation " << number;
        }
    }
}

TEST_P(Allocations, OfARefusalFailOneByOne)
{
    const LoadedModule module;
    for (const Operation operation : {Operation::Create, Operation::Modify, Operation::Delete}) {
        bool happened = true;
        for (long number = 1; happened && number < Bound; ++number) {
            Request request(module, operation, "QORTAL_BIOS");
            ASSERT_TRUE(isRefused(request));
            const Holdings before = holdings();
            bool refused = false;
            try {
                const Failing failing({Call::Allocation, number, GetParam()});
                refused = isRefused(request);
            } catch (const std::bad_alloc&) {
                refused = true;
            }
            happened = Failing::happened();
            ASSERT_TRUE(refused) << nameOf(operation, "QORTAL_BIOS") << ", allocation " << number;
            ASSERT_EQ(holdings(), before) << nameOf(operation, "QORTAL_BIOS") << ", allocation " << number;
        }
    }
}

TEST_P(Allocations, OfInitFailOneByOne)
{
    const LoadedModule module;
    const auto init = reinterpret_cast<int (*)()>(dlsym(module.handle(), "init"));
    const auto slots = reinterpret_cast<int (*)()>(dlsym(module.handle(), "getSlotCount"));
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(init(), 1);
    bool happened = true;
    long number = 1;
    for (; happened && number < Bound; ++number) {
        const Holdings before = holdings();
        bool threw = false;
        try {
            const Failing failing({Call::Allocation, number, GetParam()});
            EXPECT_EQ(init(), 1);
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        happened = Failing::happened();
        ASSERT_TRUE(happened || !threw);
        ASSERT_EQ(init(), 1);
        ASSERT_EQ(slots(), 1);
        ASSERT_EQ(holdings(), before) << "allocation " << number;
    }
    std::printf("%ld runs\n", number - 1);
}

TEST_P(Allocations, OfEachAccessorFailOneByOne)
{
    const LoadedModule module;
    ASSERT_EQ(reinterpret_cast<int (*)()>(dlsym(module.handle(), "init"))(), 1);
    static char expected[4096];
    static char buffer[4096];
    for (const Accessor& accessor : accessors()) {
        SCOPED_TRACE(accessor.name);
        void* const address = dlsym(module.handle(), accessor.name);
        ASSERT_NE(address, nullptr);
        std::memset(expected, 0, sizeof expected);
        const unsigned long long result = call(accessor, address, expected, 0);
        bool happened = true;
        for (long number = 1; happened && number < Bound; ++number) {
            std::memset(buffer, 0, sizeof buffer);
            const Holdings before = holdings();
            bool threw = false;
            unsigned long long got = result;
            try {
                const Failing failing({Call::Allocation, number, GetParam()});
                got = call(accessor, address, buffer, 0);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            happened = Failing::happened();
            ASSERT_TRUE(threw || std::memcmp(buffer, expected, sizeof buffer) == 0) << "allocation " << number;
            ASSERT_EQ(got, result) << "allocation " << number;
            ASSERT_EQ(call(accessor, address, buffer, 0), result);
            ASSERT_EQ(std::memcmp(buffer, expected, sizeof buffer), 0) << "after allocation " << number;
            ASSERT_EQ(holdings(), before) << "allocation " << number;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Once, Allocations, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Lasting, Allocations, testing::Values(true));
