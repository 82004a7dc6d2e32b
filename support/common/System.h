#pragma once

#include "support/common/Export.h"

#include <string>

namespace VQ
{

/// Facts of the local host.
class VQ_EXPORT System
{
public:
    /// The host name: the kernel's node name (`uname`), read anew on every call; no name resolution. Empty when the
    /// kernel does not tell it.
    static std::wstring getName();
};

}
