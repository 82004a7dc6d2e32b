#include "support/common/DateTime.h"

#include "tests/support/TimeZone.h"
#include "tests/testing/DateFields.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace VQ;

namespace
{
constexpr unsigned Utc = 0;
constexpr unsigned Local = 1;
constexpr unsigned UtcWithOffset = 2;
constexpr unsigned LocalWithOffset = 3;

constexpr long July2005 = 1120219200;    // 2005-07-01 12:00:00 UTC
constexpr long January2005 = 1104580800; // 2005-01-01 12:00:00 UTC

const char* const CentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

// All fields on one line: 2005-07-01 14:00:00.000 +120
std::string shown(const DateTime& d)
{
    char text[80];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%03u %+d", d.getYear(), d.getMonth(), d.getDay(),
                  d.getHour(), d.getMinute(), d.getSecond(), static_cast<unsigned>(d.getMillisecond()), d.getOffset());
    return text;
}
}

TEST(DateTime, DefaultHasEveryFieldZero)
{
    EXPECT_EQ(shown(DateTime()), "0000-00-00 00:00:00.000 +0");
}

TEST(DateTime, SettersSetTheirFieldsAndNoOther)
{
    DateTime date;
    date.setYear(2005);
    date.setMonth(3);
    date.setDay(14);
    EXPECT_EQ(shown(date), "2005-03-14 00:00:00.000 +0");
}

TEST(DateTime, SettersTakeAnyNumber)
{
    DateTime date;
    date.setYear(65535);
    date.setMonth(255);
    date.setDay(255);
    EXPECT_EQ(shown(date), "65535-255-255 00:00:00.000 +0");
}

TEST(DateTime, EpochIsTheFirstSecondOf1970)
{
    const TimeZone zone("UTC0");
    EXPECT_EQ(shown(DateTime(0, LocalWithOffset)), "1970-01-01 00:00:00.000 +0");
}

TEST(DateTime, WithoutTheLocalBitFieldsAreUtcAndTheOffsetIsZero)
{
    const TimeZone zone(CentralEurope);
    EXPECT_EQ(shown(DateTime(July2005, Utc)), "2005-07-01 12:00:00.000 +0");
    EXPECT_EQ(shown(DateTime(July2005, UtcWithOffset)), "2005-07-01 12:00:00.000 +0");
}

TEST(DateTime, LocalBitGivesLocalFields)
{
    const TimeZone zone(CentralEurope);
    EXPECT_EQ(shown(DateTime(January2005, Local)), "2005-01-01 13:00:00.000 +0");
}

TEST(DateTime, OffsetBitGivesTheOffsetOfThatInstantDaylightSavingIncluded)
{
    const TimeZone zone(CentralEurope);
    EXPECT_EQ(shown(DateTime(January2005, LocalWithOffset)), "2005-01-01 13:00:00.000 +60");
    EXPECT_EQ(shown(DateTime(July2005, LocalWithOffset)), "2005-07-01 14:00:00.000 +120");
}

TEST(DateTime, DaylightSavingBeginsWithinOneSecond)
{
    const TimeZone zone(CentralEurope);
    constexpr long begin = 1111885200; // 2005-03-27 01:00:00 UTC
    EXPECT_EQ(shown(DateTime(begin - 1, LocalWithOffset)), "2005-03-27 01:59:59.000 +60");
    EXPECT_EQ(shown(DateTime(begin, LocalWithOffset)), "2005-03-27 03:00:00.000 +120");
}

TEST(DateTime, OffsetWestOfGreenwichIsNegativeAndKeepsItsHalfHour)
{
    const TimeZone zone("XXX3:30");
    EXPECT_EQ(shown(DateTime(January2005, LocalWithOffset)), "2005-01-01 08:30:00.000 -210");
}

TEST(DateTime, OffsetEastOfGreenwichKeepsItsThreeQuarters)
{
    const TimeZone zone("XXX-5:45");
    EXPECT_EQ(shown(DateTime(January2005, LocalWithOffset)), "2005-01-01 17:45:00.000 +345");
}

TEST(DateTime, FarthestOffsetsFit)
{
    const TimeZone east("XXX-14");
    EXPECT_EQ(shown(DateTime(January2005, LocalWithOffset)), "2005-01-02 02:00:00.000 +840");
    const TimeZone west("XXX12");
    EXPECT_EQ(shown(DateTime(January2005, LocalWithOffset)), "2005-01-01 00:00:00.000 -720");
}

TEST(DateTime, ZoneIsReadAnewOnEveryCall)
{
    const TimeZone zone("XXX-1");
    EXPECT_EQ(DateTime(January2005, LocalWithOffset).getOffset(), 60);
    const TimeZone changed("XXX-2");
    EXPECT_EQ(DateTime(January2005, LocalWithOffset).getOffset(), 120);
}

TEST(DateTime, InstantsBefore1970CountBackwards)
{
    const TimeZone zone("UTC0");
    EXPECT_EQ(shown(DateTime(-1, LocalWithOffset)), "1969-12-31 23:59:59.000 +0");
    EXPECT_EQ(shown(DateTime(-2147483647L - 1, Utc)), "1901-12-13 20:45:52.000 +0");
}

TEST(DateTime, LastInstantOf32BitsIsInJanuary2038)
{
    EXPECT_EQ(shown(DateTime(2147483647L, Utc)), "2038-01-19 03:14:07.000 +0");
}

TEST(DateTime, LeapDayIsADay)
{
    EXPECT_EQ(shown(DateTime(951782400, Utc)), "2000-02-29 00:00:00.000 +0");
}

TEST(DateTime, YearBeyondFourDigitsIsKept)
{
    if (sizeof(long) < 8)
        GTEST_SKIP() << "a 32-bit instant ends in 2038";
    constexpr long long year10000 = 253402300800; // 10000-01-01 00:00:00 UTC
    EXPECT_EQ(shown(DateTime(static_cast<long>(year10000), Utc)), "10000-01-01 00:00:00.000 +0");
}

TEST(DateTime, YearThatDoesNotFitGivesNoDate)
{
    if (sizeof(long) < 8)
        GTEST_SKIP() << "a 32-bit instant lies between 1901 and 2038";
    constexpr long long year65536 = 2005949145600;  // 65536-01-01 00:00:00 UTC
    constexpr long long yearBefore0 = -62167219201; // the second before 0000-01-01 00:00:00 UTC
    EXPECT_EQ(shown(DateTime(static_cast<long>(year65536 - 1), Utc)), "65535-12-31 23:59:59.000 +0");
    EXPECT_EQ(shown(DateTime(static_cast<long>(year65536), Utc)), "0000-00-00 00:00:00.000 +0");
    EXPECT_EQ(shown(DateTime(static_cast<long>(yearBefore0 + 1), Utc)), "0000-01-01 00:00:00.000 +0");
    EXPECT_EQ(shown(DateTime(static_cast<long>(yearBefore0), Utc)), "0000-00-00 00:00:00.000 +0");
    EXPECT_EQ(shown(DateTime(std::numeric_limits<long>::max(), LocalWithOffset)), "0000-00-00 00:00:00.000 +0");
    EXPECT_EQ(shown(DateTime(std::numeric_limits<long>::min(), LocalWithOffset)), "0000-00-00 00:00:00.000 +0");
}

TEST(DateTime, SameArgumentsCompareEqual)
{
    EXPECT_FALSE(DateTime(0, LocalWithOffset) != DateTime(0, LocalWithOffset));
    EXPECT_FALSE(DateTime() != DateTime());
}

TEST(DateTime, OneSecondMakesADifference)
{
    EXPECT_TRUE(DateTime(1, LocalWithOffset) != DateTime(0, LocalWithOffset));
}

TEST(DateTime, EachFieldMakesADifference)
{
    const DateTime base(January2005, Utc);
    DateTime other = base;
    other.setYear(2006);
    EXPECT_TRUE(other != base);
    other = base;
    other.setMonth(2);
    EXPECT_TRUE(other != base);
    other = base;
    other.setDay(2);
    EXPECT_TRUE(other != base);
    EXPECT_TRUE(DateTime(January2005 + 3600, Utc) != base);
    EXPECT_TRUE(DateTime(January2005 + 60, Utc) != base);
    EXPECT_TRUE(DateTime(January2005 + 1, Utc) != base);
}

TEST(DateTime, OneMillisecondMakesADifference)
{
    DateFields fields;
    const DateTime date = dateOf(fields);
    ++fields.millisecond;
    EXPECT_TRUE(dateOf(fields) != date);
    --fields.millisecond;
    EXPECT_FALSE(dateOf(fields) != date);
}

TEST(DateTime, SameClockAtAnotherOffsetDiffers)
{
    const TimeZone utc("UTC0");
    const DateTime there(January2005, LocalWithOffset);
    const TimeZone zone("XXX-1");
    const DateTime here(January2005 - 3600, LocalWithOffset);
    EXPECT_EQ(here.getHour(), there.getHour());
    EXPECT_TRUE(here != there);
}

TEST(DateTime, CopiesAreEqualAndShareNothing)
{
    const DateTime date(July2005, Utc);
    DateTime copy(date);
    EXPECT_FALSE(copy != date);
    copy.setYear(1999);
    EXPECT_EQ(date.getYear(), 2005);
    copy = date;
    EXPECT_FALSE(copy != date);
}
