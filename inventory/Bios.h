#pragma once

#include "support/common/DateTime.h"

#include <cstdint>
#include <string>
#include <vector>

namespace VQ
{

/// The system BIOS. Empty texts, zero numbers and a date of no day where the firmware does not tell.
class Bios
{
public:
    Bios();
    Bios(const Bios&);
    Bios& operator=(const Bios&);
    virtual ~Bios();

    std::string getVersion() const { return _version; }
    std::string getBuildNumber() const { return _buildNumber; }
    std::uint16_t getSmBiosMajorVersion() const { return _smBiosMajorVersion; } ///< of the entry point
    std::uint16_t getSmBiosMinorVersion() const { return _smBiosMinorVersion; } ///< of the entry point
    /// BIOS Starting Address Segment as it stands: a segment, not multiplied by 16
    unsigned long long getLoadedStartingAddress() const { return _loadedStartingAddress; }
    /// segment + (10000h - segment) * 16
    unsigned long long getLoadedEndingAddress() const { return _loadedEndingAddress; }
    std::string getManufacturer() const { return _manufacturer; }
    std::string getSerialNumber() const { return _serialNumber; } ///< of the system, type 1
    std::string getCurrentLanguage() const { return _currentLanguage; }
    std::vector<std::string> getLanguages() const { return _languages; }
    DateTime getReleaseDate() const { return _releaseDate; }

protected:
    std::string _version;
    std::string _buildNumber;
    std::uint16_t _smBiosMajorVersion = 0;
    std::uint16_t _smBiosMinorVersion = 0;
    unsigned long long _loadedStartingAddress = 0;
    unsigned long long _loadedEndingAddress = 0;
    std::string _manufacturer;
    std::string _serialNumber;
    std::string _currentLanguage;
    std::vector<std::string> _languages;
    DateTime _releaseDate;
};

/// The BIOS of this machine, from its SMBIOS table. Throws SmBiosError when the table is there but can't be read.
///
/// Does not return where the count of languages is 255. It is byte 04h of the language structure (type 13) and, on a
/// machine without one, of the structure that is read in its place: System Information (type 1), else BIOS Information
/// (type 0), where that byte is the number of the manufacturer's text.
Bios GetBiosInstance();

}
