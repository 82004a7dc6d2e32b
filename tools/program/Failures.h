#pragma once

#include "tools/core/Machine.h"

#include <string>

namespace VQ::Tool
{

/// One line for each different failure, with the classes that it befell: an unreadable table fails seven of them for
/// one reason.
std::string failureLines(const Machine& machine);

}
