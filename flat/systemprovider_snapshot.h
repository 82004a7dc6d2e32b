/// The C++ names of the flat interface: functions that write packed values, and the snapshot itself as objects of the
/// module's own classes. C++17, for callers built with the same compiler and C++ library as the module.
///
/// The names are global and short (`os`, `cs`, `bios`): systemprovider.h includes this header for C++, unless
/// SYSTEMPROVIDER_FUNCTIONS_ONLY is defined.

#ifndef SYSTEMPROVIDER_SNAPSHOT_H
#define SYSTEMPROVIDER_SNAPSHOT_H

#include <string>
#include <vector>

namespace VQ
{
class BaseBoard;
class Bios;
class Cache;
class Chassis;
class ComputerSystem;
class Firmware;
class OperatingSystem;
class Port;
class Slot;
}

#pragma GCC visibility push(default)

// The names of these functions carry their parameter types, those of the C++ library that the module was built with.
// Each writes one packed value at `buffer` and returns the address of the first byte after it. `buffer` needs no
// alignment; the sizes are exact.

/// An integer. 8 bytes.
void* packI(void* buffer, int value);

/// A text. 9 bytes and its size. Of a text that holds a zero byte only what stands before it is written, though the
/// length and the returned address count the whole: the bytes between stay as they were in the buffer.
void* packS(void* buffer, std::string value);

/// A list of integers. 8 bytes, and 8 for each.
void* packAI(void* buffer, std::vector<int> values);

/// A list of texts. 8 bytes, and 9 and its size for each.
void* packAS(void* buffer, std::vector<std::string> values);

// The snapshot itself, for callers built with the same compiler and C++ library. The classes are in inventory/*.h and
// os/OperatingSystem.h (installed below systemprovider/); only members that are defined in these headers can be used
// from outside of the module, and inventory/Firmware.h needs the headers of OpenPegasus. Take the objects' addresses
// from `dlsym`: a program that is linked with the module may get a copy of its own in their place.

extern VQ::ComputerSystem cs;
extern std::vector<VQ::BaseBoard> bb;
extern VQ::Bios bios;
extern std::vector<VQ::Cache> caches;
extern VQ::Chassis chassis;
extern std::vector<VQ::Firmware> firmwares;
extern VQ::OperatingSystem os;
extern std::vector<VQ::Port> ports;
extern std::vector<VQ::Slot> slots;

#pragma GCC visibility pop

#endif
