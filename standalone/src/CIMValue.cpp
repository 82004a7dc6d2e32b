#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>

#include <string>

namespace Pegasus
{
namespace
{
String text(std::monostate)
{
    return String();
}

template <class Integer> String text(Integer value)
{
    return String(std::to_string(value).c_str());
}

String text(Boolean value)
{
    return value ? "TRUE" : "FALSE";
}

String text(const String& value)
{
    return value;
}

String text(const CIMDateTime& value)
{
    return value.toString();
}

template <class T> String text(const Array<T>& values)
{
    String all;
    for (Uint32 i = 0; i < values.size(); ++i)
        all.append(text(values[i])).append(Char16(' '));
    return all;
}
}

CIMValue::CIMValue(CIMType type, Boolean isArray, Uint32 arraySize)
    : type_(type), isArray_(isArray), arraySize_(isArray ? arraySize : 0)
{
}

bool CIMValue::holds(CIMType type, bool isArray) const
{
    if (type_ != type || isArray_ != isArray)
        throw TypeMismatchException();
    return !isNull();
}

// One constructor and one get() for each type, in the order of the declarations.
#define VQ_CIM_SCALAR(T, Parameter, type)                                                                              \
    CIMValue::CIMValue(Parameter value) : type_(type), data_(T(value)) {}                                              \
    void CIMValue::get(T& value) const                                                                                 \
    {                                                                                                                  \
        if (holds(type, false))                                                                                        \
            value = std::get<T>(data_);                                                                                \
    }

#define VQ_CIM_ARRAY(T, type)                                                                                          \
    CIMValue::CIMValue(const Array<T>& value) : type_(type), isArray_(true), arraySize_(value.size()), data_(value) {} \
    void CIMValue::get(Array<T>& value) const                                                                          \
    {                                                                                                                  \
        if (holds(type, true))                                                                                         \
            value = std::get<Array<T>>(data_);                                                                         \
    }

VQ_CIM_SCALAR(Boolean, Boolean, CIMTYPE_BOOLEAN)
VQ_CIM_SCALAR(Uint8, Uint8, CIMTYPE_UINT8)
VQ_CIM_SCALAR(Sint8, Sint8, CIMTYPE_SINT8)
VQ_CIM_SCALAR(Uint16, Uint16, CIMTYPE_UINT16)
VQ_CIM_SCALAR(Sint16, Sint16, CIMTYPE_SINT16)
VQ_CIM_SCALAR(Uint32, Uint32, CIMTYPE_UINT32)
VQ_CIM_SCALAR(Sint32, Sint32, CIMTYPE_SINT32)
VQ_CIM_SCALAR(Uint64, Uint64, CIMTYPE_UINT64)
VQ_CIM_SCALAR(Sint64, Sint64, CIMTYPE_SINT64)
VQ_CIM_SCALAR(String, const String&, CIMTYPE_STRING)
VQ_CIM_SCALAR(CIMDateTime, const CIMDateTime&, CIMTYPE_DATETIME)
VQ_CIM_ARRAY(Boolean, CIMTYPE_BOOLEAN)
VQ_CIM_ARRAY(Uint8, CIMTYPE_UINT8)
VQ_CIM_ARRAY(Sint8, CIMTYPE_SINT8)
VQ_CIM_ARRAY(Uint16, CIMTYPE_UINT16)
VQ_CIM_ARRAY(Sint16, CIMTYPE_SINT16)
VQ_CIM_ARRAY(Uint32, CIMTYPE_UINT32)
VQ_CIM_ARRAY(Sint32, CIMTYPE_SINT32)
VQ_CIM_ARRAY(Uint64, CIMTYPE_UINT64)
VQ_CIM_ARRAY(Sint64, CIMTYPE_SINT64)
VQ_CIM_ARRAY(String, CIMTYPE_STRING)
VQ_CIM_ARRAY(CIMDateTime, CIMTYPE_DATETIME)

Boolean CIMValue::typeCompatible(const CIMValue& other) const
{
    return type_ == other.type_ && isArray_ == other.isArray_;
}

String CIMValue::toString() const
{
    return std::visit([](const auto& value) { return text(value); }, data_);
}

Boolean operator==(const CIMValue& a, const CIMValue& b)
{
    return a.typeCompatible(b) && a.data_ == b.data_;
}
}
