#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Config.h>

#include <string>
#include <vector>

namespace VQ
{

/// A firmware element other than the system BIOS.
class Firmware
{
public:
    Firmware();
    Firmware(const Firmware&);
    Firmware& operator=(const Firmware&);
    virtual ~Firmware();

    std::string getName() const { return _name; }
    void setName(std::string name);
    std::string getVersion() const { return _version; }
    void setVersion(std::string version);
    Pegasus::CIMDateTime getReleaseDate() const { return _releaseDate; } ///< always the CIM default, an interval of 0
    std::string getManufacturer() const { return _manufacturer; }
    void setManufacturer(std::string manufacturer);
    std::string getSerialNumber() const { return _serialNumber; } ///< always empty
    std::string getBuildNumber() const { return _buildNumber; }

protected:
    std::string _name;
    std::string _version;
    Pegasus::CIMDateTime _releaseDate;
    std::string _manufacturer;
    std::string _serialNumber;
    std::string _buildNumber;
};

/// The firmware that the SMBIOS OEM strings (type 11) announce, in table order, then the BMC's. Throws SmBiosError
/// when the table is there but can't be read, and std::out_of_range for an OEM string whose architected data is a
/// single character.
std::vector<Firmware> GetFirmwareInstances();

}
