#pragma once

#include "tools/Arguments.h"
#include "tools/Module.h"

#include <string>

namespace VQ::Tool
{

/// What a command prints, and how it went.
struct Outcome
{
    std::string output;
    std::string complaints; ///< for standard error, whole lines without the program's name
    bool failed = false;
};

/// Sends the requests that the arguments ask for and puts the answers into their format. A class that fails does not
/// cost the others their output.
Outcome runCommand(const Arguments& arguments, Module& module);

}
