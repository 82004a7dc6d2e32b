#pragma once

#include "flat/systemprovider.h"

#include <vector>

/// The accessors of the flat interface as a table, for tests that call them all from the module's file. Nothing of the
/// module has to be linked for it.

/// How an accessor hands over its value.
enum class Delivery
{
    Number, ///< up to 32 bits, signed or not
    Long,   ///< 64 bits
    Text,   ///< into a buffer
    List,   ///< packed, into a buffer
    Length, ///< a text into a buffer, and its length as the result
};

struct Accessor
{
    const char* name;
    Delivery delivery;
    const char* count; ///< the function that counts its records; null where it takes no index
};

/// All of them in the order of flat/systemprovider.h, without `init`, `Reboot` and `Shutdown`.
const std::vector<Accessor>& accessors();

/// Calls it by its address in the module. Texts and lists go into the buffer, which must be large enough; numbers are
/// the result, 0 where there is none. Throws what it throws.
unsigned long long call(const Accessor& accessor, void* address, char* buffer, unsigned int index);
