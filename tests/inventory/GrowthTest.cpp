// What a request costs grows with the table, and no faster: the cost of a structure stays the same from 1,000
// structures to 60,000. Anything quadratic would cost 60 times as much.

#include "tests/inventory/LargeTables.h"
#include "tests/inventory/Measure.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>

namespace
{
using Clock = std::chrono::steady_clock;

constexpr std::size_t FirstSize = 1000;
constexpr std::size_t LargerSizes[] = {10000, 60000};
constexpr double AllocationBound = 1.1; // a growing list is moved a few times, and longer numbers make longer texts
constexpr double ByteBound = 1.3;       // and such a list holds up to twice what it needs
constexpr double TimeBound = 5.0;       // a large table leaves the processor's caches, and others use the machine

using Request = std::function<void(TestProvider& provider, const char* className)>;

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
        const Clock::time_point start = Clock::now();
        request(provider, className);
        const std::chrono::duration<double> time = Clock::now() - start;
        const Allocations after = allocationsSoFar();
        cost.allocations = static_cast<double>(after.count - before.count) / static_cast<double>(structures);
        cost.bytes = static_cast<double>(after.bytes - before.bytes) / static_cast<double>(structures);
        cost.seconds = std::min(cost.seconds, time.count() / static_cast<double>(structures));
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
        const Cost cost = costOf(request, provider, growing.name, size);
        expectFlat("allocations", first.allocations, cost.allocations, AllocationBound);
        expectFlat("bytes", first.bytes, cost.bytes, ByteBound);
        expectFlat("seconds", first.seconds, cost.seconds, TimeBound);
        if (testing::Test::HasFailure())
            return; // a larger table would take the square of the time
    }
}

const GrowingClass& slots()
{
    return *std::find_if(std::begin(GrowingClasses), std::end(GrowingClasses),
                         [](const GrowingClass& each) { return std::string(each.name) == "QORTAL_Slot"; });
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
    expectLinear(slots(), [](TestProvider& provider, const char* className) {
        RecordingPathHandler handler;
        provider.enumerateNames(pathOf(className), handler);
    });
}

TEST(Slots, GettingOneThatIsNotThereCostsTheSameInALargeTable)
{
    expectLinear(slots(), [](TestProvider& provider, const char* className) {
        RecordingInstanceHandler handler;
        provider.get(pathOf(className), handler);
    });
}
