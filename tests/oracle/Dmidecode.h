#pragma once

#include <string>
#include <vector>

// What Debian's `dmidecode --from-dump` prints, taken apart.

/// One structure as dmidecode prints it.
struct DmidecodeStructure
{
    /// A line `Key: value`, and the indented lines below it.
    struct Line
    {
        std::string key;
        std::string value;
        std::vector<std::string> list;
    };
    int type = 0;
    std::vector<Line> lines;

    /// The first line of this key; null when there is none.
    const Line* find(const std::string& key) const;
};

struct DmidecodeOutput
{
    std::string version; ///< as in "SMBIOS 2.6 present." or "SMBIOS 3.3.0 present."
    std::vector<DmidecodeStructure> structures;

    std::vector<DmidecodeStructure> ofType(int type) const;
};

/// True when the program is installed.
bool haveDmidecode();

/// Runs the program over a dump. Throws std::runtime_error when it fails.
DmidecodeOutput dmidecode(const std::string& dumpFile);

/// One structure as `--dump` prints it: "Handle 0x0100, DMI type 1, 27 bytes", the formatted area in hexadecimal, and
/// each string in hexadecimal with its final zero.
using DmidecodeBytes = std::vector<std::string>;

/// The same run, for the bytes of the structures.
std::vector<DmidecodeBytes> dmidecodeBytes(const std::string& dumpFile);
