#pragma once

#include "tools/core/Machine.h"
#include "tools/knowledge/Schema.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// A form of output: a function for each thing that it can write, whole lines; null for what it does not offer.
struct Format
{
    const char* name; ///< for --format
    std::string (*machines)(const std::vector<Machine>& machines);
    std::string (*names)(const std::vector<Machine>& machines); ///< the object paths only
    std::string (*result)(const MethodAnswer& answer);
};

/// All of them, the one that is used unless told first.
List<Format> formats();

/// Null when there is none of that name.
const Format* findFormat(const std::string& name);

// For people: one section for each class, key properties first and marked, units and the meaning of codes written out,
// nothing in it that a terminal would obey.
std::string machinesAsText(const std::vector<Machine>& machines);
std::string namesAsText(const std::vector<Machine>& machines); ///< a path on each line
std::string resultAsText(const MethodAnswer& answer);

// One object: class name -> array of {"path", "keys", "properties"}. A class that failed without delivering anything is
// left out.
std::string machinesAsJson(const std::vector<Machine>& machines);
std::string namesAsJson(const std::vector<Machine>& machines); ///< class name -> array of paths
std::string resultAsJson(const MethodAnswer& answer);          ///< {"class", "method", "ReturnValue"}

/// Instance declarations in the language of DMTF DSP0004.
std::string machinesAsMof(const std::vector<Machine>& machines);

}
