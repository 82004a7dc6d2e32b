#pragma once

#include <string>
#include <sys/types.h>

/// From this address on the memory device of a test's machine can't be read, but be mapped.
constexpr off_t HighMemory = 0x200000;

/// The machine that the module of this program sees while this lives: an SMBIOS table with every structure that it
/// reads, a virtualization probe, and a BMC.
class Machine
{
public:
    /// Where the table stands.
    enum class Place
    {
        Sysfs,      ///< in /sys/firmware/dmi/tables
        Memory,     ///< in /dev/mem
        MappedOnly, ///< in /dev/mem, at an address that can't be read but be mapped
    };

    explicit Machine(Place place);
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

private:
    std::string _directory;
};

/// The file that stands for this path of the machine. Allocates nothing.
const char* placeOf(const char* path);

/// The library that stands for this one: the test's own for the two that the module may load. Allocates nothing.
const char* libraryOf(const char* file);
