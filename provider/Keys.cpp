#include "provider/Keys.h"

namespace VQ
{

namespace
{
constexpr auto STRING = Pegasus::CIMKeyBinding::STRING;
constexpr auto NUMERIC = Pegasus::CIMKeyBinding::NUMERIC;
}

const Keys BiosKeys = {{{"Name", STRING},
                        {"SoftwareElementID", STRING},
                        {"SoftwareElementState", NUMERIC},
                        {"TargetOperatingSystem", NUMERIC},
                        {"Version", STRING}}};
const Keys ChassisKeys = {{{"CreationClassName", STRING}, {"Tag", STRING}}};
const Keys BaseBoardKeys = {{{"CreationClassName", STRING}, {"Tag", STRING}}};
const Keys CacheMemoryKeys = {
    {{"CreationClassName", STRING}, {"DeviceID", STRING}, {"SystemCreationClassName", STRING}, {"SystemName", STRING}}};
const Keys PortKeys = {{{"CreationClassName", STRING}, {"Tag", STRING}}};
const Keys SlotKeys = {{{"CreationClassName", STRING}, {"Tag", STRING}}};
const Keys ComputerSystemKeys = {{{"CreationClassName", STRING}, {"Name", STRING}}};
const Keys OperatingSystemKeys = {
    {{"CreationClassName", STRING}, {"CSCreationClassName", STRING}, {"CSName", STRING}, {"Name", STRING}}};
// "DeviceId", although the property is "DeviceID": names compare without regard to case, and the path carries this one.
const Keys SystemMemoryKeys = {
    {{"CreationClassName", STRING}, {"DeviceId", STRING}, {"SystemCreationClassName", STRING}, {"SystemName", STRING}}};

}
