#include <Pegasus/Common/CIMType.h>

#include <cstddef>

namespace Pegasus
{
const char* cimTypeToString(CIMType type)
{
    static const char* const Names[] = {
        "boolean", "uint8",  "sint8",  "uint16", "sint16",   "uint32",    "sint32", "uint64",   "sint64",
        "real32",  "real64", "char16", "string", "datetime", "reference", "object", "instance",
    };
    const std::size_t index = static_cast<std::size_t>(type);
    return index < sizeof Names / sizeof *Names ? Names[index] : "unknown CIM type";
}
}
