#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>

namespace VQ
{

/// Collects the instances that are delivered to it, in delivery order.
class SimpleInstanceResponseHandler : public Pegasus::InstanceResponseHandler
{
public:
    ~SimpleInstanceResponseHandler() override;

    void processing() override;
    void complete() override;
    void deliver(const Pegasus::CIMInstance& instance) override;
    void deliver(const Pegasus::Array<Pegasus::CIMInstance>& instances) override;

    Pegasus::Array<Pegasus::CIMInstance> instances;
};

}
