/* What it costs to hold an inventory through systemprovider_load.h, beside the plain functions of the flat interface.
 *
 *     flat_cost DUMP [ROUNDS]
 *
 * Prints the median of so many rounds (201), in time of the processor: of loading the module and reading all of it, as
 * a program does once; of reading alone, beside `init` and each accessor once into a buffer that is there already; and
 * of the facts of an inventory that is held, beside the same accessors. Exit code 1 where a goal is missed. */

#define _XOPEN_SOURCE 700

#include "flat/systemprovider_load.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

static char* buffer;           /* of the plain functions */
static unsigned long long sum; /* of all that is read, so that the compiler leaves none of it out */

static SystemProvider* module;
static const SystemProviderFunctions* plain;
static SystemProviderInventory* inventory;
static const char* dump;

static double now(void)
{
    struct timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return 1e6 * (double)time.tv_sec + 1e-3 * (double)time.tv_nsec;
}

static void require(const void* result)
{
    if (result)
        return;
    fprintf(stderr, "flat_cost: %s\n", systemProviderError());
    exit(1);
}

static void look(const char* text)
{
    sum += (unsigned char)*text;
}

#define PLAIN(get) (plain->get(buffer), look(buffer))
#define PLAIN_AT(get, index) (plain->get(buffer, index), look(buffer))

static void callPlainRecords(void)
{
    unsigned int i;
    for (i = 0; i < (unsigned int)plain->getBBCount(); ++i) {
        PLAIN_AT(getBBManufacturer, i);
        PLAIN_AT(getBBProduct, i);
        PLAIN_AT(getBBVersion, i);
        PLAIN_AT(getBBSerialNumber, i);
        PLAIN_AT(getBBAssetTag, i);
        PLAIN_AT(getBBLocation, i);
    }
    for (i = 0; i < (unsigned int)plain->getCacheCount(); ++i) {
        PLAIN_AT(getCacheDesignation, i);
        sum += (unsigned)plain->getCacheAssociativity(i) + (unsigned)plain->getCacheLevel(i) + plain->getCacheSpeed(i) +
               plain->getCacheSize(i) + plain->getCacheNumberOfBlocks(i);
    }
    for (i = 0; i < (unsigned int)plain->getPortCount(); ++i) {
        PLAIN_AT(getPortInternalReferenceDesignator, i);
        PLAIN_AT(getPortExternalReferenceDesignator, i);
        sum += (unsigned)plain->getPortType(i);
        PLAIN_AT(getPortConnectors, i);
    }
    for (i = 0; i < (unsigned int)plain->getSlotCount(); ++i)
        PLAIN_AT(getSlotDesignation, i);
    PLAIN(getBiosManufacturer);
    PLAIN(getBiosVersion);
    PLAIN(getBiosSerialNumber);
    PLAIN(getBiosLanguages);
    PLAIN(getChassisManufacturer);
    PLAIN(getChassisSerialNumber);
}

static void callSafeRecords(void)
{
    size_t i;
    const SystemProviderBaseBoard* board;
    const SystemProviderCache* cache;
    const SystemProviderPort* port;
    const SystemProviderSlot* slot;
    for (i = 0; (board = systemProviderBaseBoard(inventory, i)) != NULL; ++i) {
        look(board->manufacturer);
        look(board->product);
        look(board->version);
        look(board->serialNumber);
        look(board->assetTag);
        look(board->location);
    }
    for (i = 0; (cache = systemProviderCache(inventory, i)) != NULL; ++i) {
        look(cache->designation);
        sum += (unsigned)cache->associativity + (unsigned)cache->level + cache->speed + cache->size +
               cache->numberOfBlocks;
    }
    for (i = 0; (port = systemProviderPort(inventory, i)) != NULL; ++i) {
        look(port->internalReferenceDesignator);
        look(port->externalReferenceDesignator);
        sum += (unsigned)port->type + (unsigned)port->connectors.values[0];
    }
    for (i = 0; (slot = systemProviderSlot(inventory, i)) != NULL; ++i)
        look(slot->designation);
    look(systemProviderBios(inventory)->manufacturer);
    look(systemProviderBios(inventory)->version);
    look(systemProviderBios(inventory)->serialNumber);
    look(systemProviderBios(inventory)->languages.count ? systemProviderBios(inventory)->languages.values[0] : "");
    look(systemProviderChassis(inventory)->manufacturer);
    look(systemProviderChassis(inventory)->serialNumber);
}

/* The rest of what a reading holds, but for the constants. */
static void callPlainRest(void)
{
    unsigned int i;
    for (i = 0; i < (unsigned int)plain->getCacheCount(); ++i) {
        PLAIN_AT(getCachePurpose, i);
        PLAIN_AT(getCacheSupportedSramType, i);
        PLAIN_AT(getCacheCurrentSramType, i);
    }
    for (i = 0; i < (unsigned int)plain->getPortCount(); ++i) {
        PLAIN_AT(getPortName, i);
        PLAIN_AT(getPortModel, i);
        PLAIN_AT(getPortManufacturer, i);
    }
    for (i = 0; i < (unsigned int)plain->getFirmwareCount(); ++i) {
        PLAIN_AT(getFirmwareName, i);
        PLAIN_AT(getFirmwareVersion, i);
        PLAIN_AT(getFirmwareManufacturer, i);
        PLAIN_AT(getFirmwareSerialNumber, i);
        PLAIN_AT(getFirmwareBuildNumber, i);
        PLAIN_AT(getFirmwareReleaseDate, i);
    }
    PLAIN(getBiosBuildNumber);
    PLAIN(getBiosCurrentLanguage);
    PLAIN(getBiosSmBiosVersion);
    PLAIN(getChassisVersion);
    PLAIN(getChassisAssetTag);
    PLAIN(getCSName);
    PLAIN(getCSModel);
    PLAIN(getCSDescription);
    PLAIN(getCSOwnerName);
    PLAIN(getCSOwnerContact);
    PLAIN(getOSName);
    PLAIN(getOSVersion);
    PLAIN(getOSCodeSet);
    PLAIN(getOSLanguageEdition);
    PLAIN(getOSInstallDate);
    PLAIN(getOSLocalDateTime);
    PLAIN(getOSLastBootUpTime);
    sum += (unsigned)plain->getOSCurrentTimeZone() + plain->getOSNumberOfProcesses() +
           plain->getOSFreePhysicalMemory() + plain->getOSTotalSwapSpaceSize();
    PLAIN(getBBConfigurationOptions);
}

static void takePlainly(void)
{
    plain->init();
    callPlainRecords();
    callPlainRest();
}

static void takeSafely(void)
{
    SystemProviderInventory* taken = systemProviderRead(module);
    require(taken);
    systemProviderFree(taken);
}

static void loadAndRead(void)
{
    SystemProvider* loaded = systemProviderOpen(NULL, dump);
    SystemProviderInventory* taken = systemProviderRead(loaded);
    require(taken);
    systemProviderClose(loaded);
    systemProviderFree(taken);
}

static int byValue(const void* left, const void* right)
{
    const double difference = *(const double*)left - *(const double*)right;
    return (difference > 0) - (difference < 0);
}

/* The median time of the work in microseconds. */
static double measured(void (*work)(void), int rounds, int repeated)
{
    double* times = malloc((size_t)rounds * sizeof *times);
    double median;
    int round;
    int i;
    require(times);
    for (round = 0; round < rounds; ++round) {
        const double begin = now();
        for (i = 0; i < repeated; ++i)
            work();
        times[round] = (now() - begin) / repeated;
    }
    qsort(times, (size_t)rounds, sizeof *times, byValue);
    median = times[rounds / 2];
    free(times);
    return median;
}

static double compared(const char* what, double safe, double unsafe)
{
    printf("%-34s %8.2f us, plain %8.2f us: %.2f times\n", what, safe, unsafe, safe / unsafe);
    return safe / unsafe;
}

int main(int argc, char** argv)
{
    const int rounds = argc == 3 ? (int)strtol(argv[2], NULL, 10) : 201;
    const double longest = 2000;
    const double most = 1.5;
    double whole;
    double times;
    if ((argc != 2 && argc != 3) || rounds < 1) {
        fprintf(stderr, "usage: flat_cost DUMP [ROUNDS]\n");
        return 2;
    }
    dump = argv[1];
    whole = measured(loadAndRead, rounds, 1);
    printf("%-34s %8.2f us\n", "load the module and read all of it", whole);
    module = systemProviderOpen(NULL, dump);
    inventory = systemProviderRead(module);
    require(inventory);
    plain = systemProviderFunctions(module);
    buffer = malloc(64u << 20);
    require(buffer);
    compared("read all of it once more", measured(takeSafely, rounds, 1), measured(takePlainly, rounds, 1));
    times = compared("the records' facts, once held", measured(callSafeRecords, rounds, 100),
                     measured(callPlainRecords, rounds, 100));
    free(buffer);
    systemProviderFree(inventory);
    systemProviderClose(module);
    if (whole > longest)
        fprintf(stderr, "flat_cost: loading and reading take more than %.0f us\n", longest);
    if (times > most)
        fprintf(stderr, "flat_cost: the facts cost more than %.1f times the plain functions\n", most);
    return sum == 0 || whole > longest || times > most;
}
