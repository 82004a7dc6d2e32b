#pragma once

#include "inventory/Firmware.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads a firmware element from OEM string number `index` (from 1) of a type 11 structure.
class SmBiosFirmware : public Firmware
{
public:
    SmBiosFirmware(const SmBios::Table& oemStrings, unsigned int index);
};

}
