#pragma once

#include "provider/Keys.h"
#include "support/common/DateTime.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VQ
{

/// Builds one instance, property by property in the order of the calls, and delivers it under the path that its own
/// key properties make. The path has no host and no namespace.
class InstanceAssembly
{
public:
    /// An instance of the class, named as the client wrote it.
    explicit InstanceAssembly(const Pegasus::String& requestedClass);

    // One overload for each CIM type that the classes publish.
    void add(const char* property, const char* value); ///< string
    void add(const char* property, const Pegasus::String& value);
    void add(const char* property, const std::string& value);               ///< string
    void add(const char* property, const std::wstring& value);              ///< string
    void add(const char* property, const std::vector<std::string>& values); ///< string array
    void add(const char* property, Pegasus::Boolean value);
    void add(const char* property, Pegasus::Sint16 value);
    void add(const char* property, Pegasus::Uint16 value);
    void add(const char* property, Pegasus::Uint32 value);
    void add(const char* property, Pegasus::Uint64 value);
    void add(const char* property, const std::vector<std::uint16_t>& values); ///< uint16 array
    void add(const char* property, const DateTime& value);                    ///< datetime
    void add(const char* property, const Pegasus::CIMValue& value);           ///< as it is; the value is shared

    /// Sets the path from the keys and hands the instance to the client. Throws what the CIM library throws when a key
    /// property was not added.
    void deliver(const Keys& keys, Pegasus::InstanceResponseHandler& handler);

private:
    Pegasus::CIMKeyBinding bind(const Key& key) const;

    Pegasus::CIMInstance _instance;
};

/// A number as CIM writes it, in decimal.
Pegasus::String cimText(Pegasus::Uint16 number);
Pegasus::String cimText(Pegasus::Uint32 number);

/// Texts as a string array.
Pegasus::CIMValue cimArray(const std::vector<std::string>& texts);

}
