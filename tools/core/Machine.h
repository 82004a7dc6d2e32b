#pragma once

#include "tools/core/Answer.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// A machine with its answers: what every source gives, and what is compared, summarized and written.
struct Machine
{
    std::string name;
    std::vector<Answer> answers; ///< in the order in which they were asked for
};

}
