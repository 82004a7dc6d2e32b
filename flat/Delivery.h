#pragma once

#include "support/common/DateTime.h"

#include <cstdint>
#include <string>
#include <vector>

// How accessors hand over what is not a number. Buffers are not checked: the caller of the flat interface answers for
// their size.

namespace VQ
{

/// The text with its terminator.
void deliverText(char* buffer, const std::string& text);

/// The date as yyyymmddhhmmss.mmmmmm+ooo, with this offset from UTC in minutes. The six digits hold the milliseconds
/// unscaled, and the plus sign stands before a negative offset too (+-060).
void deliverDate(char* buffer, const DateTime& date, int offset);

/// The codes as a packed list of integers.
void deliverCodes(void* buffer, const std::vector<std::uint16_t>& codes);

}
