// A structure that announces 255 strings makes an 8-bit counter wrap that never passes its limit: the request grows
// until memory ends, as the documents for administrators and callers say. A wider counter would make them untrue; it
// shows here.

#include "inventory/BaseBoard.h"
#include "inventory/Bios.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>
#include <new>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
enum Ending
{
    Returned = 10,
    MemoryExhausted = 11,
};

constexpr rlim_t MemoryLimit = 400u << 20; // bytes of address space, far above what the program takes by itself
constexpr unsigned TimeLimit = 60;         // seconds

// For a process of its own: does the work in limited memory and time, and exits by how it ended. Without an end and
// without a need for memory the alarm's signal is the end.
template <class Work> [[noreturn]] void exitByTheEndOf(Work work)
{
    const rlimit limit = {MemoryLimit, MemoryLimit};
    if (setrlimit(RLIMIT_AS, &limit) != 0)
        _exit(1);
    alarm(TimeLimit);
    try {
        work();
    } catch (const std::bad_alloc&) {
        _exit(MemoryExhausted);
    }
    _exit(Returned);
}

TableBuilder languages(std::uint8_t count)
{
    return TableBuilder().type(0).type(1).type(13).byte(0x04, count).string(0x15, "en");
}

TableBuilder options(std::uint8_t count)
{
    return TableBuilder().type(2).type(12).byte(0x04, count).string("Jumper");
}

class EndlessCounter : public testing::Test
{
protected:
    void SetUp() override
    {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the address sanitizer reserves more address space than the limit leaves";
#endif
    }
};
}

TEST_F(EndlessCounter, LanguageListOf254Ends)
{
    const ServedTable served(languages(254));
    EXPECT_EXIT(exitByTheEndOf(VQ::GetBiosInstance), testing::ExitedWithCode(Returned), "");
    EXPECT_EQ(VQ::GetBiosInstance().getLanguages().size(), 254u);
}

TEST_F(EndlessCounter, LanguageListOf255GrowsUntilMemoryEnds)
{
    const ServedTable served(languages(255));
    EXPECT_EXIT(exitByTheEndOf(VQ::GetBiosInstance), testing::ExitedWithCode(MemoryExhausted), "");
}

TEST_F(EndlessCounter, LanguageCountOf255IsReadFromType1WhereType13IsMissing)
{
    const ServedTable served(TableBuilder().type(0).type(1).byte(0x04, 255));
    EXPECT_EXIT(exitByTheEndOf(VQ::GetBiosInstance), testing::ExitedWithCode(MemoryExhausted), "");
}

TEST_F(EndlessCounter, LanguageCountOf255IsReadFromType0WhereType1IsMissingToo)
{
    const ServedTable served(TableBuilder().type(0).byte(0x04, 255));
    EXPECT_EXIT(exitByTheEndOf(VQ::GetBiosInstance), testing::ExitedWithCode(MemoryExhausted), "");
}

TEST_F(EndlessCounter, OptionListOf254Ends)
{
    const ServedTable served(options(254));
    EXPECT_EXIT(exitByTheEndOf(VQ::getConfigurationOptions), testing::ExitedWithCode(Returned), "");
    EXPECT_EQ(VQ::getConfigurationOptions().size(), 254u);
}

TEST_F(EndlessCounter, OptionListOf255GrowsUntilMemoryEnds)
{
    const ServedTable served(options(255));
    EXPECT_EXIT(exitByTheEndOf(VQ::getConfigurationOptions), testing::ExitedWithCode(MemoryExhausted), "");
}
