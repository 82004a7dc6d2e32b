#include "tools/knowledge/Schema.h"

#include <strings.h>

namespace VQ::Tool
{

namespace
{
template <class Element> const Element* find(const List<Element>& list, const std::string& name)
{
    for (const Element& element : list) // names are literals; most differ in length already
        if (element.name.size() == name.size() && strcasecmp(element.name.data(), name.c_str()) == 0)
            return &element;
    return nullptr;
}
}

const SchemaClass* schemaClass(const std::string& name)
{
    return find(schemaClasses(), name);
}

const SchemaProperty* schemaProperty(const std::string& className, const std::string& name)
{
    const SchemaClass* owner = schemaClass(className);
    return owner ? find(owner->properties, name) : nullptr;
}

}
