#pragma once

#include <string>

namespace VQ::Tool
{

/// A method that stops the machine.
struct PowerMethod
{
    const char* name;
    const char* effect; ///< what it would do, beginning with "would"
};

/// Null for a method that does nothing of the kind.
const PowerMethod* findPowerMethod(const std::string& name);

}
