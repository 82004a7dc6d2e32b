// What bench/compare counts: pieces of the module's work, and beside each the least that such work can cost. Each piece
// runs once before it is measured, so that nothing is counted that happens only at first use.
//
//   cost table FILE               writes the table of 620 structures as a dump
//   cost pass MODULE DUMP...      all nine classes once, for each dump
//   cost class MODULE CLASS DUMP  one class
//   cost read DUMP                the reader: the file, entry point, structures
//   cost scan DUMP                the floor below it: one pass over the bytes with memchr
//   cost build CACHES             the floor below a cache enumeration: its instances from ready names and values

#include "bench/Floors.h"
#include "bench/Measured.h"
#include "support/smbios/DumpSource.h"
#include "support/smbios/SmBios.h"
#include "tests/testing/LargeTables.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Pegasus;

namespace
{
constexpr const char* Classes[] = {
    "QORTAL_BIOS", "QORTAL_Chassis",        "QORTAL_BaseBoard",       "QORTAL_CacheMemory", "QORTAL_Port",
    "QORTAL_Slot", "QORTAL_ComputerSystem", "QORTAL_OperatingSystem", "QORx_SystemMemory"};

void* loaded(const char* file, int flags)
{
    if (void* library = dlopen(file, flags))
        return library;
    throw std::runtime_error(dlerror());
}

template <class Function> Function function(void* library, const char* name)
{
    if (void* found = dlsym(library, name))
        return reinterpret_cast<Function>(found);
    throw std::runtime_error(dlerror());
}

// Keeps no instance, as a server does that sends each one on.
class Receiver : public InstanceResponseHandler
{
public:
    void processing() override {}
    void complete() override {}
    void deliver(const CIMInstance&) override { ++instances; }
    void deliver(const Array<CIMInstance>& array) override { instances += array.size(); }

    Uint32 instances = 0;
};

class Module
{
public:
    explicit Module(const char* file)
        : _provider(function<CIMProvider* (*)(const String&)>(loaded(file, RTLD_LAZY | RTLD_GLOBAL),
                                                              "PegasusCreateProvider")("SystemProvider")),
          _instances(dynamic_cast<CIMInstanceProvider&>(*_provider))
    {
        CIMOMHandle handle;
        _provider->initialize(handle);
    }
    ~Module() { _provider->terminate(); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    Uint32 enumerate(const CIMObjectPath& path)
    {
        _receiver.instances = 0;
        _instances.enumerateInstances(_context, path, false, false, _properties, _receiver);
        return _receiver.instances;
    }

private:
    CIMProvider* _provider;
    CIMInstanceProvider& _instances;
    // What the server makes for a request is no cost of the module.
    const OperationContext _context{};
    const CIMPropertyList _properties{};
    Receiver _receiver;
};

CIMObjectPath pathOf(const char* className)
{
    return CIMObjectPath(String::EMPTY, CIMNamespaceName(), CIMName(className));
}

template <class Work> void measureSecondRun(const char* name, const Work& work)
{
    const std::size_t count = work();
    measured([&work] { work(); });
    std::printf("%s %zu\n", name, count);
}

void pass(const char* module, char** dumps)
{
    Module provider(module);
    std::vector<CIMObjectPath> paths;
    for (const char* name : Classes)
        paths.push_back(pathOf(name));
    for (; *dumps; ++dumps) {
        vqServeSmBiosDump(*dumps);
        measureSecondRun(*dumps, [&] {
            std::size_t instances = 0;
            for (const CIMObjectPath& path : paths)
                instances += provider.enumerate(path);
            return instances;
        });
    }
}

void oneClass(const char* module, const char* className, const char* dump)
{
    Module provider(module);
    vqServeSmBiosDump(dump);
    const CIMObjectPath path = pathOf(className);
    measureSecondRun(className, [&] { return provider.enumerate(path); });
}

void read(const char* dump)
{
    vqServeSmBiosDump(dump);
    measureSecondRun("read", [] { return VQ::SmBios().getTables().size(); });
}

std::vector<unsigned char> bytesOf(const char* file)
{
    std::ifstream in(file, std::ios::binary);
    std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (bytes.size() < 32)
        throw std::runtime_error(std::string(file) + ": no dump");
    return bytes;
}

void scan(const char* dump)
{
    const std::vector<unsigned char> bytes = bytesOf(dump);
    // A dump has its table at byte 32, whichever entry point is before it.
    measureSecondRun("scan", [&] { return structuresIn(bytes.data() + 32, bytes.size() - 32); });
}

void build(const char* caches)
{
    const auto count = static_cast<std::size_t>(std::strtoul(caches, nullptr, 10));
    const CacheFloor floor(count);
    measureSecondRun("build", [&] {
        Receiver receiver;
        for (std::size_t i = 0; i < count; ++i)
            floor.deliver(i, receiver);
        return receiver.instances;
    });
}

void writeTable(const char* file)
{
    const std::vector<unsigned char> dump = bigMachine().dump();
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(dump.data()), static_cast<std::streamsize>(dump.size()));
    if (!out.flush())
        throw std::runtime_error(std::string("cannot write ") + file);
}

bool run(int count, char** values)
{
    const std::string what = count > 1 ? values[1] : "";
    const auto given = [&](const char* name, int arguments) { return what == name && count == arguments + 2; };
    if (given("table", 1))
        writeTable(values[2]);
    else if (what == "pass" && count >= 4)
        pass(values[2], values + 3);
    else if (given("class", 3))
        oneClass(values[2], values[3], values[4]);
    else if (given("read", 1))
        read(values[2]);
    else if (given("scan", 1))
        scan(values[2]);
    else if (given("build", 1))
        build(values[2]);
    else
        return false;
    return true;
}
}

int main(int count, char** values)
{
    try {
        if (run(count, values))
            return 0;
        std::fprintf(stderr, "cost: wrong arguments; see the head of bench/Cost.cpp\n");
        return 2;
    } catch (const Exception& error) {
        std::fprintf(stderr, "cost: %s\n", static_cast<const char*>(error.getMessage().getCString()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cost: %s\n", error.what());
    }
    return 1;
}
