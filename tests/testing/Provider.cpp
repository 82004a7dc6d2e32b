#include "tests/testing/Provider.h"

#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/OperationContext.h>

#include <stdexcept>

using namespace Pegasus;

extern "C" CIMProvider* PegasusCreateProvider(const String& name);

void RecordingInstanceHandler::deliver(const CIMInstance& instance)
{
    calls.emplace_back("instance");
    instances.push_back(instance);
}

void RecordingPathHandler::deliver(const CIMObjectPath& path)
{
    calls.emplace_back("path");
    paths.push_back(path);
}

void RecordingMethodHandler::deliver(const CIMValue& value)
{
    calls.push_back(std::string("result ") + cimTypeToString(value.getType()) + " " + text(value.toString()));
}

TestProvider::TestProvider()
    : _provider(PegasusCreateProvider("SystemProvider")), _instances(dynamic_cast<CIMInstanceProvider*>(_provider)),
      _methods(dynamic_cast<CIMMethodProvider*>(_provider))
{
    if (!_instances || !_methods)
        throw std::runtime_error("the module has no provider of instances and methods");
    CIMOMHandle handle;
    _provider->initialize(handle);
}

TestProvider::~TestProvider()
{
    _provider->terminate();
}

void TestProvider::enumerate(const CIMObjectPath& path, InstanceResponseHandler& handler)
{
    _instances->enumerateInstances(OperationContext(), path, false, false, CIMPropertyList(), handler);
}

void TestProvider::enumerateNames(const CIMObjectPath& path, ObjectPathResponseHandler& handler)
{
    _instances->enumerateInstanceNames(OperationContext(), path, handler);
}

void TestProvider::get(const CIMObjectPath& path, InstanceResponseHandler& handler)
{
    _instances->getInstance(OperationContext(), path, false, false, CIMPropertyList(), handler);
}

void TestProvider::invoke(const CIMObjectPath& path, const char* method, MethodResultResponseHandler& handler,
                          const Array<CIMParamValue>& in)
{
    _methods->invokeMethod(OperationContext(), path, CIMName(method), in, handler);
}

std::vector<CIMInstance> instancesOf(const char* className)
{
    TestProvider provider;
    RecordingInstanceHandler handler;
    provider.enumerate(pathOf(className), handler);
    return handler.instances;
}

CIMObjectPath pathOf(const char* className, const Array<CIMKeyBinding>& keys)
{
    return CIMObjectPath(String::EMPTY, CIMNamespaceName(), CIMName(className), keys);
}
