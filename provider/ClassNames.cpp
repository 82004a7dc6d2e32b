#include "provider/ClassNames.h"

namespace VQ
{

namespace
{
bool lacking = false;

// A name, or an empty one where there is no memory for it. What is thrown while a library is loaded can be caught by
// nobody, and the server would end; so it is the entry that tells the server.
Pegasus::String nameOrNothing(const char* text) noexcept
{
    try {
        return Pegasus::String(text);
    } catch (...) {
        lacking = true;
        return Pegasus::String();
    }
}
}

const Pegasus::String BiosClass = nameOrNothing("QORTAL_BIOS");
const Pegasus::String CacheMemoryClass = nameOrNothing("QORTAL_CacheMemory");
const Pegasus::String ChassisClass = nameOrNothing("QORTAL_Chassis");
const Pegasus::String ComputerSystemClass = nameOrNothing("QORTAL_ComputerSystem");
const Pegasus::String BaseBoardClass = nameOrNothing("QORTAL_BaseBoard");
const Pegasus::String OperatingSystemClass = nameOrNothing("QORTAL_OperatingSystem");
const Pegasus::String SystemMemoryClass = nameOrNothing("QORx_SystemMemory");
const Pegasus::String PortClass = nameOrNothing("QORTAL_Port");
const Pegasus::String SlotClass = nameOrNothing("QORTAL_Slot");
const Pegasus::String RebootMethod = nameOrNothing("Reboot");
const Pegasus::String ShutdownMethod = nameOrNothing("Shutdown");

bool hasAllNames()
{
    return !lacking;
}

}
