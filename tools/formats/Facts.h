#pragma once

#include "tools/core/Machine.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// A property of a class, over all its instances.
struct Fact
{
    std::string name;
    bool isKey = false;
    std::vector<std::string> values; ///< each element of a list one; what all instances have, where they have the same
    bool differs = false;            ///< then there are no values here
};

/// The instances of a class as two tables: what is the same in all, and what is not.
struct Facts
{
    std::vector<Fact> facts;                         ///< every property, keys first
    std::vector<std::vector<std::string>> instances; ///< of those that differ, in the order of `facts`
};

/// The values are for people, and safe to show.
Facts factsOf(const Answer& answer);

}
