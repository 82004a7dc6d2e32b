#pragma once

#include "tools/core/Machine.h"

#include <optional>
#include <string>
#include <vector>

namespace VQ::Tool
{

struct PropertyChange
{
    std::string name;
    std::optional<Value> before; ///< nothing where the instance did not have the property
    std::optional<Value> after;
};

/// What became of an instance.
struct Change
{
    enum Kind
    {
        Added,
        Removed,
        Changed,
        Replaced ///< another piece of hardware stands in the same place: its serial number changed
    };
    Kind kind;
    std::string className;
    Instance instance; ///< as it is now; of a removed one as it was
    std::vector<PropertyChange> properties;
};

struct MachineComparison
{
    enum Kind
    {
        Same,
        Changed,
        Added, ///< there is no such machine before
        Removed
    };
    Kind kind = Same;
    std::string name;
    std::string timeBefore, timeAfter;
    std::vector<Change> changes;
    std::vector<std::string> notCompared; ///< classes that only one of the answers has, or that failed in one
};

struct Comparison
{
    std::string before, after; ///< what is compared: files, or this machine
    std::vector<MachineComparison> machines;
};

/// Compares machine by machine: by their names, or where there is one on each side, these two. Instances are the same
/// where their class and keys are, without the host name. What a dump does not hold is not compared. Values that always
/// move are left out unless `moving`; the time of the start is the same within a minute.
Comparison compareMachines(const std::vector<Machine>& before, const std::vector<Machine>& after, bool moving);

bool isSame(const Comparison& comparison);

/// What tells an instance from the others of its class: "Tag PCI 1"; empty where there is only one.
std::string keyText(const Instance& instance);

}
