#pragma once

#include "support/common/Export.h"
#include "support/common/Text.h" // make_string of narrow text: without it a null pointer would be taken for a CIM string

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <string>

namespace VQ
{

/// Narrow text (UTF-8, odd bytes as Latin-1, see support/common/Text.h) as a CIM string. Never throws for its content.
VQ_EXPORT Pegasus::String make_String(const std::string& text);

/// Wide text (UTF-32) as a CIM string; what is no Unicode character becomes U+FFFD.
VQ_EXPORT Pegasus::String make_String(const std::wstring& text);

/// A CIM string as UTF-8; an unpaired surrogate becomes U+FFFD.
VQ_EXPORT std::string make_string(const Pegasus::String& text);

}
