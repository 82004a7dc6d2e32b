// A library that cannot be unloaded would keep every module linked with it in the server. This program is not linked
// with the CIM library: it loads it by its path, unloads it, and asks whether it is still there.

#include <cstdio>
#include <dlfcn.h>

int main(int, char** arguments)
{
    const char* const path = arguments[1];
    void* const library = dlopen(path, RTLD_NOW | RTLD_GLOBAL);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    if (!dlopen(path, RTLD_NOW | RTLD_NOLOAD)) {
        std::fprintf(stderr, "%s: not found while it is loaded\n", path);
        return 1;
    }
    dlclose(library);
    dlclose(library); // the look-up above counts as a load
    if (dlopen(path, RTLD_NOW | RTLD_NOLOAD)) {
        std::fprintf(stderr, "%s: still loaded\n", path);
        return 1;
    }
    return 0;
}
