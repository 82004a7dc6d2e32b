#pragma once

#include <string>

namespace VQ
{

/// The system enclosure. Empty texts where the firmware does not tell.
class Chassis
{
public:
    std::string getManufacturer() const { return _manufacturer; }
    std::string getVersion() const { return _version; }
    std::string getSerialNumber() const { return _serialNumber; }
    std::string getAssetTag() const { return _assetTag; }

protected:
    std::string _manufacturer;
    std::string _version;
    std::string _serialNumber;
    std::string _assetTag;
};

/// The first enclosure of the SMBIOS table (type 3); an empty record when there is none. Throws SmBiosError when the
/// table is there but can't be read.
Chassis GetChassisInstance();

}
