#pragma once

#include "inventory/Port.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads a port connector from a type 8 structure.
class SmBiosPort : public Port
{
public:
    explicit SmBiosPort(const SmBios::Table& table);
};

}
