#include "tools/vqinventory/Module.h"

#include "tools/knowledge/Classes.h"
#include "tools/program/InputFile.h"
#include "tools/program/Request.h"
#include "tools/vqinventory/CimAnswer.h"
#include "tools/vqinventory/ModuleFile.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>

#include <algorithm>
#include <dlfcn.h>
#include <exception>
#include <filesystem>
#include <functional>

namespace VQ::Tool
{

using namespace Pegasus;

namespace
{
constexpr const char* ProviderName = "SystemProvider";
constexpr std::uintmax_t MaxModuleSize = 256u << 20; // with the debug information of any build
using CreateProvider = CIMProvider* (*)(const String& name);

class InstanceCollector : public InstanceResponseHandler
{
public:
    explicit InstanceCollector(std::vector<Instance>& instances) : _instances(instances) {}
    void processing() override {}
    void complete() override {}
    void deliver(const CIMInstance& instance) override { _instances.push_back(toInstance(instance)); }
    void deliver(const Array<CIMInstance>& instances) override
    {
        for (Uint32 i = 0; i < instances.size(); ++i)
            deliver(instances[i]);
    }

private:
    std::vector<Instance>& _instances;
};

class PathCollector : public ObjectPathResponseHandler
{
public:
    explicit PathCollector(std::vector<Instance>& instances) : _instances(instances) {}
    void processing() override {}
    void complete() override {}
    void deliver(const CIMObjectPath& path) override { _instances.push_back(toInstance(path)); }
    void deliver(const Array<CIMObjectPath>& paths) override
    {
        for (Uint32 i = 0; i < paths.size(); ++i)
            deliver(paths[i]);
    }

private:
    std::vector<Instance>& _instances;
};

class ResultCollector : public MethodResultResponseHandler
{
public:
    explicit ResultCollector(std::optional<Value>& result) : _result(result) {}
    void processing() override {}
    void complete() override {}
    void deliver(const CIMValue& value) override { _result = toValue(value); }
    void deliverParamValue(const CIMParamValue&) override {}
    void deliverParamValue(const Array<CIMParamValue>&) override {}

private:
    std::optional<Value>& _result;
};

// What a CIM server would report of a request that ends in an exception.
std::optional<Failure> failureOf(const std::function<void()>& request)
{
    try {
        request();
        return std::nullopt;
    } catch (const CIMException& error) {
        return Failure{cimStatusCodeToString(error.getCode()), toText(error.getMessage())};
    } catch (const Exception& error) {
        return Failure{cimStatusCodeToString(CIM_ERR_FAILED), toText(error.getMessage())};
    } catch (const std::exception& error) {
        return Failure{cimStatusCodeToString(CIM_ERR_FAILED), error.what()};
    } catch (...) {
        return Failure{cimStatusCodeToString(CIM_ERR_FAILED), "an exception of an unknown type"};
    }
}

// The provider gives no text for a class that it does not serve.
void explainInvalidClass(std::optional<Failure>& failure, const std::string& className)
{
    if (!failure || failure->code != cimStatusCodeToString(CIM_ERR_INVALID_CLASS) || !failure->text.empty())
        return;
    failure->text = classAdvice(className);
}

CIMObjectPath classPath(const std::string& className)
{
    return CIMObjectPath(String::EMPTY, CIMNamespaceName(), CIMName(className.c_str()));
}

bool needs(const std::string& file, const std::string& library)
{
    const std::vector<std::string> needed = neededLibraries(file);
    return std::any_of(needed.begin(), needed.end(),
                       [&library](const std::string& name) { return name.compare(0, library.size(), library) == 0; });
}

// The two CIM libraries have the same names and other objects behind them. A module of the other one must be turned
// away before its first line runs, so the file's table of needed libraries is asked and not the loader.
void refuseOtherCimLibrary(const std::string& file)
{
    const std::string standalone = "libvqcim.so";
    const std::string openPegasus = "libpegcommon.so";
    const bool ownIsStandalone = std::string(VQ_CIM_LIBRARY) == "standalone";
    if (needs(file, ownIsStandalone ? openPegasus : standalone))
        throw LoadError("cannot load " + file + ": it was built with the " +
                        (ownIsStandalone ? "openpegasus" : "standalone") +
                        " CIM library, and this vqinventory with the " VQ_CIM_LIBRARY " one");
}

const std::string& checkedModule(const std::string& file)
{
    const std::string unfit = unfitReason(file, MaxModuleSize);
    if (!unfit.empty())
        throw LoadError("cannot load " + file + ": " + unfit);
    refuseOtherCimLibrary(file);
    return file;
}
}

Module::Module(const std::string& file) : _library(checkedModule(file), RTLD_LAZY | RTLD_GLOBAL)
{
    const auto create = reinterpret_cast<CreateProvider>(_library.symbol("PegasusCreateProvider"));
    const auto failure = failureOf([this, create] { _provider.reset(create(ProviderName)); });
    if (failure)
        throw LoadError(file + " failed to create its provider: " + failure->text);
    _instances = dynamic_cast<CIMInstanceProvider*>(_provider.get());
    _methods = dynamic_cast<CIMMethodProvider*>(_provider.get());
    if (!_instances || !_methods)
        throw LoadError(file + " has no provider \"" + ProviderName + "\" of instances and methods");
    if (const auto refusal = failureOf([this] { _provider->initialize(_handle); }))
        throw LoadError(file + " failed to initialize its provider: " + refusal->text);
}

void Module::Terminate::operator()(CIMProvider* provider) const
{
    // There is nobody left to tell of a failure.
    failureOf([provider] { provider->terminate(); });
}

Answer Module::enumerate(const std::string& className)
{
    Answer answer{className, {}, {}};
    InstanceCollector collector(answer.instances);
    answer.failure = failureOf([&] {
        _instances->enumerateInstances(OperationContext(), classPath(className), false, false, CIMPropertyList(),
                                       collector);
    });
    explainInvalidClass(answer.failure, answer.className);
    return answer;
}

Answer Module::names(const std::string& className)
{
    Answer answer{className, {}, {}};
    PathCollector collector(answer.instances);
    answer.failure =
        failureOf([&] { _instances->enumerateInstanceNames(OperationContext(), classPath(className), collector); });
    explainInvalidClass(answer.failure, answer.className);
    return answer;
}

Answer Module::get(const std::string& path)
{
    Answer answer{path, {}, {}};
    InstanceCollector collector(answer.instances);
    answer.failure = failureOf([&] {
        const CIMObjectPath reference(path.c_str());
        answer.className = canonicalClassName(toText(reference.getClassName().getString()));
        _instances->getInstance(OperationContext(), reference, false, false, CIMPropertyList(), collector);
    });
    explainInvalidClass(answer.failure, answer.className);
    if (!answer.failure && answer.instances.empty())
        answer.failure = Failure{cimStatusCodeToString(CIM_ERR_NOT_FOUND), "no such instance: " + path};
    return answer;
}

MethodAnswer Module::invoke(const std::string& className, const std::string& method)
{
    MethodAnswer answer{className, method, {}, {}};
    ResultCollector collector(answer.returnValue);
    answer.failure = failureOf([&] {
        _methods->invokeMethod(OperationContext(), classPath(className), CIMName(method.c_str()),
                               Array<CIMParamValue>(), collector);
    });
    if (!answer.failure && !answer.returnValue)
        answer.failure = Failure{cimStatusCodeToString(CIM_ERR_METHOD_NOT_FOUND),
                                 "the module did not answer the call of " + method +
                                     "; the methods are Reboot and Shutdown of QORTAL_OperatingSystem"};
    return answer;
}

std::string defaultModuleFile()
{
    namespace fs = std::filesystem;
    const fs::path directory = fs::read_symlink("/proc/self/exe").parent_path();
    std::string tried;
    for (const char* relative : {VQ_INSTALLED_MODULE, VQ_BUILT_MODULE}) {
        const fs::path file = (directory / relative).lexically_normal();
        if (fs::exists(file))
            return file;
        tried += (tried.empty() ? "" : " or ") + file.string();
    }
    throw LoadError("cannot find the module " + tried + "; name it by --module FILE");
}

}
