#pragma once

#include <cstddef>

// What `new` does in a program that has GuardedMemory.cpp, and in the libraries that it loads. With a sanitizer of
// addresses, which has an own `new`, nothing is done and `GuardsMemory` is false.

#ifdef __SANITIZE_ADDRESS__
constexpr bool GuardsMemory = false;
#else
constexpr bool GuardsMemory = true;
#endif

/// From the `first` allocation from now on (1 is the next) one fails, or all, in any thread; 0: none. Returns whether
/// the last one that was set has come about.
bool failAllocation(std::size_t first, bool lasting = false);
