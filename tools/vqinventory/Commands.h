#pragma once

#include "tools/program/Output.h"
#include "tools/vqinventory/Arguments.h"

namespace VQ::Tool
{

/// Sends the requests that the arguments ask for and puts the answers into their format. A class that fails does not
/// cost the others their output.
Outcome runCommand(const Arguments& arguments);

}
