#pragma once

#include "support/smbios/SmBios.h"

#include <cstdint>
#include <vector>

// The ways in which readers go through the structures of the table.

namespace VQ
{

/// One record for each structure of the type, in table order, read by `Reader`. Throws SmBiosError when the table is
/// there but can't be read.
template <class Record, class Reader> std::vector<Record> recordsOf(std::uint8_t type)
{
    std::vector<Record> records;
    const SmBios smBios{type};
    records.reserve(smBios.getTables().size());
    for (const SmBios::Table& table : smBios.getTables())
        records.push_back(Reader(table));
    return records;
}

/// The first structure of the type among as many as the last 8 bits of their number say: of 256 structures none is
/// examined, of 257 only the first. Null where there is none. Valid while the reader lives.
const SmBios::Table* firstCountedIn8Bits(const SmBios& smBios, std::uint8_t type);

}
