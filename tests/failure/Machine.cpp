#include "tests/failure/Machine.h"

#include "tests/testing/EntryPoints.h"
#include "tests/testing/TableBuilder.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>

namespace
{
std::string entryPointFile;
std::string tableFile;
std::string memoryFile;
std::string tablesDirectory;

void write(const std::string& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush())
        throw std::runtime_error("cannot write " + file);
}

// Texts of some length, so that each is an allocation of its own.
Bytes table()
{
    TableBuilder builder;
    builder.type(0).string(0x04, "A maker of some length").string(0x05, "Bios -[ABCDEFGHIJKLMNOPQR-1.05]-");
    builder.type(1).string(0x05, "A server of some length -[8837ABCDEFGHIJKLMNOP]-").string(0x07, "A serial number 1");
    builder.type(2).string(0x04, "A board's maker here").string(0x05, "A board of some length").length(0x0B);
    builder.type(3).string(0x04, "A chassis' maker here").length(0x09);
    builder.type(7).string(0x04, "A cache of some length").length(0x13);
    builder.type(8).string(0x04, "An internal designator").string(0x06, "An external designator").length(0x09);
    builder.type(9).string(0x04, "A slot of some length");
    builder.type(11).byte(0x04, 1).string("Diagnostics of some length -[XXYT01-1.02-of-some-length]-");
    builder.type(12).byte(0x04, 1).string("An option of some length");
    builder.type(13).byte(0x04, 1).byte(0x15, 1).string("en|US|iso8859-1 of some length");
    return builder.type(127).structures();
}

void placeInMemory(std::size_t address, const std::string& file)
{
    const Bytes structures = table();
    const Bytes entry = entryPoint64(address, static_cast<std::uint32_t>(structures.size()));
    constexpr std::size_t areaEnd = 0x100000;
    constexpr std::size_t entryAddress = 0xF0010;
    Bytes image(std::max(areaEnd, address + structures.size()));
    std::copy(entry.begin(), entry.end(), image.begin() + entryAddress);
    std::copy(structures.begin(), structures.end(), image.begin() + static_cast<long>(address));
    write(file, image);
}
}

Machine::Machine(Place place) : _directory(testing::TempDir() + "vq-failure-XXXXXX")
{
    if (!mkdtemp(_directory.data()))
        throw std::runtime_error("cannot create " + _directory);
    tablesDirectory = _directory + "/tables";
    entryPointFile = tablesDirectory + "/smbios_entry_point";
    tableFile = tablesDirectory + "/DMI";
    memoryFile = _directory + "/mem";
    if (place == Place::Sysfs) {
        std::filesystem::create_directory(tablesDirectory);
        const Bytes structures = table();
        write(entryPointFile, entryPoint32(0xE0000, static_cast<std::uint16_t>(structures.size()), 0xFFFF));
        write(tableFile, structures);
    } else {
        placeInMemory(place == Place::Memory ? 0xE1230 : HighMemory + 0x1230, memoryFile);
    }
}

Machine::~Machine()
{
    std::filesystem::remove_all(_directory);
    for (std::string* file : {&entryPointFile, &tableFile, &memoryFile, &tablesDirectory})
        file->clear();
}

const char* placeOf(const char* path)
{
    const struct
    {
        const char* path;
        const std::string& file;
    } places[] = {{"/sys/firmware/dmi/tables", tablesDirectory},
                  {"/sys/firmware/dmi/tables/smbios_entry_point", entryPointFile},
                  {"/sys/firmware/dmi/tables/DMI", tableFile},
                  {"/dev/mem", memoryFile}};
    for (const auto& each : places)
        if (!each.file.empty() && std::strcmp(path, each.path) == 0)
            return each.file.c_str();
    return path;
}

const char* libraryOf(const char* file)
{
    if (file && std::strcmp(file, "../lib/libqorxenprobe.so") == 0)
        return VQ_PROBE;
    if (file && std::strcmp(file, "libqoripmi.so") == 0)
        return VQ_IPMI;
    return file;
}
