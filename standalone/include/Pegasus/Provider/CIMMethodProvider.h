#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMProvider.h>

namespace Pegasus
{
/// The operation on methods. It reports a failure by throwing a CIMException.
class PEGASUS_EXPORT CIMMethodProvider : public virtual CIMProvider
{
public:
    ~CIMMethodProvider() override;

    virtual void invokeMethod(const OperationContext& context, const CIMObjectPath& objectReference,
                              const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                              MethodResultResponseHandler& handler) = 0;
};
}
