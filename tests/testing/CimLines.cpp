#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

using namespace Pegasus;

namespace
{
std::string elementText(const String& element)
{
    return '"' + text(element) + '"';
}

std::string elementText(Uint16 element)
{
    return std::to_string(element);
}

template <class Element> std::string arrayText(const CIMValue& value)
{
    Array<Element> elements;
    value.get(elements);
    std::string all;
    for (Uint32 i = 0; i < elements.size(); ++i)
        all += (i ? " " : "") + elementText(elements[i]);
    return all;
}

std::string valueText(const CIMValue& value)
{
    if (value.isNull())
        return "null";
    if (!value.isArray())
        return text(value.toString());
    return value.getType() == CIMTYPE_STRING ? arrayText<String>(value) : arrayText<Uint16>(value);
}

std::string typeText(const CIMValue& value)
{
    const std::string type = cimTypeToString(value.getType());
    return value.isArray() ? type + "[" + std::to_string(value.getArraySize()) + "]" : type;
}

const char* typeText(CIMKeyBinding::Type type)
{
    switch (type) {
    case CIMKeyBinding::STRING:
        return "STRING";
    case CIMKeyBinding::NUMERIC:
        return "NUMERIC";
    case CIMKeyBinding::BOOLEAN:
        return "BOOLEAN";
    default:
        return "REFERENCE";
    }
}
}

std::string text(const String& string)
{
    const CString bytes = string.getCString();
    return static_cast<const char*>(bytes);
}

std::vector<std::string> propertyLines(const CIMInstance& instance)
{
    std::vector<std::string> lines;
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        const CIMValue& value = property.getValue();
        lines.push_back(text(property.getName().getString()) + " | " + typeText(value) + " | " + valueText(value));
    }
    return lines;
}

std::vector<std::string> keyLines(const CIMObjectPath& path)
{
    std::vector<std::string> lines;
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i)
        lines.push_back(text(keys[i].getName().getString()) + " | " + typeText(keys[i].getType()) + " | " +
                        text(keys[i].getValue()));
    return lines;
}

std::string valueOf(const CIMInstance& instance, const char* property)
{
    const Uint32 position = instance.findProperty(CIMName(property));
    if (position == PEG_NOT_FOUND)
        return "absent";
    const CIMConstProperty found = instance.getProperty(position);
    return valueText(found.getValue());
}
