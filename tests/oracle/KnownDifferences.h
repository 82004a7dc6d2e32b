#pragma once

#include <set>
#include <string>
#include <vector>

/// A fact on which the module and dmidecode differ, and are to.
struct KnownDifference
{
    std::string fact;
    std::string ours;
    std::string theirs;
    std::string reason;
};

/// The differences for one dump, named without ".bin".
std::vector<KnownDifference> knownDifferences(const std::string& machine);

/// The dumps that have any.
std::set<std::string> machinesWithDifferences();
