#pragma once

#include "tools/core/Answer.h"

#include <nlohmann/json.hpp>

#include <string>

namespace VQ::Tool
{

using Json = nlohmann::ordered_json; ///< members in the order in which they are put in

/// Null, a scalar or an array; a datetime is its text.
Json toJson(const Value& value);

/// The document as it is printed: indented, and without a byte that a terminal would obey.
std::string written(const Json& json);

}
