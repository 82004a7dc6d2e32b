/* A C program over systemprovider_load.h: every call with what it must refuse, and the plain functions. It prints what
 * it finds, line by line, for the test that runs it.
 *
 *     flat_load_calls MODULE [DUMP] */

#define _XOPEN_SOURCE 700

#include "flat/systemprovider_load.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static const char* state(const void* pointer)
{
    return pointer ? "given" : "null";
}

static void callWithNothing(void)
{
    const void* const records[12] = {systemProviderRead(NULL),
                                     systemProviderFunctions(NULL),
                                     systemProviderComputerSystem(NULL),
                                     systemProviderOperatingSystem(NULL),
                                     systemProviderBios(NULL),
                                     systemProviderChassis(NULL),
                                     systemProviderConfigurationOptions(NULL),
                                     systemProviderFirmware(NULL, 0),
                                     systemProviderBaseBoard(NULL, 0),
                                     systemProviderCache(NULL, 0),
                                     systemProviderPort(NULL, 0),
                                     systemProviderSlot(NULL, 0)};
    size_t i;
    printf("of nothing:");
    for (i = 0; i < sizeof records / sizeof *records; ++i)
        printf(" %s", state(records[i]));
    printf("\ncounts of nothing: %u %u %u %u %u\n", (unsigned)systemProviderFirmwareCount(NULL),
           (unsigned)systemProviderBaseBoardCount(NULL), (unsigned)systemProviderCacheCount(NULL),
           (unsigned)systemProviderPortCount(NULL), (unsigned)systemProviderSlotCount(NULL));
    systemProviderClose(NULL);
    systemProviderFree(NULL);
}

static void callBeyondTheEnd(const SystemProviderInventory* inventory)
{
    const size_t ends[5] = {systemProviderFirmwareCount(inventory), systemProviderBaseBoardCount(inventory),
                            systemProviderCacheCount(inventory), systemProviderPortCount(inventory),
                            systemProviderSlotCount(inventory)};
    const size_t beyond[3] = {0, 1, (size_t)-1};
    size_t i;
    printf("counts: %u %u %u %u %u\n", (unsigned)ends[0], (unsigned)ends[1], (unsigned)ends[2], (unsigned)ends[3],
           (unsigned)ends[4]);
    for (i = 0; i < 3; ++i) {
        const size_t past = beyond[i];
        const int far = past == (size_t)-1;
        printf("beyond the end: %s %s %s %s %s\n",
               state(systemProviderFirmware(inventory, far ? past : ends[0] + past)),
               state(systemProviderBaseBoard(inventory, far ? past : ends[1] + past)),
               state(systemProviderCache(inventory, far ? past : ends[2] + past)),
               state(systemProviderPort(inventory, far ? past : ends[3] + past)),
               state(systemProviderSlot(inventory, far ? past : ends[4] + past)));
    }
}

static void callPlainFunctions(const SystemProvider* module)
{
    const SystemProviderFunctions* plain = systemProviderFunctions(module);
    const unsigned char* const* address = (const unsigned char* const*)plain;
    unsigned missing = 0;
    size_t i;
    for (i = 0; i < sizeof *plain / sizeof *address; ++i)
        missing += !address[i];
    printf("plain functions: %u, %u missing; %d slots\n", (unsigned)i, missing, plain->getSlotCount());
}

int main(int argc, char** argv)
{
    char before[4096] = "";
    char after[4096] = "";
    SystemProvider* module;
    SystemProviderInventory* inventory;
    if (argc != 2 && argc != 3)
        return 2;
    callWithNothing();
    printf("error before any: \"%s\"\n", systemProviderError());
    if (!getcwd(before, sizeof before))
        return 3;
    module = systemProviderOpen(argv[1], argc == 3 ? argv[2] : NULL);
    inventory = systemProviderRead(module);
    if (!getcwd(after, sizeof after) || strcmp(before, after) != 0)
        printf("the working directory became %s\n", after);
    if (!inventory) {
        printf("error: %s\n", systemProviderError());
        systemProviderClose(module);
        return 1;
    }
    callPlainFunctions(module);
    /* Any file will do, such as this program, as the module is never asked for it. */
    if (argc == 2 && !systemProviderOpen(argv[1], argv[0]))
        printf("a dump beside the machine: %s\n", systemProviderError());
    systemProviderClose(module);
    callBeyondTheEnd(inventory);
    printf("virtual or not, the computer has a name: %s\n",
           *systemProviderComputerSystem(inventory)->name ? "yes" : "no");
    systemProviderFree(inventory);
    return 0;
}
