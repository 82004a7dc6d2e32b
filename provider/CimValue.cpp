#include "provider/CimValue.h"

#include "support/pegasus/CimDateTime.h"
#include "support/pegasus/CimText.h"

namespace VQ
{

using namespace Pegasus;

CIMValue cimValue(const std::string& value)
{
    return CIMValue(make_String(value));
}

CIMValue cimValue(const std::wstring& value)
{
    return CIMValue(make_String(value));
}

CIMValue cimValue(const std::vector<std::string>& values)
{
    Array<String> array;
    for (const std::string& value : values)
        array.append(make_String(value));
    return CIMValue(array);
}

CIMValue cimValue(Boolean value)
{
    return CIMValue(value);
}

CIMValue cimValue(Sint16 value)
{
    return CIMValue(value);
}

CIMValue cimValue(Uint16 value)
{
    return CIMValue(value);
}

CIMValue cimValue(Uint32 value)
{
    return CIMValue(value);
}

CIMValue cimValue(Uint64 value)
{
    return CIMValue(value);
}

CIMValue cimValue(const std::vector<std::uint16_t>& values)
{
    Array<Uint16> array;
    for (const std::uint16_t value : values)
        array.append(value);
    return CIMValue(array);
}

CIMValue cimValue(const DateTime& value)
{
    return CIMValue(make_CIMDateTime(value));
}

CIMValue cimValue(const String& value)
{
    return CIMValue(value);
}

CIMValue cimValue(const Array<String>& values)
{
    return CIMValue(values);
}

}
