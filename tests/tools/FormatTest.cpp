// JSON and MOF, and the odd values in every format.

#include "tests/tools/ToolRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

namespace
{
ToolRun runStub(std::vector<std::string> arguments)
{
    arguments.insert(arguments.end(), {"--module", VQ_STUB_MODULE});
    return runTool(arguments);
}

Json parsed(const std::string& text)
{
    Json json = Json::parse(text, nullptr, false);
    EXPECT_FALSE(json.is_discarded()) << text;
    return json;
}

// The answers of the only machine in what --format json writes.
Json classes(const std::string& text)
{
    const Json machines = parsed(text)["machines"];
    EXPECT_EQ(machines.size(), 1u) << text;
    return machines.at(0).at("classes");
}

TableBuilder slots()
{
    TableBuilder table;
    table.version(2, 31);
    table.type(9).string(0x04, "PCI \"1\"");
    table.type(9).string(0x04, "back\\slash");
    table.type(127);
    return table;
}
}

TEST(ToolJson, AClassIsAnArrayOfPathKeysAndProperties)
{
    const TemporaryFile dump{slots()};
    const ToolRun run = runTool({"--format", "json", "qortal_slot", "--from-dump", dump.name()});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const Json expected = {{"QORTAL_Slot",
                            {{{"path", R"(QORTAL_Slot.CreationClassName="QORTAL_Slot",Tag="PCI \"1\"")"},
                              {"keys", {{"CreationClassName", "QORTAL_Slot"}, {"Tag", "PCI \"1\""}}},
                              {"properties",
                               {{"Caption", "System Slot"},
                                {"Description", "System Slot"},
                                {"Name", "PCI \"1\""},
                                {"Status", "Unknown"},
                                {"CreationClassName", "QORTAL_Slot"},
                                {"Tag", "PCI \"1\""}}}},
                             {{"path", R"(QORTAL_Slot.CreationClassName="QORTAL_Slot",Tag="back\\slash")"},
                              {"keys", {{"CreationClassName", "QORTAL_Slot"}, {"Tag", "back\\slash"}}},
                              {"properties",
                               {{"Caption", "System Slot"},
                                {"Description", "System Slot"},
                                {"Name", "back\\slash"},
                                {"Status", "Unknown"},
                                {"CreationClassName", "QORTAL_Slot"},
                                {"Tag", "back\\slash"}}}}}}};
    EXPECT_EQ(classes(run.output), expected);
}

TEST(ToolJson, HasEveryClassInOneObject)
{
    const TemporaryFile dump{slots()};
    const Json all = classes(runTool({"--format", "json", "--from-dump", dump.name()}).output);
    std::vector<std::string> counts;
    for (const auto& [name, instances] : all.items())
        counts.push_back(name + " " + std::to_string(instances.size()));
    const std::vector<std::string> expected = {
        "QORTAL_ComputerSystem 1", "QORTAL_BIOS 1", "QORTAL_Chassis 1", "QORTAL_BaseBoard 0",
        "QORTAL_CacheMemory 0",    "QORTAL_Slot 2", "QORTAL_Port 0",    "QORTAL_OperatingSystem 1",
        "QORx_SystemMemory 1",
    };
    EXPECT_EQ(counts, expected);
    EXPECT_EQ(all["QORTAL_BIOS"][0]["properties"]["SMBIOSMajorVersion"], 2);
    EXPECT_EQ(all["QORTAL_BIOS"][0]["properties"]["SMBIOSMinorVersion"], 31);
    EXPECT_EQ(all["QORTAL_BIOS"][0]["keys"]["SoftwareElementState"], 3);
    EXPECT_EQ(all["QORTAL_BIOS"][0]["properties"]["PrimaryBIOS"], true);
    EXPECT_EQ(all["QORTAL_BIOS"][0]["properties"]["ListOfLanguages"], Json::array());
    EXPECT_EQ(all["QORTAL_BIOS"][0]["properties"]["ReleaseDate"], "**************.******+000");
}

TEST(ToolJson, MapsEveryTypeOfCim)
{
    const ToolRun run = runStub({"--format", "json", "Stub_Types"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const Json expected = {
        {"Bool", true},
        {"U8", 255},
        {"S8", -128},
        {"U16", 65535},
        {"S16", -210},
        {"U32", 4294967295u},
        {"S32", -2147483647 - 1},
        {"U64", 18446744073709551615ull},
        {"S64", -9223372036854775807LL - 1},
        {"Odd", "q\" b\\ e\x1B[2J n\nt\t d\x7F c\xC2\x9B u\xC3\xA9 r\xE2\x80\xAEx"},
        {"Blank", " x"},
        {"Empty", ""},
        {"Date", "20050307120000.000000-330"},
        {"Day", "20050307******.******+000"},
        {"NoDate", "**************.******+000"},
        {"Span", "00000001010203.000000:000"},
        {"Null", nullptr},
        {"NullList", nullptr},
        {"Texts", Json::array({"a, \"b\"", ""})},
        {"Numbers", Json::array({0, 8})},
        {"None", Json::array()},
    };
    const Json instance = classes(run.output)["Stub_Types"][0];
    EXPECT_EQ(instance["properties"], expected);
    const Json keys = {{"Blank", " x"}, {"Bool", true}, {"S8", -128}, {"U8", 255}};
    EXPECT_EQ(instance["keys"], keys);
}

TEST(ToolJson, NamesAreInstancesWithoutProperties)
{
    const ToolRun run = runStub({"names", "--format", "json", "Any"});
    const Json expected = {
        {"Any",
         {{{"class", "Stub_Names"}, {"path", "Stub_Names.Tag=\"one\""}, {"keys", {{"Tag", "one"}}}},
          {{"class", "Stub_Names"}, {"path", "Stub_Names.Tag=\"t\x1Bwo\""}, {"keys", {{"Tag", "t\x1Bwo"}}}}}}};
    EXPECT_EQ(classes(run.output), expected);
    EXPECT_EQ(run.exitCode, 0);
}

TEST(ToolJson, AClassThatFailedIsLeftOutAndOneThatFailedLaterIsKept)
{
    const ToolRun run = runStub({"--format", "json", "QORTAL_Port", "QORTAL_Chassis", "Foo"});
    const Json all = classes(run.output);
    ASSERT_EQ(all.size(), 1u) << run.output;
    EXPECT_EQ(all["QORTAL_Chassis"][0]["keys"]["Tag"], "first");
    EXPECT_EQ(run.exitCode, 1);
}

TEST(ToolJson, IsAnEmptyObjectWhenNothingWasAnswered)
{
    const ToolRun run = runStub({"--format", "json", "Foo"});
    EXPECT_EQ(classes(run.output), Json::object());
    EXPECT_EQ(run.exitCode, 1);
}

TEST(ToolJson, GetHasTheFormOfAnEnumeration)
{
    const TemporaryFile dump{slots()};
    const std::string path = R"(QORTAL_Slot.CreationClassName="QORTAL_Slot",Tag="back\\slash")";
    const Json got = classes(runTool({"get", path, "--format", "json", "--from-dump", dump.name()}).output);
    ASSERT_EQ(got["QORTAL_Slot"].size(), 1u);
    EXPECT_EQ(got["QORTAL_Slot"][0]["path"], path);
}

TEST(ToolMof, DeclaresInstances)
{
    const TemporaryFile dump{slots()};
    const ToolRun run = runTool({"--format", "mof", "QORTAL_Slot", "--from-dump", dump.name()});
    EXPECT_EQ(run.output, "instance of QORTAL_Slot {\n"
                          "    Caption = \"System Slot\";\n"
                          "    Description = \"System Slot\";\n"
                          "    Name = \"PCI \\\"1\\\"\";\n"
                          "    Status = \"Unknown\";\n"
                          "    CreationClassName = \"QORTAL_Slot\";\n"
                          "    Tag = \"PCI \\\"1\\\"\";\n"
                          "};\n"
                          "\n"
                          "instance of QORTAL_Slot {\n"
                          "    Caption = \"System Slot\";\n"
                          "    Description = \"System Slot\";\n"
                          "    Name = \"back\\\\slash\";\n"
                          "    Status = \"Unknown\";\n"
                          "    CreationClassName = \"QORTAL_Slot\";\n"
                          "    Tag = \"back\\\\slash\";\n"
                          "};\n");
    EXPECT_EQ(run.exitCode, 0);
}

TEST(ToolMof, WritesEveryTypeOfCim)
{
    EXPECT_EQ(runStub({"--format", "mof", "Stub_Types"}).output,
              "instance of Stub_Types {\n"
              "    Bool = true;\n"
              "    U8 = 255;\n"
              "    S8 = -128;\n"
              "    U16 = 65535;\n"
              "    S16 = -210;\n"
              "    U32 = 4294967295;\n"
              "    S32 = -2147483648;\n"
              "    U64 = 18446744073709551615;\n"
              "    S64 = -9223372036854775808;\n"
              "    Odd = \"q\\\" b\\\\ e\\x001B[2J n\\nt\\t d\\x007F c\\x009B u\xC3\xA9 r\xE2\x80\xAEx\";\n"
              "    Blank = \" x\";\n"
              "    Empty = \"\";\n"
              "    Date = \"20050307120000.000000-330\";\n"
              "    Day = \"20050307******.******+000\";\n"
              "    NoDate = \"**************.******+000\";\n"
              "    Span = \"00000001010203.000000:000\";\n"
              "    Null = NULL;\n"
              "    NullList = NULL;\n"
              "    Texts = {\"a, \\\"b\\\"\", \"\"};\n"
              "    Numbers = {0, 8};\n"
              "    // None is an empty list.\n"
              "};\n");
}

TEST(ToolJson, EscapesEveryControlCharacter)
{
    const std::string output = runStub({"--format", "json", "Stub_Types"}).output;
    EXPECT_NE(output.find("\"q\\\" b\\\\ e\\u001b[2J n\\nt\\t d\\u007f c\\u009b u\xC3\xA9 r\xE2\x80\xAEx\""),
              std::string::npos)
        << output;
}

TEST(ToolText, WritesEveryTypeOfCim)
{
    EXPECT_EQ(runStub({"Stub_Types"}).output,
              "Stub_Types: 1 instance (* marks a key)\n"
              "\n"
              "  * Bool      true\n"
              "  * U8        255\n"
              "  * S8        -128\n"
              "  * Blank     \" x\"\n"
              "    U16       65535\n"
              "    S16       -210\n"
              "    U32       4294967295\n"
              "    S32       -2147483648\n"
              "    U64       18446744073709551615\n"
              "    S64       -9223372036854775808\n"
              "    Odd       q\" b\\\\ e\\x1B[2J n\\x0At\\x09 d\\x7F c\\x9B u\xC3\xA9 r\\u202Ex\n"
              "    Empty     \"\"\n"
              "    Date      20050307120000.000000-330 (2005-03-07 12:00:00 -05:30)\n"
              "    Day       20050307******.******+000 (2005-03-07)\n"
              "    NoDate    **************.******+000\n"
              "    Span      00000001010203.000000:000\n"
              "    Null      (null)\n"
              "    NullList  (null)\n"
              "    Texts     a, \"b\"\n"
              "              \"\"\n"
              "    Numbers   0\n"
              "              8\n"
              "    None      (empty list)\n");
}

TEST(ToolText, NamesKeepControlCharactersFromTheTerminal)
{
    EXPECT_EQ(runStub({"names", "Any"}).output, "Stub_Names.Tag=\"one\"\n"
                                                "Stub_Names.Tag=\"t\\x1Bwo\"\n");
}
