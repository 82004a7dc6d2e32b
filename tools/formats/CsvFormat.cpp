#include "tools/core/Summary.h"
#include "tools/formats/ComparisonText.h"
#include "tools/formats/Formats.h"
#include "tools/formats/Printable.h"
#include "tools/formats/SummaryText.h"
#include "tools/knowledge/DateTimes.h"

#include <algorithm>

namespace VQ::Tool
{

namespace
{
using Line = std::vector<std::string>;

// A text that a spreadsheet would take for a formula, which firmware must not bring in, gets an apostrophe before it.
std::string plainText(const std::string& text)
{
    const bool formula = !text.empty() && std::string("=+-@").find(text.front()) != std::string::npos;
    return (formula ? "'" : "") + printable(text);
}

struct Cell
{
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::uint64_t value) const { return std::to_string(value); }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(const std::string& value) const { return plainText(value); }
    std::string operator()(const DateTimeText& value) const
    {
        const std::string readable = readableDateTime(value.text, isDayOnly(property));
        return readable.empty() ? "" : readable;
    }
    const std::string& property;
};

std::string cellOf(const Property& property)
{
    std::string text;
    for (const Scalar& element : property.value.elements)
        text += (text.empty() ? "" : "; ") + std::visit(Cell{property.name}, element);
    return text;
}

std::string quoted(const std::string& cell)
{
    if (cell.find_first_of(",\"\n\r") == std::string::npos)
        return cell;
    std::string text = "\"";
    for (const char c : cell)
        text += c == '"' ? "\"\"" : std::string(1, c);
    return text + '"';
}

std::string written(const std::vector<Line>& lines)
{
    std::string text;
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i)
            text += (i == 0 ? "" : ",") + quoted(line[i]);
        text += "\n";
    }
    return text;
}

// Every property that an instance has, in the order in which they come up.
Line propertyNames(const Machine& machine)
{
    Line names;
    for (const Answer& answer : machine.answers)
        for (const Instance& instance : answer.instances)
            for (const Property& property : instance.properties)
                if (std::find(names.begin(), names.end(), property.name) == names.end())
                    names.push_back(property.name);
    return names;
}

std::string instancesAsCsv(const Machine& machine)
{
    const Line names = propertyNames(machine);
    std::vector<Line> lines = {{"class"}};
    std::transform(names.begin(), names.end(), std::back_inserter(lines.front()), plainText);
    for (const Answer& answer : machine.answers) {
        for (const Instance& instance : answer.instances) {
            Line line(names.size() + 1);
            line.front() = plainText(answer.className);
            for (const Property& property : instance.properties) {
                const auto column = std::find(names.begin(), names.end(), property.name) - names.begin();
                line[static_cast<std::size_t>(column) + 1] = cellOf(property);
            }
            lines.push_back(line);
        }
    }
    return written(lines);
}

std::string number(const std::optional<std::uint64_t>& value)
{
    return value ? std::to_string(*value) : "";
}

Line lineOf(const Summary& summary)
{
    const FirmwareSummary none{};
    const FirmwareSummary& bios = summary.firmware.empty() ? none : summary.firmware.front();
    std::string caches;
    for (const CacheSummary& cache : summary.caches)
        caches += (caches.empty() ? "" : "; ") + cacheText(cache);
    std::string failures;
    for (const std::string& failure : summary.failures)
        failures += (failures.empty() ? "" : "; ") + failure;
    return {plainText(summary.name),
            plainText(summary.maker),
            plainText(summary.product),
            plainText(summary.model),
            plainText(summary.serial),
            plainText(bios.version),
            bios.date,
            plainText(bios.maker),
            plainText(summary.smbiosVersion),
            std::to_string(summary.boards.size()),
            caches,
            number(summary.memory),
            slotCounts(summary),
            connectorCounts(summary, true),
            plainText(summary.operatingSystem),
            plainText(summary.bootTime),
            plainText(summary.time),
            plainText(failures)};
}
}

std::string summaryAsCsv(const std::vector<Machine>& machines, const Setting&)
{
    std::vector<Line> lines = {{"name", "maker", "product", "model", "serial number", "BIOS version", "BIOS date",
                                "BIOS maker", "SMBIOS version", "boards", "caches", "memory bytes", "slots",
                                "connectors outside", "operating system", "started", "asked", "failed"}};
    for (const Machine& machine : machines)
        lines.push_back(lineOf(summarize(machine)));
    return written(lines);
}

std::string machinesAsCsv(const std::vector<Machine>& machines, const Setting& setting)
{
    return machines.size() == 1 ? instancesAsCsv(machines.front()) : summaryAsCsv(machines, setting);
}

std::string comparisonAsCsv(const Comparison& comparison, const Setting&)
{
    std::vector<Line> lines = {{"machine", "what", "class", "path", "property", "before", "after"}};
    for (const MachineComparison& machine : comparison.machines) {
        if (machine.kind == MachineComparison::Added || machine.kind == MachineComparison::Removed)
            lines.push_back({plainText(machine.name), wordOf(machine.kind), "", "", "", "", ""});
        for (const std::string& className : machine.notCompared)
            lines.push_back({plainText(machine.name), "not compared", plainText(className), "", "", "", ""});
        for (const Change& change : machine.changes) {
            const Line start = {plainText(machine.name), wordOf(change.kind), change.className,
                                plainText(change.instance.path)};
            if (change.properties.empty()) {
                lines.push_back(start);
                lines.back().resize(lines.front().size());
            }
            for (const PropertyChange& property : change.properties) {
                lines.push_back(start);
                lines.back().push_back(property.name);
                for (const auto& value : {property.before, property.after})
                    lines.back().push_back(value ? cellOf({{property.name, *value}, false}) : "");
            }
        }
    }
    return written(lines);
}

}
