#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus
{
namespace
{
bool isNameStart(Uint16 unit)
{
    return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') || unit == '_' ||
           (unit >= 0x80 && unit <= 0xFFEF);
}

bool isNamePart(Uint16 unit)
{
    return isNameStart(unit) || (unit >= '0' && unit <= '9');
}

const String& legalName(const String& name)
{
    if (!CIMName::legal(name))
        throw InvalidNameException(name);
    return name;
}

Uint32 leadingSlash(const String& name)
{
    return name.size() > 0 && name[0] == Char16('/') ? 1 : 0;
}

String legalNamespace(const String& name)
{
    if (!CIMNamespaceName::legal(name))
        throw InvalidNamespaceNameException(name);
    return name.subString(leadingSlash(name));
}
}

CIMName::CIMName(const String& name) : name_(legalName(name)) {}
CIMName::CIMName(const char* name) : CIMName(String(name)) {}

Boolean CIMName::legal(const String& name)
{
    if (name.size() == 0 || !isNameStart(name[0]))
        return false;
    for (Uint32 i = 1; i < name.size(); ++i) {
        if (!isNamePart(name[i]))
            return false;
    }
    return true;
}

Boolean operator==(const CIMName& a, const CIMName& b)
{
    return String::equalNoCase(a.getString(), b.getString());
}

Boolean operator!=(const CIMName& a, const CIMName& b)
{
    return !(a == b);
}

CIMNamespaceName::CIMNamespaceName(const String& name) : name_(legalNamespace(name)) {}
CIMNamespaceName::CIMNamespaceName(const char* name) : CIMNamespaceName(String(name)) {}

Boolean CIMNamespaceName::legal(const String& name)
{
    String rest = name.subString(leadingSlash(name));
    for (;;) {
        const Uint32 slash = rest.find('/');
        if (!CIMName::legal(rest.subString(0, slash)))
            return false;
        if (slash == PEG_NOT_FOUND)
            return true;
        rest = rest.subString(slash + 1);
    }
}

Boolean operator==(const CIMNamespaceName& a, const CIMNamespaceName& b)
{
    return String::equalNoCase(a.getString(), b.getString());
}
}
