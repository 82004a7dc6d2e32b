#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>

using namespace Pegasus;

namespace
{
std::string written(const char* datetime)
{
    return text(CIMDateTime(String(datetime)).toString());
}

bool equal(const char* a, const char* b)
{
    return CIMDateTime(String(a)) == CIMDateTime(String(b));
}

void expectKept(const char* datetime)
{
    EXPECT_EQ(datetime, written(datetime));
}

void expectBadFormat(const char* datetime)
{
    EXPECT_THROW(CIMDateTime{String(datetime)}, InvalidDateTimeFormatException) << datetime;
}

void expectOutOfRange(const char* datetime)
{
    EXPECT_THROW(CIMDateTime{String(datetime)}, DateTimeOutOfRangeException) << datetime;
}
}

TEST(CIMDateTime, KeepsUnknownFieldsAtItsEnd)
{
    expectKept("200503********.******+000");
    expectKept("2005030712****.******+060");
    expectKept("200503071200**.******+060");
    expectKept("20050307120000.******+060");
}

TEST(CIMDateTime, KeepsUnknownDigitsOfTheMicroseconds)
{
    expectKept("20050307120000.123***+060");
    expectKept("00000001010203.123***:000");
}

TEST(CIMDateTime, RefusesAKnownFieldAfterAnUnknownOne)
{
    expectBadFormat("**050307120000.000000+000");
    expectBadFormat("20050******000.000000+000");
    expectBadFormat("20050307120000.*23456+060");
    expectBadFormat("********000000.000000:000");
}

TEST(CIMDateTime, RefusesAFieldThatIsKnownInPart)
{
    expectBadFormat("2005030712000*.******+060");
    expectBadFormat("2005033*******.******+000");
    expectBadFormat("20050307120000.000000+0*0");
}

TEST(CIMDateTime, RefusesAnotherLengthOrPunctuation)
{
    expectBadFormat("20050307120000.000000+06");
    expectBadFormat("20050307120000.000000+0600");
    expectBadFormat("20050307120000,000000+060");
    expectBadFormat("20050307120000.000000 060");
    expectBadFormat("20050307120000.-00001+060");
    expectBadFormat("\xC3\xA9"
                    "0050307120000.000000+06");
}

TEST(CIMDateTime, RefusesAnIntervalWithAnOffset)
{
    expectBadFormat("00000001010203.000000:001");
    expectBadFormat("00000001010203.000000:***");
    expectBadFormat("00000001240000.000000:001");
}

TEST(CIMDateTime, KnowsLeapYears)
{
    expectKept("20000229000000.000000+000");
    expectKept("20040229000000.000000+000");
    expectOutOfRange("19000229000000.000000+000");
    expectOutOfRange("20040230000000.000000+000");
}

TEST(CIMDateTime, ChecksTheKnownFieldsOfAPartialTimestamp)
{
    expectOutOfRange("200500********.******+000");
    expectOutOfRange("200513********.******+000");
    expectOutOfRange("20050230******.******+000");
}

TEST(CIMDateTime, ChecksTheFieldsOfAnInterval)
{
    expectKept("99999999235959.999999:000");
    expectOutOfRange("00000001240000.000000:000");
    expectOutOfRange("00000001006000.000000:000");
    expectOutOfRange("00000001000060.000000:000");
}

TEST(CIMDateTime, WritesANegativeZeroOffsetAsPositive)
{
    EXPECT_EQ("20050307120000.000000+000", written("20050307120000.000000-000"));
}

TEST(CIMDateTime, ComparesInUtc)
{
    EXPECT_TRUE(equal("20050301003000.000000+060", "20050228233000.000000+000"));
    EXPECT_TRUE(equal("20041231233000.000000-060", "20050101003000.000000+000"));
    EXPECT_FALSE(equal("20050307120000.000000+060", "20050307120000.000000+000"));
}

TEST(CIMDateTime, ComparesInUtcBeyondTheFirstAndLastYear)
{
    EXPECT_TRUE(equal("00000101000000.000000+060", "00000101000000.000000+060"));
    EXPECT_FALSE(equal("00000101000000.000000+060", "00000101000000.000000+120"));
    EXPECT_TRUE(equal("99991231235959.999999-060", "99991231235959.999999-060"));
}

TEST(CIMDateTime, AnUnknownFieldEqualsEveryValue)
{
    EXPECT_TRUE(equal("2005**********.******+000", "20050101000000.000000+000"));
    EXPECT_FALSE(equal("2005**********.******+000", "20060101000000.000000+000"));
    EXPECT_TRUE(equal("20050307120000.123***+000", "20050307120000.123456+000"));
    EXPECT_TRUE(equal("00000001******.******:000", "00000001010203.000000:000"));
}

TEST(CIMDateTime, AnOffsetCountsOnlyWhereItsHoursAreKnown)
{
    EXPECT_TRUE(equal("2005030712****.******+060", "2005030711****.******+000"));
    EXPECT_FALSE(equal("2005030712****.******+060", "2005030712****.******+000"));
    EXPECT_TRUE(equal("20050307******.******+060", "20050307233000.000000+000"));
    EXPECT_FALSE(equal("20050307******.******+060", "20050306233000.000000+000"));
}

TEST(CIMDateTime, DoesNotCompareATimestampWithAnInterval)
{
    EXPECT_THROW(equal("00000001010203.000000:000", "20050307120000.000000+060"), TypeMismatchException);
}
