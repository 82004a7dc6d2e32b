#pragma once

#include "tools/core/Answer.h"

#include <string>

namespace VQ::Tool
{

/// The text of firmware as people read it, so that it can't be taken for what the tools write themselves: safe for a
/// terminal, a backslash doubled, and in quotes where it is empty, has blanks at its ends, or looks like such a word.
std::string quotedText(const std::string& text);

/// The value with its unit, its meaning and a readable date: "256 KB", "3 (L1)". A datetime begins with its readable
/// form where there is one and `plainDates` is set, and is in the form of CIM otherwise.
std::string valueText(const std::string& className, const std::string& property, const Scalar& value,
                      bool plainDates = false);

}
