#pragma once

#include <string>

namespace VQ::Tool
{

// Texts in XML. What a reader of XML offers for them loses what CIM servers send although XML forbids it: references to
// control characters, and to the two halves of a character beyond U+FFFF.

/// The text with the characters escaped that stand for markup, and those below U+0020 as references.
std::string escapedXml(const std::string& text);

/// The text that stands between tags or in an attribute's quotes: its references are replaced by the characters that
/// they name. Throws std::runtime_error for an entity that XML does not define itself, and for a reference that names
/// no character.
std::string unescapedXml(const std::string& raw);

/// The text in UTF-8: a byte that is none becomes the Latin-1 character of that value.
std::string validUtf8(const std::string& text);

}
