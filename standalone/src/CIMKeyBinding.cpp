#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include "KeyNumber.h"

namespace Pegasus
{
namespace
{
CIMKeyBinding::Type keyTypeOf(CIMType type)
{
    switch (type) {
    case CIMTYPE_BOOLEAN:
        return CIMKeyBinding::BOOLEAN;
    case CIMTYPE_STRING:
    case CIMTYPE_DATETIME:
        return CIMKeyBinding::STRING;
    default:
        return CIMKeyBinding::NUMERIC;
    }
}

bool equalNumbers(const String& a, const String& b)
{
    KeyNumber first;
    KeyNumber second;
    return first.parse(a) && second.parse(b) && first == second;
}

bool equalPaths(const String& a, const String& b)
{
    try {
        return CIMObjectPath(a) == CIMObjectPath(b);
    } catch (const MalformedObjectNameException&) {
        return false;
    }
}
}

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const String& value, Type type)
    : name_(name), value_(value), type_(type)
{
}

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const CIMValue& value)
    : name_(name), value_(value.toString()), type_(keyTypeOf(value.getType()))
{
    if (value.isArray())
        throw TypeMismatchException();
}

Boolean operator==(const CIMKeyBinding& a, const CIMKeyBinding& b)
{
    if (a.getName() != b.getName() || a.getType() != b.getType())
        return false;
    if (a.getValue() == b.getValue())
        return true;
    switch (a.getType()) {
    case CIMKeyBinding::BOOLEAN:
        return String::equalNoCase(a.getValue(), b.getValue());
    case CIMKeyBinding::NUMERIC:
        return equalNumbers(a.getValue(), b.getValue());
    case CIMKeyBinding::REFERENCE:
        return equalPaths(a.getValue(), b.getValue());
    default:
        return false;
    }
}
}
