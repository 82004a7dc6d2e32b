// Every table of up to eight bytes over the bytes that matter: the values at which a number of the format changes its
// meaning, and at which a signed reading would go wrong.

#include "support/smbios/EntryPoint.h"
#include "support/smbios/Source.h"
#include "support/smbios/Structures.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace VQ;

// The reader of this program reads no table by itself.
RawTables VQ::readRawTables()
{
    return {};
}

namespace
{
constexpr unsigned char Alphabet[] = {0, 1, 3, 4, 5, 127, 255};
constexpr std::size_t LongestTable = 8;

struct Structure
{
    std::size_t begin = 0;
    std::size_t size = 0;
    std::vector<std::string> strings;
};

// The second reading: byte by byte, as the format is told in words. A structure is a header of four bytes, of which the
// second is the length of the formatted area with the header; then texts, each ended by a zero byte, and a zero byte at
// the end; two zero bytes where there is no text.
std::vector<Structure> readByteByByte(const unsigned char* bytes, std::size_t size)
{
    std::vector<Structure> structures;
    Structure current;
    std::string text;
    enum
    {
        Formatted,
        Texts,
        SecondZero, // of a structure without texts
    } state = Formatted;
    for (std::size_t at = 0; at < size; ++at) {
        const std::size_t offset = at - current.begin;
        if (state == Formatted) {
            if (offset == 1 && bytes[at] < 4)
                return structures;
            if (offset < 3 || offset + 1 < bytes[current.begin + 1])
                continue;
            state = Texts;
            continue;
        }
        if (state == Texts && bytes[at] != 0) {
            text += static_cast<char>(bytes[at]);
            continue;
        }
        if (state == Texts && !text.empty()) {
            current.strings.push_back(text);
            text.clear();
            continue;
        }
        if (state == Texts && current.strings.empty()) {
            state = SecondZero;
            continue;
        }
        if (state == SecondZero && bytes[at] != 0) {
            // A zero byte at once and then a text: the string set begins with an empty string, and goes on.
            current.strings.emplace_back();
            text = static_cast<char>(bytes[at]);
            state = Texts;
            continue;
        }
        current.size = at + 1 - current.begin;
        structures.push_back(current);
        if (bytes[current.begin] == 127)
            return structures;
        current = Structure();
        current.begin = at + 1;
        state = Formatted;
    }
    return structures;
}

// Where a text of that number can be had: an empty string ends the set for who looks for a number.
const char* textOf(const Structure& structure, std::size_t number)
{
    if (number == 0 || number > structure.strings.size())
        return nullptr;
    for (std::size_t i = 0; i < number; ++i)
        if (structure.strings[i].empty())
            return nullptr;
    return structure.strings[number - 1].c_str();
}

bool isTheSame(const SmBios::Table& table, const Structure& structure, const unsigned char* bytes)
{
    const unsigned char* const begin = bytes + structure.begin;
    if (table.getType() != begin[0] || table.getLength() != begin[1] || table.getHandle() != begin[2] + 256 * begin[3])
        return false;
    for (unsigned char offset = 0; offset < LongestTable + 2; ++offset) {
        const bool hasByte = offset < begin[1];
        const bool hasWord = offset + 1 < begin[1];
        if (table.getByte(offset) != (hasByte ? begin[offset] : 0) ||
            table.getWord(offset) != (hasWord ? begin[offset] + 256 * begin[offset + 1] : 0) ||
            table.getDataByte(offset) != (offset < structure.size ? begin[offset] : 0))
            return false;
    }
    for (unsigned char number = 0; number < 4; ++number) {
        const char* const text = table.getString(number);
        const char* const expected = textOf(structure, number);
        if (text ? !expected || std::string(text) != expected : expected != nullptr)
            return false;
    }
    const std::vector<unsigned char>& data = table.getData();
    return std::equal(data.begin(), data.end(), begin, begin + structure.size);
}

std::string hex(const unsigned char* bytes, std::size_t size)
{
    std::string text;
    for (std::size_t i = 0; i < size; ++i)
        text += " " + std::to_string(bytes[i]);
    return text;
}

// Goes on to the next table of this length; false after the last one.
bool next(std::vector<std::size_t>& letters, unsigned char* bytes)
{
    for (std::size_t i = 0; i < letters.size(); ++i) {
        letters[i] = (letters[i] + 1) % std::size(Alphabet);
        bytes[i] = Alphabet[letters[i]];
        if (letters[i] != 0)
            return true;
    }
    return false;
}
}

TEST(EveryTable, OfUpToEightBytesIsReadAsASecondReadingDoes)
{
    std::size_t tables = 0;
    std::size_t structures = 0;
    for (std::size_t size = 0; size <= LongestTable; ++size) {
        std::vector<std::size_t> letters(size, 0);
        unsigned char bytes[LongestTable] = {};
        do {
            const std::vector<Structure> expected = readByteByByte(bytes, size);
            const auto parsed = parseStructures({bytes, bytes + size}, EntryPoint::NoCount);
            ASSERT_EQ(parsed.size(), expected.size()) << hex(bytes, size);
            for (std::size_t i = 0; i < expected.size(); ++i)
                ASSERT_TRUE(isTheSame(parsed[i], expected[i], bytes)) << "structure " << i << " of" << hex(bytes, size);
            ++tables;
            structures += expected.size();
        } while (next(letters, bytes));
    }
    std::printf("%zu tables, %zu structures\n", tables, structures);
    EXPECT_EQ(tables, 6725601u); // the sum of 7 to the power of 0 to 8
    EXPECT_GT(structures, 0u);
}
