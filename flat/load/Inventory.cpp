#include "flat/load/Inventory.h"

#include "flat/load/Failure.h"
#include "flat/systemprovider_packed.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

namespace VQ::Load
{

namespace
{
constexpr std::size_t LongestDate = 32;

std::size_t lengthOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value ? std::strlen(value) : 0;
}

// Room for each text and list of the table, and for the texts of the environment.
std::size_t sizeFor(const Bounds& bounds)
{
    const std::uint64_t text = bounds.text + lengthOf("LANG") + lengthOf("LC_CTYPE");
    const std::uint64_t size = std::max(text, bounds.options);
    if (size > std::numeric_limits<std::size_t>::max())
        throw std::bad_alloc();
    return static_cast<std::size_t>(size);
}

// Calls accessors and keeps what they write.
class Collector
{
public:
    Collector(Arena& arena, const Bounds& bounds) : _arena(arena), _size(sizeFor(bounds)), _buffer(new char[_size]) {}

    template <class Result, class... Index> const char* text(Result (*get)(char*, Index...), Index... index)
    {
        get(_buffer.get(), index...);
        return _arena.keep(_buffer.get(), std::strlen(_buffer.get()));
    }

    SystemProviderTexts texts(void (*get)(void*))
    {
        get(_buffer.get());
        PackedReader reader = packedReader(_buffer.get(), _size);
        std::uint32_t count = 0;
        packedTexts(&reader, &count);
        const char** values = _arena.take<const char*>(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            const char* begin = nullptr;
            std::uint32_t length = 0;
            require(packedText(&reader, &begin, &length));
            values[i] = _arena.keep(begin, length);
        }
        return {count, values};
    }

    SystemProviderNumbers numbers(void (*get)(void*, unsigned int), unsigned int index)
    {
        get(_buffer.get(), index);
        PackedReader reader = packedReader(_buffer.get(), _size);
        std::uint32_t count = 0;
        packedIntegers(&reader, &count);
        std::int32_t* values = _arena.take<std::int32_t>(count);
        for (std::uint32_t i = 0; i < count; ++i)
            require(packedInteger(&reader, &values[i]));
        return {count, values};
    }

    // As the accessor writes it, which says it on standard output too.
    const char* date(const DateTime& date)
    {
        char text[LongestDate];
        const int length =
            std::snprintf(text, sizeof text, "%4.4d%2.2d%2.2d%2.2d%2.2d%2.2d.%6.6d+%3.3d", date.getYear(),
                          date.getMonth(), date.getDay(), date.getHour(), date.getMinute(), date.getSecond(),
                          static_cast<int>(date.getMillisecond()), date.getOffset());
        return _arena.keep(text, static_cast<std::size_t>(length));
    }

private:
    static void require(int done)
    {
        if (!done)
            throw Failure("the module wrote a list that can't be read: it is no module of this version");
    }

    Arena& _arena;
    std::size_t _size;
    std::unique_ptr<char[]> _buffer; // not filled: most tables use little of it
};

using Functions = SystemProviderFunctions;

SystemProviderComputerSystem computerSystem(const Functions& module, Collector& collect)
{
    return {collect.text(module.getCSName), collect.text(module.getCSModel), collect.text(module.getCSDescription),
            collect.text(module.getCSOwnerName), collect.text(module.getCSOwnerContact)};
}

SystemProviderOperatingSystem operatingSystem(const Functions& module, Collector& collect)
{
    return {collect.text(module.getOSName),
            collect.text(module.getOSVersion),
            collect.text(module.getOSCodeSet),
            collect.text(module.getOSLanguageEdition),
            module.getOSType(),
            module.getOSDistributed(),
            module.getOSCurrentTimeZone(),
            module.getOSMaxNumberOfProcesses(),
            module.getOSNumberOfProcesses(),
            module.getOSNumberOfUsers(),
            module.getOSNumberOfLicensedUsers(),
            module.getOSMaxProcessMemorySize(),
            module.getOSFreeSpaceInPagingFiles(),
            module.getOSSizeStoredInPagingFiles(),
            module.getOSTotalVisibleMemorySize(),
            module.getOSFreePhysicalMemory(),
            module.getOSFreeVirtualMemory(),
            module.getOSTotalVirtualMemorySize(),
            module.getOSTotalSwapSpaceSize(),
            collect.text(module.getOSInstallDate),
            collect.text(module.getOSLocalDateTime),
            collect.text(module.getOSLastBootUpTime)};
}

SystemProviderBios bios(const Module& loaded, Collector& collect)
{
    const Functions& module = loaded.functions();
    return {collect.text(module.getBiosManufacturer),     collect.text(module.getBiosVersion),
            collect.text(module.getBiosBuildNumber),      collect.text(module.getBiosSerialNumber),
            collect.text(module.getBiosCurrentLanguage),  collect.texts(module.getBiosLanguages),
            collect.date(loaded.bios().getReleaseDate()), module.getBiosSmBiosMajorVersion(),
            module.getBiosSmBiosMinorVersion(),           collect.text(module.getBiosSmBiosVersion),
            module.getBiosLoadedStartingAddress(),        module.getBiosLoadedEndingAddress()};
}

SystemProviderChassis chassis(const Functions& module, Collector& collect)
{
    return {collect.text(module.getChassisManufacturer), collect.text(module.getChassisVersion),
            collect.text(module.getChassisSerialNumber), collect.text(module.getChassisAssetTag)};
}

SystemProviderFirmware firmware(const Functions& module, Collector& collect, unsigned int index)
{
    return {collect.text(module.getFirmwareName, index),         collect.text(module.getFirmwareVersion, index),
            collect.text(module.getFirmwareManufacturer, index), collect.text(module.getFirmwareSerialNumber, index),
            collect.text(module.getFirmwareBuildNumber, index),  collect.text(module.getFirmwareReleaseDate, index)};
}

SystemProviderBaseBoard baseBoard(const Functions& module, Collector& collect, unsigned int index)
{
    return {collect.text(module.getBBManufacturer, index), collect.text(module.getBBProduct, index),
            collect.text(module.getBBVersion, index),      collect.text(module.getBBSerialNumber, index),
            collect.text(module.getBBAssetTag, index),     collect.text(module.getBBLocation, index)};
}

SystemProviderCache cache(const Functions& module, Collector& collect, unsigned int index)
{
    return {collect.text(module.getCacheDesignation, index),
            collect.text(module.getCachePurpose, index),
            module.getCacheAssociativity(index),
            module.getCacheWritePolicy(index),
            module.getCacheType(index),
            module.getCacheLocation(index),
            module.getCacheLevel(index),
            module.getCacheErrorCorrectionType(index),
            module.getCacheSpeed(index),
            module.getCacheSize(index),
            module.getCacheMaximumSize(index),
            module.getCacheInstalledSize(index),
            module.getCacheNumberOfBlocks(index),
            collect.numbers(module.getCacheSupportedSramType, index),
            collect.numbers(module.getCacheCurrentSramType, index)};
}

SystemProviderPort port(const Functions& module, Collector& collect, unsigned int index)
{
    return {collect.text(module.getPortName, index),
            collect.text(module.getPortModel, index),
            collect.text(module.getPortManufacturer, index),
            collect.text(module.getPortInternalReferenceDesignator, index),
            collect.text(module.getPortExternalReferenceDesignator, index),
            module.getPortType(index),
            collect.numbers(module.getPortConnectors, index)};
}

SystemProviderSlot slot(const Functions& module, Collector& collect, unsigned int index)
{
    return {collect.text(module.getSlotDesignation, index)};
}

template <class Record>
void readEach(const Functions& module, Collector& collect, int count, std::vector<Record>& records,
              Record (*read)(const Functions&, Collector&, unsigned int))
{
    records.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index)
        records.push_back(read(module, collect, static_cast<unsigned int>(index)));
}
}

void readInventory(const Module& loaded, SystemProviderInventory& inventory)
{
    const Functions& module = loaded.functions();
    loaded.serve();
    Collector collect(inventory.arena, checkTable(loaded.dump()));
    try {
        module.init();
    } catch (const std::out_of_range& error) {
        throw Failure(std::string(loaded.dump() ? loaded.dump()->file() : "the SMBIOS table") +
                      ": an OEM string has a bracketed part of one character, such as -[X]-, at which the module fails "
                      "(" +
                      error.what() + "): update the firmware of the machine");
    }
    inventory.computerSystem = computerSystem(module, collect);
    inventory.operatingSystem = operatingSystem(module, collect);
    inventory.bios = bios(loaded, collect);
    inventory.chassis = chassis(module, collect);
    inventory.configurationOptions = collect.texts(module.getBBConfigurationOptions);
    readEach(module, collect, module.getFirmwareCount(), inventory.firmware, firmware);
    readEach(module, collect, module.getBBCount(), inventory.baseBoards, baseBoard);
    readEach(module, collect, module.getCacheCount(), inventory.caches, cache);
    readEach(module, collect, module.getPortCount(), inventory.ports, port);
    readEach(module, collect, module.getSlotCount(), inventory.slots, slot);
}

}
