#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus
{
/// One UTF-16 code unit. Compares and computes as the Uint16 it converts to.
class PEGASUS_EXPORT Char16
{
public:
    Char16() : unit_(0) {}
    Char16(Uint16 unit) : unit_(unit) {}

    operator Uint16() const { return unit_; }

private:
    Uint16 unit_;
};
}
