// Writes the structures of the emulated machine that QEMU has no options for, one file each: QEMU counts a file as one
// structure.
#include "tests/testing/TableBuilder.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace
{
bool write(const std::string& file, const TableBuilder& table)
{
    const std::vector<unsigned char> bytes = table.structures();
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out.flush());
}

TableBuilder firstLevelCache()
{
    TableBuilder cache;
    cache.type(7).handle(0x0700).string(0x04, "L1 Cache");
    cache.word(0x05, 0x0180);                  // level 1, internal, enabled, write back
    cache.word(0x07, 64).word(0x09, 32);       // of 64 K at most, 32 K
    cache.word(0x0B, 0x0020).word(0x0D, 0x20); // synchronous
    cache.byte(0x0F, 3).byte(0x10, 4).byte(0x11, 4).byte(0x12, 7);
    return cache;
}

TableBuilder secondLevelCache()
{
    TableBuilder cache;
    cache.type(7).handle(0x0701).string(0x04, "L2 Cache");
    cache.word(0x05, 0x00A1);                    // level 2, external, enabled, write through
    cache.word(0x07, 0x8020).word(0x09, 0x8010); // in units of 64 K: of 2048 K at most, 1024 K
    cache.word(0x0B, 0x0008).word(0x0D, 0x0008); // burst
    cache.byte(0x0F, 9).byte(0x10, 5).byte(0x11, 5).byte(0x12, 8);
    return cache;
}

TableBuilder serialPort()
{
    TableBuilder port;
    port.type(8).handle(0x0800).string(0x04, "J2A1").byte(0x05, 0).string(0x06, " COM A ").byte(0x07, 8).byte(0x08, 9);
    return port;
}

TableBuilder internalPort()
{
    TableBuilder port;
    port.type(8).handle(0x0801).string(0x04, "J9").byte(0x05, 22).byte(0x06, 0).byte(0x07, 0).byte(0x08, 0xFF);
    return port;
}

TableBuilder slot(std::uint16_t handle, const std::string& designation)
{
    TableBuilder slot;
    slot.type(9).handle(handle).string(0x04, designation).byte(0x05, 6).byte(0x06, 5).byte(0x07, 3).byte(0x08, 3);
    slot.word(0x09, 1).byte(0x0B, 0x04);
    return slot;
}

TableBuilder configurationOptions()
{
    TableBuilder options;
    options.type(12).handle(0x0C00).byte(0x04, 2);
    options.string("JP2: 1-2 clears the settings").string("JP3: write protection");
    return options;
}

TableBuilder languages()
{
    TableBuilder language;
    language.type(13).handle(0x0D00).byte(0x04, 2).byte(0x05, 0).length(0x16).byte(0x15, 2);
    language.string("en|US|iso8859-1").string("de|DE|iso8859-1");
    return language;
}
}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: machine_structures DIRECTORY\n");
        return 2;
    }
    const std::string directory = std::string(argv[1]) + "/";
    const bool written =
        write(directory + "07-1.bin", firstLevelCache()) && write(directory + "07-2.bin", secondLevelCache()) &&
        write(directory + "08-1.bin", serialPort()) && write(directory + "08-2.bin", internalPort()) &&
        write(directory + "09-1.bin", slot(0x0900, "PCI 1")) && write(directory + "09-2.bin", slot(0x0901, "PCI 2")) &&
        write(directory + "12.bin", configurationOptions()) && write(directory + "13.bin", languages());
    if (!written)
        std::fprintf(stderr, "machine_structures: cannot write into %s\n", argv[1]);
    return written ? 0 : 1;
}
