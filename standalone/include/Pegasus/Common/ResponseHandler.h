#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus
{
/// Where a provider delivers its answer: processing(), then what it has, then complete().
class PEGASUS_EXPORT ResponseHandler
{
public:
    virtual ~ResponseHandler();
    virtual void processing() = 0;
    virtual void complete() = 0;
};

class PEGASUS_EXPORT InstanceResponseHandler : virtual public ResponseHandler
{
public:
    ~InstanceResponseHandler() override;
    virtual void deliver(const CIMInstance& instance) = 0;
    virtual void deliver(const Array<CIMInstance>& instances) = 0;
};

class PEGASUS_EXPORT ObjectPathResponseHandler : virtual public ResponseHandler
{
public:
    ~ObjectPathResponseHandler() override;
    virtual void deliver(const CIMObjectPath& path) = 0;
    virtual void deliver(const Array<CIMObjectPath>& paths) = 0;
};

class PEGASUS_EXPORT MethodResultResponseHandler : virtual public ResponseHandler
{
public:
    ~MethodResultResponseHandler() override;
    virtual void deliver(const CIMValue& returnValue) = 0;
    virtual void deliverParamValue(const CIMParamValue& parameter) = 0;
    virtual void deliverParamValue(const Array<CIMParamValue>& parameters) = 0;
};
}
