#include "provider/PropertyTable.h"

#include <string>

namespace VQ
{

using namespace Pegasus;

namespace
{
// A string as it stands, anything else as CIM writes it.
String keyText(const CIMValue& value)
{
    if (value.getType() != CIMTYPE_STRING)
        return value.toString();
    String text;
    value.get(text);
    return text;
}
}

std::string numbered(const char* text, const Request& request)
{
    return text + std::to_string(request.index);
}

void Prototype::add(const Property& property, bool literal)
{
    instance.addProperty(CIMProperty(CIMName(property.name), property.value));
    if (property.key)
        keys.append(CIMKeyBinding(CIMName(property.key->name ? property.key->name : property.name),
                                  literal ? keyText(property.value) : String(), property.key->type));
}

void InstanceAssembly::begin()
{
    _instance = _prototype.instance.clone();
    _next = 0;
    _nextKey = 0;
}

void InstanceAssembly::keep(const Property& property)
{
    ++_next;
    if (property.key)
        ++_nextKey;
}

void InstanceAssembly::set(const Property& property, const CIMValue& value)
{
    if (value.isNull()) {
        _instance.removeProperty(_next);
        return;
    }
    _instance.getProperty(_next++).setValue(value);
    if (property.key)
        _keys[_nextKey++].setValue(keyText(value));
}

void InstanceAssembly::deliver(const CIMName& className, InstanceResponseHandler& handler)
{
    _instance.setPath(CIMObjectPath(String::EMPTY, CIMNamespaceName(), className, _keys));
    handler.deliver(_instance);
}

}
