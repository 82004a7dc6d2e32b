#pragma once

#include <cstdint>
#include <map>

namespace VQ::Tool
{

/// The text of each code of an enumerated property.
using CodeTexts = std::map<std::uint64_t, const char*>;

extern const CodeTexts UnknownWhenZero; ///< a quantity, not a code: 0 stands for unknown

// Of the CIM schema, as far as the provider gives them.
extern const CodeTexts SoftwareElementStates;
extern const CodeTexts OperatingSystems;
extern const CodeTexts CacheLevels;
extern const CodeTexts CacheWritePolicies;

extern const CodeTexts VirtualTypes; ///< the provider's own

// Of the SMBIOS standard, DMTF DSP0134.
extern const CodeTexts CacheLocations;       ///< Cache Configuration, bits 5 and 6 (type 7, 05h)
extern const CodeTexts CacheTypes;           ///< System Cache Type (type 7, 11h)
extern const CodeTexts CacheAssociativities; ///< Associativity (type 7, 12h)
extern const CodeTexts ConnectorTypes;       ///< Connector Type (type 8, 05h and 07h)
extern const CodeTexts PortTypes;            ///< Port Type (type 8, 08h)

}
