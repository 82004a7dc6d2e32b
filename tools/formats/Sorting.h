#pragma once

#include "tools/core/Machine.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// The columns that machines can be sorted by: "name", "memory"...
std::vector<std::string> sortColumns();

/// Sorts by one of these columns: numbers in a text by their value, so that 10 comes after 9, and letters without their
/// case. Machines of which it is not known come last; those that are alike stay in their order.
void sortMachines(std::vector<Machine>& machines, const std::string& column);

}
