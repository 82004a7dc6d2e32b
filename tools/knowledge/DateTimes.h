#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace VQ::Tool
{

/// A CIM datetime as people write it: `2005-03-07 12:00:00 +01:00`, without what is unknown; empty when not even the
/// date is known. `dayOnly`: without the time.
std::string readableDateTime(const std::string& cimText, bool dayOnly = false);

/// Whether the datetime property tells a day, and nothing by its time.
bool isDayOnly(const std::string& property);

/// Seconds since 1970 in UTC; nothing where the datetime is an interval, or not known to the second.
std::optional<std::int64_t> secondsOf(const std::string& cimText);

}
