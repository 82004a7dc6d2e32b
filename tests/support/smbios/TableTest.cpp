#include "support/smbios/TableTypes.h"
#include "tests/testing/EntryPoints.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <type_traits>

using namespace VQ;
using Table = SmBios::Table;

namespace
{
// A structure of 8 bytes formatted area and two strings.
const Table TwoStrings(Bytes{7, 8, 0x34, 0x12, 1, 2, 0xCD, 0xAB, 'L', '1', 0, 'L', '2', 0, 0});

std::string stringOf(const Table& table, unsigned char index)
{
    const char* text = table.getString(index);
    return text ? text : "null";
}
}

TEST(Table, HeaderFieldsAreTypeLengthAndLittleEndianHandle)
{
    EXPECT_EQ(TwoStrings.getType(), 7);
    EXPECT_EQ(TwoStrings.getLength(), 8);
    EXPECT_EQ(TwoStrings.getHandle(), 0x1234);
}

TEST(Table, OffsetsCountFromTheHeader)
{
    EXPECT_EQ(TwoStrings.getByte(0x00), 7);
    EXPECT_EQ(TwoStrings.getByte(0x01), 8);
    EXPECT_EQ(TwoStrings.getByte(0x02), 0x34);
    EXPECT_EQ(TwoStrings.getByte(0x04), 1);
    EXPECT_EQ(TwoStrings.getByte(0x07), 0xAB);
    EXPECT_EQ(TwoStrings.getWord(0x06), 0xABCD);
    EXPECT_EQ(TwoStrings.getWord(0x02), 0x1234);
}

TEST(Table, ByteBeyondTheFormattedAreaIsZeroThoughStringsStandThere)
{
    EXPECT_EQ(TwoStrings.getByte(0x08), 0);
    EXPECT_EQ(TwoStrings.getByte(0xFF), 0);
}

TEST(Table, WordWithAByteBeyondTheFormattedAreaIsZero)
{
    EXPECT_EQ(TwoStrings.getWord(0x07), 0);
    EXPECT_EQ(TwoStrings.getWord(0x08), 0);
    EXPECT_EQ(TwoStrings.getWord(0xFE), 0);
    EXPECT_EQ(TwoStrings.getWord(0xFF), 0);
}

TEST(Table, LongestFormattedAreaIsReadToItsEnd)
{
    Bytes bytes(255 + 2, 0x11);
    bytes[1] = 255;
    bytes[253] = 0x22;
    bytes[254] = 0x33;
    bytes[255] = bytes[256] = 0; // no strings
    const Table table(bytes);
    EXPECT_EQ(table.getByte(254), 0x33);
    EXPECT_EQ(table.getByte(255), 0);
    EXPECT_EQ(table.getWord(253), 0x3322);
    EXPECT_EQ(table.getWord(254), 0);
    EXPECT_EQ(table.getWord(255), 0);
}

TEST(Table, StringsAreNumberedFromOne)
{
    EXPECT_EQ(stringOf(TwoStrings, 1), "L1");
    EXPECT_EQ(stringOf(TwoStrings, 2), "L2");
}

TEST(Table, StringNumberZeroOrBeyondTheStringsIsNull)
{
    EXPECT_EQ(TwoStrings.getString(0), nullptr);
    EXPECT_EQ(TwoStrings.getString(3), nullptr);
    EXPECT_EQ(TwoStrings.getString(255), nullptr);
}

TEST(Table, WithoutStringsEveryNumberIsNull)
{
    const Table table(Bytes{127, 4, 0, 0, 0, 0});
    EXPECT_EQ(table.getString(0), nullptr);
    EXPECT_EQ(table.getString(1), nullptr);
    EXPECT_EQ(table.getString(2), nullptr);
}

TEST(Table, String255IsTheLastThatANumberReaches)
{
    Bytes bytes{11, 5, 0, 0, 255};
    for (int i = 1; i <= 256; ++i) {
        const std::string text = std::to_string(i);
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0);
    }
    bytes.push_back(0);
    const Table table(bytes);
    EXPECT_EQ(stringOf(table, 254), "254");
    EXPECT_EQ(stringOf(table, 255), "255");
}

TEST(Table, StringBehind64KiBIsFoundAndTheDataWhole)
{
    Bytes bytes{7, 4, 0, 0};
    bytes.insert(bytes.end(), 70000, 'x');
    for (const char byte : std::string("\0second\0\0", 9))
        bytes.push_back(static_cast<unsigned char>(byte));
    const Table table(bytes);
    EXPECT_EQ(stringOf(table, 2), "second");
    EXPECT_EQ(table.getData(), bytes);
}

TEST(Table, UnterminatedStringIsNull)
{
    const Table table(Bytes{7, 4, 0, 0, 'L', '1', 0, 'L', '2'});
    EXPECT_EQ(stringOf(table, 1), "L1");
    EXPECT_EQ(table.getString(2), nullptr);
    EXPECT_EQ(table.getString(3), nullptr);
}

TEST(Table, StringIsTheTextAsItStands)
{
    const Table table(Bytes{7, 4, 0, 0, ' ', 0xE9, '\t', ' ', 0, 0});
    EXPECT_EQ(stringOf(table, 1), " \xE9\t ");
}

TEST(Table, FormattedAreaBeyondTheBytesIsNotRead)
{
    const Table table(Bytes{7, 20, 0, 0, 5});
    EXPECT_EQ(table.getByte(4), 5);
    EXPECT_EQ(table.getByte(5), 0);
    EXPECT_EQ(table.getWord(4), 0);
    EXPECT_EQ(table.getString(1), nullptr);
}

TEST(Table, BytesTooFewForAHeaderCountAsZero)
{
    EXPECT_EQ(Table(Bytes{}).getType(), 0);
    const Table three(Bytes{7, 4, 0x34});
    EXPECT_EQ(three.getType(), 7);
    EXPECT_EQ(three.getLength(), 4);
    EXPECT_EQ(three.getHandle(), 0x34);
    EXPECT_EQ(three.getByte(3), 0);
    EXPECT_EQ(three.getWord(2), 0);
    EXPECT_EQ(three.getString(1), nullptr);
}

TEST(Table, EmptyTableAnswersZeroAndNull)
{
    const Table table;
    EXPECT_EQ(table.getType(), 0);
    EXPECT_EQ(table.getLength(), 0);
    EXPECT_EQ(table.getHandle(), 0);
    EXPECT_TRUE(table.getData().empty());
    for (unsigned offset = 0; offset <= 255; ++offset) {
        EXPECT_EQ(table.getByte(static_cast<unsigned char>(offset)), 0) << offset;
        EXPECT_EQ(table.getWord(static_cast<unsigned char>(offset)), 0) << offset;
        EXPECT_EQ(table.getString(static_cast<unsigned char>(offset)), nullptr) << offset;
    }
}

TEST(Table, CopyOutlivesAndIsLeftAloneByItsOriginal)
{
    Table original(Bytes{7, 4, 0x34, 0x12, 'L', '1', 0, 0});
    const Table copy(original);
    original = Table();
    EXPECT_EQ(copy.getType(), 7);
    EXPECT_EQ(copy.getHandle(), 0x1234);
    EXPECT_EQ(stringOf(copy, 1), "L1");
    original = copy;
    EXPECT_EQ(stringOf(original, 1), "L1");
    EXPECT_EQ(original.getData(), copy.getData());
}

TEST(Table, DataByteIsAnyOfTheBytesWhateverTheFormattedAreaSays)
{
    EXPECT_EQ(TwoStrings.getDataByte(0x05), 2);
    EXPECT_EQ(TwoStrings.getDataByte(0x08), 'L');
    EXPECT_EQ(TwoStrings.getDataByte(0x0E), 0);
    EXPECT_EQ(Table(Bytes{7, 4, 0, 0, 9}).getDataByte(0x04), 9);
    EXPECT_EQ(Table(Bytes{7, 4, 0, 0}).getDataByte(0x04), 0);
    EXPECT_EQ(Table().getDataByte(0x00), 0);
}

TEST(Table, DataIsTheSameVectorOnEveryCallAndOnEveryThread)
{
    const Table copy(TwoStrings);
    const Bytes* seen = nullptr;
    std::thread other([&] { seen = &copy.getData(); });
    const Bytes& own = TwoStrings.getData();
    other.join();
    EXPECT_EQ(seen, &own);
    EXPECT_EQ(own.size(), 15u);
}

TEST(Table, DataIsEveryByteFinalZerosIncluded)
{
    const Bytes bytes{7, 8, 0x34, 0x12, 1, 2, 0xCD, 0xAB, 'L', '1', 0, 'L', '2', 0, 0};
    EXPECT_EQ(TwoStrings.getData(), bytes);
}

namespace
{
template <class Record> class RecordClass : public testing::Test
{
};
using RecordClasses = testing::Types<TableType0, TableType1, TableType2, TableType3, TableType7, TableType8, TableType9,
                                     TableType11, TableType12, TableType13>;
}
TYPED_TEST_SUITE(RecordClass, RecordClasses);

TYPED_TEST(RecordClass, IsACopyOfTheStructureThatItIsMadeFrom)
{
    Table table(TwoStrings);
    const TypeParam record(table);
    table = Table();
    EXPECT_EQ(record.getType(), 7);
    EXPECT_EQ(record.getLength(), 8);
    EXPECT_EQ(record.getHandle(), 0x1234);
    EXPECT_EQ(record.getByte(0x05), 2);
    EXPECT_EQ(record.getWord(0x06), 0xABCD);
    EXPECT_EQ(stringOf(record, 2), "L2");
    EXPECT_EQ(record.getData(), TwoStrings.getData());
}

TYPED_TEST(RecordClass, AddsNoField)
{
    EXPECT_EQ(sizeof(TypeParam), sizeof(Table));
    EXPECT_TRUE((std::is_base_of_v<Table, TypeParam>));
}
