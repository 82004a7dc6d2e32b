#pragma once

#include "tools/core/Answer.h"

#include <string>

namespace VQ::Tool
{

/// A method that stops the machine.
struct PowerMethod
{
    const char* name;
    const char* verb; ///< what it does to the machine: "stop"
    const char* how;  ///< "now, by running ..."
};

/// "would stop this machine now, by running ..."
std::string effectOn(const std::string& machine, const PowerMethod& method);

/// Null for a method that does nothing of the kind.
const PowerMethod* findPowerMethod(const std::string& name);

/// The kernel's refusal of a restart, which is delivered as a value and not as an error.
bool isRefusedRestart(const MethodAnswer& answer);

}
