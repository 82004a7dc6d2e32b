#include "tools/core/Summary.h"

#include "tools/core/Failures.h"
#include "tools/knowledge/DateTimes.h"
#include "tools/knowledge/Placeholders.h"
#include "tools/knowledge/PropertyNotes.h"

#include <algorithm>
#include <tuple>

namespace VQ::Tool
{

namespace
{
// The instances of a class, where it tells of this machine.
const std::vector<Instance>& instancesOf(const Machine& machine, const char* className)
{
    static const std::vector<Instance> none;
    for (const Answer& answer : machine.answers)
        if (answer.className == className && !answer.ofAskedMachine)
            return answer.instances;
    return none;
}

const Scalar* scalarOf(const Instance& instance, const char* property, std::size_t index = 0)
{
    for (const Property& candidate : instance.properties)
        if (candidate.name == property)
            return index < candidate.value.elements.size() ? &candidate.value.elements[index] : nullptr;
    return nullptr;
}

std::string textOf(const Instance& instance, const char* property)
{
    const Scalar* scalar = scalarOf(instance, property);
    const auto* text = scalar ? std::get_if<std::string>(scalar) : nullptr;
    return text ? withoutPlaceholder(*text) : "";
}

std::string dateTimeOf(const Instance& instance, const char* property)
{
    const Scalar* scalar = scalarOf(instance, property);
    const auto* date = scalar ? std::get_if<DateTimeText>(scalar) : nullptr;
    return date ? date->text : "";
}

std::optional<std::uint64_t> numberOf(const Instance& instance, const char* property, std::size_t index = 0)
{
    const Scalar* scalar = scalarOf(instance, property, index);
    const auto* number = scalar ? std::get_if<std::uint64_t>(scalar) : nullptr;
    return number ? std::optional<std::uint64_t>(*number) : std::nullopt;
}

void firstOf(std::string& into, const std::string& text)
{
    if (into.empty())
        into = text;
}

// The text before the dash of a version, and what is behind it; alike where there is no dash.
std::string versionOf(const Instance& bios)
{
    std::string build = textOf(bios, "BuildNumber");
    std::string version = textOf(bios, "Version");
    if (build == version || version.empty())
        return build;
    return build.empty() ? version : build + " " + version;
}

void addFirmware(Summary& summary, const Machine& machine)
{
    for (const Instance& bios : instancesOf(machine, "QORTAL_BIOS")) {
        const Scalar* primary = scalarOf(bios, "PrimaryBIOS");
        const bool isPrimary = primary && *primary == Scalar(true);
        FirmwareSummary firmware{isPrimary ? "BIOS" : textOf(bios, "Name"), textOf(bios, "Manufacturer"),
                                 versionOf(bios), readableDateTime(dateTimeOf(bios, "ReleaseDate"), true)};
        if (isPrimary) {
            firstOf(summary.serial, textOf(bios, "SerialNumber"));
            const std::string version = textOf(bios, "SMBIOSBIOSVersion");
            summary.smbiosVersion = version == "0.0" ? "" : version;
            summary.language = textOf(bios, "CurrentLanguage");
        }
        if (firmware.version.empty() && firmware.date.empty() && firmware.maker.empty())
            continue;
        summary.firmware.insert(isPrimary ? summary.firmware.begin() : summary.firmware.end(), firmware);
    }
}

void addHousing(Summary& summary, const Machine& machine)
{
    for (const Instance& system : instancesOf(machine, "QORTAL_ComputerSystem")) {
        firstOf(summary.product, textOf(system, "Description"));
        firstOf(summary.model, textOf(system, "Model"));
        const auto type = numberOf(system, "VirtualType");
        if (type && *type > 1)
            summary.virtualization = meaningOf("QORTAL_ComputerSystem", "VirtualType", *type);
    }
    for (const Instance& chassis : instancesOf(machine, "QORTAL_Chassis")) {
        firstOf(summary.maker, textOf(chassis, "Manufacturer"));
        firstOf(summary.serial, textOf(chassis, "SerialNumber"));
        firstOf(summary.chassis, textOf(chassis, "Version"));
    }
    for (const Instance& board : instancesOf(machine, "QORTAL_BaseBoard")) {
        const Scalar* options = nullptr;
        std::size_t count = 0;
        while ((options = scalarOf(board, "ConfigOptions", count)) != nullptr)
            ++count;
        summary.boards.push_back(
            {textOf(board, "Manufacturer"), textOf(board, "SerialNumber"), textOf(board, "LocationInChassis"), count});
        firstOf(summary.maker, summary.boards.back().maker);
    }
    if (!summary.firmware.empty())
        firstOf(summary.maker, summary.firmware.front().maker);
}

void addCaches(Summary& summary, const Machine& machine)
{
    for (const Instance& cache : instancesOf(machine, "QORTAL_CacheMemory")) {
        const auto code = numberOf(cache, "Level").value_or(0); // 3 is L1
        const unsigned level = code >= 3 && code <= 5 ? static_cast<unsigned>(code) - 2 : 0;
        const auto type = numberOf(cache, "CacheType").value_or(0);
        const CacheSummary one{1, level,
                               type == 3   ? "instruction"
                               : type == 4 ? "data"
                                           : "",
                               numberOf(cache, "InstalledSize").value_or(0)};
        const auto same = std::find_if(summary.caches.begin(), summary.caches.end(), [&one](const CacheSummary& known) {
            return std::tie(known.level, known.type, known.size) == std::tie(one.level, one.type, one.size);
        });
        if (same == summary.caches.end())
            summary.caches.push_back(one);
        else
            ++same->count;
    }
    const auto order = [](const CacheSummary& cache) { return cache.level == 0 ? 4 : cache.level; };
    std::stable_sort(
        summary.caches.begin(), summary.caches.end(),
        [&order](const CacheSummary& one, const CacheSummary& other) { return order(one) < order(other); });
}

void addSlots(Summary& summary, const Machine& machine)
{
    for (const Instance& slot : instancesOf(machine, "QORTAL_Slot")) {
        const Scalar* scalar = scalarOf(slot, "Name");
        const auto* name = scalar ? std::get_if<std::string>(scalar) : nullptr;
        const std::string kind = slotKind(name ? *name : "");
        auto same = std::find_if(summary.slots.begin(), summary.slots.end(),
                                 [&kind](const SlotSummary& known) { return known.kind == kind; });
        if (same == summary.slots.end())
            same = summary.slots.insert(same, {kind, {}});
        same->names.push_back(textOf(slot, "Name"));
    }
}

void addConnectors(Summary& summary, const Machine& machine)
{
    constexpr std::uint64_t None = 0;
    for (const Instance& port : instancesOf(machine, "QORTAL_Port")) {
        const auto portType = numberOf(port, "PortType").value_or(None);
        const auto internal = numberOf(port, "ConnectorType", 0).value_or(None);
        const auto external = numberOf(port, "ConnectorType", 1).value_or(None);
        const std::string outer = textOf(port, "ExternalReferenceDesignator");
        const std::string inner = textOf(port, "InternalReferenceDesignator");
        const bool outside = external != None || (internal == None && !outer.empty());
        const std::string name = outer.empty() ? inner : outer;
        summary.connectors.push_back(
            {connectorKind(portType, external != None ? external : internal, name), name, outside});
    }
}

void addSystem(Summary& summary, const Machine& machine)
{
    constexpr std::uint64_t KiB = 1024;
    for (const Instance& system : instancesOf(machine, "QORTAL_OperatingSystem")) {
        summary.operatingSystem = textOf(system, "Name");
        const std::string version = textOf(system, "Version");
        if (!version.empty())
            summary.operatingSystem += " " + version;
        const std::string booted = dateTimeOf(system, "LastBootUpTime");
        summary.bootTime = readableDateTime(booted);
        const auto since = secondsOf(booted);
        const auto now = secondsOf(dateTimeOf(system, "LocalDateTime"));
        if (since && now && *now >= *since)
            summary.uptime = *now - *since;
        if (const auto free = numberOf(system, "FreePhysicalMemory"))
            summary.freeMemory = *free * KiB;
        if (const auto swap = numberOf(system, "TotalSwapSpaceSize"))
            summary.swap = *swap * KiB;
    }
    for (const Instance& memory : instancesOf(machine, "QORx_SystemMemory"))
        summary.memory = numberOf(memory, "NumberOfBlocks");
}

// A class that was asked for, and has nothing to tell.
void addMissing(Summary& summary, const Machine& machine)
{
    const auto lacks = [&](const char* className, bool known, const char* what) {
        for (const Answer& answer : machine.answers)
            if (answer.className == className && !answer.failure && !known)
                summary.missing.emplace_back(what);
    };
    lacks("QORTAL_Chassis", !summary.maker.empty(), "maker");
    lacks("QORTAL_ComputerSystem", !summary.product.empty(), "product name");
    lacks("QORTAL_BIOS", !summary.serial.empty(), "serial number");
    lacks("QORTAL_BIOS", !summary.firmware.empty(), "firmware");
    lacks("QORTAL_BaseBoard", !summary.boards.empty(), "boards");
    lacks("QORTAL_CacheMemory", !summary.caches.empty(), "caches");
    lacks("QORTAL_Slot", !summary.slots.empty(), "slots");
    lacks("QORTAL_Port", !summary.connectors.empty(), "connectors");
    if (machine.source.kind == Source::Dump) {
        summary.missing.emplace_back("operating system");
        summary.missing.emplace_back("memory");
    }
}
}

Summary summarize(const Machine& machine)
{
    Summary summary;
    summary.name = machine.name;
    summary.source = machine.source;
    summary.time = machine.time;
    addFirmware(summary, machine);
    addHousing(summary, machine);
    addCaches(summary, machine);
    addSlots(summary, machine);
    addConnectors(summary, machine);
    addSystem(summary, machine);
    addMissing(summary, machine);
    summary.notes = machine.notes;
    summary.failures = failureLines(machine);
    return summary;
}

}
