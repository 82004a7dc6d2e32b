#pragma once

#include "tools/core/Machine.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

// Machines in a file: one JSON document for one of them as for many, described in docs/inventory.schema.json.

/// The document, readable for people too; control characters stand in it as \uNNNN.
std::string savedMachines(const std::vector<Machine>& machines);

/// The machines of a document. Throws std::runtime_error that says what is wrong with it; where there are only the
/// paths of the instances in it, too, unless they are all that is wanted.
std::vector<Machine> readMachines(const std::string& document, bool pathsWillDo = false);

}
