#pragma once

#include "tools/vqinventory/Companions.h"
#include "tools/vqinventory/DumpFile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace VQ::Tool
{

/// A text that XML can't carry: a control character stands in it.
struct UnfitText
{
    std::string path; ///< of the instance
    std::string property;
    std::string text;
};

/// What the module answered when it was asked for a class.
struct ClassTrial
{
    std::string className;
    std::size_t instances = 0;
    double seconds = 0;
    std::optional<std::string> failure; ///< with the CIM status code
    std::vector<UnfitText> unfit;       ///< the first few
    std::size_t unfitCount = 0;         ///< all of them
};

/// The module, loaded and asked in a process of its own, which a damaged module may end.
struct Trial
{
    bool loaded = false;
    std::vector<ClassTrial> classes;        ///< those that were answered, in the order in which they were asked
    std::vector<CompanionTrial> companions; ///< the optional libraries, asked after the classes
    std::optional<std::string> failure;     ///< why the module could not be loaded, or how its process ended
};

/// Loads the module file, over a dump where there is one, and asks it for the instances of these classes.
Trial tryModule(const std::string& moduleFile, const std::optional<Dump>& dump,
                const std::vector<std::string>& classes);

}
