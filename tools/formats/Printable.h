#pragma once

#include <string>

namespace VQ::Tool
{

/// The text, safe for a terminal: control characters (C0, DEL, C1), which a terminal would obey, and bytes that are no
/// UTF-8 appear as \xNN, the characters that turn the direction of writing, and so can make a line read as another
/// one, as \uNNNN. Firmware text may hold any byte.
std::string printable(const std::string& utf8);

}
