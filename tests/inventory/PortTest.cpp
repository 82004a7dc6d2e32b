// Port connectors: records of type 8 structures, and their instances.

#include "inventory/SmBiosPort.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

namespace
{
TableBuilder& addPort(TableBuilder& table, const char* internal, const char* external)
{
    table.type(8).string("Unused").byte(0x05, 0x21).byte(0x07, 0x0B).byte(0x08, 0x1F);
    if (internal)
        table.string(0x04, internal);
    if (external)
        table.string(0x06, external);
    return table;
}

Pegasus::CIMInstance portInstance(const char* internal, const char* external)
{
    TableBuilder table;
    const ServedTable served(addPort(table, internal, external));
    return instancesOf("QORTAL_Port").at(0);
}
}

TEST(PortInstance, HasItsPropertiesInOrder)
{
    const Pegasus::CIMInstance port = portInstance("J1A1", "LAN");
    const Lines expected = {
        "Caption | string | Port Connector",
        "Description | string | Port Connector",
        "Name | string | LAN",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_Port",
        "Tag | string | PortConnector0",
        "ExternalReferenceDesignator | string | LAN",
        "InternalReferenceDesignator | string | J1A1",
        "PortType | uint16 | 31",
        "ConnectorType | uint16[2] | 33 11",
    };
    EXPECT_EQ(propertyLines(port), expected);
    EXPECT_EQ(keyLines(port.getPath()),
              (Lines{"CreationClassName | STRING | QORTAL_Port", "Tag | STRING | PortConnector0"}));
}

TEST(PortInstance, WithoutAnInternalDesignatorHasNineProperties)
{
    const Lines expected = {
        "Caption | string | Port Connector",
        "Description | string | Port Connector",
        "Name | string | LAN",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_Port",
        "Tag | string | PortConnector0",
        "ExternalReferenceDesignator | string | LAN",
        "PortType | uint16 | 31",
        "ConnectorType | uint16[2] | 33 11",
    };
    EXPECT_EQ(propertyLines(portInstance(nullptr, "LAN")), expected);
}

TEST(PortInstance, WithoutAnExternalDesignatorHasNinePropertiesAndAnEmptyName)
{
    const Lines expected = {
        "Caption | string | Port Connector",
        "Description | string | Port Connector",
        "Name | string | ",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_Port",
        "Tag | string | PortConnector0",
        "InternalReferenceDesignator | string | J1A1",
        "PortType | uint16 | 31",
        "ConnectorType | uint16[2] | 33 11",
    };
    EXPECT_EQ(propertyLines(portInstance("J1A1", nullptr)), expected);
}

TEST(PortInstance, WithoutDesignatorsHasEightProperties)
{
    const Lines expected = {
        "Caption | string | Port Connector",
        "Description | string | Port Connector",
        "Name | string | ",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_Port",
        "Tag | string | PortConnector0",
        "PortType | uint16 | 31",
        "ConnectorType | uint16[2] | 33 11",
    };
    EXPECT_EQ(propertyLines(portInstance(nullptr, nullptr)), expected);
}

TEST(PortInstance, PublishesDesignatorsWithoutTheBlanksAroundThem)
{
    const Pegasus::CIMInstance port = portInstance(" J 1  ", "  COM 1 ");
    EXPECT_EQ(valueOf(port, "Name"), "COM 1");
    EXPECT_EQ(valueOf(port, "ExternalReferenceDesignator"), "COM 1");
    EXPECT_EQ(valueOf(port, "InternalReferenceDesignator"), "J 1");
}

TEST(PortInstance, LeavesADesignatorOfBlanksAsItIs)
{
    const Pegasus::CIMInstance port = portInstance(" ", "   ");
    EXPECT_EQ(valueOf(port, "Name"), "   ");
    EXPECT_EQ(valueOf(port, "ExternalReferenceDesignator"), "   ");
    EXPECT_EQ(valueOf(port, "InternalReferenceDesignator"), " ");
}

TEST(PortInstance, AlwaysHasTwoConnectorTypesTheInternalOneFirst)
{
    const ServedTable served(TableBuilder().type(8).byte(0x07, 8).length(0x09).type(8).byte(0x05, 9).type(8));
    const std::vector<Pegasus::CIMInstance> ports = instancesOf("QORTAL_Port");
    ASSERT_EQ(ports.size(), 3u);
    EXPECT_EQ(propertyLines(ports[0]).back(), "ConnectorType | uint16[2] | 0 8");
    EXPECT_EQ(propertyLines(ports[1]).back(), "ConnectorType | uint16[2] | 9 0");
    EXPECT_EQ(propertyLines(ports[2]).back(), "ConnectorType | uint16[2] | 0 0");
}

TEST(PortInstance, IsTaggedByTableOrderNotByType)
{
    TableBuilder table;
    table.type(8).string(0x06, "VGA").byte(0x08, 0x1C);
    table.type(7);
    table.type(8).string(0x06, "COM").byte(0x08, 0x06);
    const ServedTable served(table);
    const std::vector<Pegasus::CIMInstance> ports = instancesOf("QORTAL_Port");
    ASSERT_EQ(ports.size(), 2u);
    EXPECT_EQ(valueOf(ports[0], "Tag"), "PortConnector0");
    EXPECT_EQ(valueOf(ports[0], "PortType"), "28");
    EXPECT_EQ(valueOf(ports[1], "Tag"), "PortConnector1");
    EXPECT_EQ(valueOf(ports[1], "PortType"), "6");
}

TEST(Port, ReadsCodesAndDesignatorsAndNothingElse)
{
    TableBuilder table;
    const ServedTable served(addPort(table, "J1A1", "LAN"));
    const VQ::Port port = VQ::GetPortInstances().at(0);
    EXPECT_EQ(port.getInternalReferenceDesignator(), "J1A1");
    EXPECT_EQ(port.getExternalReferenceDesignator(), "LAN");
    EXPECT_EQ(port.getType(), 0x1F);
    EXPECT_EQ(port.getConnectors(), (std::vector<std::uint16_t>{0x21, 0x0B}));
    EXPECT_EQ(port.getManufacturer(), "");
    EXPECT_EQ(port.getModel(), "");
    EXPECT_EQ(port.getName(), "");
}

TEST(Port, KeepsCodesOfAllEightBits)
{
    const ServedTable served(TableBuilder().type(8).byte(0x05, 0xFF).byte(0x07, 0xA4).byte(0x08, 0xA0));
    const VQ::Port port = VQ::GetPortInstances().at(0);
    EXPECT_EQ(port.getConnectors(), (std::vector<std::uint16_t>{255, 164}));
    EXPECT_EQ(port.getType(), 160);
}
