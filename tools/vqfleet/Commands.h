#pragma once

#include "tools/program/Output.h"
#include "tools/vqfleet/Arguments.h"

namespace VQ::Tool
{

/// Does what the command line asks for. Throws LoadError and UsageError.
Outcome runCommand(const Arguments& arguments);

}
