// Packed values, as they are written and as the reader for C takes them.

#include "flat/systemprovider.h"
#include "flat/systemprovider_packed.h"
#include "tests/flat/Calls.h"

#include <cstring>

namespace
{
// Words in the byte order of the host.
std::string words(const std::vector<std::int32_t>& values)
{
    return std::string(reinterpret_cast<const char*>(values.data()), values.size() * sizeof values[0]);
}

std::string withTerminator(const std::string& text)
{
    return text + '\0';
}

// Takes the whole of a value and nothing else: the size to the byte is enough, and one byte less is not.
template <class Take> void expectTakesExactly(const char* buffer, std::size_t size, Take take)
{
    PackedReader tooShort = packedReader(buffer, size - 1);
    EXPECT_FALSE(take(tooShort));
    EXPECT_EQ(tooShort.left, size - 1) << "the reader moved";
    PackedReader enough = packedReader(buffer, size);
    EXPECT_TRUE(take(enough));
    EXPECT_EQ(enough.left, 0u);
}
}

TEST(Packing, IntegerIsTagZeroAndItsValue)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packI(buffer.data(), -2), buffer.data() + 8);
    EXPECT_EQ(buffer.first(8), words({0, -2}));
    EXPECT_TRUE(buffer.isUntouchedFrom(8));
}

TEST(Packing, StringIsTagOneItsLengthItsCharactersAndAZeroByte)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packS(buffer.data(), "abc"), buffer.data() + 12);
    EXPECT_EQ(buffer.first(12), words({1, 3}) + withTerminator("abc"));
    EXPECT_TRUE(buffer.isUntouchedFrom(12));
}

TEST(Packing, EmptyStringTakesNineBytes)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packS(buffer.data(), ""), buffer.data() + 9);
    EXPECT_EQ(buffer.first(9), words({1, 0}) + withTerminator(""));
    EXPECT_TRUE(buffer.isUntouchedFrom(9));
}

TEST(Packing, StringIsCopiedUpToItsFirstZeroByteAndCountedWhole)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packS(buffer.data(), std::string("ab\0cdef", 7)), buffer.data() + 16);
    EXPECT_EQ(buffer.first(11), words({1, 7}) + withTerminator("ab"));
    EXPECT_TRUE(buffer.isUntouchedFrom(11));
}

TEST(Packing, IntegerArrayIsTagTwoItsCountAndPackedIntegers)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packAI(buffer.data(), {5, -1}), buffer.data() + 24);
    EXPECT_EQ(buffer.first(24), words({2, 2, 0, 5, 0, -1}));
    EXPECT_TRUE(buffer.isUntouchedFrom(24));
}

TEST(Packing, EmptyIntegerArrayTakesEightBytes)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packAI(buffer.data(), {}), buffer.data() + 8);
    EXPECT_EQ(buffer.first(8), words({2, 0}));
    EXPECT_TRUE(buffer.isUntouchedFrom(8));
}

TEST(Packing, StringArrayIsTagThreeItsCountAndPackedStrings)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packAS(buffer.data(), {"en", "", "fra"}), buffer.data() + 8 + 11 + 9 + 12);
    EXPECT_EQ(buffer.first(40), words({3, 3}) + words({1, 2}) + withTerminator("en") + words({1, 0}) +
                                    withTerminator("") + words({1, 3}) + withTerminator("fra"));
    EXPECT_TRUE(buffer.isUntouchedFrom(40));
}

TEST(Packing, EmptyStringArrayTakesEightBytes)
{
    MarkedBuffer buffer;
    EXPECT_EQ(packAS(buffer.data(), {}), buffer.data() + 8);
    EXPECT_EQ(buffer.first(8), words({3, 0}));
    EXPECT_TRUE(buffer.isUntouchedFrom(8));
}

TEST(Packing, LengthsCountsAndValuesHave32Bits)
{
    std::string buffer(8 + 70000 * 9, '#');
    EXPECT_EQ(packS(buffer.data(), std::string(70000, 'x')), buffer.data() + 8 + 70001);
    EXPECT_EQ(buffer.substr(0, 8), words({1, 70000}));
    EXPECT_EQ(packAI(buffer.data(), std::vector<int>(70000, 70001)), buffer.data() + 8 + 70000 * 8);
    EXPECT_EQ(buffer.substr(0, 16), words({2, 70000, 0, 70001}));
    EXPECT_EQ(packAS(buffer.data(), std::vector<std::string>(70000)), buffer.data() + 8 + 70000 * 9);
    EXPECT_EQ(buffer.substr(0, 16), words({3, 70000, 1, 0}));
}

TEST(Packing, ValuesMayFollowOneAnotherAtAnyAddress)
{
    for (std::size_t shift = 0; shift < 4; ++shift) {
        MarkedBuffer buffer;
        void* next = packAI(packS(buffer.data() + shift, "abcd"), {7});
        EXPECT_EQ(next, buffer.data() + shift + 13 + 16);
        EXPECT_EQ(buffer.first(shift + 29).substr(shift), words({1, 4}) + withTerminator("abcd") + words({2, 1, 0, 7}));
    }
}

TEST(PackedReader, TakesAnIntegerFromAnyAddress)
{
    for (std::size_t shift = 0; shift < 4; ++shift) {
        MarkedBuffer buffer;
        packI(buffer.data() + shift, -123456);
        std::int32_t value = 0;
        expectTakesExactly(buffer.data() + shift, 8, [&](PackedReader& r) { return packedInteger(&r, &value); });
        EXPECT_EQ(value, -123456);
    }
}

TEST(PackedReader, TakesATextFromAnyAddress)
{
    for (std::size_t shift = 0; shift < 4; ++shift) {
        MarkedBuffer buffer;
        packS(buffer.data() + shift, "abc");
        const char* text = nullptr;
        std::uint32_t length = 0;
        expectTakesExactly(buffer.data() + shift, 12, [&](PackedReader& r) { return packedText(&r, &text, &length); });
        EXPECT_STREQ(text, "abc");
        EXPECT_EQ(length, 3u);
    }
}

TEST(PackedReader, TakesAnEmptyText)
{
    MarkedBuffer buffer;
    packS(buffer.data(), "");
    const char* text = nullptr;
    std::uint32_t length = 99;
    expectTakesExactly(buffer.data(), 9, [&](PackedReader& r) { return packedText(&r, &text, &length); });
    EXPECT_STREQ(text, "");
    EXPECT_EQ(length, 0u);
}

TEST(PackedReader, TakesATextWithAZeroByteInItWhole)
{
    MarkedBuffer buffer;
    packI(packS(buffer.data(), std::string("ab\0cd", 5)), 8);
    PackedReader reader = packedReader(buffer.data(), 22);
    const char* text = nullptr;
    std::uint32_t length = 0;
    std::int32_t value = 0;
    ASSERT_TRUE(packedText(&reader, &text, &length));
    EXPECT_STREQ(text, "ab");
    EXPECT_EQ(length, 5u);
    EXPECT_TRUE(packedInteger(&reader, &value));
    EXPECT_EQ(value, 8);
}

TEST(PackedReader, TakesListsOneAfterTheOther)
{
    MarkedBuffer buffer;
    packAI(packAS(packAI(packAS(buffer.data(), {"a", ""}), {}), {}), {3, -4});
    PackedReader reader = packedReader(buffer.data(), (8 + 10 + 9) + 8 + 8 + (8 + 16));
    std::uint32_t count = 99;
    const char* text = nullptr;
    std::uint32_t length = 0;
    std::int32_t value = 0;
    ASSERT_TRUE(packedTexts(&reader, &count));
    EXPECT_EQ(count, 2u);
    ASSERT_TRUE(packedText(&reader, &text, &length));
    EXPECT_STREQ(text, "a");
    ASSERT_TRUE(packedText(&reader, &text, &length));
    EXPECT_STREQ(text, "");
    ASSERT_TRUE(packedIntegers(&reader, &count));
    EXPECT_EQ(count, 0u);
    ASSERT_TRUE(packedTexts(&reader, &count));
    EXPECT_EQ(count, 0u);
    ASSERT_TRUE(packedIntegers(&reader, &count));
    EXPECT_EQ(count, 2u);
    ASSERT_TRUE(packedInteger(&reader, &value));
    EXPECT_EQ(value, 3);
    ASSERT_TRUE(packedInteger(&reader, &value));
    EXPECT_EQ(value, -4);
    EXPECT_EQ(reader.left, 0u);
}

TEST(PackedReader, RefusesAValueOfAnotherKindAndStaysWhereItIs)
{
    MarkedBuffer buffer;
    packI(buffer.data(), 4);
    PackedReader reader = packedReader(buffer.data(), 8);
    std::uint32_t count = 99;
    const char* text = nullptr;
    EXPECT_FALSE(packedText(&reader, &text, &count));
    EXPECT_FALSE(packedIntegers(&reader, &count));
    EXPECT_FALSE(packedTexts(&reader, &count));
    EXPECT_EQ(count, 99u);
    EXPECT_EQ(text, nullptr);
    std::int32_t value = 0;
    EXPECT_TRUE(packedInteger(&reader, &value));
    packAI(buffer.data(), {});
    reader = packedReader(buffer.data(), 8);
    EXPECT_FALSE(packedInteger(&reader, &value));
    EXPECT_EQ(value, 4);
}

TEST(PackedReader, RefusesATagOf32BitsThatOnlyEndsLikeOne)
{
    const std::string bytes = words({0x10000, 7});
    PackedReader reader = packedReader(bytes.data(), bytes.size());
    std::int32_t value = 4;
    EXPECT_FALSE(packedInteger(&reader, &value));
    EXPECT_EQ(value, 4);
}

TEST(PackedReader, TakesATextAndABufferBeyond64Kilobytes)
{
    const std::string longText(70000, 'x');
    std::string bytes(8 + longText.size() + 1, '?');
    packS(bytes.data(), longText);
    expectTakesExactly(bytes.data(), bytes.size(), [&](PackedReader& r) {
        const char* text = nullptr;
        std::uint32_t length = 0;
        return packedText(&r, &text, &length) && std::string(text, length) == longText;
    });
}

TEST(PackedReader, RefusesALengthThatPassesTheEndOfTheBuffer)
{
    for (const std::uint32_t length : {5u, 0x7FFFFFFFu, 0xFFFFFFF7u, 0xFFFFFFFFu}) {
        char bytes[13] = {};
        packS(bytes, "four");
        std::memcpy(bytes + 4, &length, sizeof length);
        PackedReader reader = packedReader(bytes, sizeof bytes);
        const char* text = nullptr;
        std::uint32_t found = 0;
        EXPECT_FALSE(packedText(&reader, &text, &found)) << length;
        EXPECT_EQ(reader.left, sizeof bytes);
    }
}

TEST(PackedReader, RefusesATextWithoutTerminator)
{
    for (const std::size_t size : {3u, 70000u}) {
        std::string bytes(8 + size + 2, '?');
        packS(bytes.data(), std::string(size, 'x'));
        bytes[8 + size] = 'x';
        bytes[8 + size + 1] = 0; // comes too late
        PackedReader reader = packedReader(bytes.data(), bytes.size());
        const char* text = nullptr;
        std::uint32_t length = 0;
        EXPECT_FALSE(packedText(&reader, &text, &length)) << size;
    }
}

TEST(PackedReader, TakesNothingFromAnEmptyBuffer)
{
    PackedReader reader = packedReader(nullptr, 0);
    std::uint32_t count = 0;
    std::int32_t value = 0;
    const char* text = nullptr;
    EXPECT_FALSE(packedInteger(&reader, &value));
    EXPECT_FALSE(packedText(&reader, &text, &count));
    EXPECT_FALSE(packedIntegers(&reader, &count));
    EXPECT_FALSE(packedTexts(&reader, &count));
}
