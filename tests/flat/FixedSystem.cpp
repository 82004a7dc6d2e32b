#include "tests/flat/FixedSystem.h"

#include <cstring>
#include <ctime>
#include <langinfo.h>
#include <sys/sysinfo.h>
#include <sys/utsname.h>

FixedSystem& fixedSystem()
{
    static FixedSystem system;
    return system;
}

// The definitions that this program and its libraries call in place of libc's.
#define ANSWER extern "C" __attribute__((visibility("default")))

ANSWER time_t time(time_t* result) noexcept
{
    if (result)
        *result = fixedSystem().now;
    return fixedSystem().now;
}

ANSWER tm* localtime_r(const time_t* instant, tm* fields) noexcept
{
    const long secondsEast = fixedSystem().minutesEast * 60L;
    const time_t local = *instant + secondsEast;
    gmtime_r(&local, fields);
    fields->tm_gmtoff = secondsEast;
    return fields;
}

ANSWER int sysinfo(struct sysinfo* figures) noexcept
{
    const FixedSystem& system = fixedSystem();
    *figures = {};
    figures->uptime = system.uptime;
    figures->totalram = system.totalram;
    figures->freeram = system.freeram;
    figures->totalswap = system.totalswap;
    figures->procs = system.procs;
    figures->mem_unit = 4096; // no accessor may look at it
    return 0;
}

ANSWER int uname(utsname* names) noexcept
{
    *names = {};
    std::strcpy(names->sysname, "sysname");
    std::strcpy(names->version, "version");
    std::strcpy(names->machine, "machine");
    fixedSystem().release.copy(names->release, sizeof names->release - 1);
    fixedSystem().nodename.copy(names->nodename, sizeof names->nodename - 1);
    return 0;
}

ANSWER char* nl_langinfo(nl_item item) noexcept
{
    static char other[] = "not the code set";
    return item == CODESET ? fixedSystem().codeSet.data() : other;
}
