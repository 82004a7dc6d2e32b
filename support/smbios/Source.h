#pragma once

#include "support/smbios/Buffer.h"

#include <cstddef>
#include <string>

namespace VQ
{

/// Entry point and structure table as a platform hands them over.
struct RawTables
{
    std::string origin; ///< the file that the entry point comes from, for error texts
    Buffer entryPoint;  ///< empty: the platform has no SMBIOS
    Buffer structures;
};

/// The longest structure table that is read, in bytes: far more than the 65,536 structures that handles can tell apart
/// ever take. The length that a 64-bit entry point announces is only a maximum.
constexpr std::size_t MaxTableSize = 64u << 20;

/// Where the table comes from. Two libraries are built from this directory and differ only here: the machine itself
/// (HostSource.cpp), and a dump file (DumpSource.cpp). Throws SmBiosError when the table is there but can't be read.
RawTables readRawTables();

}
