// The classes measured against Debian's dmidecode: over every real dump, the project's samples, and tables made for
// rare codes and for fields that are not there, both must say the same of every field. Where they do not,
// KnownDifferences says why.

#include "tests/oracle/Dmidecode.h"
#include "tests/oracle/Facts.h"
#include "tests/oracle/KnownDifferences.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/SampleTables.h"
#include "tests/testing/ServedTable.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <dirent.h>
#include <gtest/gtest.h>
#include <set>

namespace
{
constexpr const char* DumpFolder = VQ_DUMPS;
constexpr const char* NoDumps = "no-dumps";

std::set<std::string> dumpNames()
{
    std::set<std::string> names;
    if (DIR* folder = opendir(DumpFolder)) {
        while (const dirent* entry = readdir(folder)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".bin") == 0)
                names.insert(name.substr(0, name.size() - 4));
        }
        closedir(folder);
    }
    return names;
}

// A cache and a port connector for each value of their code bytes; the bits of the cache configuration run through all
// of theirs as well.
TableBuilder everyCode()
{
    TableBuilder table;
    table.type(0).string(0x04, "Maker").length(0x12);
    table.type(1).string(0x07, "Serial").length(0x19);
    for (unsigned value = 0; value < 256; ++value) {
        const auto byte = static_cast<std::uint8_t>(value);
        const unsigned configuration = (value & 7) | (value & 0x18) << 2 | (value & 0x60) << 3;
        table.type(7).string(0x04, "Cache").word(0x05, static_cast<std::uint16_t>(configuration));
        table.word(0x07, 64).word(0x09, 64).byte(0x0F, byte).byte(0x10, byte).byte(0x11, byte).byte(0x12, byte);
        table.type(8).byte(0x05, byte).byte(0x07, static_cast<std::uint8_t>(255 - value)).byte(0x08, byte);
    }
    table.type(127);
    return table;
}

// An old machine: structures of the first versions of the standard, a year of two digits, strings in another order than
// their fields, numbers of strings that are not there.
TableBuilder oldMachine()
{
    TableBuilder table;
    table.version(2, 1);
    table.type(0).string("06/23/05").string("R 4.2").string("Maker").byte(0x04, 3).byte(0x05, 2).byte(0x08, 1);
    table.length(0x12);
    table.type(1).string("Serial").string("Product").byte(0x05, 2).byte(0x07, 1);
    table.type(2).string("Board serial").byte(0x05, 4).byte(0x07, 1);
    table.type(3).string("Tag").string("Maker").byte(0x04, 2).byte(0x08, 1).length(0x09);
    table.type(7).word(0x05, 0x0122).word(0x07, 0x8001).word(0x09, 0x0020).length(0x0F);
    table.type(8).string("Out").string("In").byte(0x04, 2).byte(0x06, 1).length(0x09);
    table.type(9).string("other").string("ISA 2").byte(0x04, 2).length(0x0C);
    table.type(9).string("other").byte(0x04, 2).length(0x0C);
    table.type(9).length(0x0C);
    table.type(12).byte(0x04, 3).string("first").string("second");
    table.type(13).string("fr").string("en").byte(0x04, 2).byte(0x15, 2);
    table.type(127);
    return table;
}

constexpr Sample Generated[] = {{"every-code", everyCode}, {"old-machine", oldMachine}};

const Sample* generated(const std::string& machine)
{
    const auto found = std::find_if(std::begin(Generated), std::end(Generated),
                                    [&machine](const Sample& each) { return machine == each.name; });
    return found == std::end(Generated) ? nullptr : found;
}

std::vector<std::string> machines()
{
    std::vector<std::string> all;
    for (const Sample& sample : Samples)
        all.emplace_back(sample.name);
    for (const Sample& each : Generated)
        all.emplace_back(each.name);
    const std::set<std::string> dumps = dumpNames();
    all.insert(all.end(), dumps.begin(), dumps.end());
    if (dumps.empty())
        all.emplace_back(NoDumps);
    return all;
}

std::string fileOf(const std::string& machine)
{
    const bool sample = std::any_of(std::begin(Samples), std::end(Samples),
                                    [&machine](const Sample& each) { return machine == each.name; });
    return (sample ? VQ_SOURCE_DIR "/samples" : DumpFolder) + ("/" + machine + ".bin");
}

// The number of bytes of the UTF-8 character at `text`.
std::size_t characterSize(const char* text)
{
    const auto first = static_cast<unsigned char>(*text);
    return first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

bool isLatin1(const char* text)
{
    const auto first = static_cast<unsigned char>(*text);
    return first == 0xC2 || first == 0xC3;
}

// True when `printed` is what dmidecode makes of a text: it prints a full stop for each byte that is not printable
// ASCII. A character of Latin-1 stood in the table as one byte or, in UTF-8, as two.
bool printsAs(const char* text, const char* printed)
{
    if (!*text)
        return !*printed;
    const std::size_t size = characterSize(text);
    if (size == 1)
        return *printed == (std::isprint(static_cast<unsigned char>(*text)) ? *text : '.') &&
               printsAs(text + 1, printed + 1);
    const std::size_t stops = std::min(std::string(printed).find_first_not_of('.'), std::string(printed).size());
    return (stops >= size && printsAs(text + size, printed + size)) ||
           (isLatin1(text) && stops >= 1 && printsAs(text + size, printed + 1));
}

std::string factOf(const Facts& facts, const std::string& name)
{
    const auto found = facts.find(name);
    return found == facts.end() ? "absent" : found->second;
}

std::set<std::string> namesOf(const Facts& one, const Facts& other)
{
    std::set<std::string> names;
    for (const Facts* facts : {&one, &other})
        for (const auto& fact : *facts)
            names.insert(fact.first);
    return names;
}

class Oracle : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        if (GetParam() == NoDumps)
            GTEST_SKIP() << "no dumps of real machines in " << DumpFolder;
        if (const Sample* machine = generated(GetParam()))
            file = temporary = writeTemporaryFile(machine->table().dump());
        else
            file = fileOf(GetParam());
    }
    void TearDown() override
    {
        if (!temporary.empty())
            std::remove(temporary.c_str());
    }

    std::string file;
    std::string temporary;
};
}

TEST_P(Oracle, SaysTheSame)
{
    if (!haveDmidecode())
        GTEST_SKIP() << "dmidecode is not installed";
    const Facts ours = moduleFacts(file);
    const Facts theirs = dmidecodeFacts(file);
    std::vector<KnownDifference> expected = knownDifferences(GetParam());
    for (const std::string& name : namesOf(ours, theirs)) {
        const std::string our = factOf(ours, name);
        const std::string their = factOf(theirs, name);
        if (printsAs(our.c_str(), their.c_str()))
            continue;
        const auto known = std::find_if(expected.begin(), expected.end(), [&](const KnownDifference& difference) {
            return name == difference.fact && our == difference.ours && their == difference.theirs;
        });
        if (known == expected.end())
            ADD_FAILURE() << name << ": module '" << our << "', dmidecode '" << their << "'";
        else
            expected.erase(known);
    }
    for (const KnownDifference& difference : expected)
        ADD_FAILURE() << difference.fact << " no longer differs as listed (" << difference.reason << ")";
}

TEST_P(Oracle, OperatingSystemAndMemoryAnswerWhateverTheTable)
{
    const ServedTable table(file);
    for (const char* className : {"QORTAL_OperatingSystem", "QORx_SystemMemory"}) {
        const std::vector<Pegasus::CIMInstance> instances = instancesOf(className);
        ASSERT_EQ(instances.size(), 1u) << className;
        EXPECT_NE(valueOf(instances[0], "Name"), "") << className;
    }
}

INSTANTIATE_TEST_SUITE_P(Machines, Oracle, testing::ValuesIn(machines()),
                         [](const testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(KnownDifferencesList, NamesOnlyMachinesThatAreCompared)
{
    if (dumpNames().empty())
        GTEST_SKIP() << "no dumps of real machines in " << DumpFolder;
    const std::vector<std::string> all = machines();
    for (const std::string& machine : machinesWithDifferences())
        EXPECT_NE(std::find(all.begin(), all.end(), machine), all.end()) << machine;
}
