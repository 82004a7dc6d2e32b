#pragma once

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Config.h>

#include <array>

namespace VQ
{

/// A key of a class. Its type stands here and is never derived from the property's value.
struct Key
{
    const char* name = nullptr;
    Pegasus::CIMKeyBinding::Type type = Pegasus::CIMKeyBinding::STRING;
};

/// The keys of a class, in the order in which their bindings are appended; unused places at the end have no name.
using Keys = std::array<Key, 5>;

extern const Keys BiosKeys; ///< of the BIOS instance and of each firmware instance
extern const Keys ChassisKeys;
extern const Keys BaseBoardKeys;
extern const Keys CacheMemoryKeys;
extern const Keys PortKeys;
extern const Keys SlotKeys;
extern const Keys ComputerSystemKeys;
extern const Keys OperatingSystemKeys;
extern const Keys SystemMemoryKeys;

}
