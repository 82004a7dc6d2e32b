#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus
{
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
    if (arraySize != 0 && (!value.isArray() || value.getArraySize() != arraySize))
        throw TypeMismatchException();
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
    Rep& own = rep();
    if (!value.typeCompatible(own.value) || (own.arraySize != 0 && value.getArraySize() != own.arraySize))
        throw TypeMismatchException();
    own.value = value;
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

CIMProperty CIMProperty::clone() const
{
    CIMProperty copy;
    copy.rep_ = std::make_shared<Rep>(rep());
    return copy;
}
}
