// The server calls one provider from several threads at once.

#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

using namespace Pegasus;

namespace
{
struct Expected
{
    const char* name;
    std::size_t instances;
};

const Expected Classes[] = {
    {"QORTAL_BIOS", 2},           {"QORTAL_Chassis", 1},    {"QORTAL_BaseBoard", 2},
    {"QORTAL_CacheMemory", 2},    {"QORTAL_Port", 2},       {"QORTAL_Slot", 2},
    {"QORTAL_ComputerSystem", 1}, {"QORx_SystemMemory", 1}, {"QORTAL_OperatingSystem", 1},
};

TableBuilder machine()
{
    TableBuilder table;
    table.type(0).string(0x05, "B1").type(1).string(0x05, "Server -[1234]-").type(3).length(0x0D);
    for (const char* name : {"A", "B"}) {
        table.type(2).length(0x0B).type(7).length(0x13).type(8).string(0x06, name).length(0x09);
        table.type(9).string(0x04, name);
    }
    table.type(11).byte(0x04, 1).string("Diagnostics -[XXYT01-1.02]-").type(127);
    return table;
}

// Enumerates, names and gets every class; the number of answers that were not as expected.
int wrongAnswers(TestProvider& provider)
{
    int wrong = 0;
    for (const Expected& expected : Classes) {
        RecordingInstanceHandler instances;
        provider.enumerate(pathOf(expected.name), instances);
        wrong += instances.instances.size() != expected.instances || instances.calls.back() != "complete";
        RecordingPathHandler paths;
        provider.enumerateNames(pathOf(expected.name), paths);
        wrong += paths.paths.size() != expected.instances;
        for (const CIMObjectPath& path : paths.paths) {
            RecordingInstanceHandler got;
            provider.get(path, got);
            wrong += got.instances.size() != 1;
        }
    }
    return wrong;
}
}

TEST(Concurrency, EightThreadsAtOnceGetTheWholeInventoryFromOneProvider)
{
    constexpr int threadCount = 8;
    constexpr int rounds = 5;
    const ServedTable served(machine());
    TestProvider provider;
    ASSERT_EQ(wrongAnswers(provider), 0);
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&provider, &wrong] {
            for (int round = 0; round < rounds; ++round)
                wrong += wrongAnswers(provider);
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}
