#pragma once

#include <string>

namespace VQ::Tool
{

/// The text without blanks at its ends; empty where makers of firmware leave such a text because they had none: "To Be
/// Filled By O.E.M.", "Default string", "Chassis Serial Number", "1234567890", "XXXXXXX" ...
std::string withoutPlaceholder(const std::string& text);

}
