#include "flat/Snapshot.h"

namespace
{
// What is thrown while a library is loaded can be caught by nobody, and the process would end. `init` asks again.
VQ::ComputerSystem systemAtLoading() noexcept
{
    try {
        return VQ::ComputerSystem();
    } catch (...) {
        return VQ::ComputerSystem(VQ::ComputerSystem::NotAsked());
    }
}
}

// Constructed in this order when the module is loaded, destroyed in reverse order when it is unloaded. They stand in
// one file because only that fixes an order.
VQ::ComputerSystem cs = systemAtLoading();
std::vector<VQ::BaseBoard> bb;
VQ::Bios bios;
std::vector<VQ::Cache> caches;
VQ::Chassis chassis;
std::vector<VQ::Firmware> firmwares;
VQ::OperatingSystem os;
std::vector<VQ::Port> ports;
std::vector<VQ::Slot> slots;

int init()
{
    cs = VQ::GetComputerSystemInstance();
    bb = VQ::GetBaseBoardInstances();
    bios = VQ::GetBiosInstance();
    caches = VQ::GetCacheInstances();
    chassis = VQ::GetChassisInstance();
    firmwares = VQ::GetFirmwareInstances();
    os = VQ::GetOperatingSystemInstance();
    ports = VQ::GetPortInstances();
    slots = VQ::GetSlotInstances();
    return 1;
}

int getCount()
{
    return 1;
}

int getBBCount()
{
    return static_cast<int>(bb.size());
}

int getCacheCount()
{
    return static_cast<int>(caches.size());
}

int getFirmwareCount()
{
    return static_cast<int>(firmwares.size());
}

int getPortCount()
{
    return static_cast<int>(ports.size());
}

int getSlotCount()
{
    return static_cast<int>(slots.size());
}
