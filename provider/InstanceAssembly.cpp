#include "provider/InstanceAssembly.h"

#include "support/pegasus/CimDateTime.h"
#include "support/pegasus/CimText.h"

namespace VQ
{

using namespace Pegasus;

InstanceAssembly::InstanceAssembly(const String& requestedClass) : _instance(CIMName(requestedClass)) {}

void InstanceAssembly::add(const char* property, const char* value)
{
    add(property, CIMValue(String(value)));
}

void InstanceAssembly::add(const char* property, const String& value)
{
    add(property, CIMValue(value));
}

void InstanceAssembly::add(const char* property, const std::string& value)
{
    add(property, CIMValue(make_String(value)));
}

void InstanceAssembly::add(const char* property, const std::wstring& value)
{
    add(property, CIMValue(make_String(value)));
}

void InstanceAssembly::add(const char* property, const std::vector<std::string>& values)
{
    add(property, cimArray(values));
}

void InstanceAssembly::add(const char* property, Boolean value)
{
    add(property, CIMValue(value));
}

void InstanceAssembly::add(const char* property, Sint16 value)
{
    add(property, CIMValue(value));
}

void InstanceAssembly::add(const char* property, Uint16 value)
{
    add(property, CIMValue(value));
}

void InstanceAssembly::add(const char* property, Uint32 value)
{
    add(property, CIMValue(value));
}

void InstanceAssembly::add(const char* property, Uint64 value)
{
    add(property, CIMValue(value));
}

void InstanceAssembly::add(const char* property, const std::vector<std::uint16_t>& values)
{
    Array<Uint16> numbers;
    for (const std::uint16_t value : values)
        numbers.append(value);
    add(property, CIMValue(numbers));
}

void InstanceAssembly::add(const char* property, const DateTime& value)
{
    add(property, CIMValue(make_CIMDateTime(value)));
}

void InstanceAssembly::add(const char* property, const CIMValue& value)
{
    _instance.addProperty(CIMProperty(CIMName(property), value, 0, CIMName(), CIMName(), false));
}

CIMKeyBinding InstanceAssembly::bind(const Key& key) const
{
    CIMKeyBinding binding;
    binding.setName(CIMName(key.name));
    // Looked up by the binding's name, whose letter case may differ from the property's.
    const CIMConstProperty property = _instance.getProperty(_instance.findProperty(binding.getName()));
    binding.setValue(property.getValue().toString());
    binding.setType(key.type);
    return binding;
}

void InstanceAssembly::deliver(const Keys& keys, InstanceResponseHandler& handler)
{
    CIMObjectPath path = _instance.getPath();
    Array<CIMKeyBinding> bindings;
    for (const Key& key : keys)
        if (key.name)
            bindings.append(bind(key));
    path.setKeyBindings(bindings);
    _instance.setPath(path);
    handler.deliver(_instance);
}

String cimText(Uint16 number)
{
    return CIMValue(number).toString();
}

String cimText(Uint32 number)
{
    return CIMValue(number).toString();
}

CIMValue cimArray(const std::vector<std::string>& texts)
{
    Array<String> array;
    for (const std::string& text : texts)
        array.append(make_String(text));
    return CIMValue(array);
}

}
