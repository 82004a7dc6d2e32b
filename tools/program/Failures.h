#pragma once

#include "tools/core/Machine.h"

#include <string>

namespace VQ::Tool
{

/// What a person must know of the answers: the notes and then the failures of each machine, with the machine's name
/// before them where there are several.
std::string complaintsOf(const std::vector<Machine>& machines, bool withNotes);

bool anyFailed(const std::vector<Machine>& machines);

}
