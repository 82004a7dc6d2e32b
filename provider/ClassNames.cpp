#include "provider/ClassNames.h"

namespace VQ
{

const Pegasus::String BiosClass("QORTAL_BIOS");
const Pegasus::String CacheMemoryClass("QORTAL_CacheMemory");
const Pegasus::String ChassisClass("QORTAL_Chassis");
const Pegasus::String ComputerSystemClass("QORTAL_ComputerSystem");
const Pegasus::String BaseBoardClass("QORTAL_BaseBoard");
const Pegasus::String OperatingSystemClass("QORTAL_OperatingSystem");
const Pegasus::String SystemMemoryClass("QORx_SystemMemory");
const Pegasus::String PortClass("QORTAL_Port");
const Pegasus::String SlotClass("QORTAL_Slot");
const Pegasus::String RebootMethod("Reboot");
const Pegasus::String ShutdownMethod("Shutdown");

}
