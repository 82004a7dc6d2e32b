// Entry point and structure table of any bytes. An input has the form of a dump: up to 32 bytes of entry point, then
// the structure table.

#include "fuzz/Require.h"
#include "support/smbios/EntryPoint.h"
#include "support/smbios/Structures.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>

using namespace VQ;

namespace
{
RawTables input;
}

// The reader's table is the input.
RawTables VQ::readRawTables()
{
    return input;
}

namespace
{
// A copy that ends where its memory ends, so that the sanitizer sees a read past it.
std::unique_ptr<unsigned char[]> exactCopy(const unsigned char* data, std::size_t size)
{
    std::unique_ptr<unsigned char[]> copy(new unsigned char[size]);
    std::copy(data, data + size, copy.get());
    return copy;
}

bool isEntryPoint(const unsigned char* data, std::size_t size)
{
    const auto copy = exactCopy(data, size);
    return isEntryPoint64(copy.get(), size) || isEntryPoint32(copy.get(), size) || isEntryPointDmi(copy.get(), size);
}

// String number `number` (from 1) of the bytes after the formatted area; null when there is none.
const char* stringOf(const std::vector<unsigned char>& data, std::size_t formatted, unsigned number)
{
    const auto* text = reinterpret_cast<const char*>(data.data()) + formatted;
    for (; number > 1 && *text; --number)
        text += std::strlen(text) + 1;
    return number == 1 && *text ? text : nullptr;
}

void checkTable(const SmBios::Table& table)
{
    const std::vector<unsigned char>& data = table.getData();
    require(table.getLength() >= 4 && table.getLength() + 2u <= data.size(), "header, formatted area and end fit");
    require(table.getType() == data[0] && table.getHandle() == (data[2] | data[3] << 8), "the header is the bytes'");
    const std::vector<unsigned char> exact(data);
    for (unsigned i = 0; i <= 255; ++i) {
        const auto offset = static_cast<unsigned char>(i);
        require(table.getByte(offset) == (i < table.getLength() ? exact[i] : 0), "a byte is of the formatted area");
        require(i + 1 < table.getLength() || table.getWord(offset) == 0, "a word is of the formatted area");
        const char* const text = table.getString(offset);
        const char* const expected = stringOf(exact, table.getLength(), i);
        require(text ? expected && std::strcmp(text, expected) == 0 : !expected, "a string is of the string set");
    }
}

void checkTables(const std::vector<SmBios::Table>& tables, const unsigned char* data, std::size_t size)
{
    std::size_t position = 0;
    for (const SmBios::Table& table : tables) {
        const std::vector<unsigned char>& bytes = table.getData();
        require(bytes.size() <= size - position && std::equal(bytes.begin(), bytes.end(), data + position),
                "structures are the table's bytes in their order");
        position += bytes.size();
        require(table.getType() != 127 || &table == &tables.back(), "the end-of-table structure is the last");
        checkTable(table);
    }
}

// The structures whatever the entry point says of them.
void checkStructures(const unsigned char* data, std::size_t size)
{
    checkTables(parseStructures({data, data + size}, EntryPoint::NoCount), data, size);
}

// A reader of some types has what a reader of all has, without the others.
void checkChoice(const std::vector<SmBios::Table>& all)
{
    static constexpr std::initializer_list<std::uint8_t> Types = {0, 7, 127};
    const SmBios some(Types);
    auto next = some.getTables().begin();
    for (const SmBios::Table& table : all)
        if (std::find(Types.begin(), Types.end(), table.getType()) != Types.end()) {
            require(next != some.getTables().end() && next->getData() == table.getData(), "a chosen type is there");
            ++next;
        }
    require(next == some.getTables().end(), "no other type is there");
}

void checkReader(const unsigned char* data, std::size_t entryPointSize, std::size_t size)
{
    input.origin = "input";
    input.entryPoint.assign(data, data + entryPointSize);
    input.structures.assign(data + entryPointSize, data + size);
    const bool readable = entryPointSize == 0 || isEntryPoint(data, entryPointSize);
    try {
        const SmBios smBios;
        require(readable, "only a valid entry point is read");
        if (entryPointSize > 0) {
            const EntryPoint entryPoint = parseEntryPoint(input);
            require(smBios.getTables().size() <= entryPoint.structureCount, "no more structures than announced");
        }
        checkTables(smBios.getTables(), data + entryPointSize, size - entryPointSize);
        checkChoice(smBios.getTables());
    } catch (const SmBiosError& error) {
        require(!readable, "a valid entry point is read");
        require(std::strstr(error.what(), "input: no SMBIOS entry point") == error.what(), "the error tells the file");
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::size_t entryPointSize = std::min(size, MaxEntryPointSize);
    checkReader(data, entryPointSize, size);
    checkStructures(data + entryPointSize, size - entryPointSize);
    return 0;
}
