#pragma once

#include "tools/core/Machine.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// The machines that were saved by --format json in these files (or on standard input), packed by gzip or not. Throws
/// LoadError.
std::vector<Machine> readSavedFiles(const std::vector<std::string>& files, bool pathsWillDo = false);

/// The same of a file's content.
std::vector<Machine> readSavedText(const std::string& text, const std::string& file, bool pathsWillDo = false);

/// Machines of one name get the file or address that they come from added to it, or a number.
void makeNamesDiffer(std::vector<Machine>& machines);

constexpr std::uintmax_t MaxSavedSize = 1u << 30; ///< bytes of a file with saved answers, unpacked

}
