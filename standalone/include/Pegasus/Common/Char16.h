#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus
{
/// One UTF-16 code unit. Write Char16('x') to compare it with a character.
class PEGASUS_EXPORT Char16
{
public:
    Char16() : unit_(0) {}
    Char16(Uint16 unit) : unit_(unit) {}

    operator Uint16() const { return unit_; }

private:
    Uint16 unit_;
};

inline Boolean operator==(const Char16& a, const Char16& b)
{
    return Uint16(a) == Uint16(b);
}

inline Boolean operator!=(const Char16& a, const Char16& b)
{
    return Uint16(a) != Uint16(b);
}
}
