#include "tests/testing/FakeLibc.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <sys/sysinfo.h>

namespace
{
// Set up before any code runs: the loader and the sanitizers may ask before `main`.
constexpr FakeLibc AtFirst = {{}, false, 0, {"", "test-host", "", "", "", ""}, false, 0, 0, 0, false, 0, "", 0};
FakeLibc answers = AtFirst;

const char* const LanguageVariables[] = {"LANG", "LC_CTYPE", "LC_ALL"};

int failWith(int error)
{
    errno = error;
    return -1;
}
}

FakeLibc& fakeLibc()
{
    return answers;
}

void FakeLibc::setHostName(const std::string& name)
{
    std::memset(names.nodename, 0, sizeof names.nodename);
    name.copy(names.nodename, sizeof names.nodename - 1);
}

FakeLibcTest::FakeLibcTest()
{
    answers = AtFirst;
    for (const char* variable : LanguageVariables) {
        const char* value = std::getenv(variable);
        _environment[variable] = value ? std::optional<std::string>(value) : std::nullopt;
        unsetenv(variable);
    }
}

FakeLibcTest::~FakeLibcTest()
{
    for (const auto& [variable, value] : _environment) {
        if (value)
            setenv(variable.c_str(), value->c_str(), 1);
        else
            unsetenv(variable.c_str());
    }
}

[[gnu::noinline]] void soilStack()
{
    volatile unsigned char area[32 * 1024];
    for (volatile unsigned char& byte : area)
        byte = 0xA5;
}

// Exported, so that the libraries of the program call these too.
#pragma GCC visibility push(default)
extern "C" {

int sysinfo(struct sysinfo* figures) noexcept
{
    ++answers.sysinfoCalls;
    if (answers.sysinfoFails)
        return failWith(EFAULT);
    const auto& fixed = answers.figures;
    *figures = {};
    figures->uptime = fixed.uptime;
    figures->totalram = fixed.totalram;
    figures->freeram = fixed.freeram;
    figures->sharedram = fixed.sharedram;
    figures->bufferram = fixed.bufferram;
    figures->totalswap = fixed.totalswap;
    figures->freeswap = fixed.freeswap;
    figures->procs = fixed.procs;
    figures->mem_unit = fixed.mem_unit;
    return 0;
}

int uname(utsname* names) noexcept
{
    if (answers.unameFails)
        return failWith(EFAULT);
    *names = answers.names;
    return 0;
}

std::time_t time(std::time_t* instant) noexcept
{
    if (instant)
        *instant = answers.now;
    return answers.now;
}

std::tm* localtime_r(const std::time_t* instant, std::tm* fields) noexcept
{
    if (answers.localtimeFails) {
        errno = EOVERFLOW;
        return nullptr;
    }
    const bool isSummer = answers.summer != 0 && *instant >= answers.summer;
    const long offset = answers.gmtOffset + (isSummer ? 3600 : 0);
    const std::time_t shifted = *instant + offset;
    gmtime_r(&shifted, fields);
    fields->tm_gmtoff = offset;
    fields->tm_zone = "TEST";
    return fields;
}

std::tm* localtime(const std::time_t* instant) noexcept
{
    static std::tm fields;
    ++answers.localtimeCalls;
    return localtime_r(instant, &fields);
}

char* nl_langinfo(nl_item item) noexcept
{
    ++answers.langinfoCalls;
    static char empty[] = "";
    return item == CODESET ? const_cast<char*>(answers.codeSet) : empty;
}
}
#pragma GCC visibility pop
