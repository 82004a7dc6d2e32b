// What a request costs grows with the table, and no faster: the cost of a structure stays the same from 1,000
// structures to 16,000. Anything quadratic would cost 16 times as much.

#include "tests/inventory/Measure.h"
#include "tests/testing/LargeTables.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>

namespace
{
constexpr std::size_t FirstSize = 1000;
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t LargerSizes[] = {4000}; // with a sanitizer the next one takes minutes
#else
constexpr std::size_t LargerSizes[] = {4000, 16000};
#endif
constexpr double AllocationBound = 1.1; // a growing list is moved a few times, and longer numbers make longer texts
constexpr double ByteBound = 1.3;       // and such a list holds up to twice what it needs
constexpr double TimeBound = 5.0;       // a large table leaves the processor's caches
constexpr int Tries = 8;                // as many as it takes on a busy machine; the quickest counts

using Request = std::function<void(TestProvider& provider, const char* className)>;

// Of this thread alone: whatever else the machine does is not counted. The process's own time is no use where its use
// of the processor is limited: it then goes on by the kernel's ticks.
double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// For one structure.
struct Cost
{
    double allocations;
    double bytes;
    double seconds;
};

Cost costOf(const Request& request, TestProvider& provider, const char* className, std::size_t structures)
{
    constexpr int Runs = 2; // the quicker one counts
    Cost cost{0, 0, 1e9};
    for (int run = 0; run < Runs; ++run) {
        const Allocations before = allocationsSoFar();
        const double start = processorSeconds();
        request(provider, className);
        const double time = processorSeconds() - start;
        const Allocations after = allocationsSoFar();
        cost.allocations = static_cast<double>(after.count - before.count) / static_cast<double>(structures);
        cost.bytes = static_cast<double>(after.bytes - before.bytes) / static_cast<double>(structures);
        cost.seconds = std::min(cost.seconds, time / static_cast<double>(structures));
    }
    return cost;
}

void expectFlat(const char* what, double first, double other, double bound)
{
    EXPECT_GT(first, 0) << what;
    EXPECT_LE(other, first * bound) << what;
}

void expectLinear(const GrowingClass& growing, const Request& request = enumerate)
{
    TestProvider provider;
    ServedTable table(tableOf(growing, FirstSize));
    const Cost first = costOf(request, provider, growing.name, FirstSize);
    for (const std::size_t size : LargerSizes) {
        SCOPED_TRACE(size);
        table.replace(tableOf(growing, size));
        Cost cost = costOf(request, provider, growing.name, size);
        for (int tries = 1; tries < Tries && cost.seconds > first.seconds * TimeBound; ++tries)
            cost.seconds = std::min(cost.seconds, costOf(request, provider, growing.name, size).seconds);
        expectFlat("allocations", first.allocations, cost.allocations, AllocationBound);
        expectFlat("bytes", first.bytes, cost.bytes, ByteBound);
        expectFlat("seconds", first.seconds, cost.seconds, TimeBound);
        if (testing::Test::HasFailure())
            return; // a larger table would take the square of the time
    }
}

class Growth : public testing::TestWithParam<GrowingClass>
{
};
}

TEST_P(Growth, CostOfAStructureIsTheSameInALargeTable)
{
    expectLinear(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Classes, Growth, testing::ValuesIn(GrowingClasses),
                         [](const testing::TestParamInfo<GrowingClass>& info) { return std::string(info.param.name); });

TEST(BaseBoards, ConfigurationOptionsAreSharedByAllBoards)
{
    expectLinear({"QORTAL_BaseBoard", [](TableBuilder& table, std::size_t number) {
                      if (number % 2 == 0)
                          table.type(2).string(0x04, "Norvik").length(0x0F);
                      else
                          table.type(12).byte(0x04, 1).string("JP" + std::to_string(number));
                  }});
}

TEST(Slots, NamesCostTheSameInALargeTable)
{
    expectLinear(growingClass("QORTAL_Slot"), [](TestProvider& provider, const char* className) {
        RecordingPathHandler handler;
        provider.enumerateNames(pathOf(className), handler);
    });
}

TEST(Slots, GettingOneThatIsNotThereCostsTheSameInALargeTable)
{
    expectLinear(growingClass("QORTAL_Slot"), [](TestProvider& provider, const char* className) {
        RecordingInstanceHandler handler;
        provider.get(pathOf(className), handler);
    });
}
