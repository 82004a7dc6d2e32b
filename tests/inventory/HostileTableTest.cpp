// Any bytes in place of the table: the hardware classes give instances or an empty list.

#include "support/smbios/SmBios.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

using Lines = std::vector<std::string>;
using Bytes = std::vector<unsigned char>;

namespace
{
const char* const HardwareClasses[] = {"QORTAL_BIOS",        "QORTAL_Chassis", "QORTAL_BaseBoard",
                                       "QORTAL_CacheMemory", "QORTAL_Port",    "QORTAL_Slot"};

// Every structure type that is read, with texts of all the forms that are taken apart.
Bytes richTable()
{
    TableBuilder table;
    table.type(0).string(0x04, "Vendor").string(0x05, "B1 -[ABCDE12-1.05]-").word(0x06, 0xE000);
    table.string(0x08, "06/23/2005").length(0x18);
    table.type(1).string(0x04, "Maker").string(0x05, "Server -[8837ABC]-").string(0x06, "V").string(0x07, "S1");
    table.length(0x1B);
    table.type(2).string(0x04, "Maker").string(0x05, "Board").string(0x06, "V").string(0x07, "S2");
    table.string(0x08, "A2").string(0x0A, "Slot 1").length(0x0F);
    table.type(3).string(0x04, "Maker").string(0x06, "V").string(0x07, "S3").string(0x08, "A3").length(0x15);
    table.type(7).string(0x04, "L1").word(0x05, 0x0180).word(0x07, 0x8100).word(0x09, 0x8100).length(0x13);
    table.type(7).string(0x04, "L2").word(0x05, 0x0281).word(0x07, 64).word(0x09, 64).length(0x13);
    table.type(8).string(0x04, " J1 ").byte(0x05, 1).string(0x06, " COM1 ").byte(0x07, 8).byte(0x08, 9);
    table.type(9).string(0x04, "PCI 1").length(0x0D);
    table.type(11).byte(0x04, 5).string("Diag -[XXYT01-1.02]-").string("BMC -[XXET02-1.03]-");
    table.string("-[AB]-").string("-[CD]-").string("-[EF]-");
    table.type(12).byte(0x04, 2).string("Jumper 1: \xFC").string("Jumper 2");
    table.type(13).byte(0x04, 2).string("en|US|iso8859-1").string(0x15, "de|DE|iso8859-1");
    table.type(127);
    return table.structures();
}

class Random
{
public:
    explicit Random(unsigned seed) : _engine(seed) {}
    std::size_t below(std::size_t limit) { return _engine() % limit; }
    unsigned char byte() { return static_cast<unsigned char>(below(256)); }
    unsigned char oneOf(const Bytes& bytes) { return bytes[below(bytes.size())]; }

private:
    std::mt19937 _engine;
};

void mutateOnce(Bytes& bytes, Random& random)
{
    if (bytes.size() < 2)
        return;
    const std::size_t position = random.below(bytes.size());
    const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(position);
    const std::size_t most = random.below(2) ? 1 : std::min<std::size_t>(12, bytes.size() - position);
    const std::size_t length = 1 + random.below(most);
    switch (random.below(7)) {
    case 0:
        *at = random.byte();
        break;
    case 1:
        *at = static_cast<unsigned char>(*at ^ (1u << random.below(8)));
        break;
    case 2:
        *at = random.oneOf({0, 1, 2, 3, 4, 5, 11, 13, 0x7F, 0x80, 0xFE, 0xFF, '-', '[', ']'});
        break;
    case 3:
        bytes.erase(at, at + static_cast<std::ptrdiff_t>(length));
        break;
    case 4:
        bytes.insert(at, length, random.oneOf({0, 1, 3, 0xFF, '-', 'A'}));
        break;
    case 5: {
        const Bytes copied(at, at + static_cast<std::ptrdiff_t>(length));
        bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(random.below(bytes.size())), copied.begin(),
                     copied.end());
        break;
    }
    default:
        bytes.resize(random.below(8) ? bytes.size() : position); // cut off now and then
    }
}

// Structures of the right form with random contents.
Bytes randomStructures(Random& random)
{
    TableBuilder table;
    for (std::size_t structures = 1 + random.below(12); structures > 0; --structures) {
        table.type(random.oneOf({0, 1, 2, 3, 7, 8, 9, 11, 12, 13}));
        const std::size_t length = 4 + random.below(28);
        for (std::size_t offset = 4; offset < length; ++offset)
            table.byte(static_cast<std::uint8_t>(offset),
                       random.below(4) ? static_cast<std::uint8_t>(random.below(6)) : random.byte());
        for (std::size_t strings = random.below(6); strings > 0; --strings) {
            std::string text;
            for (std::size_t characters = 1 + random.below(16); characters > 0; --characters)
                text += static_cast<char>(random.oneOf({'-', '[', '-', '[', ']', '-', ']', '-', 'Y', 'T', 'E', '2', '/',
                                                        ' ', '0', 0x01, 0xC3, 0xBC, 0xFF}));
            table.string(text);
        }
    }
    return table.structures();
}

std::size_t countOf(const VQ::SmBios& smBios, int type)
{
    const auto& tables = smBios.getTables();
    return static_cast<std::size_t>(std::count_if(
        tables.begin(), tables.end(), [type](const VQ::SmBios::Table& table) { return table.getType() == type; }));
}

const VQ::SmBios::Table* firstOf(const VQ::SmBios& smBios, int type)
{
    for (const VQ::SmBios::Table& table : smBios.getTables())
        if (table.getType() == type)
            return &table;
    return nullptr;
}

// 255 languages, read from the structure found last, or 255 options: what never ends.
bool neverEnds(const VQ::SmBios& smBios)
{
    const VQ::SmBios::Table* languages = nullptr;
    for (const int type : {0, 1, 13})
        if (const VQ::SmBios::Table* found = firstOf(smBios, type))
            languages = found;
    if (languages && languages->getByte(0x04) == 255)
        return true;
    const auto& tables = smBios.getTables();
    return std::any_of(tables.begin(), tables.end(), [](const VQ::SmBios::Table& table) {
        return table.getType() == 12 && table.getByte(0x04) == 255;
    });
}

// An OEM string whose first complete block `-[` ... `]-` holds one character: what fails.
bool hasOneCharacterBlock(const VQ::SmBios& smBios)
{
    for (const VQ::SmBios::Table& table : smBios.getTables()) {
        for (unsigned i = 1; table.getType() == 11 && i <= table.getByte(0x04); ++i) {
            const char* text = table.getString(static_cast<unsigned char>(i));
            const char* open = text ? std::strstr(text, "-[") : nullptr;
            const char* close = open ? std::strstr(open + 2, "]-") : nullptr;
            if (close && close - open == 3)
                return true;
        }
    }
    return false;
}

struct Outcome
{
    int enumerated = 0;  // tables
    int neverEnding = 0; // tables that were left out
    int failed = 0;      // requests that an OEM string ended
    int instances = 0;   // beside the BIOS and the chassis, which are always there
    int structures = 0;
};

class HostileTable : public testing::Test
{
protected:
    // Serves the bytes as the structure table and enumerates every hardware class.
    void enumerateAll(const Bytes& structures)
    {
        served.replace(TableBuilder().version(3, 0).form64().raw(structures));
        const VQ::SmBios smBios;
        if (neverEnds(smBios)) {
            ++outcome.neverEnding;
            return;
        }
        ++outcome.enumerated;
        outcome.structures += static_cast<int>(smBios.getTables().size());
        expectBios(hasOneCharacterBlock(smBios));
        expectInstances("QORTAL_Chassis", 1, 8, 8);
        expectInstances("QORTAL_BaseBoard", countOf(smBios, 2), 10, 10);
        expectInstances("QORTAL_CacheMemory", countOf(smBios, 7), 18, 18);
        expectInstances("QORTAL_Port", countOf(smBios, 8), 8, 10);
        expectInstances("QORTAL_Slot", countOf(smBios, 9), 6, 6);
    }

    void expectBios(bool fails)
    {
        RecordingInstanceHandler handler;
        try {
            provider.enumerate(pathOf("QORTAL_BIOS"), handler);
            EXPECT_FALSE(fails);
            EXPECT_EQ(handler.calls.back(), "complete");
        } catch (const std::out_of_range&) {
            EXPECT_TRUE(fails);
            EXPECT_EQ(handler.calls.back(), "instance");
            ++outcome.failed;
        }
        ASSERT_FALSE(handler.instances.empty());
        EXPECT_EQ(propertyLines(handler.instances[0]).size(), 21u);
        for (std::size_t i = 1; i < handler.instances.size(); ++i)
            EXPECT_EQ(propertyLines(handler.instances[i]).size(), 12u);
        outcome.instances += static_cast<int>(handler.instances.size()) - 1;
    }

    void expectInstances(const char* className, std::size_t count, std::size_t fewest, std::size_t most)
    {
        RecordingInstanceHandler handler;
        provider.enumerate(pathOf(className), handler);
        Lines expected(count + 2, "instance");
        expected.front() = "processing";
        expected.back() = "complete";
        EXPECT_EQ(handler.calls, expected) << className;
        for (const Pegasus::CIMInstance& instance : handler.instances) {
            const std::size_t properties = propertyLines(instance).size();
            EXPECT_TRUE(properties >= fewest && properties <= most) << className << ": " << properties;
        }
        outcome.instances += static_cast<int>(count);
    }

    ServedTable served{TableBuilder().type(127)};
    TestProvider provider;
    Outcome outcome;
};
}

// Several runs, each with a seed of its own, so that none takes long on a slow machine.
class MutatedTable : public HostileTable, public testing::WithParamInterface<unsigned>
{
};

TEST_P(MutatedTable, GivesInstancesOrNothing)
{
    const Bytes rich = richTable();
    Random random(GetParam());
    for (int i = 0; i < 1000 && !HasFailure(); ++i) {
        SCOPED_TRACE("mutation " + std::to_string(i));
        Bytes bytes = rich;
        for (std::size_t edits = 1 + random.below(8); edits > 0; --edits)
            mutateOnce(bytes, random);
        enumerateAll(bytes);
    }
    // What the mutations reached: enough of everything to have shown a failure.
    EXPECT_GT(outcome.enumerated, 800);
    EXPECT_GT(outcome.neverEnding, 0);
    EXPECT_GT(outcome.failed, 0);
    EXPECT_GT(outcome.structures, 3000);
    EXPECT_GT(outcome.instances, 3000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MutatedTable, testing::Values(20050623u, 19991231u, 20070115u, 20080229u));

TEST_F(HostileTable, RandomStructuresGiveInstancesOrNothing)
{
    Random random(19991231);
    for (int i = 0; i < 1000 && !HasFailure(); ++i) {
        SCOPED_TRACE("table " + std::to_string(i));
        enumerateAll(randomStructures(random));
    }
    EXPECT_GT(outcome.enumerated, 800);
    EXPECT_GT(outcome.failed, 0);
    EXPECT_GT(outcome.instances, 2000);
}

TEST_F(HostileTable, RandomBytesGiveInstancesOrNothing)
{
    Random random(20070115);
    for (int i = 0; i < 500 && !HasFailure(); ++i) {
        SCOPED_TRACE("bytes " + std::to_string(i));
        Bytes bytes(random.below(200));
        for (unsigned char& byte : bytes)
            byte = random.below(3) ? random.byte() : random.oneOf({0, 0, 2, 4, 5, 7, 11});
        enumerateAll(bytes);
    }
    EXPECT_GT(outcome.enumerated, 400);
}

TEST_F(HostileTable, EveryTruncationGivesInstancesOrNothing)
{
    const Bytes rich = richTable();
    for (std::size_t size = 0; size <= rich.size() && !HasFailure(); ++size) {
        SCOPED_TRACE("first bytes " + std::to_string(size));
        enumerateAll(Bytes(rich.begin(), rich.begin() + static_cast<std::ptrdiff_t>(size)));
    }
    EXPECT_EQ(outcome.enumerated, static_cast<int>(rich.size()) + 1);
}

TEST_F(HostileTable, TextThatIsNotUtf8IsReadAsLatin1)
{
    TableBuilder table;
    table.type(0)
        .string(0x04, "B\xFCro")
        .string(0x05, "Gr\xF6\xDF"
                      "e");
    table.type(1)
        .string(0x07, "S\xC3\xA9rie \xE9")
        .type(13)
        .byte(0x04, 1)
        .string(0x15, "fran\xE7"
                      "ais");
    table.type(2).string(0x04, "\xFF\xFE").type(12).byte(0x04, 1).string("caf\xE9");
    table.type(3).string(0x04, "M\xFCller");
    table.type(7).string(0x04, "L1 \xB5");
    table.type(8).string(0x06, " \xE9 ");
    table.type(9).string(0x04, "Stecker \xFC");
    table.type(11).byte(0x04, 1).string("Pr\xFC"
                                        "fung -[XXYT\xE9-1.0]-");
    served.replace(table);
    const std::vector<Pegasus::CIMInstance> bios = instancesOf("QORTAL_BIOS");
    ASSERT_EQ(bios.size(), 2u);
    EXPECT_EQ(valueOf(bios[0], "Manufacturer"), "Büro");
    EXPECT_EQ(valueOf(bios[0], "Version"), "Größe");
    EXPECT_EQ(valueOf(bios[0], "SerialNumber"), "Série é");
    EXPECT_EQ(valueOf(bios[0], "CurrentLanguage"), "français");
    EXPECT_EQ(valueOf(bios[0], "ListOfLanguages"), "\"français\"");
    EXPECT_EQ(valueOf(bios[1], "Name"), "Prüfung");
    EXPECT_EQ(valueOf(bios[1], "BuildNumber"), "XXYTé");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_BaseBoard").at(0), "Manufacturer"), "ÿþ");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_BaseBoard").at(0), "ConfigOptions"), "\"café\"");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_Chassis").at(0), "Manufacturer"), "Müller");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_CacheMemory").at(0), "Name"), "L1 µ");
    EXPECT_EQ(valueOf(instancesOf("QORTAL_Port").at(0), "Name"), "é");
    EXPECT_EQ(keyLines(instancesOf("QORTAL_Slot").at(0).getPath()).back(), "Tag | STRING | Stecker ü");
}

TEST(UnreadableTable, EndsEveryHardwareRequestWithoutAnInstance)
{
    const ServedTable served(std::string("/nowhere/table"));
    TestProvider provider;
    for (const char* className : HardwareClasses) {
        RecordingInstanceHandler handler;
        EXPECT_THROW(provider.enumerate(pathOf(className), handler), VQ::SmBiosError) << className;
        EXPECT_EQ(handler.calls, Lines{"processing"}) << className;
    }
}
