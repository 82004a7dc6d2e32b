#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace VQ
{

/// A processor cache. Codes are those of the SMBIOS standard unless told otherwise.
class Cache
{
public:
    std::uint16_t getAssociativity() const { return _associativity; }
    std::uint16_t getErrorCorrectionType() const { return _errorCorrectionType; }
    std::uint16_t getLevel() const { return _level; }       ///< 3, 4, 5 for levels 1, 2, 3; 0 for any other
    std::uint16_t getLocation() const { return _location; } ///< 0 internal, 1 external, 3 unknown
    std::uint16_t getType() const { return _type; }
    /// 4 write through, 3 write back, 5 varies with memory address, 2 unknown
    std::uint16_t getWritePolicy() const { return _writePolicy; }
    std::uint32_t getSize() const { return _size; }               ///< installed, in kilobytes
    std::uint32_t getInstalledSize() const { return _size; }      ///< the same figure
    std::uint32_t getMaximumSize() const { return _maximumSize; } ///< in kilobytes
    std::uint32_t getSpeed() const { return _speed; }             ///< in nanoseconds, 0 when unknown
    /// The installed size in units of its own granularity (1 K or 64 K), not in kilobytes
    unsigned long long getNumberOfBlocks() const { return _numberOfBlocks; }
    std::string getDesignation() const { return _designation; }
    std::string getPurpose() const { return _purpose; }                                ///< the designation once more
    std::vector<std::uint16_t> getCurrentSramType() const { return _currentSramType; } ///< always empty
    std::vector<std::uint16_t> getSupportedSramType() const { return _supportedSramType; } ///< always empty

protected:
    std::uint16_t _associativity = 0;
    std::uint16_t _errorCorrectionType = 0;
    std::uint16_t _level = 0;
    std::uint16_t _location = 0;
    std::uint16_t _type = 0;
    std::uint16_t _writePolicy = 0;
    std::uint32_t _size = 0;
    std::uint32_t _maximumSize = 0;
    std::uint32_t _speed = 0;
    std::uint32_t _numberOfBlocks = 0;
    std::string _designation;
    std::string _purpose;
    std::vector<std::uint16_t> _currentSramType;
    std::vector<std::uint16_t> _supportedSramType;
};

/// One record for each type 7 structure, in table order. Throws SmBiosError when the table is there but can't be read.
std::vector<Cache> GetCacheInstances();

}
