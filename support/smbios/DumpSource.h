#pragma once

#include "support/common/Export.h"

/// Names the dump file (the form of `dmidecode --dump-bin`) that readers serve from now on, in place of the machine's
/// own table. The file is read anew by every reader. An empty name stands for a machine without SMBIOS.
extern "C" VQ_EXPORT void vqServeSmBiosDump(const char* file);
