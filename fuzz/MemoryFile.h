#pragma once

#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

/// A file without a name that holds these bytes, so that nothing is left behind; there is one, which the next call
/// fills anew. Returns a path to it.
inline std::string memoryFileOf(const unsigned char* data, std::size_t size)
{
    static const int descriptor = memfd_create("input", 0);
    if (ftruncate(descriptor, 0) != 0 || pwrite(descriptor, data, size, 0) != static_cast<ssize_t>(size))
        std::abort();
    return "/proc/self/fd/" + std::to_string(descriptor);
}
