#pragma once

#include "tools/Answer.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

// The output of every command in every format that it has, whole lines.

/// For people: one section for each class, key properties first and marked, units and the meaning of codes written
/// out, nothing in it that a terminal would obey.
std::string instancesAsText(const std::vector<Answer>& answers);
std::string namesAsText(const std::vector<Answer>& answers); ///< a path on each line
std::string resultAsText(const MethodAnswer& answer);

/// One object: class name -> array of {"path", "keys", "properties"}. A class that failed without delivering anything
/// is left out.
std::string instancesAsJson(const std::vector<Answer>& answers);
std::string namesAsJson(const std::vector<Answer>& answers); ///< class name -> array of paths
std::string resultAsJson(const MethodAnswer& answer);        ///< {"class", "method", "ReturnValue"}

/// Instance declarations in the language of DMTF DSP0004.
std::string instancesAsMof(const std::vector<Answer>& answers);

}
