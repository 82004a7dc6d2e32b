// The reader measured against dmidecode, on every dump there is: the same structures with the same bytes and strings.

#include "support/smbios/SmBios.h"
#include "tests/oracle/Dmidecode.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace VQ;

namespace
{
// Where dmidecode does something else on purpose, and why this reader does not.
struct Difference
{
    const char* dump;
    const char* header; ///< of dmidecode's structure
    const char* reason;
};

const Difference Differences[] = {
    {"supermicro-x10ddw-i.bin", "Handle 0x0036, DMI type 34, 16 bytes",
     "dmidecode mends the length of a management device (type 34), 16 in place of 11; no class is made of that type"},
};

std::string hexadecimal(const unsigned char* bytes, std::size_t size)
{
    std::string text;
    char byte[4];
    for (std::size_t i = 0; i < size; ++i) {
        std::snprintf(byte, sizeof byte, "%s%02X", i ? " " : "", bytes[i]);
        text += byte;
    }
    return text;
}

std::vector<DmidecodeBytes> readHere(const std::string& dump)
{
    const ServedTable served(dump);
    const SmBios smBios;
    std::vector<DmidecodeBytes> structures;
    for (const SmBios::Table& table : smBios.getTables()) {
        char header[80];
        std::snprintf(header, sizeof header, "Handle 0x%04X, DMI type %u, %u bytes", unsigned{table.getHandle()},
                      unsigned{table.getType()}, unsigned{table.getLength()});
        DmidecodeBytes structure = {header, hexadecimal(table.getData().data(), table.getLength())};
        for (unsigned i = 1; i <= 255; ++i)
            if (const char* text = table.getString(static_cast<unsigned char>(i)))
                structure.push_back(hexadecimal(reinterpret_cast<const unsigned char*>(text), std::strlen(text) + 1));
        structures.push_back(structure);
    }
    return structures;
}

bool isKnownDifference(const std::string& dump, const std::string& header)
{
    return std::any_of(std::begin(Differences), std::end(Differences), [&](const Difference& known) {
        return std::filesystem::path(dump).filename() == known.dump && header == known.header;
    });
}

void expectSameStructures(const std::string& dump)
{
    SCOPED_TRACE(dump);
    const std::vector<DmidecodeBytes> here = readHere(dump);
    const std::vector<DmidecodeBytes> there = dmidecodeBytes(dump);
    EXPECT_EQ(here.size(), there.size());
    EXPECT_GT(here.size(), 0u);
    for (std::size_t i = 0; i < std::min(here.size(), there.size()); ++i) {
        if (isKnownDifference(dump, there[i][0]))
            EXPECT_NE(here[i], there[i]) << "no difference any more";
        else
            EXPECT_EQ(here[i], there[i]);
    }
}

std::vector<std::string> dumpsIn(const std::string& directory)
{
    std::vector<std::string> dumps;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(directory, none))
        if (entry.path().extension() == ".bin")
            dumps.push_back(entry.path().string());
    std::sort(dumps.begin(), dumps.end());
    return dumps;
}

void expectSameStructuresInAllOf(const std::string& directory)
{
    if (!haveDmidecode())
        GTEST_SKIP() << "dmidecode is not installed";
    const std::vector<std::string> dumps = dumpsIn(directory);
    if (dumps.empty())
        GTEST_SKIP() << "there are no dumps in " << directory;
    for (const std::string& dump : dumps)
        expectSameStructures(dump);
}
}

TEST(Dmidecode, ReadsTheSameStructuresOfRealMachines)
{
    expectSameStructuresInAllOf(VQ_DUMPS);
}

TEST(Dmidecode, ReadsTheSameStructuresOfTheSamples)
{
    expectSameStructuresInAllOf(VQ_SOURCE_DIR "/samples");
}

TEST(Dmidecode, ReadsTheSameStructuresOfABuiltTable)
{
    if (!haveDmidecode())
        GTEST_SKIP() << "dmidecode is not installed";
    TableBuilder table;
    table.type(0).string(0x04, "Maker").string(0x05, std::string("Caf\xE9 \x01\x7F", 7)).length(0x18);
    table.type(11).byte(0x04, 3).string("AA 00").string("B").string(std::string(15, 'C'));
    table.type(126).handle(0xFEFE).length(0x40);
    table.type(127);
    TableBuilder form64 = table;
    TableBuilder formDmi = table;
    form64.form64().version(3, 2);
    formDmi.formDmi().version(2, 0);
    for (const TableBuilder& form : {table, form64, formDmi}) {
        const std::string dump = writeTemporaryFile(form.dump());
        expectSameStructures(dump);
        std::filesystem::remove(dump);
    }
}
