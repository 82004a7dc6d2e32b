#include "support/common/ProductName.h"

#include <gtest/gtest.h>

using VQ::ProductName;

namespace
{
void expectParts(const char* text, const char* architected, const char* unarchitected)
{
    const ProductName name{std::string(text)};
    EXPECT_EQ(name.getArchitectedData(), architected) << text;
    EXPECT_EQ(name.getUnarchitectedData(), unarchitected) << text;
}
}

TEST(ProductName, BlockIsTheArchitectedPartAndTheRestTheUnarchitected)
{
    expectParts("Server 100 -[8837ABC]-", "8837ABC", "Server 100 ");
}

TEST(ProductName, TextAroundTheBlockIsJoinedAsItStands)
{
    expectParts("Server -[8837ABC]- 100", "8837ABC", "Server  100");
    expectParts("-[8837ABC]-Server", "8837ABC", "Server");
}

TEST(ProductName, BlockMayStandBehindMoreThan64KiBOfText)
{
    const std::string before(70000, 'x');
    expectParts((before + "-[8837ABC]- 100").c_str(), "8837ABC", (before + " 100").c_str());
}

TEST(ProductName, BlockAloneLeavesNothingElse)
{
    expectParts("-[8837ABC]-", "8837ABC", "");
}

TEST(ProductName, BlanksInsideTheBlockAreKept)
{
    expectParts("Server -[ 8837 ABC ]-", " 8837 ABC ", "Server ");
}

TEST(ProductName, WithoutACompleteBlockTheWholeTextIsUnarchitected)
{
    expectParts("", "", "");
    expectParts("Server 100", "", "Server 100");
    expectParts("Server -[8837ABC", "", "Server -[8837ABC");
    expectParts("Server -[8837ABC]", "", "Server -[8837ABC]");
    expectParts("Server 8837ABC]-", "", "Server 8837ABC]-");
    expectParts("Server [8837ABC]", "", "Server [8837ABC]");
    expectParts("-[", "", "-[");
    expectParts("]-", "", "]-");
}

TEST(ProductName, ClosingMarkBeforeTheOpeningOneDoesNotClose)
{
    expectParts("]-Server-[", "", "]-Server-[");
    expectParts("A ]- B -[C]-", "C", "A ]- B ");
}

TEST(ProductName, MarksDoNotShareACharacter)
{
    expectParts("-[]-", "", "");
    expectParts("A-[]-B", "", "AB");
    expectParts("-[-", "", "-[-");
    expectParts("-]-", "", "-]-");
}

TEST(ProductName, FirstBlockCounts)
{
    expectParts("-[A]- -[B]-", "A", " -[B]-");
    expectParts("-[A]-[B]-", "A", "[B]-");
}

TEST(ProductName, OpeningMarkInsideTheBlockBelongsToIt)
{
    expectParts("-[A -[B]-", "A -[B", "");
}

TEST(ProductName, BlockEndsAtTheFirstClosingMark)
{
    expectParts("-[A]-B]-", "A", "B]-");
    expectParts("-[A]]-", "A]", "");
    expectParts("--[A]--", "A", "--");
}

TEST(ProductName, BytesBeyondAsciiPassThrough)
{
    expectParts("Caf\xE9 -[\xE9]-", "\xE9", "Caf\xE9 ");
}
