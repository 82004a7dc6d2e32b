#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <string>
#include <vector>

// CIM objects as lines of text, so that a test's expectation reads like the table of a class.

std::string text(const Pegasus::String& string);

/// One line for each property in its order: `Tag | string | Chassis0`. An array shows its size and quotes its
/// elements: `ListOfLanguages | string[2] | "en" "de"`; a null value shows as `null`.
std::vector<std::string> propertyLines(const Pegasus::CIMInstance& instance);

/// One line for each key binding in the path's own order (by name): `Tag | STRING | Chassis0`.
std::vector<std::string> keyLines(const Pegasus::CIMObjectPath& path);

/// The value text of one property, as propertyLines shows it; "absent" when the instance has none of that name.
std::string valueOf(const Pegasus::CIMInstance& instance, const char* property);
