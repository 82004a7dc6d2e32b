// Asks a loaded module for all classes, many times and from several threads, while others load and unload it, and says
// whether memory and descriptors grow.
//
//     endure MODULE READER DUMP REQUESTS THREADS LOADERS
//
// Files are named by their full paths. READER is the library that serves DUMP in place of the machine's own table. Each
// LOADER loads and unloads a copy of the module, whose static objects so come and go beside the others. Prints a line
// for each twentieth of the requests and the slope. Exit code 0 when every answer was right and nothing grew, else 1.

#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Pegasus;
using Lines = std::vector<std::string>;

namespace
{
constexpr int Samples = 20;
// What a process may grow in the second half of its requests: the allocator's, which settles late with many threads.
constexpr long GrowthAllowed = 256L * 1024;

const char* const Classes[] = {
    "QORTAL_BIOS", "QORTAL_Chassis",        "QORTAL_BaseBoard",       "QORTAL_CacheMemory", "QORTAL_Port",
    "QORTAL_Slot", "QORTAL_ComputerSystem", "QORTAL_OperatingSystem", "QORx_SystemMemory",
};
constexpr std::size_t ClassCount = std::size(Classes);

struct Collected : InstanceResponseHandler
{
    void processing() override {}
    void complete() override { completed = true; }
    void deliver(const CIMInstance& instance) override { instances.push_back(instance); }
    void deliver(const Array<CIMInstance>&) override {}
    std::vector<CIMInstance> instances;
    bool completed = false;
};

void* symbol(void* library, const char* name)
{
    void* const found = dlsym(library, name);
    if (!found)
        throw std::runtime_error(dlerror());
    return found;
}

void* load(const std::string& file, int mode)
{
    void* const library = dlopen(file.c_str(), mode);
    if (!library)
        throw std::runtime_error(dlerror());
    return library;
}

CIMProvider* createProvider(void* module)
{
    using Create = CIMProvider* (*)(const String&);
    CIMProvider* const provider = reinterpret_cast<Create>(symbol(module, "PegasusCreateProvider"))("SystemProvider");
    CIMOMHandle server;
    provider->initialize(server);
    return provider;
}

// What a request answers. Of the operating system, whose facts move, the names of the properties.
Lines ask(CIMProvider& provider, std::size_t which)
{
    Collected all;
    const CIMObjectPath path(String::EMPTY, CIMNamespaceName(), CIMName(Classes[which]), Array<CIMKeyBinding>());
    dynamic_cast<CIMInstanceProvider&>(provider).enumerateInstances(OperationContext(), path, false, false,
                                                                    CIMPropertyList(), all);
    Lines lines = {all.completed ? "complete" : "not complete"};
    for (const CIMInstance& instance : all.instances)
        for (std::string& line : propertyLines(instance))
            lines.push_back(std::string(Classes[which]) == "QORTAL_OperatingSystem" ? line.substr(0, line.find('|'))
                                                                                    : std::move(line));
    return lines;
}

struct Held
{
    long bytes = 0; ///< of anonymous memory that is resident
    long descriptors = 0;
};

Held held()
{
    Held now;
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string word; rollup >> word;)
        if (word == "Anonymous:" && rollup >> now.bytes)
            break;
    now.bytes *= 1024;
    const std::filesystem::directory_iterator open("/proc/self/fd");
    now.descriptors = std::distance(begin(open), end(open));
    return now;
}

struct Sample
{
    double requests;
    Held held;
};

// The slope of the second half, in bytes for a million requests, by least squares.
double slopeOf(const std::vector<Sample>& samples)
{
    const std::size_t first = samples.size() / 2;
    const auto n = static_cast<double>(samples.size() - first);
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    for (std::size_t i = first; i < samples.size(); ++i) {
        const double requests = samples[i].requests / 1e6;
        const auto bytes = static_cast<double>(samples[i].held.bytes);
        x += requests;
        y += bytes;
        xx += requests * requests;
        xy += requests * bytes;
    }
    const double width = n * xx - x * x;
    return width > 0 ? (n * xy - x * y) / width : 0;
}

class Endurance
{
public:
    Endurance(const std::string& module, long requests) : _module(module), _requests(requests)
    {
        _provider = createProvider(load(module, RTLD_NOW | RTLD_LOCAL));
        for (std::size_t i = 0; i < ClassCount; ++i)
            _expected.push_back(ask(*_provider, i));
    }

    // True when every answer was right.
    bool run(int threads, int loaders)
    {
        std::vector<std::thread> running;
        for (int i = 0; i < threads; ++i)
            running.emplace_back([this] { askOn(); });
        for (int i = 0; i < loaders; ++i)
            running.emplace_back([this, i] { loadOn(i); });
        sample();
        for (std::thread& thread : running)
            thread.join();
        std::printf("%ld requests, %ld wrong answers, %ld times loaded and unloaded\n",
                    std::min(_begun.load(), _requests), _wrong.load(), _loaded.load());
        return _wrong == 0;
    }

    const std::vector<Sample>& samples() const { return _samples; }

private:
    void askOn()
    {
        for (long i = _begun++; i < _requests; i = _begun++) {
            const std::size_t which = static_cast<std::size_t>(i) % ClassCount;
            _wrong += ask(*_provider, which) != _expected[which];
        }
    }

    void loadOn(int number)
    {
        const std::string copy = std::filesystem::temp_directory_path() /
                                 ("vq-endure-" + std::to_string(getpid()) + "-" + std::to_string(number) + ".so");
        std::filesystem::copy_file(_module, copy, std::filesystem::copy_options::overwrite_existing);
        while (_begun < _requests) {
            void* const module = loadLocked(copy);
            CIMProvider* const provider = createProvider(module);
            const std::size_t which = static_cast<std::size_t>(_loaded) % ClassCount;
            _wrong += ask(*provider, which) != _expected[which];
            provider->terminate();
            {
                const std::lock_guard<std::mutex> lock(_loader);
                dlclose(module);
            }
            ++_loaded;
        }
        std::filesystem::remove(copy);
    }

    void* loadLocked(const std::string& file)
    {
        const std::lock_guard<std::mutex> lock(_loader);
        return load(file, RTLD_NOW | RTLD_LOCAL);
    }

    void sample()
    {
        for (int i = 1; i <= Samples; ++i) {
            while (_begun < _requests * i / Samples)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            _samples.push_back({static_cast<double>(_begun), held()});
            std::printf("%10ld requests %10ld bytes %4ld descriptors\n", std::min(_begun.load(), _requests),
                        _samples.back().held.bytes, _samples.back().held.descriptors);
            std::fflush(stdout);
        }
    }

    std::string _module;
    long _requests;
    CIMProvider* _provider = nullptr;
    std::vector<Lines> _expected;
    std::mutex _loader; // as the loader's own, which a sanitizer does not see: one library takes another's addresses
    std::atomic<long> _begun{0};
    std::atomic<long> _wrong{0};
    std::atomic<long> _loaded{0};
    std::vector<Sample> _samples;
};

int numberOf(const char* text)
{
    return static_cast<int>(std::strtol(text, nullptr, 10));
}

int endure(char** argv)
{
    using Serve = void (*)(const char*);
    reinterpret_cast<Serve>(symbol(load(argv[2], RTLD_NOW | RTLD_GLOBAL), "vqServeSmBiosDump"))(argv[3]);
    Endurance endurance(argv[1], numberOf(argv[4]));
    const bool right = endurance.run(numberOf(argv[5]), numberOf(argv[6]));
    const std::vector<Sample>& samples = endurance.samples();
    const Held& middle = samples[samples.size() / 2 - 1].held;
    const Held& last = samples.back().held;
    std::printf("slope of the second half: %.0f bytes for a million requests; grown by %ld bytes and %ld descriptors\n",
                slopeOf(samples), last.bytes - middle.bytes, last.descriptors - middle.descriptors);
#ifdef __SANITIZE_THREAD__ // which keeps what it saw of every access
    return right ? 0 : 1;
#else
    // While modules are loaded, their files are open now and then.
    const bool loading = numberOf(argv[6]) > 0;
    const bool flat = last.bytes - middle.bytes <= GrowthAllowed && (loading || last.descriptors == middle.descriptors);
    return right && flat ? 0 : 1;
#endif
}
}

int main(int argc, char** argv)
{
    if (argc != 7 || numberOf(argv[4]) < Samples || numberOf(argv[5]) < 1) {
        std::fprintf(stderr, "usage: endure MODULE READER DUMP REQUESTS THREADS LOADERS\n");
        return 2;
    }
    try {
        return endure(argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "endure: %s\n", error.what());
        return 1;
    }
}
