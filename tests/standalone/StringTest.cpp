#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <gtest/gtest.h>

using namespace Pegasus;

TEST(String, ACopyDoesNotSeeLaterChanges)
{
    String original("abc");
    String copy(original);
    original[0] = Char16('x');
    copy.append(String("d"));
    EXPECT_EQ("xbc", text(original));
    EXPECT_EQ("abcd", text(copy));
}

TEST(String, AnAssignedCopyDoesNotSeeLaterChanges)
{
    String original("abc");
    String copy;
    copy = original;
    original.append(Char16('d'));
    EXPECT_EQ("abc", text(copy));
}

TEST(String, AppendsItself)
{
    String string("ab");
    string.append(string);
    string.append(string[1]);
    EXPECT_EQ("ababb", text(string));
}

TEST(String, TakesUtf16Units)
{
    const Char16 units[] = {Uint16('a'), Uint16(0xE9), Uint16(0x20AC)};
    EXPECT_EQ("a\xC3\xA9\xE2\x82\xAC", text(String(units, 3)));
}

TEST(String, EndsInAZeroUnit)
{
    const String empty;
    const String filled("ab");
    EXPECT_EQ(0, Uint16(empty[0]));
    EXPECT_EQ('b', Uint16(filled[1]));
    EXPECT_EQ(0, Uint16(filled[2]));
}

TEST(String, CharactersBeyondUtf16UnitsSurviveTheRoundTrip)
{
    const char* const smallest = "\xF0\x90\x80\x80";
    const char* const largest = "\xF4\x8F\xBF\xBF";
    EXPECT_EQ(smallest, text(String(smallest)));
    EXPECT_EQ(largest, text(String(largest)));
    EXPECT_EQ(2u, String(largest).size());
}

TEST(String, OverlongUtf8IsRefused)
{
    EXPECT_THROW(String("\xC0\x80"), Exception);
    EXPECT_THROW(String("\xE0\x80\x80"), Exception);
    EXPECT_THROW(String("\xF0\x80\x80\x80"), Exception);
}

TEST(String, Utf8BeyondUnicodeIsRefused)
{
    EXPECT_THROW(String("\xF4\x90\x80\x80"), Exception);
    EXPECT_THROW(String("\xF8\x88\x80\x80\x80"), Exception);
}

TEST(String, Utf8CutOffByItsLengthIsRefused)
{
    EXPECT_THROW(String("\xC3\xA9", 1), Exception);
}

TEST(String, ZeroBytesWithinTheLengthAreKept)
{
    const String string("a\0b", 3);
    EXPECT_EQ(3u, string.size());
    EXPECT_EQ(0, Uint16(string[1]));
}

TEST(String, SubStringEndsWithTheText)
{
    EXPECT_EQ("bc", text(String("abc").subString(1, 100)));
    EXPECT_EQ("", text(String("abc").subString(3, 1)));
    EXPECT_EQ("", text(String("abc").subString(4, 1)));
}

TEST(String, ComparesUnitByUnit)
{
    EXPECT_TRUE(String("a") == String("a"));
    EXPECT_FALSE(String("a") == String("A"));
    EXPECT_LT(String::compare("a", "ab"), 0);
    EXPECT_GT(String::compare("b", "ab"), 0);
}

TEST(CIMName, AllowsLettersOutsideAscii)
{
    EXPECT_TRUE(CIMName::legal("\xC3\xA9x"));
    EXPECT_FALSE(CIMName::legal("a-b"));
}

TEST(CIMNamespaceName, DropsOneLeadingSlash)
{
    EXPECT_EQ("root", text(CIMNamespaceName("/root").getString()));
    EXPECT_THROW(CIMNamespaceName("//root"), InvalidNamespaceNameException);
    EXPECT_THROW(CIMNamespaceName("root/"), InvalidNamespaceNameException);
    EXPECT_THROW(CIMNamespaceName(""), InvalidNamespaceNameException);
}
