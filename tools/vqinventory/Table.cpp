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
#include <sys/sysinfo.h>
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

// The text between the first -[ and the next ]- of an OEM string; the module's list of firmware fails where that is one
// character.
bool hasOddBracket(const std::string& text)
{
    const std::size_t begin = text.find("-[");
    return begin != std::string::npos && text.find("]-", begin + 2) == begin + 3;
}

void lookForOddBracket(Table& table, const SmBios::Table& structure)
{
    const unsigned count = structure.getByte(0x04); // Count
    for (unsigned i = 1; i <= count && table.oddOemString.empty(); ++i)
        if (const char* text = structure.getString(static_cast<unsigned char>(i)))
            if (hasOddBracket(text))
                table.oddOemString = text;
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
            else if (structure.getType() == 11)
                lookForOddBracket(table, structure);
            else if (structure.getType() == 12)
                countOptions(table, structure);
    } catch (const SmBiosError& error) {
        table.failure = error.what();
    }
    return table;
}

// "25 of 30 structures, 1000 of 1234 bytes"
std::string extentOf(const Table& table)
{
    const bool fewerBytes = !table.endMarked && table.bytes < table.announcedBytes;
    return std::to_string(table.structures) +
           (table.announcedStructures ? " of " + std::to_string(*table.announcedStructures) : "") + " structures, " +
           std::to_string(table.bytes) +
           (table.announcedStructures || fewerBytes ? " of " + std::to_string(table.announcedBytes) : "") + " bytes";
}

std::string earlyEnd(const Table& table)
{
    const bool cut = table.announcedStructures && table.givenBytes < table.announcedBytes && !table.endMarked;
    if (table.obstacle.empty() && !cut)
        return "";
    std::string why = table.obstacle;
    if (cut)
        why += std::string(why.empty() ? "" : "; ") + "only " + std::to_string(table.givenBytes) +
               " bytes of it are there";
    return "it ends early: " + extentOf(table) + " can be read; at byte " + std::to_string(table.bytes) + " " + why +
           ". What stands behind is missing in all answers";
}

std::string remedyOf(const std::string& className, const std::string& failure, const Table& table)
{
    if (className != "QORTAL_BIOS" || failure.find("basic_string::substr") == std::string::npos)
        return "";
    return "; an OEM string of the firmware has a bracketed part of one character, " +
           (table.oddOemString.empty() ? "such as -[X]-" : "\"" + table.oddOemString + "\"") +
           ": no request for this class is answered, update the firmware of the machine";
}

std::string memoryNote()
{
    struct sysinfo info
    {
    };
    if (sysinfo(&info) != 0 || info.mem_unit <= 1)
        return "";
    const std::string bits = std::to_string(8 * sizeof(void*));
    return "this machine has more memory than " + bits + " bits can count, so the memory figures of a " + bits +
           "-bit server are too small by the factor " + std::to_string(info.mem_unit);
}

}
