// The date text that the accessors of the BIOS and of the operating system share.

#include "flat/Delivery.h"
#include "tests/flat/Calls.h"
#include "tests/testing/DateFields.h"
#include "tests/testing/FakeLibc.h"

namespace
{
constexpr unsigned int LocalWithOffset = 3;

std::string dateText(const VQ::DateTime& date, int offset)
{
    MarkedBuffer buffer;
    VQ::deliverDate(buffer.data(), date, offset);
    return textIn(buffer);
}

class Date : public FakeLibcTest
{
protected:
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
    EXPECT_EQ(dateText(dateOf({2005, 3, 7, 12, 0, 0, 123, 0}), 0), "20050307120000.000123+000");
    EXPECT_EQ(dateText(dateOf({2005, 3, 7, 12, 0, 0, 123456, 0}), 0), "20050307120000.123456+000"); // all six digits
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
