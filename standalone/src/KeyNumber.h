#pragma once

#include <Pegasus/Common/String.h>

namespace Pegasus
{
/// The number that a NUMERIC key's text stands for.
struct KeyNumber
{
    bool negative = false;
    Uint64 magnitude = 0;

    /// Reads decimal digits without leading zeros, or 0x and hexadecimal digits, after an optional sign.
    /// False where the text is anything else, or lies outside of Uint64 and Sint64.
    bool parse(const String& text);
};

inline bool operator==(const KeyNumber& a, const KeyNumber& b)
{
    return a.negative == b.negative && a.magnitude == b.magnitude;
}
}
