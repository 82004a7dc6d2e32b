#pragma once

#include "tools/core/Answer.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace VQ::Tool
{

// From the types of the CIM library to those of Answer.h.

std::string toText(const Pegasus::String& string); ///< UTF-8

/// A type that no class of the inventory has (real, char16, reference, object) becomes its text.
Value toValue(const Pegasus::CIMValue& value);

Instance toInstance(const Pegasus::CIMInstance& instance);

/// Name and keys of an instance, without properties.
Instance toInstance(const Pegasus::CIMObjectPath& path);

}
