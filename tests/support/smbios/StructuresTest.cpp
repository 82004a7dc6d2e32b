#include "support/smbios/Structures.h"

#include "support/smbios/EntryPoint.h"
#include "tests/testing/EntryPoints.h"
#include "tests/testing/TableBuilder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>

using namespace VQ;

namespace
{
using Tables = std::vector<SmBios::Table>;
using Types = std::vector<int>;

constexpr std::uint32_t AnyCount = EntryPoint::NoCount;

// From a copy without room to spare, so that the address sanitizer sees a read past its end.
Tables parse(const Bytes& bytes, std::uint32_t maxCount = AnyCount,
             std::initializer_list<std::uint8_t> types = AllTypes)
{
    return parseStructures(Buffer(bytes.begin(), bytes.end()), maxCount, types);
}

Types typesOf(const Tables& tables)
{
    Types types;
    for (const SmBios::Table& table : tables)
        types.push_back(table.getType());
    return types;
}

Types typesOf(const TableBuilder& table, std::uint32_t maxCount = AnyCount)
{
    return typesOf(parse(table.structures(), maxCount));
}
}

TEST(Structures, ComeInTheOrderOfTheTableWithAllTheirBytes)
{
    TableBuilder table;
    table.type(8).handle(0x0102).string(0x04, "J1").string(0x06, "COM1");
    table.type(7).handle(0x0304).byte(0x04, 0x55);
    table.type(127).handle(0xFEFF);
    const Tables tables = parse(table.structures());
    ASSERT_EQ(tables.size(), 3u);
    EXPECT_EQ(tables[0].getType(), 8);
    EXPECT_EQ(tables[0].getLength(), 7);
    EXPECT_EQ(tables[0].getHandle(), 0x0102);
    EXPECT_EQ(tables[0].getData(), (Bytes{8, 7, 0x02, 0x01, 1, 0, 2, 'J', '1', 0, 'C', 'O', 'M', '1', 0, 0}));
    EXPECT_EQ(tables[1].getData(), (Bytes{7, 5, 0x04, 0x03, 0x55, 0, 0}));
    EXPECT_EQ(tables[2].getData(), (Bytes{127, 4, 0xFF, 0xFE, 0, 0}));
}

TEST(Structures, EmptyTableHasNone)
{
    EXPECT_TRUE(parse({}).empty());
}

TEST(Structures, BytesTooFewForAHeaderAreNone)
{
    EXPECT_TRUE(parse({7}).empty());
    EXPECT_TRUE(parse({7, 4, 0}).empty());
    EXPECT_TRUE(parse({7, 4, 0, 0}).empty());
    EXPECT_TRUE(parse({7, 4, 0, 0, 0}).empty());
    EXPECT_EQ(typesOf(parse({7, 4, 0, 0, 0, 0})), Types{7});
}

TEST(Structures, LengthBelowFourEndsTheList)
{
    for (unsigned char length = 0; length < 4; ++length) {
        TableBuilder table;
        table.type(7).type(8).raw({9, length, 0, 0, 0, 0, 0, 0}).type(127);
        EXPECT_EQ(typesOf(table), (Types{7, 8})) << unsigned{length};
    }
}

TEST(Structures, FormattedAreaPastTheEndEndsTheList)
{
    TableBuilder table;
    table.type(7).raw({8, 7, 0, 0, 1, 2});
    EXPECT_EQ(typesOf(table), Types{7});
}

TEST(Structures, FormattedAreaToTheVeryEndLeavesNoStringsAndEndsTheList)
{
    TableBuilder table;
    table.type(7).raw({8, 6, 0, 0, 0, 0});
    EXPECT_EQ(typesOf(table), Types{7});
}

TEST(Structures, StringsPastTheEndEndTheList)
{
    TableBuilder table;
    table.type(7).raw({8, 4, 0, 0, 'J', '1', 0});
    EXPECT_EQ(typesOf(table), Types{7});
    table.raw({0});
    EXPECT_EQ(typesOf(table), (Types{7, 8}));
}

TEST(Structures, EachCutKeepsTheStructuresThatAreWhole)
{
    TableBuilder table;
    table.type(7).string(0x04, "L1").type(8).string(0x04, "J1").type(127);
    const Bytes whole = table.structures(); // 9 + 9 + 6 bytes
    ASSERT_EQ(whole.size(), 24u);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const std::size_t complete = size < 9 ? 0u : size < 18 ? 1u : size < 24 ? 2u : 3u;
        EXPECT_EQ(parse(Bytes(whole.begin(), whole.begin() + static_cast<long>(size))).size(), complete) << size;
    }
}

TEST(Structures, EndOfTableIsKeptAndEndsTheList)
{
    TableBuilder table;
    table.type(7).type(127).type(8);
    EXPECT_EQ(typesOf(table), (Types{7, 127}));
}

TEST(Structures, TableWithoutAnEndOfTableEndsAtItsLastByte)
{
    TableBuilder table;
    table.type(7).type(8);
    EXPECT_EQ(typesOf(table), (Types{7, 8}));
}

TEST(Structures, NoMoreThanTheAnnouncedCountAreRead)
{
    TableBuilder table;
    table.type(7).type(8).type(9).type(127);
    EXPECT_EQ(typesOf(table, 0), Types{});
    EXPECT_EQ(typesOf(table, 2), (Types{7, 8}));
    EXPECT_EQ(typesOf(table, 4), (Types{7, 8, 9, 127}));
    EXPECT_EQ(typesOf(table, 5), (Types{7, 8, 9, 127}));
}

TEST(Structures, OfAnyTypeAreKept)
{
    TableBuilder table;
    table.type(126).type(128).type(255).type(0);
    EXPECT_EQ(typesOf(table), (Types{126, 128, 255, 0}));
}

TEST(Structures, OfChosenTypesComeInTheOrderOfTheTable)
{
    TableBuilder table;
    table.type(8).string(0x04, "J1").type(7).type(9).string(0x04, "S1").type(8).type(127).type(8);
    const Tables tables = parse(table.structures(), AnyCount, {9, 8});
    EXPECT_EQ(typesOf(tables), (Types{8, 9, 8}));
    EXPECT_STREQ(tables.at(1).getString(1), "S1");
    EXPECT_EQ(typesOf(parse(table.structures(), AnyCount, {127})), Types{127});
    EXPECT_TRUE(parse(table.structures(), AnyCount, {3}).empty());
}

TEST(Structures, OfOtherTypesCountAmongTheAnnounced)
{
    TableBuilder table;
    table.type(8).type(7).type(7).type(8);
    EXPECT_EQ(typesOf(parse(table.structures(), 3, {8})), Types{8});
    EXPECT_EQ(typesOf(parse(table.structures(), 4, {8})), (Types{8, 8}));
}

TEST(Structures, SameHandleTwiceIsKeptTwice)
{
    TableBuilder table;
    table.type(7).handle(5).type(7).handle(5);
    EXPECT_EQ(typesOf(table), (Types{7, 7}));
}

TEST(Structures, ZerosInsideTheFormattedAreaDoNotEndAStructure)
{
    TableBuilder table;
    table.type(7).length(32).string("L1").type(8);
    const Tables tables = parse(table.structures());
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_STREQ(tables[0].getString(1), "L1");
}

TEST(Structures, BytesAfterTheLastStringOfAllAreTheNextStructure)
{
    // An empty string among the strings ends the set, as two zero bytes do anywhere.
    TableBuilder table;
    table.raw({11, 5, 0, 0, 2, 'A', 0, 0, 8, 4, 1, 0, 0, 0});
    EXPECT_EQ(typesOf(table), (Types{11, 8}));
}

TEST(Structures, NumberOf65535IsReadInLinearTime)
{
    constexpr std::size_t count = 65535;
    TableBuilder table;
    for (std::size_t i = 0; i < count; ++i)
        table.type(11).byte(0x04, 1).string("Text of a usual length");
    const Bytes bytes = table.structures();
    const auto begin = std::chrono::steady_clock::now();
    const Tables tables = parse(bytes);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    ASSERT_EQ(tables.size(), count);
    EXPECT_EQ(tables.back().getHandle(), 65534);
    // Tens of milliseconds, some more under a sanitizer; anything quadratic takes minutes.
    EXPECT_LT(taken.count(), 10.0);
}

// A list that grew by itself would have twice the room, and be held twice while it grew.
TEST(Structures, OfALargeTableHaveRoomForThemAndNoMore)
{
    constexpr std::size_t count = 70000;
    TableBuilder table;
    for (std::size_t i = 0; i < count; ++i)
        table.type(9);
    const Tables tables = parse(table.structures());
    EXPECT_EQ(tables.size(), count);
    EXPECT_EQ(tables.capacity(), count);
}

TEST(Structures, OneStructureOfManyStringsIsReadInLinearTime)
{
    TableBuilder table;
    table.type(11).byte(0x04, 255);
    for (int i = 0; i < 400000; ++i)
        table.string("String");
    const Bytes bytes = table.structures();
    const auto begin = std::chrono::steady_clock::now();
    const Tables tables = parse(bytes);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    ASSERT_EQ(tables.size(), 1u);
    EXPECT_STREQ(tables[0].getString(255), "String");
    EXPECT_LT(taken.count(), 10.0);
}
