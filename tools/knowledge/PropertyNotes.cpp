#include "tools/knowledge/PropertyNotes.h"

#include "tools/knowledge/Schema.h"

#include <cstdio>
#include <map>

namespace VQ::Tool
{

namespace
{
// How people write the units of the schema.
const std::map<std::string, const char*> UnitTexts = {
    {"KiloBytes", "KB"},  {"byte * 2^10", "KiB"}, {"byte", "bytes"},
    {"Blocks", "blocks"}, {"minute", "minutes"},  {"second * 10^-9", "ns"},
};

bool isAddress(const std::string& className, const std::string& name)
{
    return className == "QORTAL_BIOS" && (name == "LoadedStartingAddress" || name == "LoadedEndingAddress");
}

bool isUnknownWhenZero(const std::string& className, const std::string& name)
{
    return className == "QORTAL_CacheMemory" && name == "CacheSpeed";
}

std::string hexadecimal(std::uint64_t number)
{
    char text[19];
    std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(number));
    return text;
}

}

std::string unitOf(const std::string& className, const std::string& property)
{
    const SchemaProperty* known = schemaProperty(className, property);
    if (!known || *known->unit == '\0')
        return "";
    const auto found = UnitTexts.find(known->unit);
    return found == UnitTexts.end() ? known->unit : found->second;
}

std::string meaningOf(const std::string& className, const std::string& property, std::uint64_t value)
{
    if (isAddress(className, property))
        return hexadecimal(value);
    if (isUnknownWhenZero(className, property))
        return value == 0 ? "unknown" : "";
    const SchemaProperty* known = schemaProperty(className, property);
    if (!known)
        return "";
    for (const SchemaCode& code : known->codes)
        if (code.code == value)
            return code.text;
    return known->otherwise;
}

}
