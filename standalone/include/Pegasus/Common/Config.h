#pragma once

/// Makes a declaration visible outside its shared library; everything else is compiled hidden.
#define PEGASUS_EXPORT __attribute__((visibility("default")))

namespace Pegasus
{
using Boolean = bool;
using Uint8 = unsigned char;
using Sint8 = signed char;
using Uint16 = unsigned short;
using Sint16 = short;
using Uint32 = unsigned int;
using Sint32 = int;
using Uint64 = unsigned long long;
using Sint64 = long long;

/// What a search returns that found nothing.
constexpr Uint32 PEG_NOT_FOUND = 0xFFFFFFFF;
}
