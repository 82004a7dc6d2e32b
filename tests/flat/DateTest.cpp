// The date text that the accessors of the BIOS and of the operating system share.

#include "flat/Delivery.h"
#include "tests/flat/Calls.h"
#include "tests/flat/FixedSystem.h"

#include <cstring>

namespace
{
constexpr unsigned int LocalWithOffset = 3;

std::string dateText(const VQ::DateTime& date, int offset)
{
    MarkedBuffer buffer;
    VQ::deliverDate(buffer.data(), date, offset);
    return textIn(buffer);
}

// A DateTime has no setter for its milliseconds and no constructor that gives it any; so they are put where they lie.
VQ::DateTime withMilliseconds(VQ::DateTime date, std::uint32_t milliseconds)
{
    constexpr std::size_t Position = 8; // after the year and five bytes, aligned
    std::memcpy(reinterpret_cast<char*>(&date) + Position, &milliseconds, sizeof milliseconds);
    EXPECT_EQ(date.getMillisecond(), milliseconds) << "the layout of DateTime has changed";
    return date;
}

class Date : public testing::Test
{
protected:
    void SetUp() override { fixedSystem() = FixedSystem(); }
    const VQ::DateTime noon{1110196800, LocalWithOffset}; // 2005-03-07 12:00:00 UTC
};
}

TEST_F(Date, ReadsYearToSecondWithoutSeparators)
{
    EXPECT_EQ(dateText(VQ::DateTime(1046599445, LocalWithOffset), 0), "20030302100405.000000+000");
}

TEST_F(Date, AtOffsetZeroEndsInThreeZeros)
{
    EXPECT_EQ(dateText(noon, 0), "20050307120000.000000+000");
}

TEST_F(Date, AtPositiveOffsetEndsInThreeDigits)
{
    EXPECT_EQ(dateText(noon, 60), "20050307120000.000000+060");
    EXPECT_EQ(dateText(noon, 345), "20050307120000.000000+345");
}

TEST_F(Date, KeepsThePlusSignBeforeANegativeOffset)
{
    EXPECT_EQ(dateText(noon, -300), "20050307120000.000000+-300");
    EXPECT_EQ(dateText(noon, -60), "20050307120000.000000+-060");
}

TEST_F(Date, WritesMillisecondsUnscaledInSixDigits)
{
    EXPECT_EQ(dateText(withMilliseconds(noon, 123), 0), "20050307120000.000123+000");
    EXPECT_EQ(dateText(withMilliseconds(noon, 123456), 0), "20050307120000.123456+000"); // six digits, no fewer
}

TEST_F(Date, OfNoDayIsAllZeros)
{
    EXPECT_EQ(dateText(VQ::DateTime(), 0), "00000000000000.000000+000");
}

TEST_F(Date, OfTheLargestFieldsFitsTheDocumentedBuffer)
{
    VQ::DateTime date;
    date.setYear(65535);
    date.setMonth(255);
    date.setDay(255);
    EXPECT_EQ(dateText(date, 0), "65535255255000000.000000+000");
    EXPECT_LE(dateText(date, 0).size() + 1, 32u);
}
