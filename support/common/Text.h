#pragma once

#include "support/common/Export.h"

#include <string>

namespace VQ
{

// Narrow text is UTF-8. A byte that is not part of valid UTF-8 stands for the Latin-1 character of its value, so that
// one odd byte in a firmware table never fails a request. Wide text is UTF-32.

/// The text as a string; empty for a null pointer.
VQ_EXPORT std::string make_string(const char* text);

/// Wide text as UTF-8. What is no Unicode character (a surrogate, a value past 10FFFFh) becomes U+FFFD.
VQ_EXPORT std::string make_string(const std::wstring& text);

/// Narrow text as wide text.
VQ_EXPORT std::wstring make_wstring(const std::string& text);

/// The text without leading and trailing blanks (" "). Text of nothing but blanks is left as it is.
VQ_EXPORT std::string trimBlanks(const std::string& text);

}
