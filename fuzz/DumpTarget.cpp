// The tool's look at a dump file of any bytes: what it says of it agrees with what the module's reader makes of it.

#include "fuzz/Endless.h"
#include "fuzz/Require.h"
#include "support/smbios/DumpSource.h"
#include "tools/vqinventory/Table.h"

#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

using namespace VQ;

namespace
{
// A file without a name, so that nothing is left behind.
std::string fileOf(const unsigned char* data, std::size_t size)
{
    static const int descriptor = memfd_create("dump", 0);
    if (ftruncate(descriptor, 0) != 0 || pwrite(descriptor, data, size, 0) != static_cast<ssize_t>(size))
        std::abort();
    return "/proc/self/fd/" + std::to_string(descriptor);
}

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
    const std::string file = fileOf(data, size);
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
