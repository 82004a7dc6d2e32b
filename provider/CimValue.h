#pragma once

#include "support/common/DateTime.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VQ
{

// A fact as a value of the CIM type that the classes publish it as. One function for each type.

Pegasus::CIMValue cimValue(const std::string& value);               ///< string
Pegasus::CIMValue cimValue(const std::wstring& value);              ///< string
Pegasus::CIMValue cimValue(const std::vector<std::string>& values); ///< string array
Pegasus::CIMValue cimValue(Pegasus::Boolean value);
Pegasus::CIMValue cimValue(Pegasus::Sint16 value);
Pegasus::CIMValue cimValue(Pegasus::Uint16 value);
Pegasus::CIMValue cimValue(Pegasus::Uint32 value);
Pegasus::CIMValue cimValue(Pegasus::Uint64 value);
Pegasus::CIMValue cimValue(const std::vector<std::uint16_t>& values); ///< uint16 array
Pegasus::CIMValue cimValue(const DateTime& value);                    ///< datetime
Pegasus::CIMValue cimValue(const Pegasus::String& value);
Pegasus::CIMValue cimValue(const Pegasus::Array<Pegasus::String>& values);

/// Null for no value.
template <class Value> Pegasus::CIMValue cimValue(const std::optional<Value>& value)
{
    return value ? cimValue(*value) : Pegasus::CIMValue();
}

}
