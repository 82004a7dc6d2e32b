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

CIMValue numbered(const char* text, const Request& request)
{
    return cimValue(text + std::to_string(request.index));
}

CIMKeyBinding keyOf(const Property& property)
{
    const CIMName name = property.key->name ? CIMName(property.key->name) : property.name;
    return CIMKeyBinding(name, property.literal.isNull() ? String() : keyText(property.literal), property.key->type);
}

InstanceAssembly::InstanceAssembly(const CIMName& className, const Array<CIMKeyBinding>& keys)
    : _instance(className), _keys(keys)
{
}

void InstanceAssembly::add(const Property& property, const CIMValue& value)
{
    _instance.addProperty(CIMProperty(property.name, value, 0, _none, _none, false));
    if (!property.key)
        return;
    if (property.literal.isNull())
        _keys[_nextKey].setValue(keyText(value));
    ++_nextKey;
}

void InstanceAssembly::deliver(InstanceResponseHandler& handler)
{
    CIMObjectPath path = _instance.getPath();
    path.setKeyBindings(_keys);
    _instance.setPath(path);
    handler.deliver(_instance);
}

}
