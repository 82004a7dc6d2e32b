#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

namespace VQ
{

/// The provider that the CIM server drives. It keeps nothing between requests: each reads its records afresh, on
/// whichever thread the server chooses.
class SystemProvider : public Pegasus::CIMInstanceProvider, public Pegasus::CIMMethodProvider
{
public:
    SystemProvider();
    ~SystemProvider() override;

    void initialize(Pegasus::CIMOMHandle& handle) override;

    /// Deletes the provider; the server must not touch it afterwards.
    void terminate() override;

    /// Delivers the first instance whose class name and keys are the request's, or nothing. Host, namespace and
    /// property list of the request are ignored. CIM_ERR_INVALID_CLASS for a class that is not served.
    void getInstance(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& instanceReference,
                     const Pegasus::Boolean includeQualifiers, const Pegasus::Boolean includeClassOrigin,
                     const Pegasus::CIMPropertyList& propertyList, Pegasus::InstanceResponseHandler& handler) override;

    /// Delivers every instance of the class, each with all its properties whatever the property list says.
    /// CIM_ERR_INVALID_CLASS for a class that is not served.
    void enumerateInstances(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& classReference,
                            const Pegasus::Boolean includeQualifiers, const Pegasus::Boolean includeClassOrigin,
                            const Pegasus::CIMPropertyList& propertyList,
                            Pegasus::InstanceResponseHandler& handler) override;

    /// Delivers the path of every instance that enumerateInstances would deliver.
    void enumerateInstanceNames(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& classReference,
                                Pegasus::ObjectPathResponseHandler& handler) override;

    /// CIM_ERR_NOT_SUPPORTED, always.
    void modifyInstance(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& instanceReference,
                        const Pegasus::CIMInstance& instanceObject, const Pegasus::Boolean includeQualifiers,
                        const Pegasus::CIMPropertyList& propertyList, Pegasus::ResponseHandler& handler) override;

    /// CIM_ERR_NOT_SUPPORTED, always.
    void createInstance(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& instanceReference,
                        const Pegasus::CIMInstance& instanceObject,
                        Pegasus::ObjectPathResponseHandler& handler) override;

    /// CIM_ERR_NOT_SUPPORTED, always.
    void deleteInstance(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& instanceReference,
                        Pegasus::ResponseHandler& handler) override;

    /// Runs Reboot or Shutdown on the operating-system class and delivers its status. Silent for any other class or
    /// method; the server reports the missing response.
    void invokeMethod(const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& objectReference,
                      const Pegasus::CIMName& methodName, const Pegasus::Array<Pegasus::CIMParamValue>& inParameters,
                      Pegasus::MethodResultResponseHandler& handler) override;
};

}
