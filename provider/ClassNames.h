#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace VQ
{

// The names that the provider answers to, compared without regard to letter case. Built once, when the module is
// loaded.

extern const Pegasus::String BiosClass;
extern const Pegasus::String CacheMemoryClass;
extern const Pegasus::String ChassisClass;
extern const Pegasus::String ComputerSystemClass;
extern const Pegasus::String BaseBoardClass;
extern const Pegasus::String OperatingSystemClass; ///< also the class of the two methods
extern const Pegasus::String SystemMemoryClass;
extern const Pegasus::String PortClass;
extern const Pegasus::String SlotClass;
extern const Pegasus::String RebootMethod;
extern const Pegasus::String ShutdownMethod;

/// False when memory lacked for one of them while the module was loaded; that one is empty, and stays so.
bool hasAllNames();

}
