#include "flat/load/Source.h"

#include "flat/load/Failure.h"
#include "inventory/EndlessCounters.h"
#include "support/smbios/DumpSource.h"
#include "support/smbios/EntryPoint.h"
#include "support/smbios/File.h"
#include "support/smbios/HostSource.h"
#include "support/smbios/Structures.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace VQ::Load
{

namespace
{
constexpr std::uint64_t HeadSize = 8;  // of a packed list
constexpr std::uint64_t FrameSize = 9; // of a packed text: head and terminator

// Enough for every text that is neither of the table nor of the environment (the host's name, dates, a character set of
// the C library, what an optional library tells), and for what a list of 254 languages has beside its texts, 2294
// bytes.
constexpr std::uint64_t FixedTexts = 4096;

std::string systemError(const std::string& what)
{
    return what + ": " + std::strerror(errno);
}

Buffer readDump(const std::string& name)
{
    File file(name, "the dump file must be readable");
    if (!file.isOpen())
        file.fail("cannot open", file.error());
    file.requireRegular(MaxDumpSize);
    return file.readAll(MaxDumpSize);
}

void writeAll(int descriptor, const Buffer& bytes)
{
    for (std::size_t written = 0; written < bytes.size();) {
        const ssize_t now = write(descriptor, bytes.data() + written, bytes.size() - written);
        if (now < 0 && errno != EINTR)
            throw Failure(systemError("cannot keep a copy of the dump"));
        written += now < 0 ? 0 : static_cast<std::size_t>(now);
    }
}

[[noreturn]] void refuse(const RawTables& raw, const std::string& structure, const std::string& counted)
{
    throw Failure(raw.origin + ": a structure of type " + structure + " announces 255 " + counted +
                  ", which the module would count without end: update the firmware of the machine");
}
}

DumpCopy::DumpCopy(const std::string& file) : _file(file), _descriptor(-1)
{
    const Buffer bytes = readDump(file);
    _descriptor = memfd_create("systemprovider-dump", MFD_CLOEXEC);
    if (_descriptor < 0)
        throw Failure(systemError("cannot keep a copy of the dump"));
    _path = "/proc/self/fd/" + std::to_string(_descriptor);
    try {
        writeAll(_descriptor, bytes);
    } catch (...) {
        close(_descriptor);
        throw;
    }
}

DumpCopy::~DumpCopy()
{
    close(_descriptor);
}

std::string DumpCopy::named(std::string text) const
{
    const std::size_t found = text.find(_path);
    return found == std::string::npos ? text : text.replace(found, _path.size(), _file);
}

Bounds checkTable(const DumpCopy* dump)
{
    if (dump)
        vqServeSmBiosDump(dump->path().c_str());
    RawTables raw = dump ? readRawTables() : readHostTables(HostPaths());
    Bounds bounds = {FixedTexts, HeadSize};
    if (raw.entryPoint.empty())
        return bounds;
    const EntryPoint entryPoint = parseEntryPoint(raw);
    bounds.text += raw.structures.size();
    bounds.options += raw.structures.size();
    raw.structures.resize(std::min<std::size_t>(raw.structures.size(), entryPoint.tableLength));
    const auto structures = parseStructures(std::move(raw.structures), entryPoint.structureCount);
    if (const auto type = endlessLanguages(structures))
        refuse(raw, std::to_string(*type), "languages");
    if (hasEndlessOptions(structures))
        refuse(raw, "12", "configuration options");
    for (const SmBios::Table& structure : structures)
        if (structure.getType() == 12)
            bounds.options += FrameSize * structure.getByte(0x04); // Count
    return bounds;
}

}
