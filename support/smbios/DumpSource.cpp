#include "support/smbios/DumpSource.h"

#include "support/smbios/EntryPoint.h"
#include "support/smbios/File.h"
#include "support/smbios/SmBios.h"
#include "support/smbios/Source.h"

#include <cstdint>
#include <string>

namespace VQ
{

namespace
{
std::string& dumpFile()
{
    static std::string file;
    return file;
}
}

RawTables readRawTables()
{
    const std::string& path = dumpFile();
    if (path.empty())
        return {};
    File file(path, "the dump file must be readable");
    if (!file.isOpen())
        file.fail("cannot open", file.error());
    file.requireRegular(MaxDumpSize);
    RawTables raw;
    raw.origin = path;
    raw.entryPoint = file.readAll(MaxEntryPointSize);
    const std::uint64_t tableAddress = parseEntryPoint(raw).tableAddress;
    if (tableAddress > file.size())
        throw SmBiosError(path + ": its entry point announces the SMBIOS table at byte " +
                          std::to_string(tableAddress) + ", but the file has " + std::to_string(file.size()) +
                          " bytes");
    file.seek(tableAddress);
    raw.structures = file.readAll();
    return raw;
}

}

void vqServeSmBiosDump(const char* file)
{
    VQ::dumpFile() = file;
}
