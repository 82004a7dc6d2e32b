#include "inventory/SmBiosChassis.h"

#include "inventory/Selection.h"
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
    const SmBios::Table* enclosure = firstCountedIn8Bits(smBios, 3);
    if (!enclosure)
        return Chassis();
    return SmBiosChassis(*enclosure);
}

}
