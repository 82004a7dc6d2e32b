#pragma once

#include "tools/core/Answer.h"

#include <optional>
#include <string>

namespace VQ::Tool
{

/// An object path without what names the server: `//host:5988/root/cimv2:` and `host/root/cimv2:` before the class go.
std::string withoutServer(const std::string& path);

/// Class and keys of an object path: CLASS.KEY="VALUE",KEY=1,... Nothing where it is no such path.
std::optional<Instance> parsePath(const std::string& path);

/// Whether both name one instance: letter case of class and key names, and the order of the keys, do not count.
bool sameObject(const Instance& one, const Instance& other);

/// Whether it would be an object path with quotes around its values, which a shell takes away unless they are quoted
/// themselves.
bool lostItsQuotes(const std::string& path);

}
