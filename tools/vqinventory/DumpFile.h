#pragma once

#include "tools/vqinventory/SharedLibrary.h"

#include <memory>
#include <string>

namespace VQ::Tool
{

/// The SMBIOS table of a machine, out of a file.
struct Dump
{
    std::string file;     ///< as it was named, by its full path; "-" for standard input
    std::string readable; ///< the file that the reader reads; another one where `file` had to be unpacked or completed
    std::string incomplete; ///< what a raw table does not tell; empty where there is an entry point
};

/// Takes a file in the form of `dmidecode --dump-bin`, the raw table as the kernel gives it in the file DMI (with the
/// entry point from the file smbios_entry_point beside it, where that is), either packed by gzip, or any of these from
/// standard input. What is not read as it stands goes into a file in memory, which lives as long as the process. Throws
/// LoadError. A table that is damaged further on is found by the module's own reader.
Dump openDump(const std::string& file);

/// Whether the file is one of these, and not saved answers. Throws LoadError where it can't be read.
bool isDump(const std::string& file);

/// Loads the reader library that serves a dump, from the directory `from-dump` beside the module, so that the loader
/// takes it for the module's own where the module is loaded afterwards. It must live longer than the module. Throws
/// LoadError.
class DumpReader
{
public:
    explicit DumpReader(const std::string& moduleFile);

    /// From now on the module reads this table.
    void serve(const Dump& dump) const;

private:
    SharedLibrary _library;
};

}
