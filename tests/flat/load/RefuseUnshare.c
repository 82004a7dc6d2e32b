/* Preloaded into a program: a kernel that gives no thread a working directory of its own. */

#include <errno.h>

int unshare(int flags);

__attribute__((visibility("default"))) int unshare(int flags)
{
    (void)flags;
    errno = EPERM;
    return -1;
}
