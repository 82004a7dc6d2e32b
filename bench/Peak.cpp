// The most memory that the reader holds at once, over tables of a given number of structures: for each kind of
// structure a line "CLASS PEAK TABLE", in bytes.

#include "support/smbios/DumpSource.h"
#include "support/smbios/SmBios.h"
#include "tests/testing/LargeTables.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <malloc.h>
#include <new>
#include <string>
#include <unistd.h>

namespace
{
std::size_t held = 0;
std::size_t most = 0;
}

void* operator new(std::size_t size)
{
    void* memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    held += malloc_usable_size(memory);
    most = std::max(most, held);
    return memory;
}

void operator delete(void* memory) noexcept
{
    held -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace
{
std::size_t peakOfReading(std::size_t structures)
{
    const std::size_t before = held;
    most = held;
    const VQ::SmBios smBios;
    if (smBios.getTables().size() != structures) {
        std::fprintf(stderr, "peak: not all structures were read\n");
        std::exit(1);
    }
    return most - before;
}
}

int main(int count, char** values)
{
    const std::size_t structures = count == 2 ? std::strtoul(values[1], nullptr, 10) : 65535;
    const std::string file = "/tmp/vq-peak-" + std::to_string(getpid());
    for (const GrowingClass& growing : GrowingClasses) {
        const TableBuilder table = tableOf(growing, structures);
        const std::vector<unsigned char> dump = table.dump();
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(dump.data()), static_cast<std::streamsize>(dump.size()));
        vqServeSmBiosDump(file.c_str());
        std::printf("%s %zu %zu\n", growing.name, peakOfReading(structures), dump.size());
    }
    std::remove(file.c_str());
    return 0;
}
