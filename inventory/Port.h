#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace VQ
{

/// A port connector. Codes are those of the SMBIOS standard.
class Port
{
public:
    std::string getManufacturer() const { return _manufacturer; }                               ///< always empty
    std::string getModel() const { return _model; }                                             ///< always empty
    std::string getName() const { return _name; }                                               ///< always empty
    std::string getExternalReferenceDesignator() const { return _externalReferenceDesignator; } ///< blanks trimmed
    std::string getInternalReferenceDesignator() const { return _internalReferenceDesignator; } ///< blanks trimmed
    std::uint16_t getType() const { return _type; }
    /// Two connector types: the internal one, then the external one; 0 stands for none
    std::vector<std::uint16_t> getConnectors() const { return _connectors; }

protected:
    std::string _manufacturer;
    std::string _model;
    std::string _name;
    std::string _externalReferenceDesignator;
    std::string _internalReferenceDesignator;
    std::uint16_t _type = 0;
    std::vector<std::uint16_t> _connectors;
};

/// One record for each type 8 structure, in table order. Throws SmBiosError when the table is there but can't be read.
std::vector<Port> GetPortInstances();

}
