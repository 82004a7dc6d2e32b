/* Prints the inventory of this machine, or of a dump, in the way that most programs should: through
 * systemprovider_load.h, where no call has a buffer and each failure has a text.
 *
 *     cc inventory.c $(pkg-config --cflags --libs systemprovider) -o inventory
 *     inventory [--module MODULE] [DUMP]
 *
 * MODULE is the path of a libSystemProvider.so, the installed one without. DUMP is a file of `dmidecode --dump-bin` to
 * read in place of the machine's own SMBIOS table, which only root can read. Exit code 0, 1 when something can't be
 * read, 2 for a wrong call. */

#include "systemprovider_load.h"

#include <stdio.h>
#include <string.h>

static void showTexts(const char* name, const SystemProviderTexts* texts)
{
    size_t i;
    printf("  %s:", name);
    for (i = 0; i < texts->count; ++i)
        printf("%s %s", i == 0 ? "" : ",", texts->values[i]);
    printf("\n");
}

static void showNumbers(const char* name, const SystemProviderNumbers* numbers)
{
    size_t i;
    printf("  %s:", name);
    for (i = 0; i < numbers->count; ++i)
        printf(" %d", (int)numbers->values[i]);
    printf("\n");
}

static void showSystem(const SystemProviderInventory* inventory)
{
    const SystemProviderComputerSystem* computer = systemProviderComputerSystem(inventory);
    const SystemProviderOperatingSystem* os = systemProviderOperatingSystem(inventory);
    const SystemProviderChassis* chassis = systemProviderChassis(inventory);
    printf("Computer system\n  Name: %s\n  Model: %s\n  Description: %s\n", computer->name, computer->model,
           computer->description);
    printf("Operating system\n  Name: %s %s\n  Free memory: %llu KiB\n  Up since: %s\n", os->name, os->version,
           os->freePhysicalMemory, os->lastBootUpTime);
    printf("Chassis\n  Manufacturer: %s\n  Version: %s\n  Serial number: %s\n", chassis->manufacturer, chassis->version,
           chassis->serialNumber);
    showTexts("Options", systemProviderConfigurationOptions(inventory));
}

static void showFirmware(const SystemProviderInventory* inventory)
{
    const SystemProviderBios* bios = systemProviderBios(inventory);
    const SystemProviderFirmware* firmware;
    size_t i;
    printf("BIOS\n  Manufacturer: %s\n  Version: %s\n  Released: %s\n  SMBIOS: %s\n", bios->manufacturer, bios->version,
           bios->releaseDate, bios->smBiosVersion);
    showTexts("Languages", &bios->languages);
    /* Past the last one there is none: the call gives a null pointer. */
    for (i = 0; (firmware = systemProviderFirmware(inventory, i)) != NULL; ++i)
        printf("Firmware %lu\n  Name: %s\n  Version: %s\n", (unsigned long)i, firmware->name, firmware->version);
}

static void showHardware(const SystemProviderInventory* inventory)
{
    const SystemProviderBaseBoard* board;
    const SystemProviderCache* cache;
    const SystemProviderPort* port;
    const SystemProviderSlot* slot;
    size_t i;
    for (i = 0; (board = systemProviderBaseBoard(inventory, i)) != NULL; ++i)
        printf("Base board %lu\n  Product: %s %s\n  Serial number: %s\n", (unsigned long)i, board->manufacturer,
               board->product, board->serialNumber);
    for (i = 0; (cache = systemProviderCache(inventory, i)) != NULL; ++i)
        printf("Cache %lu\n  Designation: %s\n  Size: %u KB\n", (unsigned long)i, cache->designation, cache->size);
    for (i = 0; (port = systemProviderPort(inventory, i)) != NULL; ++i) {
        printf("Port %lu\n  Designator: %s\n", (unsigned long)i, port->externalReferenceDesignator);
        showNumbers("Connectors", &port->connectors);
    }
    for (i = 0; (slot = systemProviderSlot(inventory, i)) != NULL; ++i)
        printf("Slot %lu\n  Designation: %s\n", (unsigned long)i, slot->designation);
}

int main(int argc, char** argv)
{
    const char* path = NULL;
    SystemProvider* module;
    SystemProviderInventory* inventory;
    if (argc > 2 && strcmp(argv[1], "--module") == 0) {
        path = argv[2];
        argc -= 2;
        argv += 2;
    }
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
        fprintf(stderr, "usage: inventory [--module MODULE] [DUMP]\n");
        return 2;
    }
    module = systemProviderOpen(path, argc == 2 ? argv[1] : NULL);
    inventory = systemProviderRead(module); /* also null where the module is */
    systemProviderClose(module);
    if (!inventory) {
        fprintf(stderr, "inventory: %s\n", systemProviderError());
        return 1;
    }
    showSystem(inventory);
    showFirmware(inventory);
    showHardware(inventory);
    systemProviderFree(inventory);
    return 0;
}
