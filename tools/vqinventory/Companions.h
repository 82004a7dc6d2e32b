#pragma once

#include <string>
#include <vector>

namespace VQ::Tool
{

/// What is to be said of an optional library of the module.
struct CompanionTrial
{
    enum Kind
    {
        Good,
        Note,
        Problem
    };
    Kind kind;
    std::string text; ///< begins with what it is about, and a colon
};

/// Loads the optional libraries, each as this module would, and asks them: that of the BMC, and that of Xen. Call it in
/// a process and a directory in which the module could be loaded: what they do is theirs.
std::vector<CompanionTrial> tryCompanions(const std::string& moduleFile);

}
