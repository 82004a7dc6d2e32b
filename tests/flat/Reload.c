/* Loads the module, uses it and unloads it, over and over, as a program without a CIM server may do.
 *
 *     flat_reload MODULE READER DUMP ROUNDS
 *
 * Files are named by their full paths.
 * READER is the library that serves DUMP, which has one slot and one firmware element, in place of the machine's own
 * SMBIOS table. Exit code 0 when every round went well, the module was really unloaded each time and the process did
 * not grow; otherwise 1 and the reason. */

#define _XOPEN_SOURCE 700

#include "flat/systemprovider.h"

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

typedef int Number(void);
typedef void TextAt(char* buffer, unsigned int index);
typedef void AnyFunction(void);

enum
{
    WarmUpRounds = 20,    /* the C++ library and the allocator settle in these */
    GrowthAllowed = 65536 /* bytes, over all rounds: far less than one leak of 100 bytes in each of 1,000 rounds */
};

static void fail(const char* what, const char* detail)
{
    fprintf(stderr, "flat_reload: %s: %s\n", what, detail);
    exit(1);
}

static AnyFunction* find(void* library, const char* name)
{
    AnyFunction* function;
    *(void**)&function = dlsym(library, name);
    if (!function)
        fail(name, dlerror());
    return function;
}

static void expectNumber(int expected, void* module, const char* name)
{
    if (((Number*)find(module, name))() != expected)
        fail(name, "not the number that the table gives");
}

static void expectText(const char* expected, TextAt* get)
{
    char buffer[256];
    get(buffer, 0);
    if (strcmp(buffer, expected) != 0)
        fail(expected, buffer);
}

static void useModule(const char* path)
{
    void* module = dlopen(path, RTLD_NOW);
    if (!module)
        fail(path, dlerror());
    expectNumber(0, module, "getSlotCount");
    expectNumber(1, module, "init");
    expectNumber(1, module, "getSlotCount");
    expectNumber(1, module, "getFirmwareCount");
    expectText("PCI 1", (TextAt*)find(module, "getSlotDesignation"));
    expectText("00000000000000.000000:000", (TextAt*)find(module, "getFirmwareReleaseDate"));
    if (dlclose(module) != 0)
        fail("dlclose", dlerror());
    if (dlopen(path, RTLD_NOW | RTLD_NOLOAD))
        fail(path, "still loaded");
}

/* The resident memory that is the process's own. Pages of files do not count: how many of them are resident depends on
 * what the kernel reads ahead. */
static long residentBytes(void)
{
    char line[256];
    long kilobytes = -1;
    FILE* file = fopen("/proc/self/smaps_rollup", "r");
    if (!file)
        fail("/proc/self/smaps_rollup", "not readable");
    while (kilobytes < 0 && fgets(line, sizeof line, file))
        sscanf(line, "Anonymous: %ld kB", &kilobytes);
    fclose(file);
    if (kilobytes < 0)
        fail("/proc/self/smaps_rollup", "tells no anonymous memory");
    return kilobytes * 1024;
}

static int mappings(void)
{
    int lines = 0;
    int byte;
    FILE* file = fopen("/proc/self/maps", "r");
    if (!file)
        fail("/proc/self/maps", "not readable");
    while ((byte = getc(file)) != EOF)
        lines += byte == '\n';
    fclose(file);
    return lines;
}

static void serveDump(const char* reader, const char* dump)
{
    void* library = dlopen(reader, RTLD_NOW | RTLD_GLOBAL);
    void (*serve)(const char* file);
    if (!library)
        fail(reader, dlerror());
    *(void**)&serve = dlsym(library, "vqServeSmBiosDump");
    if (!serve)
        fail(reader, dlerror());
    serve(dump);
}

int main(int argc, char** argv)
{
    int rounds = argc == 5 ? atoi(argv[4]) : 0;
    int round;
    if (rounds <= 0) {
        fprintf(stderr, "usage: flat_reload MODULE READER DUMP ROUNDS\n");
        return 2;
    }
    if (chdir("/") != 0)
        fail("chdir", "cannot go to /");
    serveDump(argv[2], argv[3]);
    for (round = 0; round < WarmUpRounds; ++round)
        useModule(argv[1]);

    const int mappingsBefore = mappings();
    const long residentBefore = residentBytes();
    for (round = 0; round < rounds; ++round)
        useModule(argv[1]);
    const int mappingsAfter = mappings();
    const long growth = residentBytes() - residentBefore;
    printf("%d rounds: %d mappings before, %d after; %ld bytes grown\n", rounds, mappingsBefore, mappingsAfter, growth);
    return mappingsAfter == mappingsBefore && growth <= GrowthAllowed ? 0 : 1;
}
