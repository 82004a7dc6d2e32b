#pragma once

#include <cstdint>
#include <string>

namespace VQ::Tool
{

// What a number means to people: units, and the texts of codes, as the schema has them.

/// "KiB", "ns", "minutes"...; empty for a property without unit.
std::string unitOf(const std::string& className, const std::string& property);

/// The text of a code: "L1" for the cache level 3; an address in hexadecimal; empty when there is nothing to say.
std::string meaningOf(const std::string& className, const std::string& property, std::uint64_t value);

/// A CIM datetime as people write it: `2005-03-07 12:00:00 +01:00`, without what is unknown; empty when not even the
/// date is known.
std::string readableDateTime(const std::string& cimText);

}
