// A program that includes support/pegasus/CimText.h alone; the conversions themselves are tested in TextTest.cpp.

#include "support/pegasus/CimText.h"

#include <gtest/gtest.h>

// Without the overload for narrow text a pointer becomes a Pegasus::String first, and a null pointer throws.
TEST(CimText, TakesNarrowTextByItsOwnHeader)
{
    EXPECT_EQ(VQ::make_string(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(VQ::make_string("Caf\xE9"), "Caf\xE9");
}
