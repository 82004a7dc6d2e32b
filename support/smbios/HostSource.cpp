#include "support/smbios/HostSource.h"

#include "support/smbios/EntryPoint.h"
#include "support/smbios/File.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

namespace VQ
{

namespace
{
// The area of a PC's memory in which firmware leaves its entry points (DSP0134, clause 5.2).
constexpr std::uint64_t AreaAddress = 0xF0000;
constexpr std::size_t AreaSize = 0x10000;
constexpr std::size_t AreaStep = 16;

bool doesNotExist(const std::string& path)
{
    struct stat status
    {
    };
    return stat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

Buffer readFile(const std::string& path)
{
    File file(path, "the SMBIOS table is readable by root only: run as root");
    if (!file.isOpen())
        file.fail("cannot open", file.error());
    return file.readAll();
}

using EntryPointTest = bool (*)(const unsigned char*, std::size_t);

// The entry point that `test` accepts, from its first byte on; empty when the area holds none.
Buffer findEntryPoint(const Buffer& area, EntryPointTest test)
{
    for (std::size_t position = 0; position + AreaStep <= area.size(); position += AreaStep) {
        const std::size_t size = std::min(area.size() - position, MaxEntryPointSize);
        const unsigned char* candidate = area.data() + position;
        if (test(candidate, size))
            return {candidate, candidate + size};
    }
    return {};
}

RawTables readMemory(const std::string& device)
{
    File memory(device, "the SMBIOS table is readable by root only, and only where the kernel is not locked down");
    if (!memory.isOpen()) {
        const bool nothingThere = memory.error() == ENOENT || memory.error() == ENXIO || memory.error() == ENODEV;
        if (nothingThere)
            return {};
        memory.fail("cannot open", memory.error());
    }
    const Buffer area = memory.readAt(AreaAddress, AreaSize);
    RawTables raw;
    raw.origin = device;
    // The newest form first: firmware leaves older ones beside it for older readers, and they may tell less.
    for (const EntryPointTest test : {isEntryPoint64, isEntryPoint32, isEntryPointDmi}) {
        raw.entryPoint = findEntryPoint(area, test);
        if (!raw.entryPoint.empty())
            break;
    }
    if (raw.entryPoint.empty())
        return {};
    const EntryPoint entryPoint = parseEntryPoint(raw);
    raw.structures =
        memory.readAt(entryPoint.tableAddress, std::min<std::size_t>(entryPoint.tableLength, MaxTableSize));
    return raw;
}
}

RawTables readHostTables(const HostPaths& paths)
{
    if (doesNotExist(paths.tablesDirectory))
        return readMemory(paths.memoryDevice);
    const std::string entryPoint = paths.tablesDirectory + "/smbios_entry_point";
    RawTables raw{entryPoint, readFile(entryPoint), {}};
    parseEntryPoint(raw); // an empty file is an error here, while an empty entry point is a machine without SMBIOS
    raw.structures = readFile(paths.tablesDirectory + "/DMI");
    return raw;
}

}
