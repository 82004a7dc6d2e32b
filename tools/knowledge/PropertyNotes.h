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

}
