#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>

#include <memory>

namespace Pegasus
{
/// A named value of an instance. It is a reference object: copies are the same property, clone() makes another one.
/// Using a default-constructed one throws UninitializedObjectException.
class PEGASUS_EXPORT CIMProperty
{
public:
    CIMProperty() = default;
    /// `arraySize` is the size of a fixed-size array, else 0. Throws UninitializedObjectException for a null name,
    /// TypeMismatchException where the value is no array of that size, or where there is a reference class: no value
    /// of this library is a reference.
    CIMProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize = 0,
                const CIMName& referenceClassName = CIMName(), const CIMName& classOrigin = CIMName(),
                Boolean propagated = false);

    const CIMName& getName() const;
    const CIMValue& getValue() const;
    /// Throws TypeMismatchException for a value of another type, or of another size than a fixed-size array has.
    void setValue(const CIMValue& value);
    CIMType getType() const;
    Boolean isArray() const;
    /// The size of a fixed-size array, else 0.
    Uint32 getArraySize() const;
    const CIMName& getClassOrigin() const;
    Boolean getPropagated() const;
    /// 0: properties of this library have no qualifiers.
    Uint32 getQualifierCount() const;

    CIMProperty clone() const;

private:
    struct Rep;
    Rep& rep() const;

    std::shared_ptr<Rep> rep_;
};

/// A property of a constant instance.
class PEGASUS_EXPORT CIMConstProperty
{
public:
    CIMConstProperty() = default;
    CIMConstProperty(const CIMProperty& property) : property_(property) {}

    const CIMName& getName() const { return property_.getName(); }
    const CIMValue& getValue() const { return property_.getValue(); }
    CIMType getType() const { return property_.getType(); }
    Boolean isArray() const { return property_.isArray(); }
    const CIMName& getClassOrigin() const { return property_.getClassOrigin(); }
    Boolean getPropagated() const { return property_.getPropagated(); }
    Uint32 getQualifierCount() const { return property_.getQualifierCount(); }

private:
    CIMProperty property_;
};
}
