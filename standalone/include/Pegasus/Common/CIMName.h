#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace Pegasus
{
/// The name of a class, a property, a method or a key. It keeps its letters as given and compares without case.
/// The default is the null name, the only one that is empty.
class PEGASUS_EXPORT CIMName
{
public:
    CIMName() = default;
    /// Throws InvalidNameException for a text that is not legal.
    CIMName(const String& name);
    CIMName(const char* name);

    const String& getString() const { return name_; }
    Boolean isNull() const { return name_.size() == 0; }

    /// True for a letter, an underscore or a character from U+0080 to U+FFEF, followed by such or by digits.
    static Boolean legal(const String& name);

private:
    String name_;
};

PEGASUS_EXPORT Boolean operator==(const CIMName& a, const CIMName& b);
PEGASUS_EXPORT Boolean operator!=(const CIMName& a, const CIMName& b);

/// The name of a namespace: legal names joined by slashes ("root/cimv2"), compared without case.
/// The default is the null name.
class PEGASUS_EXPORT CIMNamespaceName
{
public:
    CIMNamespaceName() = default;
    /// One leading slash is dropped. Throws InvalidNamespaceNameException for a text that is not legal.
    CIMNamespaceName(const String& name);
    CIMNamespaceName(const char* name);

    const String& getString() const { return name_; }
    Boolean isNull() const { return name_.size() == 0; }

    static Boolean legal(const String& name);

private:
    String name_;
};

PEGASUS_EXPORT Boolean operator==(const CIMNamespaceName& a, const CIMNamespaceName& b);
}
