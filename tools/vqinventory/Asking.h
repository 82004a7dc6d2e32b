#pragma once

#include "tools/core/Machine.h"
#include "tools/program/Request.h"
#include "tools/vqinventory/DumpFile.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// Asks the module of this machine; over dumps where there are some, each of which is a machine of its own. Of several,
/// what this machine's kernel tells is left out unless the request names its classes. Throws LoadError.
std::vector<Machine> ask(const std::string& moduleFile, const std::vector<Dump>& dumps, const Request& request);

/// The version of this program, as it stands in saved answers.
std::string toolVersion();

}
