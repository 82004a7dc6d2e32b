#include "KeyNumber.h"

namespace Pegasus
{
namespace
{
/// The value of a digit in `base`, which is 10 or 16; `base` for anything else.
Uint32 digitValue(Uint16 unit, Uint32 base)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    const Uint32 letter = unit | 0x20;
    return base == 16 && letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : base;
}
}

bool KeyNumber::parse(const String& text)
{
    Uint32 at = 0;
    negative = text[0] == Char16('-');
    if (negative || text[0] == Char16('+'))
        ++at;
    Uint32 base = 10;
    if (text.size() > at + 1 && text[at] == Char16('0')) {
        if ((text[at + 1] | 0x20) != 'x')
            return false;
        base = 16;
        at += 2;
    }
    if (at == text.size())
        return false;
    const Uint64 largest = negative ? Uint64(1) << 63 : ~Uint64(0);
    magnitude = 0;
    for (; at < text.size(); ++at) {
        const Uint32 digit = digitValue(text[at], base);
        if (digit == base || magnitude > (largest - digit) / base)
            return false;
        magnitude = magnitude * base + digit;
    }
    negative = negative && magnitude != 0;
    return true;
}
}
