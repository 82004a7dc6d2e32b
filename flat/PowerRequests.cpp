#include "flat/systemprovider.h"

#include <cstdio>

// A caller of the flat interface can ask, and no more: the machine is restarted or halted through the CIM methods only.

int Reboot()
{
    std::puts("Reboot requested");
    return 0;
}

int Shutdown()
{
    std::puts("Shutdown requested");
    return 0;
}
