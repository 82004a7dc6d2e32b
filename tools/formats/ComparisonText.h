#pragma once

#include "tools/core/Compare.h"

#include <optional>
#include <string>

namespace VQ::Tool
{

// The words of a comparison, shared by the formats for people.

const char* wordOf(Change::Kind kind);
const char* wordOf(MachineComparison::Kind kind);

/// The value with its unit and meaning; "(not there)" for none. Safe for a terminal.
std::string changedValueText(const std::string& className, const std::string& property,
                             const std::optional<Value>& value);

/// "2 changed, 1 added", or "no difference".
std::string countText(const Comparison& comparison);

}
