#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process when a property of the code under test does not hold, so that the fuzzer keeps the input.
inline void require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}
