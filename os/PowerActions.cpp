#include "os/OperatingSystem.h"

#include <cstdio>
#include <sys/reboot.h>

namespace VQ
{

// The two differ on purpose: a shutdown goes through the system's own program, so that services stop in order; a
// reboot goes straight to the kernel.

int OperatingSystem::systemShutdown() const
{
    if (FILE* output = popen("/sbin/shutdown -h now", "r"))
        pclose(output);
    return 1;
}

int OperatingSystem::systemReboot() const
{
    return reboot(RB_AUTOBOOT);
}

}
