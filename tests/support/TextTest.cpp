#include "support/common/Text.h"

#include "support/pegasus/CimText.h"
#include "tests/testing/CimLines.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace VQ;
using namespace std::string_literals;

namespace
{
const std::string AllAscii = [] {
    std::string all;
    for (char c = 1; c < 127; ++c)
        all += c;
    return all + '\x7F';
}();

std::wstring widened(const std::string& ascii)
{
    return std::wstring(ascii.begin(), ascii.end());
}

using Units = std::vector<unsigned>;

Units units(const Pegasus::String& string)
{
    Units values;
    for (Pegasus::Uint32 i = 0; i < string.size(); ++i)
        values.push_back(static_cast<Pegasus::Uint16>(string[i]));
    return values;
}

// Narrow text and the characters that it stands for.
struct Decoding
{
    const char* what;
    std::string bytes;
    std::wstring characters;
};

const Decoding Decodings[] = {
    {"empty", "", L""},
    {"two bytes, the first and the last", "\xC2\x80\xDF\xBF", L"\x80\x7FF"},
    {"three bytes, the first and the last", "\xE0\xA0\x80\xEF\xBF\xBF", L"\x800\xFFFF"},
    {"four bytes, the first and the last", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\x10000\x10FFFF"},
    {"four bytes, odd first ones", "\xF1\x80\x80\x80\xF3\xBF\xBF\xBF", L"\x40000\xFFFFF"},
    {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", L"\xD7FF\xE000"},
    {"a Latin-1 byte", "Caf\xE9", L"Caf\xE9"},
    {"a Latin-1 byte before ASCII", "M\xFCller", L"M\xFCller"},
    {"a Latin-1 byte between valid characters", "\xC3\xA9\xE9\xC3\xA9", L"\xE9\xE9\xE9"},
    {"a continuation byte alone", "a\x80z\xBF", L"a\x80z\xBF"},
    {"bytes that begin nothing", "\xF8\xFC\xFE\xFF", L"\xF8\xFC\xFE\xFF"},
    {"an overlong slash in two bytes", "\xC0\xAF", L"\xC0\xAF"},
    {"an overlong NUL in two bytes", "\xC0\x80", L"\xC0\x80"},
    {"an overlong form of 7Fh", "\xC1\xBF", L"\xC1\xBF"},
    {"an overlong form in three bytes", "\xE0\x9F\xBF", L"\xE0\x9F\xBF"},
    {"an overlong form in four bytes", "\xF0\x8F\xBF\xBF", L"\xF0\x8F\xBF\xBF"},
    {"the first surrogate", "\xED\xA0\x80", L"\xED\xA0\x80"},
    {"the last surrogate", "\xED\xBF\xBF", L"\xED\xBF\xBF"},
    {"a pair of surrogates", "\xED\xA0\xBD\xED\xB8\x80", L"\xED\xA0\xBD\xED\xB8\x80"},
    {"past the last character", "\xF4\x90\x80\x80", L"\xF4\x90\x80\x80"},
    {"a lead byte past the last character", "\xF5\x80\x80\x80", L"\xF5\x80\x80\x80"},
    {"cut off after one of two bytes", "a\xC3", L"a\xC3"},
    {"cut off after two of three bytes", "a\xE2\x82", L"a\xE2\x82"},
    {"cut off after three of four bytes", "a\xF0\x9F\x98", L"a\xF0\x9F\x98"},
    {"broken off by ASCII", "\xE2\x82z\xF0\x9F\x98z", L"\xE2\x82z\xF0\x9F\x98z"},
    {"broken off by another character", "\xE2\xC3\xA9", L"\xE2\xE9"},
};

// Characters and what stands for them in UTF-8 and in UTF-16.
struct Encoding
{
    const char* what;
    std::wstring characters;
    std::string utf8;
    Units utf16;
};

const Encoding Encodings[] = {
    {"empty", L"", "", {}},
    {"the ends of one byte", L"\x01\x7F", "\x01\x7F", {0x01, 0x7F}},
    {"the ends of two bytes", L"\x80\x7FF", "\xC2\x80\xDF\xBF", {0x80, 0x7FF}},
    {"the ends of three bytes", L"\x800\xFFFF", "\xE0\xA0\x80\xEF\xBF\xBF", {0x800, 0xFFFF}},
    {"the ends of four bytes",
     L"\x10000\x10FFFF",
     "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
     {0xD800, 0xDC00, 0xDBFF, 0xDFFF}},
    {"a smiling face", L"\x1F600", "\xF0\x9F\x98\x80", {0xD83D, 0xDE00}},
    {"a character whose lower 16 bits are a surrogate's", L"\x1D800", "\xF0\x9D\xA0\x80", {0xD836, 0xDC00}},
    {"beside the surrogates", L"\xD7FF\xE000", "\xED\x9F\xBF\xEE\x80\x80", {0xD7FF, 0xE000}},
};

const wchar_t NoCharacters[] = {0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0x110000, 0x7FFFFFFF, -1};

Pegasus::String fromUnits(const Units& values)
{
    Pegasus::String string;
    for (const unsigned value : values)
        string.append(Pegasus::Char16(static_cast<Pegasus::Uint16>(value)));
    return string;
}
}

TEST(Text, NullPointerIsEmptyText)
{
    EXPECT_EQ(make_string(static_cast<const char*>(nullptr)), "");
}

TEST(Text, NarrowTextIsCopiedAsItStandsOddBytesIncluded)
{
    EXPECT_EQ(make_string(""), "");
    EXPECT_EQ(make_string(AllAscii.c_str()), AllAscii);
    EXPECT_EQ(make_string("Caf\xE9 \xC3\xA9"), "Caf\xE9 \xC3\xA9");
}

TEST(Text, AsciiIsUnchangedInEveryDirection)
{
    EXPECT_EQ(make_wstring(AllAscii), widened(AllAscii));
    EXPECT_EQ(make_string(widened(AllAscii)), AllAscii);
    EXPECT_EQ(text(make_String(AllAscii)), AllAscii);
    EXPECT_EQ(text(make_String(widened(AllAscii))), AllAscii);
    EXPECT_EQ(make_string(Pegasus::String(AllAscii.c_str())), AllAscii);
}

TEST(Text, EmptyTextIsEmptyInEveryDirection)
{
    EXPECT_EQ(make_String(std::string()).size(), 0u);
    EXPECT_EQ(make_String(std::wstring()).size(), 0u);
    EXPECT_EQ(make_string(std::wstring()), "");
    EXPECT_EQ(make_string(Pegasus::String()), "");
    EXPECT_EQ(make_wstring(std::string()), L"");
}

TEST(Text, NarrowTextIsUtf8AndAnyOtherByteTheLatin1CharacterOfItsValue)
{
    for (const Decoding& decoding : Decodings)
        EXPECT_EQ(make_wstring(decoding.bytes), decoding.characters) << decoding.what;
}

TEST(Text, NarrowTextBecomesTheSameCharactersAsACimString)
{
    for (const Decoding& decoding : Decodings)
        EXPECT_EQ(units(make_String(decoding.bytes)), units(make_String(decoding.characters))) << decoding.what;
}

TEST(Text, EveryByteThatIsNoUtf8IsItsLatin1CharacterInACimString)
{
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte)
        EXPECT_EQ(units(make_String(std::string(1, static_cast<char>(byte)))), Units{byte});
}

TEST(Text, WideTextBecomesUtf8)
{
    for (const Encoding& encoding : Encodings)
        EXPECT_EQ(make_string(encoding.characters), encoding.utf8) << encoding.what;
}

TEST(Text, WideTextBecomesTheUtf16UnitsOfACimString)
{
    for (const Encoding& encoding : Encodings)
        EXPECT_EQ(units(make_String(encoding.characters)), encoding.utf16) << encoding.what;
}

TEST(Text, CimStringBecomesUtf8)
{
    for (const Encoding& encoding : Encodings)
        EXPECT_EQ(make_string(fromUnits(encoding.utf16)), encoding.utf8) << encoding.what;
}

TEST(Text, WhatIsNoCharacterBecomesTheReplacementCharacter)
{
    for (const wchar_t none : NoCharacters) {
        const std::wstring wide = {L'a', none, L'z'};
        EXPECT_EQ(make_string(wide), "a\xEF\xBF\xBDz") << std::hex << static_cast<unsigned>(none);
        EXPECT_EQ(units(make_String(wide)), (Units{'a', 0xFFFD, 'z'})) << std::hex << static_cast<unsigned>(none);
    }
}

TEST(Text, UnpairedSurrogateOfACimStringBecomesTheReplacementCharacter)
{
    EXPECT_EQ(make_string(fromUnits({'a', 0xD83D, 'z'})), "a\xEF\xBF\xBDz");
    EXPECT_EQ(make_string(fromUnits({'a', 0xDE00, 'z'})), "a\xEF\xBF\xBDz");
    EXPECT_EQ(make_string(fromUnits({'a', 0xDE00, 0xD83D})), "a\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(make_string(fromUnits({'a', 0xD83D, 0xD83D, 0xDE00})), "a\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(Text, MayBeLongerThan64KiB)
{
    EXPECT_EQ(VQ::make_wstring(std::string(70000, 'a') + "\xC3\xA4"), std::wstring(70000, L'a') + L"\xE4");
}

TEST(Text, NulInsideATextIsACharacterLikeAnyOther)
{
    const std::string narrow = "a\0b"s;
    const std::wstring wide = L"a\0b"s;
    EXPECT_EQ(make_wstring(narrow), wide);
    EXPECT_EQ(make_string(wide), narrow);
    EXPECT_EQ(units(make_String(narrow)), (Units{'a', 0, 'b'}));
    EXPECT_EQ(units(make_String(wide)), (Units{'a', 0, 'b'}));
    EXPECT_EQ(make_string(fromUnits({'a', 0, 'b'})), narrow);
}

TEST(TrimBlanks, RemovesBlanksAtBothEndsOnly)
{
    EXPECT_EQ(trimBlanks("  two words   "), "two words");
    EXPECT_EQ(trimBlanks("plain"), "plain");
    EXPECT_EQ(trimBlanks(" x"), "x");
    EXPECT_EQ(trimBlanks("x "), "x");
}

TEST(TrimBlanks, LeavesTextOfNothingButBlanks)
{
    EXPECT_EQ(trimBlanks("   "), "   ");
    EXPECT_EQ(trimBlanks(" "), " ");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(TrimBlanks, TabsAndLineEndsAreNoBlanks)
{
    EXPECT_EQ(trimBlanks(" \tx\n "), "\tx\n");
}
