#include "tools/vqinventory/CimAnswer.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMType.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <type_traits>

namespace VQ::Tool
{

using namespace Pegasus;

namespace
{
template <class Element> Scalar toScalar(const Element& element)
{
    if constexpr (std::is_same_v<Element, String>)
        return toText(element);
    else if constexpr (std::is_same_v<Element, CIMDateTime>)
        return DateTimeText{toText(element.toString())};
    else if constexpr (std::is_same_v<Element, Boolean>)
        return static_cast<bool>(element);
    else if (element < 0)
        return static_cast<std::int64_t>(element);
    else
        return static_cast<std::uint64_t>(element);
}

template <class Element> std::vector<Scalar> elementsOf(const CIMValue& value)
{
    std::vector<Scalar> scalars;
    if (!value.isArray()) {
        Element element{};
        value.get(element);
        scalars.push_back(toScalar(element));
        return scalars;
    }
    Array<Element> elements;
    value.get(elements);
    for (Uint32 i = 0; i < elements.size(); ++i)
        scalars.push_back(toScalar<Element>(elements[i]));
    return scalars;
}

std::vector<Scalar> elementsOf(const CIMValue& value)
{
    switch (value.getType()) {
    case CIMTYPE_BOOLEAN:
        return elementsOf<Boolean>(value);
    case CIMTYPE_UINT8:
        return elementsOf<Uint8>(value);
    case CIMTYPE_SINT8:
        return elementsOf<Sint8>(value);
    case CIMTYPE_UINT16:
        return elementsOf<Uint16>(value);
    case CIMTYPE_SINT16:
        return elementsOf<Sint16>(value);
    case CIMTYPE_UINT32:
        return elementsOf<Uint32>(value);
    case CIMTYPE_SINT32:
        return elementsOf<Sint32>(value);
    case CIMTYPE_UINT64:
        return elementsOf<Uint64>(value);
    case CIMTYPE_SINT64:
        return elementsOf<Sint64>(value);
    case CIMTYPE_STRING:
        return elementsOf<String>(value);
    case CIMTYPE_DATETIME:
        return elementsOf<CIMDateTime>(value);
    default:
        return {toText(value.toString())};
    }
}

// A numeric key is text in a path. What does not read as a decimal number stays text.
Scalar toNumber(const std::string& text)
{
    char* end = nullptr;
    errno = 0;
    if (!text.empty() && text[0] == '-') {
        const std::int64_t number = std::strtoll(text.c_str(), &end, 10);
        return errno == 0 && *end == '\0' ? Scalar(number) : Scalar(text);
    }
    const std::uint64_t number = std::strtoull(text.c_str(), &end, 10);
    return errno == 0 && *end == '\0' && !text.empty() ? Scalar(number) : Scalar(text);
}

Scalar toScalar(const CIMKeyBinding& key)
{
    const std::string text = toText(key.getValue());
    if (key.getType() == CIMKeyBinding::NUMERIC)
        return toNumber(text);
    if (key.getType() == CIMKeyBinding::BOOLEAN)
        return String::equalNoCase(key.getValue(), "true");
    return text;
}

bool isKey(const CIMName& property, const Array<CIMKeyBinding>& keys)
{
    for (Uint32 i = 0; i < keys.size(); ++i)
        if (keys[i].getName() == property)
            return true;
    return false;
}
}

std::string toText(const String& string)
{
    const CString bytes = string.getCString();
    return static_cast<const char*>(bytes);
}

Value toValue(const CIMValue& value)
{
    Value result;
    result.isNull = value.isNull();
    result.isArray = value.isArray();
    if (!result.isNull)
        result.elements = elementsOf(value);
    return result;
}

Instance toInstance(const CIMObjectPath& path)
{
    Instance result;
    result.className = toText(path.getClassName().getString());
    result.path = toText(path.toString());
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i)
        result.keys.push_back({toText(keys[i].getName().getString()), {false, false, {toScalar(keys[i])}}});
    return result;
}

Instance toInstance(const CIMInstance& instance)
{
    Instance result = toInstance(instance.getPath());
    const Array<CIMKeyBinding>& keys = instance.getPath().getKeyBindings();
    result.properties.reserve(instance.getPropertyCount());
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        result.properties.push_back(
            {{toText(property.getName().getString()), toValue(property.getValue())}, isKey(property.getName(), keys)});
    }
    return result;
}

}
