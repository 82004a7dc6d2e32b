#pragma once

#include "flat/load/Module.h"
#include "flat/systemprovider_load.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace VQ::Load
{

/// Memory that is given out in parts and freed as a whole.
class Arena
{
public:
    /// Room for so many values.
    template <class T> T* take(std::size_t count)
    {
        static_assert(std::is_trivially_destructible_v<T>);
        return static_cast<T*>(takeBytes(count * sizeof(T)));
    }

    /// A copy of the text, of this length without its terminator.
    const char* keep(const char* text, std::size_t length);

private:
    void* takeBytes(std::size_t size);

    std::vector<std::unique_ptr<std::max_align_t[]>> _blocks;
    unsigned char* _next = nullptr;
    std::size_t _left = 0;
};

}

/// All records, with the memory that their texts and lists are in.
struct SystemProviderInventory
{
    VQ::Load::Arena arena;
    SystemProviderComputerSystem computerSystem = {};
    SystemProviderOperatingSystem operatingSystem = {};
    SystemProviderBios bios = {};
    SystemProviderChassis chassis = {};
    SystemProviderTexts configurationOptions = {};
    std::vector<SystemProviderFirmware> firmware;
    std::vector<SystemProviderBaseBoard> baseBoards;
    std::vector<SystemProviderCache> caches;
    std::vector<SystemProviderPort> ports;
    std::vector<SystemProviderSlot> slots;
};

namespace VQ::Load
{

/// Takes a snapshot and reads all of it. Throws what the functions of the module throw, and Failure where the table is
/// one that the module would never come to the end of. The working directory must be `/`.
void readInventory(const Module& module, SystemProviderInventory& inventory);

}
