// What the tools know of firmware's texts and codes, and of object paths.

#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Connectors.h"
#include "tools/knowledge/DateTimes.h"
#include "tools/knowledge/Placeholders.h"
#include "tools/knowledge/Schema.h"

#include <gtest/gtest.h>

using namespace VQ::Tool;

TEST(Placeholders, AreNoTexts)
{
    for (const char* text : {"To Be Filled By O.E.M.", "to be filled by o.e.m.", "Default string", "None", "N/A", " ",
                             "", "xxxxxxx", "........", "0", "0000000", "1234567890", "System Serial Number"})
        EXPECT_EQ(withoutPlaceholder(text), "") << text;
}

TEST(Placeholders, OtherTextsStayWithoutBlanksAtTheirEnds)
{
    EXPECT_EQ(withoutPlaceholder("GB894484YN      "), "GB894484YN");
    EXPECT_EQ(withoutPlaceholder("HP"), "HP");
    EXPECT_EQ(withoutPlaceholder("12"), "12");
    EXPECT_EQ(withoutPlaceholder("1"), "1");
    EXPECT_EQ(withoutPlaceholder("None other"), "None other");
}

TEST(Connectors, AreOfTheKindOfTheirPort)
{
    EXPECT_EQ(connectorKind(16, 18, "x"), ConnectorKind::Usb);
    EXPECT_EQ(connectorKind(16, 35, "x"), ConnectorKind::UsbC);
    EXPECT_EQ(connectorKind(31, 11, "x"), ConnectorKind::Network);
    EXPECT_EQ(connectorKind(9, 8, "x"), ConnectorKind::Serial);
    EXPECT_EQ(connectorKind(13, 15, "x"), ConnectorKind::KeyboardMouse);
    EXPECT_EQ(connectorKind(28, 7, "x"), ConnectorKind::Video);
    EXPECT_EQ(connectorKind(29, 31, "x"), ConnectorKind::Audio);
}

TEST(Connectors, OfAnotherPortAreOfTheKindOfTheirConnectorOrName)
{
    EXPECT_EQ(connectorKind(255, 11, "x"), ConnectorKind::Network);
    EXPECT_EQ(connectorKind(255, 255, "HDMI port"), ConnectorKind::Video);
    EXPECT_EQ(connectorKind(255, 255, "cpu_fan"), ConnectorKind::Fan);
    EXPECT_EQ(connectorKind(0, 0, "something"), ConnectorKind::Other);
}

TEST(Slots, TellTheirKindByTheirNames)
{
    EXPECT_EQ(slotKind("PCIEX16_1"), "PCI Express x16");
    EXPECT_EQ(slotKind("PCI Express x8"), "PCI Express x8");
    EXPECT_EQ(slotKind("PCI-E Slot 1"), "PCI Express");
    EXPECT_EQ(slotKind("PCI1"), "PCI");
    EXPECT_EQ(slotKind("ISA/PCI6"), "PCI/ISA");
    EXPECT_EQ(slotKind("CardBus-1"), "PC card");
    EXPECT_EQ(slotKind("J6B2"), "other");
}

TEST(DateTimes, AreSecondsInUtc)
{
    EXPECT_EQ(secondsOf("19700101010000.000000+060"), 0);
    EXPECT_EQ(secondsOf("20200101000000.000000-030"), 1577838600);
    EXPECT_FALSE(secondsOf("20200101******.******+000"));
    EXPECT_FALSE(secondsOf("00000001010203.000000:000"));
}

TEST(ObjectPaths, AreReadWithTextsNumbersAndTruthValues)
{
    const auto path = parsePath(R"(//host:5988/root/cimv2:A_B.T="x \"q\" \\ .,=",N=12,M=-3,B=TRUE)");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->className, "A_B");
    ASSERT_EQ(path->keys.size(), 4u);
    EXPECT_EQ(path->keys[0].value.elements[0], Scalar(std::string("x \"q\" \\ .,=")));
    EXPECT_EQ(path->keys[1].value.elements[0], Scalar(std::uint64_t(12)));
    EXPECT_EQ(path->keys[2].value.elements[0], Scalar(std::int64_t(-3)));
    EXPECT_EQ(path->keys[3].value.elements[0], Scalar(true));
}

TEST(ObjectPaths, ThatAreNoneAreNotRead)
{
    for (const char* text : {"", ".", "A.", "A.B", "A.B=", "A.B=\"x", "A.B=x", "A.B=1,", "A B", "A.B=\"x\"y"})
        EXPECT_FALSE(parsePath(text)) << text;
}

TEST(ObjectPaths, KeepWhatOnlyLooksLikeAServer)
{
    EXPECT_EQ(withoutServer("A.B=\"http://x/y:z\""), "A.B=\"http://x/y:z\"");
    EXPECT_EQ(withoutServer("host.domain:5988/root/cimv2:A.B=\"1\""), "A.B=\"1\"");
}

TEST(Knowledge, OfThePropertiesComesFromTheSchema)
{
    const SchemaProperty* size = schemaProperty("qortal_cachememory", "installedsize");
    ASSERT_NE(size, nullptr);
    EXPECT_STREQ(size->type, "uint32");
    EXPECT_STREQ(size->unit, "KiloBytes");
    EXPECT_FALSE(size->isKey);
    EXPECT_STREQ(size->description, "The installed size.");
    EXPECT_TRUE(schemaProperty("QORTAL_Port", "Tag")->isKey);
    EXPECT_TRUE(schemaProperty("QORTAL_Port", "ConnectorType")->isList);
    EXPECT_EQ(schemaProperty("QORTAL_Port", "Nothing"), nullptr);
    EXPECT_EQ(schemaClasses().size(), 9u);
}
