#include "tools/core/Summary.h"
#include "tools/formats/Formats.h"
#include "tools/formats/Printable.h"
#include "tools/knowledge/Classes.h"
#include "tools/knowledge/DateTimes.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <map>
#include <set>

namespace VQ::Tool
{

namespace
{
using Label = std::pair<const char*, std::string>;
using Labels = std::vector<Label>;

// UTF-8 without anything that a terminal would obey; a line feed has a form of its own there.
std::string labelText(const std::string& text)
{
    std::string safe;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = text.find('\n', begin);
        safe += (begin == 0 ? "" : "\n") + printable(text.substr(begin, end - begin));
    }
    return safe;
}

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += c == '\n' ? "\\n" : c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
    return result;
}

std::string labelsText(const Labels& labels)
{
    std::string text;
    for (const auto& [name, value] : labels)
        text += (text.empty() ? "" : ",") + std::string(name) + "=\"" + escaped(labelText(value)) + '"';
    return text;
}

// A metric with its series: one for each machine, or for each part of each machine.
class Family
{
public:
    Family(const char* name, const char* help) : _name(name), _help(help) {}

    void add(const Labels& labels, double value = 1) { add(labelsText(labels), value); }

    template <class Number> void add(const Labels& labels, const std::optional<Number>& value)
    {
        if (value)
            add(labels, static_cast<double>(*value));
    }

    // Two parts may have the same name.
    void addPart(const Labels& labels, double value = 1)
    {
        const std::string text = labelsText(labels);
        add(text + ",number=\"" + std::to_string(++_count[text]) + '"', value);
    }

    std::string text() const
    {
        const std::string name = _name;
        return _series.empty() ? "" : "# HELP " + name + " " + _help + "\n# TYPE " + name + " gauge\n" + _series;
    }

private:
    void add(const std::string& labels, double value)
    {
        char number[32];
        std::snprintf(number, sizeof number, "%.17g", value);
        _series += std::string(_name) + "{" + labels + "} " + number + "\n";
    }

    const char* _name;
    const char* _help;
    std::string _series;
    std::map<std::string, unsigned> _count;
};

// "2026-11-21T19:02:17Z" or "2026-11-21"
std::optional<std::int64_t> secondsAt(const std::string& time)
{
    std::string digits;
    std::copy_if(time.begin(), time.end(), std::back_inserter(digits), [](unsigned char c) { return std::isdigit(c); });
    if (digits.size() == 8)
        digits += "000000";
    return digits.size() == 14 ? secondsOf(digits + ".000000+000") : std::nullopt;
}

std::string levelText(unsigned level)
{
    return level == 0 ? "beyond L3" : "L" + std::to_string(level);
}

class Metrics
{
public:
    void addMachine(const Machine& machine)
    {
        std::string name = labelText(machine.name);
        for (unsigned number = 2; !_names.insert(name).second; ++number)
            name = labelText(machine.name) + " #" + std::to_string(number);
        _machine = {"machine", name};
        const Summary summary = summarize(machine);
        addAsking(machine);
        addFacts(summary);
        addClasses(machine);
        addParts(summary);
    }

    std::string ofMachines() const
    {
        std::string text;
        for (const Family* family : {&_success, &_time, &_failure, &_module, &_info, &_firmware, &_biosRelease,
                                     &_system, &_boot, &_memory, &_swap, &_classSuccess, &_instances})
            text += family->text();
        return text;
    }

    std::string ofParts() const
    {
        std::string text;
        for (const Family* family : {&_board, &_cache, &_slot, &_connector})
            text += family->text();
        return text;
    }

private:
    void addAsking(const Machine& machine)
    {
        std::set<std::string> codes;
        for (const Answer& answer : machine.answers)
            if (answer.failure)
                codes.insert(labelText(answer.failure->code));
        _success.add({_machine}, codes.empty() ? 1 : 0);
        _time.add({_machine}, secondsAt(machine.time));
        for (const std::string& code : codes)
            _failure.add({_machine, {"code", code}});
        addIfTold(_module, {{"version", machine.moduleVersion}});
    }

    void addFacts(const Summary& summary)
    {
        addIfTold(_info, {{"maker", summary.maker},
                          {"product", summary.product},
                          {"model", summary.model},
                          {"serial_number", summary.serial},
                          {"chassis", summary.chassis},
                          {"virtualization", summary.virtualization},
                          {"smbios_version", summary.smbiosVersion}});
        for (const FirmwareSummary& element : summary.firmware)
            _firmware.addPart({_machine,
                               {"name", element.name},
                               {"maker", element.maker},
                               {"version", element.version},
                               {"release_date", element.date}});
        if (!summary.firmware.empty() && summary.firmware.front().name == "BIOS")
            _biosRelease.add({_machine}, secondsAt(summary.firmware.front().date));
        addIfTold(_system, {{"name", summary.operatingSystem}});
        const auto asked = secondsAt(summary.time);
        if (asked && summary.uptime)
            _boot.add({_machine}, static_cast<double>(*asked - *summary.uptime));
        _memory.add({_machine}, summary.memory);
        _swap.add({_machine}, summary.swap);
    }

    // Of a dump, what the kernel of another machine answered is left out.
    void addClasses(const Machine& machine)
    {
        std::vector<std::string> order;
        std::map<std::string, std::optional<std::size_t>> counts; // nothing: it failed
        for (const Answer& answer : machine.answers) {
            if (answer.ofAskedMachine)
                continue;
            const std::string name = labelText(canonicalClassName(answer.className));
            const auto [count, isNew] = counts.emplace(name, std::size_t{0});
            if (isNew)
                order.push_back(name);
            if (answer.failure)
                count->second.reset();
            else if (count->second)
                *count->second += answer.instances.size();
        }
        for (const std::string& name : order) {
            const auto& count = counts[name];
            _classSuccess.add({_machine, {"class", name}}, count ? 1 : 0);
            _instances.add({_machine, {"class", name}}, count);
        }
    }

    void addParts(const Summary& summary)
    {
        for (const BoardSummary& board : summary.boards)
            _board.addPart(
                {_machine, {"maker", board.maker}, {"serial_number", board.serial}, {"location", board.location}});
        for (const CacheSummary& cache : summary.caches)
            for (std::size_t i = 0; i < cache.count; ++i)
                _cache.addPart({_machine, {"level", levelText(cache.level)}, {"type", cache.type}},
                               static_cast<double>(cache.size) * 1024);
        for (const SlotSummary& slots : summary.slots)
            for (const std::string& name : slots.names)
                _slot.addPart({_machine, {"name", name}, {"kind", slots.kind}});
        for (const ConnectorSummary& connector : summary.connectors)
            _connector.addPart({_machine,
                                {"name", connector.name},
                                {"kind", titleOf(connector.kind)},
                                {"place", connector.outside ? "outside" : "inside"}});
    }

    void addIfTold(Family& family, Labels labels)
    {
        if (std::all_of(labels.begin(), labels.end(), [](const Label& label) { return label.second.empty(); }))
            return;
        labels.insert(labels.begin(), _machine);
        family.add(labels);
    }

    std::set<std::string> _names;
    Label _machine;

    Family _success{"systemprovider_inventory_success",
                    "Whether every class that was asked for was answered (1) or one failed (0)."};
    Family _time{"systemprovider_inventory_timestamp_seconds", "When the machine was asked, in seconds since 1970."};
    Family _failure{"systemprovider_failure_info", "Why a class or the whole machine was not answered."};
    Family _module{"systemprovider_module_info", "The provider module that answered."};
    Family _info{"systemprovider_machine_info", "The machine: who made it, what it is, and its serial number."};
    Family _firmware{"systemprovider_firmware_info", "Firmware of the machine; the system's own has the name BIOS."};
    Family _biosRelease{"systemprovider_bios_release_timestamp_seconds",
                        "The day on which the BIOS was released, in seconds since 1970."};
    Family _system{"systemprovider_operating_system_info", "The operating system with its version."};
    Family _boot{"systemprovider_boot_timestamp_seconds", "When the system was started, in seconds since 1970."};
    Family _memory{"systemprovider_memory_bytes", "The memory of the system."};
    Family _swap{"systemprovider_swap_bytes", "The swap space of the system."};
    Family _classSuccess{"systemprovider_class_success", "Whether the class was answered (1) or failed (0)."};
    Family _instances{"systemprovider_class_instances", "How many instances the class has."};
    Family _board{"systemprovider_base_board_info", "A base board."};
    Family _cache{"systemprovider_cache_bytes", "The installed size of a processor cache; 0 where none is installed."};
    Family _slot{"systemprovider_slot_info", "A slot by its designation and kind."};
    Family _connector{"systemprovider_connector_info",
                      "A connector by its designation and kind, outside on a panel or inside on a board."};
};

Metrics metricsOf(const std::vector<Machine>& machines)
{
    Metrics metrics;
    for (const Machine& machine : machines)
        metrics.addMachine(machine);
    return metrics;
}
}

std::string machinesAsPrometheus(const std::vector<Machine>& machines, const Setting&)
{
    const Metrics metrics = metricsOf(machines);
    return metrics.ofMachines() + metrics.ofParts();
}

std::string summaryAsPrometheus(const std::vector<Machine>& machines, const Setting&)
{
    return metricsOf(machines).ofMachines();
}

}
