#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>

#include <string>
#include <type_traits>

namespace Pegasus
{
namespace
{
/// Calls `function` with a null pointer to the C++ type of `type`.
template <class Function> auto withType(CIMType type, Function function)
{
    switch (type) {
    case CIMTYPE_UINT8:
        return function(static_cast<Uint8*>(nullptr));
    case CIMTYPE_SINT8:
        return function(static_cast<Sint8*>(nullptr));
    case CIMTYPE_UINT16:
        return function(static_cast<Uint16*>(nullptr));
    case CIMTYPE_SINT16:
        return function(static_cast<Sint16*>(nullptr));
    case CIMTYPE_UINT32:
        return function(static_cast<Uint32*>(nullptr));
    case CIMTYPE_SINT32:
        return function(static_cast<Sint32*>(nullptr));
    case CIMTYPE_UINT64:
        return function(static_cast<Uint64*>(nullptr));
    case CIMTYPE_SINT64:
        return function(static_cast<Sint64*>(nullptr));
    case CIMTYPE_STRING:
        return function(static_cast<String*>(nullptr));
    case CIMTYPE_DATETIME:
        return function(static_cast<CIMDateTime*>(nullptr));
    default: // the other types have no values in this library
        return function(static_cast<Boolean*>(nullptr));
    }
}

template <class T> const T& held(const std::shared_ptr<const void>& data)
{
    return *static_cast<const T*>(data.get());
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
    CIMValue::CIMValue(Parameter value) : type_(type), data_(std::make_shared<const T>(value)) {}                      \
    void CIMValue::get(T& value) const                                                                                 \
    {                                                                                                                  \
        if (holds(type, false))                                                                                        \
            value = held<T>(data_);                                                                                    \
    }

#define VQ_CIM_ARRAY(T, type)                                                                                          \
    CIMValue::CIMValue(const Array<T>& value)                                                                          \
        : type_(type), isArray_(true), arraySize_(value.size()), data_(std::make_shared<const Array<T>>(value))        \
    {                                                                                                                  \
    }                                                                                                                  \
    void CIMValue::get(Array<T>& value) const                                                                          \
    {                                                                                                                  \
        if (holds(type, true))                                                                                         \
            value = held<Array<T>>(data_);                                                                             \
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
    if (!data_)
        return String();
    return withType(type_, [this](auto* tag) {
        using T = std::remove_pointer_t<decltype(tag)>;
        if (!isArray_)
            return text(held<T>(data_));
        const Array<T>& values = held<Array<T>>(data_);
        String all;
        for (Uint32 i = 0; i < values.size(); ++i)
            all.append(text(values[i])).append(Char16(' '));
        return all;
    });
}

Boolean operator==(const CIMValue& a, const CIMValue& b)
{
    if (!a.typeCompatible(b) || a.isNull() != b.isNull())
        return false;
    if (a.isNull())
        return true;
    return withType(a.type_, [&](auto* tag) {
        using T = std::remove_pointer_t<decltype(tag)>;
        return a.isArray_ ? held<Array<T>>(a.data_) == held<Array<T>>(b.data_) : held<T>(a.data_) == held<T>(b.data_);
    });
}
}
