// Base boards (type 2) and configuration options (type 12): records, and their instances.

#include "inventory/SmBiosBaseBoard.h"
#include "support/common/Text.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>
#include <stdexcept>

using Lines = std::vector<std::string>;

// Takes the place of the support library's function in this program: the same, but the text "unreadable" fails, and so
// does "no exception of the library's", by throwing what is no std::exception.
std::string VQ::make_string(const char* text)
{
    std::string taken = text ? text : "";
    if (taken == "unreadable")
        throw std::runtime_error("cannot take this text over");
    if (taken == "no exception of the library's")
        throw 42;
    return taken;
}

namespace
{
TableBuilder& addBoard(TableBuilder& table, const std::string& prefix)
{
    return table.type(2)
        .string("Unused")
        .string(0x04, prefix + "Maker")
        .string(0x05, prefix + "Product")
        .string(0x06, prefix + "Version")
        .string(0x07, prefix + "Serial")
        .string(0x08, prefix + "Asset")
        .byte(0x09, 2)
        .string(0x0A, prefix + "Location")
        .byte(0x0D, 3);
}

VQ::BaseBoard only(const TableBuilder& table)
{
    const ServedTable served(table);
    return VQ::GetBaseBoardInstances().at(0);
}

TableBuilder boardWith(std::uint8_t offset, const char* text)
{
    TableBuilder table;
    return addBoard(table, "").string(offset, text);
}

TableBuilder boardWithUnreadable(std::uint8_t offset)
{
    return boardWith(offset, "unreadable");
}
}

TEST(BaseBoardInstance, HasItsPropertiesInOrder)
{
    TableBuilder table;
    addBoard(table, "A ");
    table.type(12).byte(0x04, 2).string("Jumper 1").string("Jumper 2");
    addBoard(table, "B ");
    const ServedTable served(table);
    const std::vector<Pegasus::CIMInstance> boards = instancesOf("QORTAL_BaseBoard");
    ASSERT_EQ(boards.size(), 2u);
    const Lines first = {
        "Caption | string | Base Board",
        "Description | string | Base Board",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_BaseBoard",
        "Manufacturer | string | A Maker",
        "SerialNumber | string | A Serial",
        "Tag | string | BaseBoard0",
        "Version | string | ",
        "LocationInChassis | string | A Location",
        "ConfigOptions | string[2] | \"Jumper 1\" \"Jumper 2\"",
    };
    EXPECT_EQ(propertyLines(boards[0]), first);
    const Lines second = {
        "Caption | string | Base Board",
        "Description | string | Base Board",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_BaseBoard",
        "Manufacturer | string | B Maker",
        "SerialNumber | string | B Serial",
        "Tag | string | BaseBoard1",
        "Version | string | ",
        "LocationInChassis | string | B Location",
        "ConfigOptions | string[2] | \"Jumper 1\" \"Jumper 2\"",
    };
    EXPECT_EQ(propertyLines(boards[1]), second);
}

TEST(BaseBoardInstance, HasTwoKeys)
{
    TableBuilder table;
    addBoard(table, "A ");
    const ServedTable served(addBoard(table, "B "));
    const std::vector<Pegasus::CIMInstance> boards = instancesOf("QORTAL_BaseBoard");
    ASSERT_EQ(boards.size(), 2u);
    EXPECT_EQ(keyLines(boards[0].getPath()),
              (Lines{"CreationClassName | STRING | QORTAL_BaseBoard", "Tag | STRING | BaseBoard0"}));
    EXPECT_EQ(keyLines(boards[1].getPath()),
              (Lines{"CreationClassName | STRING | QORTAL_BaseBoard", "Tag | STRING | BaseBoard1"}));
}

TEST(BaseBoardInstance, PublishesTheVersionOfABoardWhoseProductIsUnreadable)
{
    const ServedTable served(boardWithUnreadable(0x05));
    EXPECT_EQ(valueOf(instancesOf("QORTAL_BaseBoard").at(0), "Version"), "Version");
}

TEST(BaseBoardInstance, HasAnEmptyArrayOfOptionsOnAMachineWithoutAny)
{
    TableBuilder table;
    const ServedTable served(addBoard(table, ""));
    EXPECT_EQ(propertyLines(instancesOf("QORTAL_BaseBoard").at(0)).back(), "ConfigOptions | string[0] | ");
}

TEST(BaseBoardInstance, OptionThatFailsToBeReadEndsTheRequest)
{
    TableBuilder table;
    addBoard(table, "").type(12).byte(0x04, 1).string("unreadable");
    const ServedTable served(table);
    RecordingInstanceHandler handler;
    EXPECT_THROW(TestProvider().enumerate(pathOf("QORTAL_BaseBoard"), handler), std::runtime_error);
    EXPECT_EQ(handler.calls, Lines{"processing"});
}

// ---- the record

TEST(BaseBoard, HasNoVersionWhenItsProductReadsNormally)
{
    TableBuilder table;
    const VQ::BaseBoard board = only(addBoard(table, ""));
    EXPECT_EQ(board.getManufacturer(), "Maker");
    EXPECT_EQ(board.getProduct(), "Product");
    EXPECT_EQ(board.getVersion(), "");
    EXPECT_EQ(board.getSerialNumber(), "Serial");
    EXPECT_EQ(board.getAssetTag(), "Asset");
    EXPECT_EQ(board.getLocation(), "Location");
}

TEST(BaseBoard, HasNoVersionWhenItsProductIsMissing)
{
    const VQ::BaseBoard board = only(TableBuilder().type(2).byte(0x05, 0).string(0x06, "Version"));
    EXPECT_EQ(board.getProduct(), "");
    EXPECT_EQ(board.getVersion(), "");
}

TEST(BaseBoard, HasItsVersionReadInPlaceOfAnUnreadableProduct)
{
    const VQ::BaseBoard board = only(boardWithUnreadable(0x05));
    EXPECT_EQ(board.getManufacturer(), "Maker");
    EXPECT_EQ(board.getProduct(), "");
    EXPECT_EQ(board.getVersion(), "Version");
    EXPECT_EQ(board.getSerialNumber(), "Serial");
    EXPECT_EQ(board.getAssetTag(), "Asset");
    EXPECT_EQ(board.getLocation(), "Location");
}

TEST(BaseBoard, OfAnUnreadableProductAndVersionHasTheOtherFields)
{
    const VQ::BaseBoard board = only(boardWithUnreadable(0x05).string(0x06, "unreadable"));
    EXPECT_EQ(board.getProduct(), "");
    EXPECT_EQ(board.getVersion(), "");
    EXPECT_EQ(board.getSerialNumber(), "Serial");
}

TEST(BaseBoard, FieldThatFailsToBeReadStaysEmptyAloneAndBringsNoVersion)
{
    const VQ::BaseBoard withoutMaker = only(boardWithUnreadable(0x04));
    EXPECT_EQ(withoutMaker.getManufacturer(), "");
    EXPECT_EQ(withoutMaker.getProduct(), "Product");
    EXPECT_EQ(withoutMaker.getVersion(), "");
    EXPECT_EQ(withoutMaker.getSerialNumber(), "Serial");

    const VQ::BaseBoard withoutSerial = only(boardWithUnreadable(0x07));
    EXPECT_EQ(withoutSerial.getSerialNumber(), "");
    EXPECT_EQ(withoutSerial.getVersion(), "");
    EXPECT_EQ(withoutSerial.getAssetTag(), "Asset");

    const VQ::BaseBoard withoutAsset = only(boardWithUnreadable(0x08));
    EXPECT_EQ(withoutAsset.getAssetTag(), "");
    EXPECT_EQ(withoutAsset.getVersion(), "");
    EXPECT_EQ(withoutAsset.getLocation(), "Location");

    const VQ::BaseBoard withoutLocation = only(boardWithUnreadable(0x0A));
    EXPECT_EQ(withoutLocation.getLocation(), "");
    EXPECT_EQ(withoutLocation.getVersion(), "");
    EXPECT_EQ(withoutLocation.getAssetTag(), "Asset");
}

TEST(BaseBoard, FieldMayFailByAnyException)
{
    const VQ::BaseBoard withoutProduct = only(boardWith(0x05, "no exception of the library's"));
    EXPECT_EQ(withoutProduct.getManufacturer(), "Maker");
    EXPECT_EQ(withoutProduct.getProduct(), "");
    EXPECT_EQ(withoutProduct.getVersion(), "Version");
    EXPECT_EQ(withoutProduct.getSerialNumber(), "Serial");
    const VQ::BaseBoard withoutLocation = only(boardWith(0x0A, "no exception of the library's"));
    EXPECT_EQ(withoutLocation.getProduct(), "Product");
    EXPECT_EQ(withoutLocation.getLocation(), "");
}

TEST(BaseBoard, OfAShortStructureReadsTheMissingFieldsAsNone)
{
    const VQ::BaseBoard board = only(TableBuilder().type(2).string(0x04, "Maker").string(0x05, "Product").string("x"));
    EXPECT_EQ(board.getProduct(), "Product");
    EXPECT_EQ(board.getSerialNumber(), "");
    EXPECT_EQ(board.getLocation(), "");
}

// ---- configuration options

TEST(ConfigurationOptions, OfSeveralStructuresFollowOneAnotherInTableOrder)
{
    TableBuilder table;
    table.type(12).byte(0x04, 2).string("A1").string("A2");
    addBoard(table, "");
    table.type(12).byte(0x04, 1).string("B1");
    const ServedTable served(table);
    EXPECT_EQ(VQ::getConfigurationOptions(), (Lines{"A1", "A2", "B1"}));
}

TEST(ConfigurationOptions, AreFoundBehindMoreStructuresThanEightBitsCount)
{
    for (const int structures : {256, 300}) {
        TableBuilder table;
        for (int i = 1; i < structures; ++i)
            table.type(126);
        const ServedTable served(table.type(12).byte(0x04, 1).string("A1"));
        EXPECT_EQ(VQ::getConfigurationOptions(), Lines{"A1"}) << structures;
    }
}

TEST(ConfigurationOptions, AreAllSharedByEveryBoard)
{
    TableBuilder table;
    table.type(12).byte(0x04, 1).string("A1");
    addBoard(table, "A ");
    addBoard(table, "B ");
    table.type(12).byte(0x04, 1).string("B1");
    const ServedTable served(table);
    for (const Pegasus::CIMInstance& board : instancesOf("QORTAL_BaseBoard"))
        EXPECT_EQ(valueOf(board, "ConfigOptions"), "\"A1\" \"B1\"");
}

TEST(ConfigurationOptions, OfCount0AreNone)
{
    const ServedTable served(TableBuilder().type(12).byte(0x04, 0).string("A1").type(12).string("B1"));
    EXPECT_TRUE(VQ::getConfigurationOptions().empty());
}

TEST(ConfigurationOptions, AreEmptyTextsWhereTheCountExceedsTheStrings)
{
    const ServedTable served(TableBuilder().type(12).byte(0x04, 3).string("A1"));
    EXPECT_EQ(VQ::getConfigurationOptions(), (Lines{"A1", "", ""}));
}

TEST(ConfigurationOptions, AreAsManyAsTheCountSays)
{
    const ServedTable served(TableBuilder().type(12).byte(0x04, 1).string("A1").string("A2"));
    EXPECT_EQ(VQ::getConfigurationOptions(), Lines{"A1"});
}
