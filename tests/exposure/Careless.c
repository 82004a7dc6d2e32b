/* Loads the module in the working directory that it finds itself in, as no program should:
 *
 *     careless MODULE */

#include <dlfcn.h>
#include <stdio.h>

int main(int argc, char** argv)
{
    if (argc == 2 && dlopen(argv[1], RTLD_NOW))
        return 0;
    fprintf(stderr, "careless: %s\n", argc == 2 ? dlerror() : "name the module");
    return 1;
}
