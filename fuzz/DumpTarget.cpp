// The tool's look at a dump file of any bytes: what it says of it agrees with what the module's reader makes of it.

#include "fuzz/Endless.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "support/smbios/DumpSource.h"
#include "tools/vqinventory/Table.h"

#include <string>

using namespace VQ;

namespace
{
void checkReadable(const Tool::Table& table)
{
    const SmBios smBios;
    const auto& structures = smBios.getTables();
    require(table.present && table.structures == structures.size(), "the tool sees the structures of the module");
    require(table.majorVersion == smBios.getMajorVersion() && table.minorVersion == smBios.getMinorVersion(),
            "and the version");
    require(table.bytes <= table.givenBytes && table.bytes <= table.announcedBytes, "they fit");
    require((table.endlessOptions || table.endlessLanguages) == neverEnds(structures),
            "the tool warns of what never ends, and of nothing else");
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string file = memoryFileOf(data, size);
    const Tool::Table table = Tool::readTable(file);
    vqServeSmBiosDump(file.c_str());
    if (!table.failure) {
        checkReadable(table);
        return 0;
    }
    require(!table.failure->empty(), "a failure has a text");
    try {
        const SmBios smBios;
        require(false, "what the tool can't read the module can't either");
    } catch (const SmBiosError& error) {
        require(*table.failure == error.what(), "both say the same");
    }
    return 0;
}
