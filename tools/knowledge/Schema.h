#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace VQ::Tool
{

/// Elements of a constant table.
template <class Element> struct List
{
    const Element* first;
    std::size_t count;

    const Element* begin() const { return first; }
    const Element* end() const { return first + count; }
    std::size_t size() const { return count; }
};

// What the schema says of the classes. Made from the MOF when the tools are built.

struct SchemaCode
{
    std::uint64_t code;
    const char* text;
};

struct SchemaProperty
{
    std::string_view name;
    const char* type; ///< of CIM: "uint16", "string", "datetime"...; of a list: of its elements
    bool isList;
    bool isKey;
    const char* unit; ///< PUnit, else Units; empty when it has none
    const char* description;
    List<SchemaCode> codes;
    const char* otherwise; ///< the text of every other code; empty when it has none
};

struct SchemaClass
{
    std::string_view name;
    const char* description;
    List<SchemaProperty> properties;
};

List<SchemaClass> schemaClasses();

/// The class of that name in any letter case; null when the schema has none.
const SchemaClass* schemaClass(const std::string& name);

/// The property of that name in any letter case; null when the class has none, or there is no such class.
const SchemaProperty* schemaProperty(const std::string& className, const std::string& name);

}
