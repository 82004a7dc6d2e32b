// Processor caches: records of type 7 structures, and their instances.

#include "inventory/SmBiosCache.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

namespace
{
TableBuilder distinctFields()
{
    return TableBuilder()
        .type(7)
        .string("Unused")
        .string(0x04, "L2 Cache")
        .word(0x05, 0x01E1) // write back, enabled, location unknown, level 2
        .word(0x07, 0x8200)
        .word(0x09, 0x8100)
        .word(0x0B, 0x1111)
        .word(0x0D, 0x2222)
        .byte(0x0F, 15)
        .byte(0x10, 6)
        .byte(0x11, 5)
        .byte(0x12, 8);
}

VQ::Cache only(const TableBuilder& table)
{
    const ServedTable served(table);
    return VQ::GetCacheInstances().at(0);
}

VQ::Cache configured(std::uint16_t configuration)
{
    return only(TableBuilder().type(7).word(0x05, configuration));
}
}

TEST(CacheInstance, HasItsPropertiesInOrder)
{
    const ServedTable served(distinctFields());
    const std::vector<Pegasus::CIMInstance> instances = instancesOf("QORTAL_CacheMemory");
    ASSERT_EQ(instances.size(), 1u);
    const Lines expected = {
        "Caption | string | Cache",
        "Description | string | Cache",
        "Name | string | L2 Cache",
        "Status | string | Unknown",
        "CreationClassName | string | QORTAL_CacheMemory",
        "DeviceID | string | Cache0",
        "SystemCreationClassName | string | QORTAL_ComputerSystem",
        "SystemName | string | test-host",
        "NumberOfBlocks | uint64 | 256",
        "Purpose | string | L2 Cache",
        "Associativity | uint16 | 8",
        "CacheType | uint16 | 5",
        "Level | uint16 | 4",
        "WritePolicy | uint16 | 3",
        "CacheSpeed | uint32 | 15",
        "MaximumInstallableSize | uint32 | 32768",
        "Location | uint16 | 3",
        "InstalledSize | uint32 | 16384",
    };
    EXPECT_EQ(propertyLines(instances[0]), expected);
    const Lines keys = {
        "CreationClassName | STRING | QORTAL_CacheMemory",
        "DeviceID | STRING | Cache0",
        "SystemCreationClassName | STRING | QORTAL_ComputerSystem",
        "SystemName | STRING | test-host",
    };
    EXPECT_EQ(keyLines(instances[0].getPath()), keys);
}

TEST(CacheInstance, IsCountedInTableOrderWhateverItsLevel)
{
    TableBuilder table;
    table.type(7).string(0x04, "Third").word(0x05, 2);
    table.type(4);
    table.type(7).string(0x04, "First").word(0x05, 0);
    table.type(7).string(0x04, "Second").word(0x05, 1);
    const ServedTable served(table);
    const std::vector<Pegasus::CIMInstance> caches = instancesOf("QORTAL_CacheMemory");
    ASSERT_EQ(caches.size(), 3u);
    EXPECT_EQ(valueOf(caches[0], "DeviceID"), "Cache0");
    EXPECT_EQ(valueOf(caches[0], "Name"), "Third");
    EXPECT_EQ(valueOf(caches[1], "DeviceID"), "Cache1");
    EXPECT_EQ(valueOf(caches[1], "Name"), "First");
    EXPECT_EQ(valueOf(caches[2], "DeviceID"), "Cache2");
    EXPECT_EQ(valueOf(caches[2], "Name"), "Second");
}

TEST(Cache, ReadsEachFieldFromItsOffset)
{
    const VQ::Cache cache = only(distinctFields());
    EXPECT_EQ(cache.getAssociativity(), 8);
    EXPECT_EQ(cache.getErrorCorrectionType(), 6);
    EXPECT_EQ(cache.getLevel(), 4);
    EXPECT_EQ(cache.getLocation(), 3);
    EXPECT_EQ(cache.getType(), 5);
    EXPECT_EQ(cache.getWritePolicy(), 3);
    EXPECT_EQ(cache.getSize(), 16384u);
    EXPECT_EQ(cache.getInstalledSize(), 16384u);
    EXPECT_EQ(cache.getMaximumSize(), 32768u);
    EXPECT_EQ(cache.getSpeed(), 15u);
    EXPECT_EQ(cache.getNumberOfBlocks(), 256u);
    EXPECT_EQ(cache.getDesignation(), "L2 Cache");
    EXPECT_EQ(cache.getPurpose(), "L2 Cache");
}

TEST(Cache, HasNoSramTypesWhateverTheStructureSays)
{
    const VQ::Cache cache = only(distinctFields());
    EXPECT_TRUE(cache.getCurrentSramType().empty());
    EXPECT_TRUE(cache.getSupportedSramType().empty());
}

TEST(Cache, SizeScalesBy64WhenGranularityBitIsSetAndBlocksDoNot)
{
    const VQ::Cache cache = only(TableBuilder().type(7).word(0x07, 0).word(0x09, 0x8100));
    EXPECT_EQ(cache.getSize(), 16384u);
    EXPECT_EQ(cache.getNumberOfBlocks(), 256u);
    EXPECT_EQ(cache.getMaximumSize(), 0u);
}

TEST(Cache, SizeIsInKilobytesWithoutTheGranularityBit)
{
    const VQ::Cache cache = only(TableBuilder().type(7).word(0x07, 0x0200).word(0x09, 0x0100));
    EXPECT_EQ(cache.getMaximumSize(), 512u);
    EXPECT_EQ(cache.getSize(), 256u);
    EXPECT_EQ(cache.getNumberOfBlocks(), 256u);
}

TEST(Cache, EachSizeHasItsOwnGranularity)
{
    const VQ::Cache one = only(TableBuilder().type(7).word(0x07, 0x8003).word(0x09, 0x0005));
    EXPECT_EQ(one.getMaximumSize(), 192u);
    EXPECT_EQ(one.getSize(), 5u);
    const VQ::Cache other = only(TableBuilder().type(7).word(0x07, 0x0003).word(0x09, 0x8005));
    EXPECT_EQ(other.getMaximumSize(), 3u);
    EXPECT_EQ(other.getSize(), 320u);
    EXPECT_EQ(other.getNumberOfBlocks(), 5u);
}

TEST(Cache, LargestSizeDoesNotOverflow)
{
    const VQ::Cache cache = only(TableBuilder().type(7).word(0x07, 0xFFFF).word(0x09, 0xFFFF));
    EXPECT_EQ(cache.getMaximumSize(), 2097088u);
    EXPECT_EQ(cache.getSize(), 2097088u);
    EXPECT_EQ(cache.getNumberOfBlocks(), 32767u);
}

TEST(Cache, WritePolicyFollowsTheOperationalMode)
{
    EXPECT_EQ(configured(0x0000).getWritePolicy(), 4); // write through
    EXPECT_EQ(configured(0x0100).getWritePolicy(), 3); // write back
    EXPECT_EQ(configured(0x0200).getWritePolicy(), 5); // varies with memory address
    EXPECT_EQ(configured(0x0300).getWritePolicy(), 2); // unknown
}

TEST(Cache, LevelsOneToThreeHaveCodesAndTheOthersNone)
{
    const int expected[8] = {3, 4, 5, 0, 0, 0, 0, 0};
    for (std::uint16_t bits = 0; bits < 8; ++bits)
        EXPECT_EQ(configured(bits).getLevel(), expected[bits]) << bits;
}

TEST(Cache, LocationIsTakenAsItStands)
{
    EXPECT_EQ(configured(0x0000).getLocation(), 0);
    EXPECT_EQ(configured(0x0020).getLocation(), 1);
    EXPECT_EQ(configured(0x0040).getLocation(), 2);
    EXPECT_EQ(configured(0x0060).getLocation(), 3);
}

TEST(Cache, OtherBitsOfTheConfigurationDoNotCount)
{
    const VQ::Cache cache = configured(0xFC98); // every bit but those of mode, location and level
    EXPECT_EQ(cache.getWritePolicy(), 4);
    EXPECT_EQ(cache.getLocation(), 0);
    EXPECT_EQ(cache.getLevel(), 3);
}

TEST(Cache, CodesOfAllEightBitsAreKept)
{
    const VQ::Cache cache =
        only(TableBuilder().type(7).byte(0x0F, 0xFF).byte(0x10, 0xFE).byte(0x11, 0xFD).byte(0x12, 0xFC));
    EXPECT_EQ(cache.getSpeed(), 255u);
    EXPECT_EQ(cache.getErrorCorrectionType(), 254);
    EXPECT_EQ(cache.getType(), 253);
    EXPECT_EQ(cache.getAssociativity(), 252);
}

TEST(Cache, DesignationKeepsItsBlanks)
{
    EXPECT_EQ(only(TableBuilder().type(7).string(0x04, " L1 ")).getDesignation(), " L1 ");
    EXPECT_EQ(only(TableBuilder().type(7).string(0x04, " L1 ")).getPurpose(), " L1 ");
}

TEST(Cache, OfVersion2Dot0HasNoSpeedAndNoCodes)
{
    // The formatted area ended at 0Fh then; what follows are strings.
    TableBuilder table;
    table.type(7).string(0x04, "Internal Cache").word(0x05, 0x0180).word(0x07, 8).word(0x09, 8).length(0x0F);
    const VQ::Cache cache = only(table);
    EXPECT_EQ(cache.getDesignation(), "Internal Cache");
    EXPECT_EQ(cache.getSize(), 8u);
    EXPECT_EQ(cache.getWritePolicy(), 3);
    EXPECT_EQ(cache.getSpeed(), 0u);
    EXPECT_EQ(cache.getErrorCorrectionType(), 0);
    EXPECT_EQ(cache.getType(), 0);
    EXPECT_EQ(cache.getAssociativity(), 0);
}

TEST(Cache, OfAHeaderAloneReadsEveryFieldAsZero)
{
    const VQ::Cache cache = only(TableBuilder().type(7).string("Not a designation"));
    EXPECT_EQ(cache.getDesignation(), "");
    EXPECT_EQ(cache.getMaximumSize(), 0u);
    EXPECT_EQ(cache.getSize(), 0u);
    EXPECT_EQ(cache.getWritePolicy(), 4);
    EXPECT_EQ(cache.getLevel(), 3);
}

TEST(Cache, DesignationsNumberStandsInTheStructuresBytesWhereverTheFormattedAreaEnds)
{
    // A header alone: the byte at 04h is the first one of the strings, and here it names the second of them.
    const VQ::Cache cache = only(TableBuilder().type(7).string("\x02 first").string("second"));
    EXPECT_EQ(cache.getDesignation(), "second");
    EXPECT_EQ(cache.getPurpose(), "second");
    EXPECT_EQ(VQ::SmBiosCache(VQ::SmBios::Table()).getDesignation(), "");
}
