#pragma once

#include "inventory/Cache.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads a cache from a type 7 structure.
class SmBiosCache : public Cache
{
public:
    explicit SmBiosCache(const SmBios::Table& table);
};

}
