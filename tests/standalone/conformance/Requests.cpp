#include "Show.h"

#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

using namespace Pegasus;

namespace
{
/// Writes down what it is handed, one word for each call.
class Recorder : public InstanceResponseHandler, public ObjectPathResponseHandler, public MethodResultResponseHandler
{
public:
    void processing() override { note("processing"); }
    void complete() override { note("complete"); }
    void deliver(const CIMInstance& instance) override { note("instance " + shown(instance.getClassName())); }
    void deliver(const Array<CIMInstance>& all) override { note(shown(all.size()) + " instances"); }
    void deliver(const CIMObjectPath& path) override { note("path " + shown(path)); }
    void deliver(const Array<CIMObjectPath>& all) override { note(shown(all.size()) + " paths"); }
    void deliver(const CIMValue& result) override { note("result " + shown(result)); }
    void deliverParamValue(const CIMParamValue& parameter) override
    {
        note("parameter " + shown(parameter.getParameterName()) + ' ' + shown(parameter.getValue()));
    }
    void deliverParamValue(const Array<CIMParamValue>& all) override { note(shown(all.size()) + " parameters"); }

    std::string notes;

private:
    void note(const std::string& text) { notes += (notes.empty() ? "" : ", ") + text; }
};

/// Answers every operation with its own name, by way of its handler.
class Provider : public CIMInstanceProvider, public CIMMethodProvider
{
public:
    static std::string lifecycle;

    ~Provider() override { lifecycle += " deleted"; }
    void initialize(CIMOMHandle&) override { lifecycle += " initialized"; }
    void terminate() override { delete this; }

    void getInstance(const OperationContext&, const CIMObjectPath& path, const Boolean, const Boolean,
                     const CIMPropertyList& properties, InstanceResponseHandler& handler) override
    {
        handler.processing();
        handler.deliver(CIMInstance(path.getClassName()));
        if (!properties.isNull())
            handler.deliver(Array<CIMInstance>());
        handler.complete();
    }
    void enumerateInstances(const OperationContext&, const CIMObjectPath& path, const Boolean, const Boolean,
                            const CIMPropertyList&, InstanceResponseHandler& handler) override
    {
        Array<CIMInstance> all;
        all.append(CIMInstance(path.getClassName()));
        all.append(all[0]);
        handler.deliver(all);
    }
    void enumerateInstanceNames(const OperationContext&, const CIMObjectPath& path,
                                ObjectPathResponseHandler& handler) override
    {
        Array<CIMObjectPath> all;
        all.append(path);
        handler.deliver(path);
        handler.deliver(all);
    }
    void modifyInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&, const Boolean,
                        const CIMPropertyList&, ResponseHandler&) override
    {
        throw CIMException(CIM_ERR_NOT_SUPPORTED, "modifyInstance");
    }
    void createInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        ObjectPathResponseHandler&) override
    {
        throw CIMException(CIM_ERR_NOT_SUPPORTED, "createInstance");
    }
    void deleteInstance(const OperationContext&, const CIMObjectPath&, ResponseHandler&) override
    {
        throw CIMException(CIM_ERR_NOT_SUPPORTED, "deleteInstance");
    }
    void invokeMethod(const OperationContext&, const CIMObjectPath&, const CIMName&, const Array<CIMParamValue>& given,
                      MethodResultResponseHandler& handler) override
    {
        handler.processing();
        for (Uint32 i = 0; i < given.size(); ++i)
            handler.deliverParamValue(given[i]);
        handler.deliverParamValue(given);
        handler.deliver(CIMValue(Uint32(0)));
        handler.complete();
    }
};
std::string Provider::lifecycle;
}

void showRequests()
{
    section("Providers and response handlers");
    CIMProvider* const provider = new Provider;
    CIMInstanceProvider* const instances = dynamic_cast<CIMInstanceProvider*>(provider);
    CIMMethodProvider* const methods = dynamic_cast<CIMMethodProvider*>(provider);
    SHOW(instances != nullptr);
    SHOW(methods != nullptr);
    CIMOMHandle cimom;
    DO(provider->initialize(cimom));

    const OperationContext context;
    const CIMObjectPath path(String("QORTAL_Slot.Tag=\"1\""));
    const CIMPropertyList all;
    const CIMPropertyList none{Array<CIMName>()};
    Array<CIMParamValue> parameters;
    parameters.append(CIMParamValue("Force", CIMValue(Boolean(true))));
    parameters.append(CIMParamValue("Wait", CIMValue(CIMTYPE_UINT32, false)));
    Recorder recorder;
    DO(instances->getInstance(context, path, false, false, all, recorder));
    DO(instances->getInstance(context, path, false, false, none, recorder));
    DO(instances->enumerateInstances(context, path, false, false, all, recorder));
    DO(instances->enumerateInstanceNames(context, path, recorder));
    DO(instances->modifyInstance(context, path, CIMInstance(), false, all, recorder));
    DO(instances->createInstance(context, path, CIMInstance(), recorder));
    DO(instances->deleteInstance(context, path, recorder));
    DO(methods->invokeMethod(context, path, CIMName("Reboot"), parameters, recorder));
    SHOW(recorder.notes.c_str());
    DO(provider->terminate());
    SHOW(Provider::lifecycle.c_str());
}
