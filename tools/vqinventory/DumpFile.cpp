#include "tools/vqinventory/DumpFile.h"

#include "support/smbios/DumpSource.h"
#include "support/smbios/SmBios.h"
#include "support/smbios/Structures.h"
#include "tools/program/InputFile.h"
#include "tools/program/SavedFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sys/mman.h>
#include <unistd.h>

namespace VQ::Tool
{

namespace
{
constexpr std::size_t AnchorSize = 5;
constexpr const char* Form = "an SMBIOS dump";

std::string hexBytes(const std::string& bytes)
{
    std::string text;
    char byte[4];
    for (const char c : bytes) {
        std::snprintf(byte, sizeof byte, " %02X", static_cast<unsigned char>(c));
        text += byte;
    }
    return text.empty() ? " nothing" : text;
}

bool beginsWithAnchor(const std::string& bytes)
{
    return bytes.compare(0, 5, "_SM3_") == 0 || bytes.compare(0, 4, "_SM_") == 0 || bytes.compare(0, 5, "_DMI_") == 0;
}

// The first bytes, where the file is an ordinary one.
std::string firstBytes(const std::string& file)
{
    const std::string unfit = unfitReason(file, MaxDumpSize);
    if (!unfit.empty())
        throw LoadError(file + " is not " + Form + ": " + unfit);
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw LoadError("cannot read " + file + ": " + std::strerror(errno));
    std::string bytes(AnchorSize, '\0');
    in.read(bytes.data(), AnchorSize);
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

bool isRawTable(const std::string& bytes)
{
    const std::vector<SmBios::Table> structures =
        parseStructures(Buffer(bytes.begin(), bytes.end()), EntryPoint::NoCount);
    constexpr std::uint8_t EndOfTable = 127;
    return !structures.empty() && structures.back().getType() == EndOfTable;
}

// The version of the entry point that the kernel gives beside the table.
std::optional<EntryPoint> entryPointBeside(const std::string& file)
{
    RawTables raw;
    raw.origin = std::filesystem::path(file).replace_filename("smbios_entry_point");
    if (file == StandardInput || !std::filesystem::is_regular_file(raw.origin))
        return std::nullopt;
    std::ifstream in(raw.origin, std::ios::binary);
    for (char byte; raw.entryPoint.size() < MaxEntryPointSize && in.get(byte);)
        raw.entryPoint.push_back(static_cast<unsigned char>(byte));
    try {
        return parseEntryPoint(raw);
    } catch (const SmBiosError&) {
        return std::nullopt;
    }
}

// The 64-bit entry point of SMBIOS 3 with the table behind it.
std::string withEntryPoint(const std::string& table, const std::optional<EntryPoint>& version)
{
    constexpr std::size_t Size = 0x18, TableOffset = 0x20;
    std::string bytes(TableOffset, '\0');
    bytes.replace(0, AnchorSize, "_SM3_");
    bytes[0x06] = Size; // Entry Point Length
    bytes[0x07] = static_cast<char>(version ? version->majorVersion : 0);
    bytes[0x08] = static_cast<char>(version ? version->minorVersion : 0);
    bytes[0x0A] = 1; // Entry Point Revision
    for (std::size_t i = 0; i < 4; ++i)
        bytes[0x0C + i] = static_cast<char>(table.size() >> (8 * i)); // Structure Table Maximum Size
    bytes[0x10] = TableOffset;
    unsigned sum = 0;
    for (std::size_t i = 0; i < Size; ++i)
        sum += static_cast<unsigned char>(bytes[i]);
    bytes[0x05] = static_cast<char>(0x100 - sum % 0x100); // Entry Point Checksum
    return bytes + table;
}

std::string inMemory(const std::string& bytes)
{
    const int file = memfd_create("smbios-dump", 0);
    if (file < 0 || write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        throw LoadError(std::string("cannot make a file in memory: ") + std::strerror(errno));
    return "/proc/self/fd/" + std::to_string(file);
}
}

Dump openDump(const std::string& file)
{
    if (file != StandardInput && beginsWithAnchor(firstBytes(file)))
        return {file, file, ""};
    std::string bytes = readInput(file, MaxDumpSize, Form);
    const std::string name = file == StandardInput ? "standard input" : file;
    if (beginsWithAnchor(bytes))
        return {file, inMemory(bytes), ""};
    if (!isRawTable(bytes))
        throw LoadError(name +
                        " is not an SMBIOS dump: expected \"_SM3_\" (5F 53 4D 33 5F), \"_SM_\" (5F 53 4D 5F) or "
                        "\"_DMI_\" (5F 44 4D 49 5F) at its start, found" +
                        hexBytes(bytes.substr(0, AnchorSize)));
    const std::optional<EntryPoint> version = entryPointBeside(file);
    return {file, inMemory(withEntryPoint(bytes, version)),
            version ? ""
                    : name + " is a table without an entry point, so its SMBIOS version is not known and shows as 0.0"};
}

bool isDump(const std::string& file)
{
    const std::string bytes = readInput(file, MaxSavedSize, "a file with saved answers or an SMBIOS dump");
    return beginsWithAnchor(bytes) || (bytes.compare(0, 1, "{") != 0 && isRawTable(bytes));
}

namespace
{
std::string readerBeside(const std::string& moduleFile)
{
    // Through links: the reader lies beside the module itself.
    std::error_code error;
    const std::filesystem::path module = std::filesystem::canonical(moduleFile, error);
    if (error)
        throw LoadError("cannot load " + moduleFile + ": " + error.message());
    return module.parent_path() / "from-dump" / "libvqsmbios.so";
}
}

DumpReader::DumpReader(const std::string& moduleFile) : _library(readerBeside(moduleFile), RTLD_NOW | RTLD_GLOBAL) {}

void DumpReader::serve(const Dump& dump) const
{
    reinterpret_cast<void (*)(const char*)>(_library.symbol("vqServeSmBiosDump"))(dump.readable.c_str());
}

}
