/* Asks an optional library as the module does, and says what it answers and how long that took:
 *
 *     ask_companion ipmi FILE     "answer 0, 12 ms: 20 01 ..."
 *     ask_companion xen FILE      "guest 0, control 1" */

#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <time.h>

static long long milliseconds(void)
{
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (long long)now.tv_sec * 1000 + now.tv_nsec / 1000000;
}

static int askIpmi(void* library)
{
    uintptr_t (*openLocal)(void);
    void (*closeSession)(uintptr_t);
    int (*get)(uintptr_t, void*);
    *(void**)&openLocal = dlsym(library, "ipmiOpenLocal");
    *(void**)&closeSession = dlsym(library, "ipmiClose");
    *(void**)&get = dlsym(library, "ipmiBmcGet");
    if (!openLocal || !closeSession || !get)
        return 1;
    const long long begin = milliseconds();
    const uintptr_t session = openLocal();
    unsigned char identity[32] = {0};
    const int answer = session ? get(session, identity) : -1;
    if (session)
        closeSession(session);
    printf("answer %d, %lld ms:", answer, milliseconds() - begin);
    for (unsigned i = 0; answer == 0 && i < sizeof identity; ++i)
        printf(" %02x", identity[i]);
    printf("\n");
    return 0;
}

static int askXen(void* library)
{
    int (*guest)(void);
    int (*control)(void);
    *(void**)&guest = dlsym(library, "running_in_xen_domU");
    *(void**)&control = dlsym(library, "running_in_xen_dom0");
    if (!guest || !control)
        return 1;
    printf("guest %d, control %d\n", guest(), control());
    return 0;
}

int main(int argc, char** argv)
{
    void* library = argc == 3 ? dlopen(argv[2], RTLD_LAZY) : NULL;
    if (!library) {
        fprintf(stderr, "ask_companion: %s\n", argc == 3 ? dlerror() : "name the kind and the file");
        return 2;
    }
    return strcmp(argv[1], "ipmi") == 0 ? askIpmi(library) : askXen(library);
}
