// Defines the libc functions by which a machine is stopped, and writes each call into the file that VQ_POWER_LOG names.
// For LD_PRELOAD. The first line tells whether a library that is loaded later really gets these functions.

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <string>

#define EXPORT extern "C" __attribute__((visibility("default")))

namespace
{
void record(const char* call)
{
    const char* file = std::getenv("VQ_POWER_LOG");
    std::FILE* log = file ? std::fopen(file, "a") : nullptr;
    if (!log)
        std::abort(); // an action that leaves no trace would pass for one that was not asked for
    std::fprintf(log, "%s\n", call);
    std::fclose(log);
}

std::FILE* const Opened = stderr; // any stream will do: nobody reads from it
}

EXPORT int reboot(int command)
{
    char call[32];
    std::snprintf(call, sizeof call, "reboot 0x%X", static_cast<unsigned>(command));
    record(call);
    return std::getenv("VQ_POWER_REFUSED") ? -1 : 0;
}

EXPORT std::FILE* popen(const char* command, const char* mode)
{
    record((std::string("popen ") + command + " " + mode).c_str());
    return Opened;
}

EXPORT int pclose(std::FILE* stream)
{
    record(stream == Opened ? "pclose" : "pclose of another stream");
    return 0;
}

namespace
{
__attribute__((constructor)) void tellWhetherArmed()
{
    const bool armed = dlsym(RTLD_DEFAULT, "reboot") == reinterpret_cast<void*>(&reboot) &&
                       dlsym(RTLD_DEFAULT, "popen") == reinterpret_cast<void*>(&popen) &&
                       dlsym(RTLD_DEFAULT, "pclose") == reinterpret_cast<void*>(&pclose);
    record(armed ? "armed" : "not armed");
}
}
