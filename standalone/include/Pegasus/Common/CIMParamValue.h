#pragma once

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus
{
/// A parameter of a method call. Using a default-constructed one throws UninitializedObjectException.
class PEGASUS_EXPORT CIMParamValue
{
public:
    CIMParamValue() = default;
    /// `isTyped` says whether the value's type came with the request; nothing here asks for it. Throws
    /// UninitializedObjectException for an empty name.
    CIMParamValue(const String& parameterName, const CIMValue& value, Boolean isTyped = true);

    const String& getParameterName() const;
    const CIMValue& getValue() const;

private:
    struct Rep;
    const Rep& rep() const;

    std::shared_ptr<const Rep> rep_;
};
}
