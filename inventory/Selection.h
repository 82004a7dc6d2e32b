#pragma once

#include "support/smbios/SmBios.h"

#include <algorithm>
#include <cstddef>
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
    const SmBios smBios;
    const auto isOfType = [type](const SmBios::Table& table) { return table.getType() == type; };
    const std::vector<SmBios::Table>& tables = smBios.getTables();
    records.reserve(static_cast<std::size_t>(std::count_if(tables.begin(), tables.end(), isOfType)));
    for (const SmBios::Table& table : tables)
        if (isOfType(table))
            records.push_back(Reader(table));
    return records;
}

/// The first structure of the type among as many as the last 8 bits of their number say: of 256 structures none is
/// examined, of 257 only the first. Null where there is none. Valid while the reader lives.
const SmBios::Table* firstCountedIn8Bits(const SmBios& smBios, std::uint8_t type);

}
