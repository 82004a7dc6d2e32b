#include "support/pegasus/CimDateTime.h"

#include "tests/support/TimeZone.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/DateFields.h"

#include <gtest/gtest.h>

using namespace VQ;

namespace
{
std::string cim(const DateTime& date)
{
    return text(make_CIMDateTime(date).toString());
}

// The text of a date whose one field was changed.
template <class Member, class Value> std::string with(Member member, Value value)
{
    DateFields fields;
    fields.*member = value;
    return cim(dateOf(fields));
}

DateTime day(unsigned short year, unsigned char month, unsigned char dayOfMonth)
{
    DateTime date;
    date.setYear(year);
    date.setMonth(month);
    date.setDay(dayOfMonth);
    return date;
}
}

TEST(CimDateTime, FieldsOfTheTestAreTheFieldsOfTheDate)
{
    const DateTime date = dateOf({2001, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(date.getYear(), 2001);
    EXPECT_EQ(date.getMonth(), 2);
    EXPECT_EQ(date.getDay(), 3);
    EXPECT_EQ(date.getHour(), 4);
    EXPECT_EQ(date.getMinute(), 5);
    EXPECT_EQ(date.getSecond(), 6);
    EXPECT_EQ(date.getMillisecond(), 7u);
    EXPECT_EQ(date.getOffset(), 8);
}

TEST(CimDateTime, IsATimestampWithMicrosecondsAndOffset)
{
    EXPECT_EQ(cim(dateOf({})), "20050314150926.535000+060");
    EXPECT_FALSE(make_CIMDateTime(dateOf({})).isInterval());
}

TEST(CimDateTime, HoldsTheInstantInLocalTime)
{
    const TimeZone zone("XXX3:30");
    EXPECT_EQ(cim(DateTime(1104580800, 3)), "20050101083000.000000-210");
}

TEST(CimDateTime, EpochIsADate)
{
    const TimeZone zone("UTC0");
    EXPECT_EQ(cim(DateTime(0, 3)), "19700101000000.000000+000");
}

TEST(CimDateTime, DateAloneIsMidnight)
{
    EXPECT_EQ(cim(day(2005, 6, 23)), "20050623000000.000000+000");
}

TEST(CimDateTime, NoDateIsUnknownThroughout)
{
    EXPECT_EQ(cim(DateTime()), "**************.******+000");
}

TEST(CimDateTime, YearOfFiveDigitsIsUnknownThroughout)
{
    EXPECT_EQ(with(&DateFields::year, 9999), "99990314150926.535000+060");
    EXPECT_EQ(with(&DateFields::year, 10000), "**************.******+000");
    EXPECT_EQ(with(&DateFields::year, 65535), "**************.******+000");
}

TEST(CimDateTime, YearZeroIsAYear)
{
    EXPECT_EQ(with(&DateFields::year, 0), "00000314150926.535000+060");
}

TEST(CimDateTime, FirstAndLastInstantsOfTheCalendarStandAnyOffset)
{
    EXPECT_EQ(cim(dateOf({0, 1, 1, 0, 0, 0, 0, 999})), "00000101000000.000000+999");
    EXPECT_EQ(cim(dateOf({9999, 12, 31, 23, 59, 59, 999, -999})), "99991231235959.999000-999");
}

TEST(CimDateTime, ImpossibleMonthLeavesTheYear)
{
    EXPECT_EQ(with(&DateFields::month, 0), "2005**********.******+060");
    EXPECT_EQ(with(&DateFields::month, 13), "2005**********.******+060");
    EXPECT_EQ(with(&DateFields::month, 255), "2005**********.******+060");
    EXPECT_EQ(with(&DateFields::month, 12), "20051214150926.535000+060");
}

TEST(CimDateTime, ImpossibleDayLeavesYearAndMonth)
{
    EXPECT_EQ(with(&DateFields::day, 0), "200503********.******+060");
    EXPECT_EQ(with(&DateFields::day, 32), "200503********.******+060");
    EXPECT_EQ(with(&DateFields::day, 31), "20050331150926.535000+060");
}

TEST(CimDateTime, EachMonthHasItsOwnLength)
{
    const unsigned char lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (unsigned char month = 1; month <= 12; ++month) {
        const unsigned char last = lengths[month - 1];
        char begin[8];
        std::snprintf(begin, sizeof begin, "2005%02u", month);
        EXPECT_EQ(cim(day(2005, month, last)), begin + std::to_string(last) + "000000.000000+000");
        EXPECT_EQ(cim(day(2005, month, static_cast<unsigned char>(last + 1))),
                  begin + std::string("********.******+000"));
    }
}

TEST(CimDateTime, FebruaryHas29DaysInLeapYearsOnly)
{
    EXPECT_EQ(cim(day(2004, 2, 29)), "20040229000000.000000+000");
    EXPECT_EQ(cim(day(2000, 2, 29)), "20000229000000.000000+000");
    EXPECT_EQ(cim(day(1900, 2, 29)), "190002********.******+000");
    EXPECT_EQ(cim(day(2005, 2, 29)), "200502********.******+000");
    EXPECT_EQ(cim(day(2004, 2, 30)), "200402********.******+000");
}

TEST(CimDateTime, ImpossibleHourMinuteAndSecondLeaveTheFieldsBeforeThem)
{
    EXPECT_EQ(with(&DateFields::hour, 23), "20050314230926.535000+060");
    EXPECT_EQ(with(&DateFields::hour, 24), "20050314******.******+060");
    EXPECT_EQ(with(&DateFields::minute, 59), "20050314155926.535000+060");
    EXPECT_EQ(with(&DateFields::minute, 60), "2005031415****.******+060");
    EXPECT_EQ(with(&DateFields::second, 59), "20050314150959.535000+060");
    EXPECT_EQ(with(&DateFields::second, 60), "200503141509**.******+060");
}

TEST(CimDateTime, ImpossibleMillisecondLeavesTheSeconds)
{
    EXPECT_EQ(with(&DateFields::millisecond, 0u), "20050314150926.000000+060");
    EXPECT_EQ(with(&DateFields::millisecond, 999u), "20050314150926.999000+060");
    EXPECT_EQ(with(&DateFields::millisecond, 1000u), "20050314150926.******+060");
    EXPECT_EQ(with(&DateFields::millisecond, 4294967295u), "20050314150926.******+060");
}

TEST(CimDateTime, FieldsAfterAnImpossibleOneAreUnknownEvenIfPossible)
{
    EXPECT_EQ(cim(dateOf({2005, 0, 14, 15, 9, 26, 535, 60})), "2005**********.******+060");
}

TEST(CimDateTime, OffsetHasASignAndThreeDigits)
{
    EXPECT_EQ(with(&DateFields::offset, -1), "20050314150926.535000-001");
    EXPECT_EQ(with(&DateFields::offset, -210), "20050314150926.535000-210");
    EXPECT_EQ(with(&DateFields::offset, 0), "20050314150926.535000+000");
    EXPECT_EQ(with(&DateFields::offset, 999), "20050314150926.535000+999");
    EXPECT_EQ(with(&DateFields::offset, -999), "20050314150926.535000-999");
}

TEST(CimDateTime, OffsetOfMoreThanThreeDigitsMakesEveryFieldUnknown)
{
    EXPECT_EQ(with(&DateFields::offset, 1000), "**************.******+000");
    EXPECT_EQ(with(&DateFields::offset, -1000), "**************.******+000");
    EXPECT_EQ(with(&DateFields::offset, -32768), "**************.******+000");
}
