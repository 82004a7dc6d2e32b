#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <variant>

namespace Pegasus
{
/// A value of one of the CIM types, or an array of them, or null.
class PEGASUS_EXPORT CIMValue
{
public:
    /// A null Boolean.
    CIMValue() = default;
    /// A null value of a type.
    CIMValue(CIMType type, Boolean isArray, Uint32 arraySize = 0);

    CIMValue(Boolean value);
    CIMValue(Uint8 value);
    CIMValue(Sint8 value);
    CIMValue(Uint16 value);
    CIMValue(Sint16 value);
    CIMValue(Uint32 value);
    CIMValue(Sint32 value);
    CIMValue(Uint64 value);
    CIMValue(Sint64 value);
    CIMValue(const String& value);
    CIMValue(const CIMDateTime& value);
    CIMValue(const Array<Boolean>& value);
    CIMValue(const Array<Uint8>& value);
    CIMValue(const Array<Sint8>& value);
    CIMValue(const Array<Uint16>& value);
    CIMValue(const Array<Sint16>& value);
    CIMValue(const Array<Uint32>& value);
    CIMValue(const Array<Sint32>& value);
    CIMValue(const Array<Uint64>& value);
    CIMValue(const Array<Sint64>& value);
    CIMValue(const Array<String>& value);
    CIMValue(const Array<CIMDateTime>& value);
    /// A pointer would silently become a Boolean.
    CIMValue(const char*) = delete;

    CIMType getType() const { return type_; }
    Boolean isArray() const { return isArray_; }
    Boolean isNull() const { return data_.index() == 0; }
    /// The number of values of an array, 0 for anything else.
    Uint32 getArraySize() const { return arraySize_; }
    /// True where type and array-ness are the same.
    Boolean typeCompatible(const CIMValue& other) const;

    /// Copies the value out; a null value leaves the variable as it is. Throws TypeMismatchException where the
    /// variable is of another type.
    void get(Boolean& value) const;
    void get(Uint8& value) const;
    void get(Sint8& value) const;
    void get(Uint16& value) const;
    void get(Sint16& value) const;
    void get(Uint32& value) const;
    void get(Sint32& value) const;
    void get(Uint64& value) const;
    void get(Sint64& value) const;
    void get(String& value) const;
    void get(CIMDateTime& value) const;
    void get(Array<Boolean>& value) const;
    void get(Array<Uint8>& value) const;
    void get(Array<Sint8>& value) const;
    void get(Array<Uint16>& value) const;
    void get(Array<Sint16>& value) const;
    void get(Array<Uint32>& value) const;
    void get(Array<Sint32>& value) const;
    void get(Array<Uint64>& value) const;
    void get(Array<Sint64>& value) const;
    void get(Array<String>& value) const;
    void get(Array<CIMDateTime>& value) const;

    /// Text for people: the value as it is, TRUE or FALSE, an array's values each followed by a space, nothing
    /// for null.
    String toString() const;

private:
    friend Boolean operator==(const CIMValue& a, const CIMValue& b);

    /// False for null; throws TypeMismatchException where the type is another one.
    bool holds(CIMType type, bool isArray) const;

    CIMType type_ = CIMTYPE_BOOLEAN;
    Boolean isArray_ = false;
    Uint32 arraySize_ = 0;
    std::variant<std::monostate, Boolean, Uint8, Sint8, Uint16, Sint16, Uint32, Sint32, Uint64, Sint64, String,
                 CIMDateTime, Array<Boolean>, Array<Uint8>, Array<Sint8>, Array<Uint16>, Array<Sint16>, Array<Uint32>,
                 Array<Sint32>, Array<Uint64>, Array<Sint64>, Array<String>, Array<CIMDateTime>>
        data_; // nothing for null, else what type_ and isArray_ say
};

/// The same type and an equal value; two nulls of one type are equal.
PEGASUS_EXPORT Boolean operator==(const CIMValue& a, const CIMValue& b);
}
