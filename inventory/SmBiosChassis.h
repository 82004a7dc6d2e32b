#pragma once

#include "inventory/Chassis.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads an enclosure from a type 3 structure.
class SmBiosChassis : public Chassis
{
public:
    explicit SmBiosChassis(const SmBios::Table& table);
};

}
