#pragma once

#include <string>

namespace VQ::Tool
{

/// The time as it stands in what is written, in UTC: "2026-11-21T19:02:17Z". SOURCE_DATE_EPOCH (seconds since 1970)
/// fixes it, so that the same input gives the same bytes.
std::string currentTime();

}
