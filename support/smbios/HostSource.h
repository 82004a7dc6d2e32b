#pragma once

#include "support/smbios/Source.h"

#include <string>

namespace VQ
{

/// Where Linux offers the table. Tests put files of their own in these places.
struct HostPaths
{
    std::string tablesDirectory = "/sys/firmware/dmi/tables"; ///< `smbios_entry_point` and `DMI`
    std::string memoryDevice = "/dev/mem";                    ///< where that directory does not exist
};

/// The table of this machine; nothing (an empty entry point) where it has none. Throws SmBiosError.
RawTables readHostTables(const HostPaths& paths);

}
