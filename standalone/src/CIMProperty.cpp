#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus
{
namespace
{
void requireFixedSize(const CIMValue& value, Uint32 arraySize)
{
    if (arraySize != 0 && (!value.isArray() || value.getArraySize() != arraySize))
        throw TypeMismatchException();
}
}

struct CIMProperty::Rep
{
    CIMName name;
    CIMValue value;
    Uint32 arraySize;
    CIMName classOrigin;
    Boolean propagated;
};

CIMProperty::CIMProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize,
                         const CIMName& referenceClassName, const CIMName& classOrigin, Boolean propagated)
{
    if (name.isNull())
        throw UninitializedObjectException();
    requireFixedSize(value, arraySize);
    if (!referenceClassName.isNull())
        throw TypeMismatchException();
    rep_ = std::make_shared<Rep>(Rep{name, value, arraySize, classOrigin, propagated});
}

CIMProperty::Rep& CIMProperty::rep() const
{
    if (!rep_)
        throw UninitializedObjectException();
    return *rep_;
}

const CIMName& CIMProperty::getName() const
{
    return rep().name;
}

const CIMValue& CIMProperty::getValue() const
{
    return rep().value;
}

void CIMProperty::setValue(const CIMValue& value)
{
    if (!rep().value.typeCompatible(value))
        throw TypeMismatchException();
    requireFixedSize(value, rep().arraySize);
    rep().value = value;
}

CIMType CIMProperty::getType() const
{
    return rep().value.getType();
}

Boolean CIMProperty::isArray() const
{
    return rep().value.isArray();
}

Uint32 CIMProperty::getArraySize() const
{
    return rep().arraySize;
}

const CIMName& CIMProperty::getClassOrigin() const
{
    return rep().classOrigin;
}

Boolean CIMProperty::getPropagated() const
{
    return rep().propagated;
}

Uint32 CIMProperty::getQualifierCount() const
{
    rep();
    return 0;
}

Boolean CIMProperty::identical(const CIMProperty& other) const
{
    const Rep& a = rep();
    const Rep& b = other.rep();
    return a.name == b.name && a.value == b.value && a.arraySize == b.arraySize && a.classOrigin == b.classOrigin &&
           a.propagated == b.propagated;
}

CIMProperty CIMProperty::clone() const
{
    CIMProperty copy;
    copy.rep_ = std::make_shared<Rep>(rep());
    return copy;
}
}
