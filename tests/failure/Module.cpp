#include "tests/failure/Module.h"

#include "tests/failure/Injection.h"
#include "tests/testing/CimLines.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/OperationContext.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <ostream>
#include <stdexcept>

using namespace Pegasus;

const char* const AllClasses[9] = {
    "QORTAL_BIOS", "QORTAL_Chassis",        "QORTAL_BaseBoard",       "QORTAL_CacheMemory", "QORTAL_Port",
    "QORTAL_Slot", "QORTAL_ComputerSystem", "QORTAL_OperatingSystem", "QORx_SystemMemory",
};

namespace
{
constexpr std::size_t Room = 64; // more than any answer of the test's machine has

int countLibrary(dl_phdr_info*, std::size_t, void* count)
{
    ++*static_cast<int*>(count);
    return 0;
}
}

bool Holdings::operator==(const Holdings& other) const
{
    return blocks == other.blocks && descriptors == other.descriptors && libraries == other.libraries;
}

Holdings holdings()
{
    dlerror(); // the loader keeps the text of its last error until it is asked twice
    dlerror();
    Holdings held{liveBlocks(), 0, 0};
    for (int descriptor = 0; descriptor < 256; ++descriptor)
        held.descriptors += fcntl(descriptor, F_GETFD) >= 0;
    dl_iterate_phdr(countLibrary, &held.libraries);
    return held;
}

std::ostream& operator<<(std::ostream& out, const Holdings& held)
{
    return out << held.blocks << " blocks, " << held.descriptors << " descriptors, " << held.libraries << " libraries";
}

void* loadModule()
{
    return dlopen(VQ_LIB_DIR "/libSystemProvider.so", RTLD_LAZY | RTLD_GLOBAL);
}

CIMProvider* createProvider(void* module)
{
    static const String name("SystemProvider");
    using Create = CIMProvider* (*)(const String&);
    return reinterpret_cast<Create>(dlsym(module, "PegasusCreateProvider"))(name);
}

LoadedModule::LoadedModule() : _handle(loadModule()), _provider(nullptr)
{
    if (!_handle)
        throw std::runtime_error(dlerror());
    _provider = createProvider(_handle);
    CIMOMHandle server;
    _provider->initialize(server);
}

LoadedModule::~LoadedModule()
{
    _provider->terminate();
    dlclose(_handle);
}

struct Request::Instances : InstanceResponseHandler
{
    explicit Instances(Request& request) : to(request) {}
    void processing() override { to._calls.push_back("processing"); }
    void complete() override { to._calls.push_back("complete"); }
    void deliver(const CIMInstance& instance) override { to._delivered.push_back(instance); }
    void deliver(const Array<CIMInstance>&) override { to._calls.push_back("array"); }
    Request& to;
};

struct Request::Paths : ObjectPathResponseHandler
{
    explicit Paths(Request& request) : to(request) {}
    void processing() override { to._calls.push_back("processing"); }
    void complete() override { to._calls.push_back("complete"); }
    void deliver(const CIMObjectPath& path) override { to._paths.push_back(path); }
    void deliver(const Array<CIMObjectPath>&) override { to._calls.push_back("array"); }
    Request& to;
};

struct Request::Result : MethodResultResponseHandler
{
    explicit Result(Request& request) : to(request) {}
    void processing() override { to._calls.push_back("processing"); }
    void complete() override { to._calls.push_back("complete"); }
    void deliver(const CIMValue&) override { to._calls.push_back("value"); }
    void deliverParamValue(const CIMParamValue&) override { to._calls.push_back("parameter"); }
    void deliverParamValue(const Array<CIMParamValue>&) override { to._calls.push_back("parameters"); }
    Request& to;
};

Request::Request(const LoadedModule& module, Operation operation, const char* className)
    : _instances(dynamic_cast<CIMInstanceProvider&>(module.provider())),
      _methods(dynamic_cast<CIMMethodProvider&>(module.provider())), _operation(operation),
      _path(String::EMPTY, CIMNamespaceName(), CIMName(className), Array<CIMKeyBinding>())
{
    _delivered.reserve(Room);
    _paths.reserve(Room);
    _calls.reserve(Room);
    if (operation == Operation::Get) {
        Paths paths(*this);
        _instances.enumerateInstanceNames(OperationContext(), _path, paths);
        _path = _paths.at(0);
        _paths.clear();
        _calls.clear();
    }
}

void Request::perform()
{
    static const OperationContext context;
    static const CIMPropertyList all;
    static const CIMInstance instance(CIMName("QORTAL_BIOS"));
    static const Array<CIMParamValue> none;
    static const CIMName reboot("Reboot");
    static const CIMName shutdown("Shutdown");
    Instances instances(*this);
    Paths paths(*this);
    Result result(*this);
    switch (_operation) {
    case Operation::Enumerate:
        return _instances.enumerateInstances(context, _path, false, false, all, instances);
    case Operation::Names:
        return _instances.enumerateInstanceNames(context, _path, paths);
    case Operation::Get:
        return _instances.getInstance(context, _path, false, false, all, instances);
    case Operation::Create:
        return _instances.createInstance(context, _path, instance, paths);
    case Operation::Modify:
        return _instances.modifyInstance(context, _path, instance, false, all, instances);
    case Operation::Delete:
        return _instances.deleteInstance(context, _path, instances);
    case Operation::Reboot:
        return _methods.invokeMethod(context, _path, reboot, none, result);
    case Operation::Shutdown:
        return _methods.invokeMethod(context, _path, shutdown, none, result);
    }
}

Lines Request::answer() const
{
    Lines lines(_calls.begin(), _calls.end());
    for (const CIMInstance& instance : _delivered) {
        lines.emplace_back("instance");
        for (const std::string& line : propertyLines(instance))
            lines.push_back(line);
        for (const std::string& line : keyLines(instance.getPath()))
            lines.push_back("key " + line);
    }
    for (const CIMObjectPath& path : _paths) {
        lines.emplace_back("path");
        for (const std::string& line : keyLines(path))
            lines.push_back("key " + line);
    }
    return lines;
}

std::string nameOf(Request::Operation operation, const char* className)
{
    static const char* const names[] = {"enumerate", "names",  "get",    "create",
                                        "modify",    "delete", "Reboot", "Shutdown"};
    return std::string(names[static_cast<int>(operation)]) + " " + className;
}
