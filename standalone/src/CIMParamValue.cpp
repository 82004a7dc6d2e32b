#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus
{
struct CIMParamValue::Rep
{
    String parameterName;
    CIMValue value;
};

CIMParamValue::CIMParamValue(const String& parameterName, const CIMValue& value, Boolean)
{
    if (parameterName.size() == 0)
        throw UninitializedObjectException();
    rep_ = std::make_shared<const Rep>(Rep{parameterName, value});
}

const CIMParamValue::Rep& CIMParamValue::rep() const
{
    if (!rep_)
        throw UninitializedObjectException();
    return *rep_;
}

const String& CIMParamValue::getParameterName() const
{
    return rep().parameterName;
}

const CIMValue& CIMParamValue::getValue() const
{
    return rep().value;
}
}
