#pragma once

#include "tools/core/Machine.h"

#include <string>

namespace VQ::Tool
{

/// One line for each different failure, with the classes that it befell: an unreadable table fails seven of them for
/// one reason.
std::string failureLines(const Machine& machine);

/// What a person must know of the answers: the notes and then the failures of each machine, with the machine's name
/// before them where there are several.
std::string complaintsOf(const std::vector<Machine>& machines, bool withNotes);

bool anyFailed(const std::vector<Machine>& machines);

}
