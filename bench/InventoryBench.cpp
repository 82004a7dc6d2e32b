// The time and the allocations of one enumeration, for each class over
//   small: the sample server;
//   large: a machine of 620 structures;
//   most:  65,535 structures, all of the class's type.
// A request reads and cuts the whole table, whatever its class.

#include "support/smbios/SmBios.h"
#include "tests/inventory/Measure.h"
#include "tests/testing/LargeTables.h"
#include "tests/testing/SampleTables.h"
#include "tests/testing/ServedTable.h"

#include <benchmark/benchmark.h>
#include <functional>
#include <string>

namespace
{
constexpr std::size_t MostStructures = 65535;

// The table is made outside of the measured loop; the file that serves it is read inside, as a request reads the
// kernel's.
void enumerateClass(benchmark::State& state, const char* className, const TableBuilder& builder)
{
    const ServedTable table(builder);
    TestProvider provider;
    std::size_t instances = enumerate(provider, className);
    const Allocations before = allocationsSoFar();
    for ([[maybe_unused]] auto iteration : state)
        instances = enumerate(provider, className);
    const Allocations after = allocationsSoFar();

    using benchmark::Counter;
    const double structures = static_cast<double>(VQ::SmBios().getTables().size());
    const double iterations = static_cast<double>(state.iterations());
    state.counters["instances"] = static_cast<double>(instances);
    state.counters["per_structure"] = Counter(structures, Counter::kIsIterationInvariantRate | Counter::kInvert);
    state.counters["new_per_request"] = static_cast<double>(after.count - before.count) / iterations;
    state.counters["new_per_instance"] =
        static_cast<double>(after.count - before.count) / iterations / static_cast<double>(instances);
    state.counters["bytes_per_request"] = static_cast<double>(after.bytes - before.bytes) / iterations;
}

void addBenchmark(const char* className, const char* size, const std::function<TableBuilder()>& table)
{
    benchmark::RegisterBenchmark((std::string(className) + "/" + size).c_str(), [=](benchmark::State& state) {
        enumerateClass(state, className, table());
    })->Unit(benchmark::kMicrosecond);
}
}

int main(int argc, char** argv)
{
    for (const GrowingClass& growing : GrowingClasses) {
        addBenchmark(growing.name, "small", serverTable);
        addBenchmark(growing.name, "large", bigMachine);
        addBenchmark(growing.name, "most", [&growing] { return tableOf(growing, MostStructures); });
    }
    for (const char* className : {"QORTAL_OperatingSystem", "QORx_SystemMemory"})
        addBenchmark(className, "small", serverTable);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
