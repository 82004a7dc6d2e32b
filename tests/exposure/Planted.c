/* A library that someone left around the working directory of somebody else. It notes that it was run. */

#include <stdio.h>
#include <stdlib.h>

__attribute__((constructor)) static void run(void)
{
    const char* name = getenv("VQ_PLANTED_MARK");
    FILE* mark = name ? fopen(name, "a") : NULL;
    if (!mark)
        return;
    fputs("ran\n", mark);
    fclose(mark);
}

/* What the module asks of the library that tells of Xen. */
__attribute__((visibility("default"))) int running_in_xen_domU(void);

int running_in_xen_domU(void)
{
    return 0;
}
