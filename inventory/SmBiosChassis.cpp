#include "inventory/SmBiosChassis.h"

#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

namespace VQ
{

SmBiosChassis::SmBiosChassis(const SmBios::Table& table)
{
    const TableType3 enclosure(table);
    _manufacturer = make_string(enclosure.getString(enclosure.getByte(0x04))); // Manufacturer
    _version = make_string(enclosure.getString(enclosure.getByte(0x06)));      // Version
    _serialNumber = make_string(enclosure.getString(enclosure.getByte(0x07))); // Serial Number
    _assetTag = make_string(enclosure.getString(enclosure.getByte(0x08)));     // Asset Tag Number
}

Chassis GetChassisInstance()
{
    const SmBios smBios;
    const auto& tables = smBios.getTables();
    // Counted in 8 bits on purpose: with 256 structures none is examined, with 257 only the first.
    const auto count = static_cast<std::uint8_t>(tables.size());
    for (std::uint8_t i = 0; i < count; ++i)
        if (tables[i].getType() == 3)
            return SmBiosChassis(tables[i]);
    return Chassis();
}

}
