#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include "ObjectPathParser.h"

#include <algorithm>

namespace Pegasus
{
namespace
{
const Char16 Quote('"');
const Char16 Backslash('\\');

String escaped(const String& value)
{
    if (value.find(Quote) == PEG_NOT_FOUND && value.find(Backslash) == PEG_NOT_FOUND)
        return value;
    String text;
    for (Uint32 i = 0; i < value.size(); ++i) {
        if (value[i] == Quote || value[i] == Backslash)
            text.append(Backslash);
        text.append(value[i]);
    }
    return text;
}

bool before(const CIMKeyBinding& a, const CIMKeyBinding& b)
{
    return String::compareNoCase(a.getName().getString(), b.getName().getString()) < 0;
}

void write(const CIMKeyBinding& key, String& text)
{
    text.append(key.getName().getString()).append(Char16('='));
    if (key.getType() == CIMKeyBinding::STRING || key.getType() == CIMKeyBinding::REFERENCE)
        text.append(Quote).append(escaped(key.getValue())).append(Quote);
    else
        text.append(escaped(key.getValue()));
}
}

CIMObjectPath::CIMObjectPath(const String& text)
{
    ObjectPathParser parser(text);
    host_ = parser.host();
    nameSpace_ = parser.nameSpace(host_.size() != 0);
    className_ = parser.className();
    setKeyBindings(parser.keyBindings());
}

CIMObjectPath::CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                             const Array<CIMKeyBinding>& keyBindings)
    : nameSpace_(nameSpace), className_(className)
{
    setHost(host);
    setKeyBindings(keyBindings);
}

void CIMObjectPath::setHost(const String& host)
{
    if (host.size() != 0 && !ObjectPathParser::legalHost(host))
        throw MalformedObjectNameException(host + String(": no legal host"));
    host_ = host;
}

void CIMObjectPath::setKeyBindings(const Array<CIMKeyBinding>& keyBindings)
{
    keyBindings_ = keyBindings;
    for (Uint32 i = 1; i < keyBindings.size(); ++i) {
        if (before(keyBindings[i], keyBindings[i - 1])) {
            CIMKeyBinding* const first = &keyBindings_[0];
            std::stable_sort(first, first + keyBindings_.size(), before);
            return;
        }
    }
}

String CIMObjectPath::toString() const
{
    String text;
    if (host_.size() != 0)
        text = String("//") + host_ + String("/");
    if (host_.size() != 0 || !nameSpace_.isNull())
        text.append(nameSpace_.getString()).append(Char16(':'));
    text.append(className_.getString());
    for (Uint32 i = 0; i < keyBindings_.size(); ++i) {
        text.append(Char16(i == 0 ? '.' : ','));
        write(keyBindings_[i], text);
    }
    return text;
}

Boolean operator==(const CIMObjectPath& a, const CIMObjectPath& b)
{
    return String::equalNoCase(a.getHost(), b.getHost()) && a.getNameSpace() == b.getNameSpace() &&
           a.getClassName() == b.getClassName() && a.getKeyBindings() == b.getKeyBindings();
}
}
