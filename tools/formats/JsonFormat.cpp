#include "tools/core/Json.h"
#include "tools/core/Saved.h"
#include "tools/core/Summary.h"
#include "tools/formats/ComparisonText.h"
#include "tools/formats/Formats.h"

namespace VQ::Tool
{

namespace
{
constexpr int FormatVersion = 1; // of summaries and comparisons

Json orNull(const std::string& text)
{
    return text.empty() ? Json(nullptr) : Json(text);
}

template <class Number> Json orNull(const std::optional<Number>& number)
{
    return number ? Json(*number) : Json(nullptr);
}

Json firmwareOf(const Summary& summary)
{
    Json all = Json::array();
    for (const FirmwareSummary& firmware : summary.firmware)
        all.push_back({{"name", firmware.name},
                       {"maker", orNull(firmware.maker)},
                       {"version", orNull(firmware.version)},
                       {"date", orNull(firmware.date)}});
    return all;
}

Json boardsOf(const Summary& summary)
{
    Json all = Json::array();
    for (const BoardSummary& board : summary.boards)
        all.push_back({{"maker", orNull(board.maker)},
                       {"serialNumber", orNull(board.serial)},
                       {"location", orNull(board.location)}});
    return all;
}

Json cachesOf(const Summary& summary)
{
    Json all = Json::array();
    for (const CacheSummary& cache : summary.caches)
        all.push_back({{"count", cache.count},
                       {"level", cache.level == 0 ? Json(nullptr) : Json(cache.level)},
                       {"type", orNull(cache.type)},
                       {"kilobytes", cache.size}});
    return all;
}

Json slotsOf(const Summary& summary)
{
    Json all = Json::array();
    for (const SlotSummary& slots : summary.slots)
        all.push_back({{"kind", slots.kind}, {"count", slots.names.size()}, {"names", slots.names}});
    return all;
}

Json connectorsOf(const Summary& summary)
{
    Json all = Json::array();
    for (const ConnectorSummary& connector : summary.connectors)
        all.push_back({{"kind", titleOf(connector.kind)},
                       {"name", orNull(connector.name)},
                       {"place", connector.outside ? "outside" : "inside"}});
    return all;
}

Json toJson(const Summary& summary)
{
    return {{"name", summary.name},
            {"time", summary.time},
            {"maker", orNull(summary.maker)},
            {"product", orNull(summary.product)},
            {"model", orNull(summary.model)},
            {"serialNumber", orNull(summary.serial)},
            {"firmware", firmwareOf(summary)},
            {"smbiosVersion", orNull(summary.smbiosVersion)},
            {"boards", boardsOf(summary)},
            {"caches", cachesOf(summary)},
            {"memoryBytes", orNull(summary.memory)},
            {"freeMemoryBytes", orNull(summary.freeMemory)},
            {"slots", slotsOf(summary)},
            {"connectors", connectorsOf(summary)},
            {"operatingSystem", orNull(summary.operatingSystem)},
            {"uptimeSeconds", orNull(summary.uptime)},
            {"notTold", summary.missing},
            {"notes", summary.notes},
            {"failures", summary.failures}};
}

Json toJson(const std::optional<Value>& value)
{
    return value ? toJson(*value) : Json(nullptr);
}

Json toJson(const Change& change)
{
    Json properties = Json::array();
    for (const PropertyChange& property : change.properties)
        properties.push_back(
            {{"name", property.name}, {"before", toJson(property.before)}, {"after", toJson(property.after)}});
    return {{"class", change.className},
            {"kind", wordOf(change.kind)},
            {"path", change.instance.path},
            {"properties", properties}};
}

Json toJson(const MethodAnswer& answer)
{
    return {{"class", answer.className}, {"method", answer.method}, {"ReturnValue", toJson(answer.returnValue)}};
}

Json toJson(const MachineComparison& machine)
{
    Json changes = Json::array();
    for (const Change& change : machine.changes)
        changes.push_back(toJson(change));
    return {{"name", machine.name},
            {"kind", wordOf(machine.kind)},
            {"timeBefore", orNull(machine.timeBefore)},
            {"timeAfter", orNull(machine.timeAfter)},
            {"notCompared", machine.notCompared},
            {"changes", changes}};
}
}

std::string machinesAsJson(const std::vector<Machine>& machines, const Setting&)
{
    return savedMachines(machines);
}

std::string summaryAsJson(const std::vector<Machine>& machines, const Setting&)
{
    Json all = Json::array();
    for (const Machine& machine : machines)
        all.push_back(toJson(summarize(machine)));
    return written({{"format", "systemprovider-summary"}, {"version", FormatVersion}, {"machines", all}});
}

std::string comparisonAsJson(const Comparison& comparison, const Setting&)
{
    Json machines = Json::array();
    for (const MachineComparison& machine : comparison.machines)
        machines.push_back(toJson(machine));
    return written({{"format", "systemprovider-comparison"},
                    {"version", FormatVersion},
                    {"before", comparison.before},
                    {"after", comparison.after},
                    {"same", isSame(comparison)},
                    {"machines", machines}});
}

std::string resultsAsJson(const std::vector<MethodAnswer>& answers)
{
    if (answers.size() == 1)
        return written(toJson(answers.front()));
    Json all = Json::array();
    for (const MethodAnswer& answer : answers) {
        all.push_back(toJson(answer));
        all.back()["machine"] = answer.machine;
        all.back()["failure"] =
            answer.failure ? Json({{"code", answer.failure->code}, {"text", answer.failure->text}}) : Json(nullptr);
    }
    return written({{"format", "systemprovider-results"}, {"version", FormatVersion}, {"results", all}});
}

}
