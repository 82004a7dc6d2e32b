// Texts of odd firmware on their way through the server: no client loses an answer to them, or a character of them.

#include "tests/server/Clients.h"
#include "tests/testing/TableBuilder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace
{
// The server reads the table anew for every request.
void serve(const TableBuilder& table)
{
    const std::vector<unsigned char> bytes = table.dump();
    std::ofstream file(setting("VQ_TEST_DUMP"), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.flush());
}

// A chassis and a slot that carry the text; the slot in its key.
TableBuilder tableWith(const std::string& text)
{
    return TableBuilder()
        .type(3)
        .string(0x04, text)
        .byte(0x05, 1)
        .type(9)
        .string(0x04, text)
        .byte(0x0C, 0)
        .type(127)
        .length(4);
}

void expectShownByBothClients(const std::string& firmware, const std::string& shown)
{
    ASSERT_NO_FATAL_FAILURE(serve(tableWith(firmware)));
    for (const auto& instances : {CimCli::instances, WbemCli::instances}) {
        const std::vector<Instance> chassis = instances("QORTAL_Chassis");
        ASSERT_EQ(chassis.size(), 1u);
        EXPECT_EQ(chassis[0].properties.at(4).name, "Manufacturer");
        EXPECT_EQ(chassis[0].properties.at(4).values, (std::vector<std::string>{shown}));
    }
}

// The paths are those that vqinventory shows, and the instance is found by its path.
void expectUsableAsKey(const std::string& shown)
{
    const std::vector<std::string> paths = expectedPaths("QORTAL_Slot");
    EXPECT_EQ(CimCli::paths("QORTAL_Slot"), paths);
    EXPECT_EQ(WbemCli::paths("QORTAL_Slot"), paths);
    const std::vector<Instance> got = CimCli::get(paths.at(0));
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].properties.at(2).values, (std::vector<std::string>{shown}));
}
}

// XML 1.0 has no way to write such a character. The server writes a numbered entity all the same, and both clients read
// it; a client with a stricter reader refuses the whole answer.
TEST(OddText, ControlCharactersArriveAsNumberedEntities)
{
    expectShownByBothClients("a\x01"
                             "b\x1B[31m\x7F",
                             "a\x01"
                             "b\x1B[31m\x7F");
    expectUsableAsKey("a\x01"
                      "b\x1B[31m\x7F");
}

TEST(OddText, TabsAndLineEndsArrive)
{
    expectShownByBothClients("a\tb\nc\rd", "a\tb\nc\rd");
}

TEST(OddText, ALatin1ByteArrivesAsItsCharacter)
{
    expectShownByBothClients("caf\xE9", "caf\xC3\xA9");
    expectUsableAsKey("caf\xC3\xA9");
}

TEST(OddText, Utf8BeyondTheFirstPlaneArrives)
{
    expectShownByBothClients("\xE6\xBC\xA2 \xF0\x9F\x98\x80", "\xE6\xBC\xA2 \xF0\x9F\x98\x80");
    expectUsableAsKey("\xE6\xBC\xA2 \xF0\x9F\x98\x80");
}

TEST(OddText, QuotesAndBackslashesArrive)
{
    expectShownByBothClients(R"(say "hi" \n 'x' \)", R"(say "hi" \n 'x' \)");
    expectUsableAsKey(R"(say "hi" \n 'x' \)");
}

TEST(OddText, MarkupOfXmlArrives)
{
    expectShownByBothClients("<&>]]> &amp;", "<&>]]> &amp;");
    expectUsableAsKey("<&>]]> &amp;");
}
