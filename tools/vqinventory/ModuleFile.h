#pragma once

#include <string>
#include <vector>

namespace VQ::Tool
{

/// The libraries that a shared library names as needed, from the table in its dynamic section, in the order of the
/// table. Nothing of the library is run or loaded. Empty for a file that is no shared library of this program's width.
std::vector<std::string> neededLibraries(const std::string& file);

/// The version that a module file names in its note. Empty where it has none.
std::string moduleVersion(const std::string& file);

}
