#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include <string>
#include <vector>

// A provider and handlers for tests, driven as a CIM server drives them. Link with vq_module_objects.

/// Writes down every call that it gets ("processing", "instance", "complete") and keeps what was delivered.
class RecordingInstanceHandler : public Pegasus::InstanceResponseHandler
{
public:
    void processing() override { calls.emplace_back("processing"); }
    void complete() override { calls.emplace_back("complete"); }
    void deliver(const Pegasus::CIMInstance& instance) override;
    void deliver(const Pegasus::Array<Pegasus::CIMInstance>&) override { calls.emplace_back("array of instances"); }

    std::vector<std::string> calls;
    std::vector<Pegasus::CIMInstance> instances;
};

/// The same for paths ("path").
class RecordingPathHandler : public Pegasus::ObjectPathResponseHandler
{
public:
    void processing() override { calls.emplace_back("processing"); }
    void complete() override { calls.emplace_back("complete"); }
    void deliver(const Pegasus::CIMObjectPath& path) override;
    void deliver(const Pegasus::Array<Pegasus::CIMObjectPath>&) override { calls.emplace_back("array of paths"); }

    std::vector<std::string> calls;
    std::vector<Pegasus::CIMObjectPath> paths;
};

/// The same for method results ("result uint32 1", "parameter").
class RecordingMethodHandler : public Pegasus::MethodResultResponseHandler
{
public:
    void processing() override { calls.emplace_back("processing"); }
    void complete() override { calls.emplace_back("complete"); }
    void deliver(const Pegasus::CIMValue& value) override;
    void deliverParamValue(const Pegasus::CIMParamValue&) override { calls.emplace_back("parameter"); }
    void deliverParamValue(const Pegasus::Array<Pegasus::CIMParamValue>&) override
    {
        calls.emplace_back("array of parameters");
    }

    std::vector<std::string> calls;
};

/// A provider of the module, from PegasusCreateProvider to terminate. An operation's exception leaves it as it comes;
/// the handler then shows what was called before.
class TestProvider
{
public:
    TestProvider();
    ~TestProvider();
    TestProvider(const TestProvider&) = delete;
    TestProvider& operator=(const TestProvider&) = delete;

    Pegasus::CIMInstanceProvider& instances() { return *_instances; }
    Pegasus::CIMMethodProvider& methods() { return *_methods; }

    void enumerate(const Pegasus::CIMObjectPath& path, Pegasus::InstanceResponseHandler& handler);
    void enumerateNames(const Pegasus::CIMObjectPath& path, Pegasus::ObjectPathResponseHandler& handler);
    void get(const Pegasus::CIMObjectPath& path, Pegasus::InstanceResponseHandler& handler);
    void invoke(const Pegasus::CIMObjectPath& path, const char* method, Pegasus::MethodResultResponseHandler& handler,
                const Pegasus::Array<Pegasus::CIMParamValue>& in = Pegasus::Array<Pegasus::CIMParamValue>());

private:
    Pegasus::CIMProvider* _provider;
    Pegasus::CIMInstanceProvider* _instances;
    Pegasus::CIMMethodProvider* _methods;
};

/// The instances that an enumeration of the class delivers.
std::vector<Pegasus::CIMInstance> instancesOf(const char* className);

/// A path of the class with these keys, without host and namespace.
Pegasus::CIMObjectPath
pathOf(const char* className,
       const Pegasus::Array<Pegasus::CIMKeyBinding>& keys = Pegasus::Array<Pegasus::CIMKeyBinding>());
