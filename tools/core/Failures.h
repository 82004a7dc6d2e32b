#pragma once

#include "tools/core/Machine.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// One line for each different failure, with its code and the classes that it befell: an unreadable table fails seven
/// of them for one reason. What befell the whole machine, and is no error of CIM, names no class.
std::vector<std::string> failureLines(const Machine& machine);

}
