#include "provider/SystemProvider.h"

#include "os/OperatingSystem.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/SimpleInstanceResponseHandler.h"

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>

namespace VQ
{

using namespace Pegasus;

namespace
{
struct ServedClass
{
    const String& name;
    void (*deliver)(const String& requestedClass, InstanceResponseHandler& handler);
};

// In the order in which a request's class name is compared.
const ServedClass ServedClasses[] = {
    {BiosClass, deliverBios},
    {ChassisClass, deliverChassis},
    {BaseBoardClass, deliverBaseBoards},
    {CacheMemoryClass, deliverCaches},
    {PortClass, deliverPorts},
    {SlotClass, deliverSlots},
    {ComputerSystemClass, deliverComputerSystem},
    {OperatingSystemClass, deliverOperatingSystem},
    {SystemMemoryClass, deliverSystemMemory},
};

// The path by which instances are told apart: no host, no namespace.
CIMObjectPath comparable(const CIMObjectPath& path)
{
    return CIMObjectPath(String::EMPTY, CIMNamespaceName(), CIMName(path.getClassName().getString()),
                         path.getKeyBindings());
}

[[noreturn]] void refuse(const char* operation)
{
    throw CIMException(CIM_ERR_NOT_SUPPORTED, operation);
}
}

SystemProvider::SystemProvider() = default;
SystemProvider::~SystemProvider() = default;

void SystemProvider::initialize(CIMOMHandle&) {}

void SystemProvider::terminate()
{
    delete this;
}

void SystemProvider::enumerateInstances(const OperationContext&, const CIMObjectPath& classReference, const Boolean,
                                        const Boolean, const CIMPropertyList&, InstanceResponseHandler& handler)
{
    const String requestedClass = classReference.getClassName().getString();
    for (const ServedClass& served : ServedClasses) {
        if (!String::equalNoCase(requestedClass, served.name))
            continue;
        handler.processing();
        served.deliver(requestedClass, handler);
        handler.complete();
        return;
    }
    throw CIMException(CIM_ERR_INVALID_CLASS, String::EMPTY);
}

void SystemProvider::enumerateInstanceNames(const OperationContext& context, const CIMObjectPath& classReference,
                                            ObjectPathResponseHandler& handler)
{
    handler.processing();
    SimpleInstanceResponseHandler collected;
    enumerateInstances(context, classReference, false, false, CIMPropertyList(), collected);
    for (Uint32 i = 0; i < collected.instances.size(); ++i)
        handler.deliver(collected.instances[i].getPath());
    handler.complete();
}

void SystemProvider::getInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                                 const Boolean includeQualifiers, const Boolean includeClassOrigin,
                                 const CIMPropertyList&, InstanceResponseHandler& handler)
{
    handler.processing();
    SimpleInstanceResponseHandler collected;
    enumerateInstances(context, instanceReference, includeQualifiers, includeClassOrigin, CIMPropertyList(), collected);
    const CIMObjectPath requested = comparable(instanceReference);
    for (Uint32 i = 0; i < collected.instances.size(); ++i) {
        if (requested == comparable(collected.instances[i].getPath())) {
            handler.deliver(collected.instances[i]);
            break;
        }
    }
    handler.complete();
}

void SystemProvider::createInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                                    ObjectPathResponseHandler&)
{
    refuse("SystemProvider::createInstance");
}

void SystemProvider::modifyInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&, const Boolean,
                                    const CIMPropertyList&, ResponseHandler&)
{
    refuse("SystemProvider::modifyInstance");
}

void SystemProvider::deleteInstance(const OperationContext&, const CIMObjectPath&, ResponseHandler&)
{
    refuse("SystemProvider::deleteInstance");
}

void SystemProvider::invokeMethod(const OperationContext&, const CIMObjectPath& objectReference,
                                  const CIMName& methodName, const Array<CIMParamValue>&,
                                  MethodResultResponseHandler& handler)
{
    if (!String::equalNoCase(objectReference.getClassName().getString(), OperatingSystemClass))
        return;
    const bool reboot = String::equalNoCase(methodName.getString(), RebootMethod);
    if (!reboot && !String::equalNoCase(methodName.getString(), ShutdownMethod))
        return;
    handler.processing();
    const OperatingSystem system = GetOperatingSystemInstance();
    const int status = reboot ? system.systemReboot() : system.systemShutdown();
    handler.deliver(CIMValue(static_cast<Uint32>(status)));
    handler.complete();
}

}
