#include "inventory/SmBiosFirmware.h"

#include "inventory/ArchitectedData.h"
#include "inventory/IpmiFirmware.h"
#include "support/common/ProductName.h"
#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

#include <algorithm>
#include <array>

namespace VQ
{

namespace
{
// The two-character codes of firmware elements, at positions 2 and 3 of an OEM string's architected data.
const std::array<std::string, 4> FirmwareCodes = {"YT", "ET", "8T", "E2"};

bool announcesFirmware(const std::string& architected)
{
    if (architected.empty())
        return false;
    // A single character has no position 2: substr throws std::out_of_range, which ends the whole list. Callers are
    // told of it (flat/systemprovider.h): a list that can't be read fails, it is never a list that lacks an element.
    const std::string code = architected.substr(2, 2);
    return std::find(FirmwareCodes.begin(), FirmwareCodes.end(), code) != FirmwareCodes.end();
}

void appendFirmware(std::vector<Firmware>& firmwares, const TableType11& oemStrings)
{
    const unsigned count = oemStrings.getByte(0x04); // Count
    for (unsigned i = 1; i <= count; ++i) {
        const ProductName name(make_string(oemStrings.getString(static_cast<unsigned char>(i))));
        if (announcesFirmware(name.getArchitectedData()))
            firmwares.push_back(SmBiosFirmware(oemStrings, i));
    }
}
}

SmBiosFirmware::SmBiosFirmware(const SmBios::Table& oemStrings, unsigned int index)
{
    const TableType11 table(oemStrings);
    const ProductName name(make_string(table.getString(static_cast<unsigned char>(index))));
    const ArchitectedVersion parts = splitArchitectedVersion(name.getArchitectedData());
    _manufacturer = "QOR";
    _name = trimBlanks(name.getUnarchitectedData());
    _buildNumber = parts.buildNumber;
    _version = parts.version;
}

std::vector<Firmware> GetFirmwareInstances()
{
    std::vector<Firmware> firmwares;
    const SmBios smBios{11};
    for (const SmBios::Table& table : smBios.getTables())
        appendFirmware(firmwares, TableType11(table));
    for (const Firmware& firmware : getIpmiFirmwareInstances())
        firmwares.push_back(firmware);
    return firmwares;
}

}
