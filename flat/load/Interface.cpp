// The functions of systemprovider_load.h. No exception leaves one.

#include "flat/load/Failure.h"
#include "flat/load/InRoot.h"
#include "flat/load/Inventory.h"
#include "flat/load/Module.h"
#include "flat/systemprovider_load.h"

#include <memory>
#include <mutex>
#include <new>
#include <string>

struct SystemProvider
{
    VQ::Load::Module module;
};

namespace
{
// The module's snapshot, and which file is served to it, are one for the process.
std::mutex moduleMutex;

thread_local std::string lastError;
thread_local bool outOfMemory = false;

void keepError(std::string text)
{
    lastError = std::move(text);
    outOfMemory = false;
}

// What the work gives; null where it throws, and the text is kept.
template <class Work> auto guarded(Work work) noexcept -> decltype(work())
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        outOfMemory = true;
    } catch (const std::exception& error) {
        try {
            keepError(error.what());
        } catch (const std::bad_alloc&) {
            outOfMemory = true;
        }
    }
    return nullptr;
}

template <class Record> const Record* at(const std::vector<Record>& records, size_t index)
{
    return index < records.size() ? &records[index] : nullptr;
}
}

SystemProvider* systemProviderOpen(const char* module, const char* dump)
{
    return guarded([=] {
        const std::lock_guard lock(moduleMutex);
        return new SystemProvider{VQ::Load::Module(module ? module : "", dump ? dump : "")};
    });
}

void systemProviderClose(SystemProvider* module)
{
    const std::lock_guard lock(moduleMutex);
    delete module;
}

const char* systemProviderError()
{
    return outOfMemory ? "not enough memory" : lastError.c_str();
}

const SystemProviderFunctions* systemProviderFunctions(const SystemProvider* module)
{
    return module ? &module->module.functions() : nullptr;
}

SystemProviderInventory* systemProviderRead(SystemProvider* module)
{
    if (!module)
        return nullptr;
    return guarded([=] {
        const std::lock_guard lock(moduleMutex);
        const VQ::Load::DumpCopy* dump = module->module.dump();
        auto inventory = std::make_unique<SystemProviderInventory>();
        try {
            VQ::Load::inRoot([&] { VQ::Load::readInventory(module->module, *inventory); });
        } catch (const VQ::Load::Failure& failure) {
            throw VQ::Load::Failure(dump ? dump->named(failure.what()) : failure.what());
        }
        return inventory.release();
    });
}

void systemProviderFree(SystemProviderInventory* inventory)
{
    delete inventory;
}

const SystemProviderComputerSystem* systemProviderComputerSystem(const SystemProviderInventory* inventory)
{
    return inventory ? &inventory->computerSystem : nullptr;
}

const SystemProviderOperatingSystem* systemProviderOperatingSystem(const SystemProviderInventory* inventory)
{
    return inventory ? &inventory->operatingSystem : nullptr;
}

const SystemProviderBios* systemProviderBios(const SystemProviderInventory* inventory)
{
    return inventory ? &inventory->bios : nullptr;
}

const SystemProviderChassis* systemProviderChassis(const SystemProviderInventory* inventory)
{
    return inventory ? &inventory->chassis : nullptr;
}

const SystemProviderTexts* systemProviderConfigurationOptions(const SystemProviderInventory* inventory)
{
    return inventory ? &inventory->configurationOptions : nullptr;
}

size_t systemProviderFirmwareCount(const SystemProviderInventory* inventory)
{
    return inventory ? inventory->firmware.size() : 0;
}

const SystemProviderFirmware* systemProviderFirmware(const SystemProviderInventory* inventory, size_t index)
{
    return inventory ? at(inventory->firmware, index) : nullptr;
}

size_t systemProviderBaseBoardCount(const SystemProviderInventory* inventory)
{
    return inventory ? inventory->baseBoards.size() : 0;
}

const SystemProviderBaseBoard* systemProviderBaseBoard(const SystemProviderInventory* inventory, size_t index)
{
    return inventory ? at(inventory->baseBoards, index) : nullptr;
}

size_t systemProviderCacheCount(const SystemProviderInventory* inventory)
{
    return inventory ? inventory->caches.size() : 0;
}

const SystemProviderCache* systemProviderCache(const SystemProviderInventory* inventory, size_t index)
{
    return inventory ? at(inventory->caches, index) : nullptr;
}

size_t systemProviderPortCount(const SystemProviderInventory* inventory)
{
    return inventory ? inventory->ports.size() : 0;
}

const SystemProviderPort* systemProviderPort(const SystemProviderInventory* inventory, size_t index)
{
    return inventory ? at(inventory->ports, index) : nullptr;
}

size_t systemProviderSlotCount(const SystemProviderInventory* inventory)
{
    return inventory ? inventory->slots.size() : 0;
}

const SystemProviderSlot* systemProviderSlot(const SystemProviderInventory* inventory, size_t index)
{
    return inventory ? at(inventory->slots, index) : nullptr;
}
