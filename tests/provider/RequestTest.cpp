// What a request asks for and in which order: how often it reads the table, what it takes from which reading, and how
// far it gets when a reading or a text fails. Each reading of this program gets a table of its own.

#include "support/common/Text.h"
#include "support/pegasus/CimText.h"
#include "support/smbios/SmBios.h"
#include "support/smbios/Source.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/FullTable.h"
#include "tests/testing/Provider.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Pegasus;
using Calls = std::vector<std::string>;

namespace
{
std::vector<TableBuilder> offered; // to each reading in turn, and the last one to all that follow
std::size_t unreadable = 0;        // the reading that fails, counted from 1
std::size_t readings = 0;
}

// The source of this program's reader.
VQ::RawTables VQ::readRawTables()
{
    ++readings;
    if (readings == unreadable)
        throw SmBiosError("reading " + std::to_string(readings) + " fails");
    constexpr long tableOffset = 32;
    const std::vector<unsigned char> dump = offered.at(std::min(readings, offered.size()) - 1).dump();
    return {"the test", {dump.begin(), dump.begin() + tableOffset}, {dump.begin() + tableOffset, dump.end()}};
}

// In place of the support library's: the same, but the text "unpublishable" fails.
String VQ::make_String(const std::string& text)
{
    if (text == "unpublishable")
        throw std::runtime_error("cannot publish this text");
    return make_String(make_wstring(text));
}

namespace
{
class Request : public testing::Test
{
protected:
    Request()
    {
        offered = {fullTable()};
        unreadable = readings = 0;
    }

    TestProvider provider;
    RecordingInstanceHandler instances;
};

// The text in every place that the classes publish it from.
TableBuilder machineOf(const std::string& text)
{
    TableBuilder table;
    table.type(0).string(0x04, text);
    table.type(1).string(0x05, text + " -[" + text + "]-");
    table.type(2).string(0x04, text);
    table.type(11).byte(0x04, 1).string(text + " -[XXYT-1]-");
    table.type(12).byte(0x04, 1).string(text);
    return table.type(127);
}

struct Readings
{
    const char* className;
    std::size_t count;
};

class ReadingsOf : public Request, public testing::WithParamInterface<Readings>
{
};
}

TEST_P(ReadingsOf, EachRequestAreTheSameNumber)
{
    const CIMObjectPath path = pathOf(GetParam().className);
    provider.enumerate(path, instances);
    EXPECT_EQ(readings, GetParam().count);
    readings = 0;
    RecordingPathHandler paths;
    provider.enumerateNames(path, paths);
    EXPECT_EQ(readings, GetParam().count);
    readings = 0;
    provider.get(instances.instances.back().getPath(), instances);
    EXPECT_EQ(readings, GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Classes, ReadingsOf,
                         testing::Values(Readings{"QORTAL_BIOS", 2}, Readings{"QORTAL_Chassis", 1},
                                         Readings{"QORTAL_BaseBoard", 2}, Readings{"QORTAL_CacheMemory", 1},
                                         Readings{"QORTAL_Port", 1}, Readings{"QORTAL_Slot", 1},
                                         Readings{"QORTAL_ComputerSystem", 2}, Readings{"QORTAL_OperatingSystem", 0},
                                         Readings{"QORx_SystemMemory", 0}),
                         [](const testing::TestParamInfo<Readings>& info) {
                             return std::string(info.param.className);
                         });

TEST_F(Request, OfTheBiosReadsTheBiosFirstAndThenTheFirmware)
{
    offered = {machineOf("first"), machineOf("second")};
    provider.enumerate(pathOf("QORTAL_BIOS"), instances);
    EXPECT_EQ(valueOf(instances.instances.at(0), "Manufacturer"), "first");
    EXPECT_EQ(valueOf(instances.instances.at(1), "Name"), "second");
}

TEST_F(Request, OfBaseBoardsReadsTheOptionsFirstAndThenTheBoards)
{
    offered = {machineOf("first"), machineOf("second")};
    provider.enumerate(pathOf("QORTAL_BaseBoard"), instances);
    EXPECT_EQ(valueOf(instances.instances.at(0), "ConfigOptions"), "\"first\"");
    EXPECT_EQ(valueOf(instances.instances.at(0), "Manufacturer"), "second");
}

TEST_F(Request, OfTheComputerSystemReadsTheDescriptionFirstAndThenTheModel)
{
    offered = {machineOf("first"), machineOf("second")};
    provider.enumerate(pathOf("QORTAL_ComputerSystem"), instances);
    EXPECT_EQ(valueOf(instances.instances.at(0), "Description"), "first ");
    EXPECT_EQ(valueOf(instances.instances.at(0), "Model"), "second");
}

TEST_F(Request, OfABiosThatCannotBeReadDeliversTheFirmwareAndCompletes)
{
    unreadable = 1;
    provider.enumerate(pathOf("QORTAL_BIOS"), instances);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance", "instance", "complete"}));
    EXPECT_EQ(valueOf(instances.instances.at(0), "PrimaryBIOS"), "FALSE");
}

TEST_F(Request, OfFirmwareThatCannotBeReadEndsAfterTheBios)
{
    unreadable = 2;
    EXPECT_THROW(provider.enumerate(pathOf("QORTAL_BIOS"), instances), VQ::SmBiosError);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance"}));
}

TEST_F(Request, OfOptionsOrBoardsThatCannotBeReadDeliversNoBoard)
{
    for (const std::size_t reading : {1u, 2u}) {
        RecordingInstanceHandler handler;
        readings = 0;
        unreadable = reading;
        EXPECT_THROW(provider.enumerate(pathOf("QORTAL_BaseBoard"), handler), VQ::SmBiosError);
        EXPECT_EQ(readings, reading);
        EXPECT_EQ(handler.calls, Calls{"processing"});
    }
}

// ---- texts that cannot be converted

TEST_F(Request, TextThatCannotBePublishedEndsItAfterTheInstancesBefore)
{
    const struct
    {
        const char* className;
        std::uint8_t type, offset;
    } classes[] = {{"QORTAL_BaseBoard", 2, 0x04},
                   {"QORTAL_CacheMemory", 7, 0x04},
                   {"QORTAL_Port", 8, 0x06},
                   {"QORTAL_Slot", 9, 0x04}};
    for (const auto& each : classes) {
        TableBuilder table;
        for (const char* text : {"first", "unpublishable", "third"})
            table.type(each.type).string(each.offset, text);
        offered = {table.type(127)};
        RecordingInstanceHandler handler;
        EXPECT_THROW(provider.enumerate(pathOf(each.className), handler), std::runtime_error) << each.className;
        EXPECT_EQ(handler.calls, (Calls{"processing", "instance"})) << each.className;
    }
}

TEST_F(Request, TextThatCannotBePublishedEndsThatOfASingleInstance)
{
    offered = {TableBuilder().type(1).string(0x05, "unpublishable").type(3).string(0x04, "unpublishable").type(127)};
    for (const char* className : {"QORTAL_Chassis", "QORTAL_ComputerSystem"}) {
        RecordingInstanceHandler handler;
        EXPECT_THROW(provider.enumerate(pathOf(className), handler), std::runtime_error) << className;
        EXPECT_EQ(handler.calls, Calls{"processing"}) << className;
    }
}

TEST_F(Request, TextOfTheBiosThatCannotBePublishedCostsTheBiosAlone)
{
    TableBuilder table;
    table.type(0).string(0x04, "unpublishable").type(11).byte(0x04, 1).string("Diagnostics -[XXYT-1]-");
    offered = {table.type(127)};
    provider.enumerate(pathOf("QORTAL_BIOS"), instances);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance", "complete"}));
    EXPECT_EQ(valueOf(instances.instances.at(0), "Name"), "Diagnostics");
}

TEST_F(Request, TextOfFirmwareThatCannotBePublishedEndsItAfterTheInstancesBefore)
{
    TableBuilder table;
    table.type(0).type(11).byte(0x04, 2).string("Diagnostics -[XXYT-1]-").string("unpublishable-[XXYT-1]-");
    offered = {table.type(127)};
    EXPECT_THROW(provider.enumerate(pathOf("QORTAL_BIOS"), instances), std::runtime_error);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance", "instance"}));
}
