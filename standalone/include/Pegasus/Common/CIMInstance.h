#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Config.h>

#include <memory>

namespace Pegasus
{
/// An instance of a class: its path and its properties in the order they were added. It is a reference object:
/// copies are the same instance, clone() makes another one.
/// Using a default-constructed one throws UninitializedObjectException.
class PEGASUS_EXPORT CIMInstance
{
public:
    CIMInstance() = default;
    /// Throws UninitializedObjectException for a null name.
    CIMInstance(const CIMName& className);

    const CIMName& getClassName() const;
    const CIMObjectPath& getPath() const;
    /// Throws UninitializedObjectException for a path without a class, TypeMismatchException for another class's.
    void setPath(const CIMObjectPath& path);

    /// Throws AlreadyExistsException where the instance has a property of that name, UninitializedObjectException for a
    /// default-constructed property.
    CIMInstance& addProperty(const CIMProperty& property);
    /// The position of the property of that name, or PEG_NOT_FOUND.
    Uint32 findProperty(const CIMName& name) const;
    /// Throws IndexOutOfBoundsException beyond the last property, as does removeProperty.
    CIMProperty getProperty(Uint32 index);
    CIMConstProperty getProperty(Uint32 index) const;
    void removeProperty(Uint32 index);
    Uint32 getPropertyCount() const;

    Boolean isUninitialized() const { return !rep_; }
    CIMInstance clone() const;

private:
    struct Rep;
    Rep& rep() const;
    const CIMProperty& propertyAt(Uint32 index) const;

    std::shared_ptr<Rep> rep_;
};

/// An instance that can only be read; it still sees the changes made through a CIMInstance that it shares.
class PEGASUS_EXPORT CIMConstInstance
{
public:
    CIMConstInstance() = default;
    CIMConstInstance(const CIMInstance& instance) : instance_(instance) {}

    CIMConstProperty getProperty(Uint32 index) const { return instance_.getProperty(index); }

private:
    CIMInstance instance_;
};
}
