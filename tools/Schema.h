#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace VQ::Tool
{

/// What the schema says of the values of a property. Made from the MOF when the tool is built.
struct SchemaProperty
{
    const char* className;
    const char* name;
    const char* unit;                           ///< PUnit, else Units; empty when it has none
    std::map<std::uint64_t, const char*> codes; ///< the texts of the codes
    const char* otherwise;                      ///< the text of every other code; empty when it has none
};

/// The properties with a unit or with codes.
const std::vector<SchemaProperty>& schemaProperties();

}
