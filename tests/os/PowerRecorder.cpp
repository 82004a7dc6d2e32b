#include "tests/os/PowerRecorder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <mutex>
#include <spawn.h>
#include <sys/reboot.h>
#include <unistd.h>

namespace
{
std::mutex callsMutex;
char stream; // stands for the one that popen returns

void record(const std::string& call)
{
    const std::lock_guard<std::mutex> lock(callsMutex);
    powerRecorder().calls.push_back(call);
}

int refuse(const char* function)
{
    record(function);
    errno = EPERM;
    return -1;
}

void runDuring()
{
    if (powerRecorder().during)
        powerRecorder().during();
}

// Runs before the first test. It ends the program at once: a failed assertion here would show as skipped tests.
class OnlyRecordedActions : public testing::Environment
{
public:
    void SetUp() override
    {
        for (const char* function : recordedFunctions()) {
            if (bindsToThisProgram(function))
                continue;
            std::fprintf(stderr, "%s would be the real one; no test is run\n", function);
            std::_Exit(EXIT_FAILURE);
        }
    }
};

[[maybe_unused]] testing::Environment* const onlyRecorded = testing::AddGlobalTestEnvironment(new OnlyRecordedActions);
}

PowerRecorder& powerRecorder()
{
    static PowerRecorder recorder;
    return recorder;
}

const std::vector<const char*>& recordedFunctions()
{
    static const std::vector<const char*> functions = {
        "reboot", "popen", "pclose", "sync",   "system",  "fork",    "vfork",       "execl",        "execlp",
        "execle", "execv", "execvp", "execve", "execvpe", "fexecve", "posix_spawn", "posix_spawnp",
    };
    return functions;
}

bool liesInThisProgram(const void* address)
{
    Dl_info found;
    Dl_info own;
    return dladdr(address, &found) && dladdr(&stream, &own) && found.dli_fbase == own.dli_fbase;
}

bool bindsToThisProgram(const char* function)
{
    const void* address = dlsym(RTLD_DEFAULT, function);
    return address && liesInThisProgram(address);
}

// Exported, so that the libraries of the program call these too.
#pragma GCC visibility push(default)
extern "C" {

int reboot(int command) noexcept
{
    char call[32];
    std::snprintf(call, sizeof call, "reboot 0x%08X", static_cast<unsigned int>(command));
    record(call);
    runDuring();
    if (powerRecorder().rebootResult == -1)
        errno = EPERM;
    return powerRecorder().rebootResult;
}

FILE* popen(const char* command, const char* mode)
{
    record(std::string("popen [") + command + "] " + mode);
    runDuring();
    return powerRecorder().popenFails ? nullptr : reinterpret_cast<FILE*>(&stream);
}

int pclose(FILE* closed)
{
    record(closed == reinterpret_cast<FILE*>(&stream) ? "pclose" : "pclose of another stream");
    return powerRecorder().pcloseResult;
}

void sync() noexcept
{
    record("sync");
}

int system(const char*)
{
    return refuse("system");
}

pid_t fork() noexcept
{
    return refuse("fork");
}

pid_t vfork() noexcept
{
    return refuse("vfork");
}

int execl(const char*, const char*, ...) noexcept
{
    return refuse("execl");
}

int execlp(const char*, const char*, ...) noexcept
{
    return refuse("execlp");
}

int execle(const char*, const char*, ...) noexcept
{
    return refuse("execle");
}

int execv(const char*, char* const*) noexcept
{
    return refuse("execv");
}

int execvp(const char*, char* const*) noexcept
{
    return refuse("execvp");
}

int execve(const char*, char* const*, char* const*) noexcept
{
    return refuse("execve");
}

int execvpe(const char*, char* const*, char* const*) noexcept
{
    return refuse("execvpe");
}

int fexecve(int, char* const*, char* const*) noexcept
{
    return refuse("fexecve");
}

int posix_spawn(pid_t*, const char*, const posix_spawn_file_actions_t*, const posix_spawnattr_t*, char* const*,
                char* const*)
{
    refuse("posix_spawn");
    return EPERM;
}

int posix_spawnp(pid_t*, const char*, const posix_spawn_file_actions_t*, const posix_spawnattr_t*, char* const*,
                 char* const*)
{
    refuse("posix_spawnp");
    return EPERM;
}
}
#pragma GCC visibility pop
