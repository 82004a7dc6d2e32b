#include "support/smbios/DumpSource.h"

#include "support/smbios/EntryPoint.h"
#include "support/smbios/File.h"
#include "support/smbios/SmBios.h"
#include "support/smbios/Source.h"

#include <algorithm>
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

RawTables cutDump(const std::string& path, const std::vector<unsigned char>& dump)
{
    RawTables raw;
    raw.origin = path;
    raw.entryPoint.assign(dump.begin(), dump.begin() + static_cast<long>(std::min(dump.size(), MaxEntryPointSize)));
    const EntryPoint entryPoint = parseEntryPoint(raw);
    if (entryPoint.tableAddress > dump.size())
        throw SmBiosError(path + ": its entry point announces the SMBIOS table at byte " +
                          std::to_string(entryPoint.tableAddress) + ", but the file has " +
                          std::to_string(dump.size()) + " bytes");
    raw.structures.assign(dump.begin() + static_cast<long>(entryPoint.tableAddress), dump.end());
    return raw;
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
    return cutDump(path, file.readAll());
}

}

void vqServeSmBiosDump(const char* file)
{
    VQ::dumpFile() = file;
}
