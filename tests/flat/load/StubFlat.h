#pragma once

#include <string>

// A module of which every function gives its own name, or a number made of it: what an inventory has in a field tells
// which function was asked. VQ_STUB_INIT=out_of_range lets its init() throw, VQ_STUB_LIST=damaged its list of languages
// be none.

/// The number that the function of this name gives, which needs every bit of its type.
template <class Number> constexpr Number numberOf(const char* name)
{
    unsigned long long hash = 14695981039346656037u;
    for (; *name; ++name)
        hash = (hash ^ static_cast<unsigned char>(*name)) * 1099511628211u;
    return static_cast<Number>(hash);
}

/// The text that the function of this name gives of the record at this index.
inline std::string textOf(const char* name, unsigned int index)
{
    return name + std::to_string(index);
}

/// How many records the stub has of each kind.
enum StubCounts
{
    StubFirmware = 1,
    StubBaseBoards = 2,
    StubCaches = 3,
    StubPorts = 4,
    StubSlots = 5
};

/// When the stub's BIOS was released, in seconds since 1970.
constexpr long StubRelease = 1234587967;
