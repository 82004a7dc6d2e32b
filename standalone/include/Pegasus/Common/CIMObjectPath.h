#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace Pegasus
{
/// One key of an object path: a name, a value as text, and what kind of text it is.
class PEGASUS_EXPORT CIMKeyBinding
{
public:
    enum Type
    {
        BOOLEAN,
        STRING,
        NUMERIC,
        REFERENCE
    };

    CIMKeyBinding() = default;
    CIMKeyBinding(const CIMName& name, const String& value, Type type);
    /// The key a property makes: a Boolean, a number, or else text. Throws TypeMismatchException for an array.
    CIMKeyBinding(const CIMName& name, const CIMValue& value);

    const CIMName& getName() const { return name_; }
    void setName(const CIMName& name) { name_ = name; }
    const String& getValue() const { return value_; }
    void setValue(const String& value) { value_ = value; }
    Type getType() const { return type_; }
    void setType(Type type) { type_ = type; }

private:
    CIMName name_;
    String value_;
    Type type_ = STRING;
};

/// The same name, type and value: strings as they are, Booleans without case, numbers by value (decimal or
/// hexadecimal, with a sign), references as paths. What is no number or no path compares as it is written.
PEGASUS_EXPORT Boolean operator==(const CIMKeyBinding& a, const CIMKeyBinding& b);

/// The name of a class or an instance, with value semantics: //host/namespace:Class.key="value",...
/// Its keys are kept sorted by name, without case.
class PEGASUS_EXPORT CIMObjectPath
{
public:
    CIMObjectPath() = default;
    /// Reads a path; host, namespace and keys may be absent. A quoted value that is itself a path with keys is a
    /// REFERENCE. Throws MalformedObjectNameException for anything else.
    CIMObjectPath(const String& text);
    /// Throws MalformedObjectNameException for a host that is no host name or address with an optional port.
    CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                  const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());

    const String& getHost() const { return host_; }
    void setHost(const String& host);
    const CIMNamespaceName& getNameSpace() const { return nameSpace_; }
    void setNameSpace(const CIMNamespaceName& nameSpace) { nameSpace_ = nameSpace; }
    const CIMName& getClassName() const { return className_; }
    void setClassName(const CIMName& className) { className_ = className; }
    const Array<CIMKeyBinding>& getKeyBindings() const { return keyBindings_; }
    void setKeyBindings(const Array<CIMKeyBinding>& keyBindings);

    String toString() const;

private:
    String host_;
    CIMNamespaceName nameSpace_;
    CIMName className_;
    Array<CIMKeyBinding> keyBindings_;
};

/// Equal in every part; host, namespace, class and key names without case.
PEGASUS_EXPORT Boolean operator==(const CIMObjectPath& a, const CIMObjectPath& b);
}
