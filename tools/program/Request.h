#pragma once

#include "tools/core/Machine.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// What is asked of each machine.
struct Request
{
    enum Kind
    {
        Instances,
        Names, ///< the paths of the instances only
        Get    ///< the instance that `path` names
    };
    Kind kind = Instances;
    std::vector<std::string> classes; ///< empty: all that are served
    std::string path;
};

/// The classes of a request that names them, or all nine.
std::vector<std::string> classesOf(const Request& request);

/// What the program does for a class that is not served: which are, and which of them may be meant.
std::string classAdvice(const std::string& className);

/// Of machines that were asked before, what the request wants.
std::vector<Machine> chosen(std::vector<Machine> machines, const Request& request);

}
