#include "tools/vqinventory/Table.h"

#include "inventory/EndlessCounters.h"
#include "support/smbios/DumpSource.h"
#include "support/smbios/EntryPoint.h"
#include "support/smbios/HostSource.h"
#include "support/smbios/SmBios.h"
#include "support/smbios/Source.h"
#include "support/smbios/Structures.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace VQ::Tool
{

namespace
{
constexpr std::size_t HeaderSize = 4;
constexpr std::uint8_t EndOfTable = 127;

using Structures = std::vector<SmBios::Table>;

RawTables rawTables(const std::optional<std::string>& dumpFile)
{
    if (!dumpFile)
        return readHostTables(HostPaths());
    vqServeSmBiosDump(dumpFile->c_str());
    return readRawTables();
}

// Why no structure begins here, with `size` bytes to the end of the table.
std::string obstacleAt(const unsigned char* data, std::size_t size)
{
    if (size < HeaderSize)
        return std::to_string(size) + " byte(s) are left, too few for a structure";
    const std::string type = "a structure of type " + std::to_string(data[0]) + " ";
    if (data[1] < HeaderSize)
        return type + "says that it is " + std::to_string(data[1]) + " byte(s) long, shorter than its header";
    if (data[1] > size)
        return type + "says that it is " + std::to_string(data[1]) + " bytes long, and " + std::to_string(size) +
               " are left";
    return type + "has texts that do not end";
}

void look(Table& table, const RawTables& raw, const EntryPoint& entryPoint, const Structures& structures)
{
    table.announcedBytes = entryPoint.tableLength;
    table.givenBytes = raw.structures.size();
    table.structures = structures.size();
    for (const SmBios::Table& structure : structures)
        table.bytes += structure.getData().size();
    if (entryPoint.structureCount != EntryPoint::NoCount)
        table.announcedStructures = entryPoint.structureCount;
    table.endMarked = !structures.empty() && structures.back().getType() == EndOfTable;
    const std::size_t end = std::min<std::size_t>(table.announcedBytes, table.givenBytes);
    const bool moreAnnounced = !table.announcedStructures || table.structures < *table.announcedStructures;
    if (!table.endMarked && moreAnnounced && table.bytes < end)
        table.obstacle = obstacleAt(raw.structures.data() + table.bytes, end - table.bytes);
}

void countOptions(Table& table, const SmBios::Table& structure)
{
    const std::uint8_t count = structure.getByte(0x04); // Count
    table.options += count;
    for (unsigned i = 1; i <= count; ++i)
        if (const char* text = structure.getString(static_cast<unsigned char>(i)))
            table.optionBytes += std::strlen(text);
        else
            break; // no further one is there either
}
}

Table readTable(const std::optional<std::string>& dumpFile)
{
    Table table;
    table.origin = dumpFile ? *dumpFile : HostPaths().tablesDirectory;
    try {
        const RawTables raw = rawTables(dumpFile);
        table.present = !raw.entryPoint.empty();
        if (!table.present)
            return table;
        table.origin = raw.origin;
        const EntryPoint entryPoint = parseEntryPoint(raw);
        table.majorVersion = entryPoint.majorVersion;
        table.minorVersion = entryPoint.minorVersion;
        Buffer announced = raw.structures;
        announced.resize(std::min<std::size_t>(announced.size(), entryPoint.tableLength));
        const Structures structures = parseStructures(std::move(announced), entryPoint.structureCount);
        look(table, raw, entryPoint, structures);
        table.endlessLanguages = endlessLanguages(structures);
        table.endlessOptions = hasEndlessOptions(structures);
        for (const SmBios::Table& structure : structures)
            if (structure.getType() == 2)
                ++table.boards;
            else if (structure.getType() == 12)
                countOptions(table, structure);
    } catch (const SmBiosError& error) {
        table.failure = error.what();
    }
    return table;
}

}
