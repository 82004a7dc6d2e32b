#pragma once

#include <string>
#include <vector>

namespace VQ
{

/// Entry point and structure table as a platform hands them over.
struct RawTables
{
    std::string origin;                    ///< the file that the entry point comes from, for error texts
    std::vector<unsigned char> entryPoint; ///< empty: the platform has no SMBIOS
    std::vector<unsigned char> structures;
};

/// Where the table comes from. Two libraries are built from this directory and differ only here: the machine itself
/// (HostSource.cpp), and a dump file (DumpSource.cpp). Throws SmBiosError when the table is there but can't be read.
RawTables readRawTables();

}
