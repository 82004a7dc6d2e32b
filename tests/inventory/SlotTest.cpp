// System slots: records of type 9 structures, and their instances.

#include "inventory/Slot.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

TEST(SlotInstance, HasItsPropertiesInOrder)
{
    const ServedTable served(TableBuilder().type(9).string("Unused").string(0x04, "PCIe 1").byte(0x05, 0xA5));
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_Slot");
    ASSERT_EQ(instances.size(), 1u);
    const Lines expected = {
        "Caption | string | System Slot", "Description | string | System Slot",       "Name | string | PCIe 1",
        "Status | string | Unknown",      "CreationClassName | string | QORTAL_Slot", "Tag | string | PCIe 1",
    };
    EXPECT_EQ(propertyLines(instances[0]), expected);
    EXPECT_EQ(keyLines(instances[0].getPath()),
              (Lines{"CreationClassName | STRING | QORTAL_Slot", "Tag | STRING | PCIe 1"}));
}

TEST(SlotInstance, OfADesignationWithBlanksKeepsThem)
{
    const ServedTable served(TableBuilder().type(9).string(0x04, "  PCI 2 "));
    const Pegasus::CIMInstance slot = instancesOf("QORTAL_Slot").at(0);
    EXPECT_EQ(valueOf(slot, "Name"), "  PCI 2 ");
    EXPECT_EQ(valueOf(slot, "Tag"), "  PCI 2 ");
}

TEST(SlotInstance, IsDeliveredForEachOfTwoSlotsDesignatedAlike)
{
    TableBuilder table;
    table.type(9).string(0x04, "PCI").byte(0x05, 1);
    table.type(9).string(0x04, "Other");
    table.type(9).string(0x04, "PCI").byte(0x05, 2);
    const ServedTable served(table);
    const std::vector<Pegasus::CIMInstance> slots = instancesOf("QORTAL_Slot");
    ASSERT_EQ(slots.size(), 3u);
    EXPECT_EQ(valueOf(slots[0], "Tag"), "PCI");
    EXPECT_EQ(valueOf(slots[1], "Tag"), "Other");
    EXPECT_EQ(valueOf(slots[2], "Tag"), "PCI");
    EXPECT_EQ(text(slots[0].getPath().toString()), text(slots[2].getPath().toString()));
}

TEST(SlotInstance, WithoutADesignationHasAnEmptyNameAndTag)
{
    const ServedTable served(TableBuilder().type(9).byte(0x04, 0).string("PCI").type(9).byte(0x04, 7).string("PCI"));
    const std::vector<Pegasus::CIMInstance> slots = instancesOf("QORTAL_Slot");
    ASSERT_EQ(slots.size(), 2u);
    for (const Pegasus::CIMInstance& slot : slots) {
        EXPECT_EQ(valueOf(slot, "Name"), "");
        EXPECT_EQ(valueOf(slot, "Tag"), "");
    }
}
