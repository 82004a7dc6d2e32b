#include "tools/formats/Printable.h"

#include <gtest/gtest.h>

using VQ::Tool::printable;

TEST(Printable, ShowsControlCharactersByTheirNumber)
{
    EXPECT_EQ(printable("\x01 \x1F \x7F"), "\\x01 \\x1F \\x7F");
    EXPECT_EQ(printable("\xC2\x80 \xC2\x9F"), "\\x80 \\x9F");
    EXPECT_EQ(printable(" ~ \xC2\xA0 \xC3\xA9"), " ~ \xC2\xA0 \xC3\xA9") << "no control characters";
}

TEST(Printable, ShowsWhatTurnsTheDirectionOfWritingByItsNumber)
{
    EXPECT_EQ(printable("\xD8\x9C"), "\\u061C");
    EXPECT_EQ(printable("\xE2\x80\x8E\xE2\x80\x8F"), "\\u200E\\u200F");
    EXPECT_EQ(printable("\xE2\x80\xAA\xE2\x80\xAB\xE2\x80\xAC\xE2\x80\xAD\xE2\x80\xAE"),
              "\\u202A\\u202B\\u202C\\u202D\\u202E");
    EXPECT_EQ(printable("\xE2\x81\xA6\xE2\x81\xA7\xE2\x81\xA8\xE2\x81\xA9"), "\\u2066\\u2067\\u2068\\u2069");
}

TEST(Printable, LeavesTheNeighboursOfThoseAlone)
{
    // U+061B, U+061D, U+200D, U+2010, U+2029, U+202F, U+2065, U+206A
    const char* neighbours = "\xD8\x9B \xD8\x9D \xE2\x80\x8D \xE2\x80\x90 \xE2\x80\xA9 \xE2\x80\xAF \xE2\x81\xA5 "
                             "\xE2\x81\xAA";
    EXPECT_EQ(printable(neighbours), neighbours);
}

TEST(Printable, ShowsBytesThatAreNoUtf8ByTheirValue)
{
    EXPECT_EQ(printable("\xE2\x80"), "\\xE2\\x80");
    EXPECT_EQ(printable("a\xFFz"), "a\\xFFz");
}
