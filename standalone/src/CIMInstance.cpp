#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Exception.h>

#include <vector>

namespace Pegasus
{
struct CIMInstance::Rep
{
    CIMObjectPath path;
    std::vector<CIMProperty> properties;
};

CIMInstance::CIMInstance(const CIMName& className)
{
    if (className.isNull())
        throw UninitializedObjectException();
    rep_ = std::make_shared<Rep>();
    rep_->path.setClassName(className);
    rep_->properties.reserve(16);
}

CIMInstance::Rep& CIMInstance::rep() const
{
    if (!rep_)
        throw UninitializedObjectException();
    return *rep_;
}

const CIMName& CIMInstance::getClassName() const
{
    return rep().path.getClassName();
}

const CIMObjectPath& CIMInstance::getPath() const
{
    return rep().path;
}

void CIMInstance::setPath(const CIMObjectPath& path)
{
    Rep& own = rep();
    if (path.getClassName().isNull())
        throw UninitializedObjectException();
    if (path.getClassName() != own.path.getClassName())
        throw TypeMismatchException();
    own.path = path;
}

CIMInstance& CIMInstance::addProperty(const CIMProperty& property)
{
    if (findProperty(property.getName()) != PEG_NOT_FOUND)
        throw AlreadyExistsException(String("property ") + property.getName().getString() + String(" exists already"));
    rep().properties.push_back(property);
    return *this;
}

Uint32 CIMInstance::findProperty(const CIMName& name) const
{
    const std::vector<CIMProperty>& properties = rep().properties;
    const String& wanted = name.getString();
    for (std::size_t i = 0; i < properties.size(); ++i) {
        // Each added property is looked for among all: most names differ in their length already.
        const String& own = properties[i].getName().getString();
        if (own.size() == wanted.size() && String::equalNoCase(own, wanted))
            return static_cast<Uint32>(i);
    }
    return PEG_NOT_FOUND;
}

const CIMProperty& CIMInstance::propertyAt(Uint32 index) const
{
    if (index >= rep().properties.size())
        throw IndexOutOfBoundsException();
    return rep().properties[index];
}

CIMProperty CIMInstance::getProperty(Uint32 index)
{
    return propertyAt(index);
}

CIMConstProperty CIMInstance::getProperty(Uint32 index) const
{
    return propertyAt(index);
}

void CIMInstance::removeProperty(Uint32 index)
{
    propertyAt(index);
    rep().properties.erase(rep().properties.begin() + index);
}

Uint32 CIMInstance::getPropertyCount() const
{
    return static_cast<Uint32>(rep().properties.size());
}

CIMInstance CIMInstance::clone() const
{
    CIMInstance copy;
    copy.rep_ = std::make_shared<Rep>(rep());
    for (CIMProperty& property : copy.rep_->properties)
        property = property.clone();
    return copy;
}
}
