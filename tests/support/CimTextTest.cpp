// A program that includes support/pegasus/CimText.h alone; the conversions themselves are tested in TextTest.cpp.

#include "support/pegasus/CimText.h"

#include <gtest/gtest.h>
#include <string>

// Without the overload for narrow text a pointer becomes a Pegasus::String first, and a null pointer throws.
TEST(CimText, TakesNarrowTextByItsOwnHeader)
{
    EXPECT_EQ(VQ::make_string(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(VQ::make_string("Caf\xE9"), "Caf\xE9");
}

// Both ways, with a character of two units behind more of them than 16 bits count.
TEST(CimText, TakesTextOfAnyLength)
{
    const std::string text = std::string(70000, 'x') + "\xF0\x9F\x98\x80";
    const Pegasus::String cim = VQ::make_String(text);
    ASSERT_EQ(cim.size(), 70002u);
    EXPECT_EQ(VQ::make_string(cim), text);
    EXPECT_EQ(VQ::make_String(std::string(70000, 'x')).size(), 70000u); // plain ASCII goes a way of its own
}
