// What a CIM server is asked, and what is made of its answers, friendly and hostile.

#include "tools/vqfleet/CimXml.h"

#include <gtest/gtest.h>

using namespace VQ::Tool;

namespace
{
std::string body(const std::string& method, const std::string& content)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\">\n<SIMPLERSP>\n<IMETHODRESPONSE NAME=\"" +
           method + "\">\n" + content + "</IMETHODRESPONSE>\n</SIMPLERSP>\n</MESSAGE>\n</CIM>\n";
}

std::string instances(const std::string& content)
{
    return body("EnumerateInstances", "<IRETURNVALUE>\n" + content + "</IRETURNVALUE>\n");
}

// An instance of the BIOS class with these properties.
std::string bios(const std::string& properties)
{
    return instances("<VALUE.NAMEDINSTANCE>\n<INSTANCENAME CLASSNAME=\"QORTAL_BIOS\">\n"
                     "<KEYBINDING NAME=\"Name\">\n<KEYVALUE VALUETYPE=\"string\">BIOS</KEYVALUE>\n</KEYBINDING>\n"
                     "</INSTANCENAME>\n<INSTANCE CLASSNAME=\"QORTAL_BIOS\" >\n" +
                     properties + "</INSTANCE>\n</VALUE.NAMEDINSTANCE>\n");
}

std::string property(const std::string& type, const std::string& value)
{
    return "<PROPERTY NAME=\"P\" TYPE=\"" + type + "\">\n" + value + "</PROPERTY>\n";
}

// The value of a property that a server delivers so.
Value delivered(const std::string& propertyXml)
{
    const Answer answer = answerWithInstances(bios(propertyXml), "QORTAL_BIOS");
    if (answer.instances.size() != 1 || answer.instances[0].properties.size() != 1)
        throw std::runtime_error("not one property");
    return answer.instances[0].properties[0].value;
}

Value text(const std::string& content)
{
    return delivered(property("string", "<VALUE>" + content + "</VALUE>\n"));
}

Value number(const std::string& type, const std::string& content)
{
    return delivered(property(type, "<VALUE>" + content + "</VALUE>\n"));
}

Value one(const Scalar& scalar)
{
    return {false, false, {scalar}};
}

std::string refusal(const std::string& document)
{
    try {
        answerWithInstances(document, "QORTAL_BIOS");
    } catch (const NoAnswer& error) {
        return error.what();
    }
    return "";
}

bool contains(const std::string& whole, const std::string& part)
{
    return whole.find(part) != std::string::npos;
}

std::string repeated(const std::string& part, std::size_t count)
{
    std::string whole;
    for (std::size_t i = 0; i < count; ++i)
        whole += part;
    return whole;
}
}

TEST(Question, NamesClassAndNamespace)
{
    const Question question = askForInstances("root/cimv2", "QORTAL_BIOS");
    EXPECT_EQ(question.method, "EnumerateInstances");
    EXPECT_EQ(question.object, "root%2Fcimv2");
    EXPECT_EQ(question.body,
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
              "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><IMETHODCALL NAME=\"EnumerateInstances\">"
              "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
              "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"QORTAL_BIOS\"/></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"DeepInheritance\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
              "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
              "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>\n");
    EXPECT_TRUE(contains(askForNames("root/cimv2", "A").body, "<IMETHODCALL NAME=\"EnumerateInstanceNames\">"));
}

TEST(Question, CarriesTheKeysOfAPathWhole)
{
    const Question question = askForInstance("root/cimv2", R"(qortal_slot.Tag="a \"b\" <c>",Number=5,Flag=true)");
    EXPECT_TRUE(contains(question.body, "<INSTANCENAME CLASSNAME=\"QORTAL_Slot\"><KEYBINDING NAME=\"Tag\">"
                                        "<KEYVALUE VALUETYPE=\"string\">a &quot;b&quot; &lt;c&gt;</KEYVALUE>"
                                        "</KEYBINDING><KEYBINDING NAME=\"Number\"><KEYVALUE VALUETYPE=\"numeric\">5"
                                        "</KEYVALUE></KEYBINDING><KEYBINDING NAME=\"Flag\"><KEYVALUE "
                                        "VALUETYPE=\"boolean\">TRUE</KEYVALUE></KEYBINDING></INSTANCENAME>"))
        << question.body;
    EXPECT_THROW(askForInstance("root/cimv2", "no path at all"), std::runtime_error);
}

TEST(Question, CallsAMethodOfAnInstance)
{
    const Instance object{"QORTAL_OperatingSystem", "QORTAL_OperatingSystem.Name=\"x\"", {{"Name", one("x")}}, {}};
    const Question question = askForCall("root/cimv2", object, "Reboot");
    EXPECT_EQ(question.method, "Reboot");
    EXPECT_EQ(question.object, "root%2Fcimv2%3AQORTAL_OperatingSystem.Name%3D%22x%22");
    EXPECT_TRUE(contains(question.body, "<METHODCALL NAME=\"Reboot\"><LOCALINSTANCEPATH><LOCALNAMESPACEPATH>"));
}

TEST(CimAnswer, HasPathKeysAndProperties)
{
    const Answer answer =
        answerWithInstances(bios("<PROPERTY NAME=\"Name\" TYPE=\"string\"><VALUE>BIOS</VALUE></PROPERTY>"
                                 "<PROPERTY NAME=\"PrimaryBIOS\" TYPE=\"boolean\"><VALUE>TRUE</VALUE></PROPERTY>"),
                            "QORTAL_BIOS");
    EXPECT_FALSE(answer.failure);
    ASSERT_EQ(answer.instances.size(), 1u);
    const Instance& instance = answer.instances[0];
    EXPECT_EQ(instance.className, "QORTAL_BIOS");
    EXPECT_EQ(instance.path, "QORTAL_BIOS.Name=\"BIOS\"");
    ASSERT_EQ(instance.properties.size(), 2u);
    EXPECT_TRUE(instance.properties[0].isKey);
    EXPECT_FALSE(instance.properties[1].isKey);
    EXPECT_EQ(instance.properties[1].value, one(true));
}

TEST(CimAnswer, HasTheTypesOfTheServer)
{
    EXPECT_EQ(number("uint64", "18446744073709551615"), one(std::uint64_t{18446744073709551615u}));
    EXPECT_EQ(number("uint16", " 0x1F\n"), one(std::uint64_t{31}));
    EXPECT_EQ(number("sint8", "-128"), one(std::int64_t{-128}));
    EXPECT_EQ(number("sint64", "-9223372036854775808"), one(std::int64_t{-9223372036854775807 - 1}));
    EXPECT_EQ(number("sint16", "+7"), one(std::uint64_t{7}));
    EXPECT_EQ(number("boolean", "false"), one(false));
    EXPECT_EQ(number("datetime", "20181130000000.000000+000"), one(DateTimeText{"20181130000000.000000+000"}));
    EXPECT_EQ(number("real32", "1.5"), one("1.5"));
}

TEST(CimAnswer, TakesTheTypeOfTheSchemaWhereTheServerNamesNone)
{
    EXPECT_EQ(delivered("<PROPERTY NAME=\"SMBIOSMajorVersion\"><VALUE>3</VALUE></PROPERTY>"), one(std::uint64_t{3}));
}

TEST(CimAnswer, TellsNullFromEmpty)
{
    EXPECT_TRUE(delivered(property("string", "")).isNull);
    EXPECT_EQ(text(""), one(""));
    const Value list = delivered("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"uint16\"><VALUE.ARRAY>\n<VALUE>1</VALUE>\n"
                                 "<VALUE>2</VALUE>\n</VALUE.ARRAY></PROPERTY.ARRAY>");
    EXPECT_EQ(list, (Value{false, true, {std::uint64_t{1}, std::uint64_t{2}}}));
    EXPECT_EQ(delivered("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"uint16\"><VALUE.ARRAY></VALUE.ARRAY></PROPERTY.ARRAY>"),
              (Value{false, true, {}}));
    EXPECT_TRUE(delivered("<PROPERTY.ARRAY NAME=\"P\" TYPE=\"uint16\"></PROPERTY.ARRAY>").isNull);
}

TEST(CimAnswer, HasTextsWhole)
{
    EXPECT_EQ(text("  a \n b\t "), one("  a \n b\t "));
    EXPECT_EQ(text("   "), one("   "));
    EXPECT_EQ(text("a\r\nb\rc"), one("a\r\nb\rc"));
    EXPECT_EQ(text("a&#0;b&#1;c&#27;"), one(std::string("a\0b\001c\033", 6)));
    EXPECT_EQ(text("a\001b"), one("a\001b"));
    EXPECT_EQ(text("a<!-- no --> b<![CDATA[ <c>&amp; ]]>d"), one("a b <c>&amp; d"));
    EXPECT_EQ(text("\xE4"), one("\xC3\xA4"));
}

TEST(CimAnswer, HasWhatTheServerSaysOfAFailure)
{
    const Answer answer = answerWithInstances(
        body("EnumerateInstances", "<ERROR CODE=\"5\" DESCRIPTION=\"CIM_ERR_INVALID_CLASS: no &quot;X&quot;\"/>\n"),
        "X");
    ASSERT_TRUE(answer.failure);
    EXPECT_EQ(answer.failure->code, "CIM_ERR_INVALID_CLASS");
    EXPECT_EQ(answer.failure->text, "no \"X\"");
    EXPECT_TRUE(answer.instances.empty());
    EXPECT_EQ(nameOfError(3), "CIM_ERR_INVALID_NAMESPACE");
    EXPECT_EQ(nameOfError(17), "CIM_ERR_METHOD_NOT_FOUND");
    EXPECT_EQ(nameOfError(0), "CIM_ERR_FAILED");
    EXPECT_EQ(nameOfError(4000000000u), "CIM_ERR_FAILED");
}

TEST(CimAnswer, MayHaveNoInstances)
{
    EXPECT_TRUE(answerWithInstances(instances(""), "X").instances.empty());
    EXPECT_TRUE(answerWithInstances(body("EnumerateInstances", ""), "X").instances.empty());
}

TEST(CimAnswer, HasPathsWithEscapedQuotes)
{
    const Answer answer =
        answerWithNames(body("EnumerateInstanceNames",
                             "<IRETURNVALUE><INSTANCENAME CLASSNAME=\"QORTAL_Slot\"><KEYBINDING NAME=\"Tag\"><KEYVALUE "
                             "VALUETYPE=\"string\">a\"\\</KEYVALUE></KEYBINDING><KEYBINDING NAME=\"N\"><KEYVALUE "
                             "VALUETYPE=\"numeric\">7</KEYVALUE></KEYBINDING></INSTANCENAME></IRETURNVALUE>"),
                        "QORTAL_Slot");
    ASSERT_EQ(answer.instances.size(), 1u);
    EXPECT_EQ(answer.instances[0].path, R"(QORTAL_Slot.Tag="a\"\\",N=7)");
    EXPECT_EQ(answer.instances[0].keys[1].value, one(std::uint64_t{7}));
    EXPECT_TRUE(answer.instances[0].properties.empty());
}

TEST(CimAnswer, OfOneInstanceHasThePathThatWasAsked)
{
    const std::string path = "QORTAL_BIOS.Name=\"BIOS\"";
    const Answer answer = answerWithInstance(
        body("GetInstance", "<IRETURNVALUE><INSTANCE CLASSNAME=\"QORTAL_BIOS\"><PROPERTY NAME=\"Name\" "
                            "TYPE=\"string\"><VALUE>BIOS</VALUE></PROPERTY></INSTANCE></IRETURNVALUE>"),
        path);
    ASSERT_EQ(answer.instances.size(), 1u);
    EXPECT_EQ(answer.instances[0].path, path);
    EXPECT_TRUE(answer.instances[0].properties.at(0).isKey);
    EXPECT_THROW(answerWithInstance(body("GetInstance", ""), path), NoAnswer);
    EXPECT_THROW(answerWithInstance(
                     body("GetInstance", "<IRETURNVALUE><INSTANCE CLASSNAME=\"QORTAL_Slot\"/></IRETURNVALUE>"), path),
                 NoAnswer);
}

TEST(CimAnswer, OfACallHasItsValue)
{
    const std::string start = "<CIM><MESSAGE><SIMPLERSP><METHODRESPONSE NAME=\"Reboot\">";
    const std::string end = "</METHODRESPONSE></SIMPLERSP></MESSAGE></CIM>";
    const MethodAnswer answer =
        answerToCall(start + "<RETURNVALUE PARAMTYPE=\"sint32\"><VALUE>-1</VALUE></RETURNVALUE>" + end, "C", "Reboot");
    ASSERT_TRUE(answer.returnValue);
    EXPECT_EQ(*answer.returnValue, one(std::int64_t{-1}));
    EXPECT_FALSE(answerToCall(start + end, "C", "Reboot").returnValue);
    EXPECT_EQ(answerToCall(start + "<ERROR CODE=\"2\"/>" + end, "C", "Reboot").failure->code, "CIM_ERR_ACCESS_DENIED");
}

TEST(HostileAnswer, IsRefusedWithTheReason)
{
    EXPECT_TRUE(contains(refusal(""), "not XML"));
    EXPECT_TRUE(contains(refusal("<html><body>Hello</body></html>"), "no CIM"));
    EXPECT_TRUE(contains(refusal(std::string("<CIM>\0</CIM>", 12)), "byte 0"));
    EXPECT_TRUE(contains(refusal(body("EnumerateClasses", "")), "another question: EnumerateClasses"));
    EXPECT_TRUE(contains(refusal(bios("<PROPERTY NAME=\"\x1B[31m\" TYPE=\"string\"/>")), "not the name"));
    EXPECT_TRUE(contains(refusal(bios("<PROPERTY NAME=\"1a\" TYPE=\"string\"/>")), "not the name"));
    for (const char* value : {"", "x", "256", "-1", "0x", "1 2", "99999999999999999999999"})
        EXPECT_TRUE(contains(refusal(bios(property("uint8", "<VALUE>" + std::string(value) + "</VALUE>"))), "uint8"))
            << value;
    EXPECT_TRUE(contains(refusal(bios(property("sint8", "<VALUE>-129</VALUE>"))), "sint8"));
    EXPECT_TRUE(contains(refusal(bios(property("boolean", "<VALUE>maybe</VALUE>"))), "boolean"));
}

TEST(HostileAnswer, IsCutOffAtAnyByteWithoutHarm)
{
    const std::string whole = bios(property("string", "<VALUE>a&amp;b</VALUE>"));
    const std::string needed = whole.substr(0, whole.find("</CIM>") + 6);
    for (std::size_t length = 0; length < needed.size(); ++length)
        EXPECT_NE(refusal(needed.substr(0, length)), "") << length;
    EXPECT_EQ(refusal(needed), "");
}

TEST(HostileAnswer, ExpandsNoEntities)
{
    const std::string bomb = "<!DOCTYPE CIM [<!ENTITY a \"" + repeated("x", 1000) + "\"><!ENTITY b \"" +
                             repeated("&a;", 1000) + "\"><!ENTITY c \"" + repeated("&b;", 1000) + "\">]>";
    EXPECT_TRUE(contains(refusal(bomb + bios(property("string", "<VALUE>&c;</VALUE>"))), "\"&c;"));
    const std::string file = "<!DOCTYPE CIM [<!ENTITY f SYSTEM \"file:///etc/hostname\">]>";
    EXPECT_TRUE(contains(refusal(file + bios(property("string", "<VALUE>&f;</VALUE>"))), "\"&f;"));
}

TEST(HostileAnswer, MayBeDeepOrWide)
{
    EXPECT_TRUE(contains(refusal(repeated("<a>", 500000)), "not XML"));
    EXPECT_TRUE(contains(refusal(repeated("<a>", 500000) + repeated("</a>", 500000)), "no CIM"));
    EXPECT_TRUE(contains(refusal(repeated("<a/>", MaxMarkup + 1)), "more elements"));
    EXPECT_TRUE(contains(refusal("<CIM " + repeated("a=\"\" ", MaxMarkup) + "/>"), "more elements"));
    EXPECT_TRUE(contains(refusal("<CIM a=\"" + std::string(8u << 20, 'x') + "\"/>"), "no MESSAGE"));
}
