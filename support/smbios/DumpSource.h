#pragma once

#include "support/common/Export.h"
#include "support/smbios/EntryPoint.h"
#include "support/smbios/Source.h"

namespace VQ
{

/// The longest dump file that is read, in bytes.
constexpr std::size_t MaxDumpSize = MaxEntryPointSize + MaxTableSize;

}

/// Names the dump file (the form of `dmidecode --dump-bin`) that readers serve from now on, in place of the machine's
/// own table. The file is read anew by every reader. An empty name stands for a machine without SMBIOS.
/// A reader throws SmBiosError where the file is not a regular one, or longer than MaxDumpSize.
extern "C" VQ_EXPORT void vqServeSmBiosDump(const char* file);
