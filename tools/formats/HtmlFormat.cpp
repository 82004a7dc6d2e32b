#include "tools/core/Summary.h"
#include "tools/formats/ComparisonText.h"
#include "tools/formats/Drawing.h"
#include "tools/formats/Facts.h"
#include "tools/formats/Formats.h"
#include "tools/formats/Pages.h"
#include "tools/formats/Printable.h"
#include "tools/formats/SummaryText.h"
#include "tools/knowledge/Classes.h"

#include <kainjow/mustache.hpp>

#include <algorithm>
#include <utility>

namespace VQ::Tool
{

namespace
{
using Data = kainjow::mustache::data;
using Template = kainjow::mustache::mustache;

/// The templates, parsed once for a page.
struct Templates
{
    Template page{PageHtml};
    Template machine{MachineHtml};
    Template ofClass{ClassHtml};
    Template glossary{GlossaryHtml};
    Template comparison{ComparisonHtml};

    Templates()
    {
        for (Template* one : {&page, &machine, &ofClass, &glossary, &comparison})
            one->set_custom_escape(escapedHtml);
    }
};

Data listOf(const std::vector<std::string>& texts)
{
    Data list(Data::type::list);
    for (const std::string& text : texts)
        list << Data(text);
    return list;
}

Data setIf(bool condition, const std::string& text)
{
    return condition ? Data(text) : Data(false);
}

std::string counted(std::size_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string originOf(const Machine& machine)
{
    std::string text;
    if (machine.source.kind == Source::Dump)
        text = "From the SMBIOS table in " + machine.source.place + ", read on " + machine.askedMachine;
    else if (machine.source.kind == Source::Server)
        text = "Asked through its CIM server, " + machine.source.place;
    else
        text = "Asked on the machine itself";
    text += ", " + machine.time + ", by " + machine.tool;
    return printable(text + (machine.moduleVersion.empty() ? "" : " and module " + machine.moduleVersion));
}

// ---- a class

std::string capitalized(std::string text)
{
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

Data factData(const Fact& fact, const std::string& className, bool withMeanings)
{
    const SchemaProperty* known = withMeanings ? schemaProperty(className, fact.name) : nullptr;
    Data data;
    data["name"] = fact.name;
    data["key"] = fact.isKey;
    data["values"] = fact.differs ? listOf({"not the same in all, see below"}) : listOf(fact.values);
    data["meaning"] = setIf(known != nullptr && *known->description != '\0', known ? known->description : "");
    return data;
}

std::string classHtml(const Answer& answer, const Machine& machine, const std::string& id, bool withMeanings,
                      Templates& templates)
{
    const ClassInfo* served = findClass(answer.className);
    const SchemaClass* known = schemaClass(answer.className);
    const Facts facts = factsOf(answer);
    const std::string title = served ? capitalized(served->title) : printable(answer.className);
    Data data;
    data["id"] = id;
    data["open"] = withMeanings;
    data["meanings"] = !withMeanings && known; // they stand at the end of the page, once for all machines
    data["title"] = title;
    data["name"] = printable(answer.className);
    data["count"] = counted(answer.instances.size(), "instance", "instances");
    data["description"] = setIf(known != nullptr && withMeanings, known ? known->description : "");
    data["origin"] = setIf(answer.ofAskedMachine, "Of " + printable(machine.askedMachine) +
                                                      ", which read the dump: a dump holds nothing of this.");
    data["factsCaption"] =
        answer.instances.size() == 1 ? title : title + ": the properties, and what all instances have in common";
    data["instancesCaption"] = title + ": what differs";
    data["hasProperties"] = !facts.facts.empty();
    data["hasInstances"] = !facts.instances.empty();
    Data properties(Data::type::list), columns(Data::type::list), instances(Data::type::list);
    for (const Fact& fact : facts.facts) {
        properties << factData(fact, answer.className, withMeanings);
        if (fact.differs) {
            Data column;
            column["name"] = fact.name;
            column["key"] = fact.isKey;
            columns << column;
        }
    }
    for (const std::vector<std::string>& line : facts.instances) {
        Data instance;
        instance["cells"] = listOf(line);
        instances << instance;
    }
    data["properties"] = std::move(properties);
    data["columns"] = std::move(columns);
    data["instances"] = std::move(instances);
    return templates.ofClass.render(data);
}

// ---- a machine

Data cardsOf(const Summary& summary)
{
    Data cards(Data::type::list);
    for (const SummaryRow& row : summaryRows(summary)) {
        if (row.label == "Note" || row.label == "Failed")
            continue;
        std::vector<std::string> texts;
        for (const std::string& text : row.texts)
            texts.push_back(printable(text));
        Data card;
        card["label"] = row.label;
        card["texts"] = listOf(texts);
        cards << card;
    }
    return cards;
}

void addPicture(Data& pictures, const char* caption, const std::string& svg, const std::string& note = "")
{
    if (svg.empty())
        return;
    Data picture;
    picture["caption"] = caption;
    picture["svg"] = svg;
    picture["note"] = setIf(!note.empty(), note);
    pictures << picture;
}

Data picturesOf(const Summary& summary)
{
    Data pictures(Data::type::list);
    const std::string inside = connectorCounts(summary, false);
    addPicture(pictures, "Boards and slots", drawnBoards(summary));
    addPicture(pictures, "Connectors outside", drawnPanel(summary), inside.empty() ? "" : "On the boards: " + inside);
    addPicture(pictures, "Caches", drawnCaches(summary));
    addPicture(pictures, "Memory", drawnMemory(summary));
    return pictures;
}

Data problemsOf(const Summary& summary)
{
    Data problems(Data::type::list);
    for (const auto& [label, texts] : {std::pair<const char*, const std::vector<std::string>&>{"Note", summary.notes},
                                       {"Failed", summary.failures}}) {
        for (const std::string& text : texts) {
            Data problem;
            problem["label"] = label;
            problem["text"] = printable(text);
            problems << problem;
        }
    }
    return problems;
}

std::string machineHtml(const Machine& machine, const Summary& summary, const std::string& id, bool withClasses,
                        bool withMeanings, Templates& templates)
{
    Data data;
    data["id"] = id;
    data["name"] = withMeanings ? "At a glance" : printable(machine.name); // the only one's name is that of the page
    data["origin"] = originOf(machine);
    data["several"] = !withMeanings;
    data["problems"] = problemsOf(summary);
    data["cards"] = cardsOf(summary);
    data["pictures"] = picturesOf(summary);
    std::string classes;
    Data links(Data::type::list);
    for (const Answer& answer : machine.answers) {
        if (!withClasses || answer.instances.empty())
            continue;
        const std::string classId = id + "-" + std::to_string(links.list_value().size() + 1);
        const ClassInfo* served = findClass(answer.className);
        Data link;
        link["id"] = classId;
        link["title"] = served ? capitalized(served->title) : printable(answer.className);
        links << link;
        classes += classHtml(answer, machine, classId, withMeanings, templates);
    }
    data["hasClasses"] = !classes.empty();
    data["links"] = std::move(links);
    data["classes"] = classes;
    return templates.machine.render(data);
}

std::string glossaryHtml(Templates& templates)
{
    Data classes(Data::type::list);
    for (const ClassInfo& served : servedClasses()) {
        const SchemaClass* known = schemaClass(served.name);
        if (!known)
            continue;
        Data properties(Data::type::list);
        for (const SchemaProperty& property : known->properties) {
            Data row;
            row["name"] = std::string(property.name);
            row["key"] = property.isKey;
            row["meaning"] = property.description;
            properties << row;
        }
        Data one;
        one["name"] = std::string(known->name);
        one["description"] = known->description;
        one["properties"] = std::move(properties);
        classes << one;
    }
    Data data;
    data["classes"] = std::move(classes);
    return templates.glossary.render(data);
}

// ---- pages

Data pageData(const std::string& title, const std::string& subtitle, const Setting& setting)
{
    Data data;
    data["title"] = printable(title);
    data["subtitle"] = printable(subtitle);
    data["styleHash"] = VQ_STYLE_HASH;
    data["style"] = StyleCss;
    data["time"] = setting.time;
    data["tool"] = setting.tool;
    data["fleet"] = Data(false);
    return data;
}

struct FleetColumn
{
    const char* title;
    std::string (*text)(const Summary& summary);
    std::string (*key)(const Summary& summary) = nullptr; ///< what it is sorted by; null: its text
};

const FirmwareSummary& biosOf(const Summary& summary)
{
    static const FirmwareSummary none;
    return summary.firmware.empty() ? none : summary.firmware.front();
}

constexpr FleetColumn FleetColumns[] = {
    {"Machine", productText},
    {"Serial number", [](const Summary& summary) { return summary.serial; }},
    {"BIOS", [](const Summary& summary) { return biosOf(summary).version; }},
    {"BIOS date", [](const Summary& summary) { return biosOf(summary).date; }},
    {"System", [](const Summary& summary) { return summary.operatingSystem; }},
    {"Memory", [](const Summary& summary) { return summary.memory ? sizeText(*summary.memory) : ""; },
     [](const Summary& summary) { return summary.memory ? std::to_string(*summary.memory) : ""; }},
    {"Problem", // its code: the machine's own part of the page has the rest
     [](const Summary& summary) {
         return summary.failures.empty() ? "" : summary.failures.front().substr(0, summary.failures.front().find(':'));
     }},
};

Data cellData(const FleetColumn& column, const Summary& summary)
{
    const std::string key = column.key ? column.key(summary) : "";
    Data cell;
    cell["text"] = printable(column.text(summary));
    cell["key"] = setIf(!key.empty(), key);
    return cell;
}

// Without the columns that tell nothing of any machine.
Data fleetData(const std::vector<Summary>& summaries)
{
    std::vector<std::string> titles = {"Name"};
    std::vector<Data> lines(summaries.size(), Data(Data::type::list));
    for (const FleetColumn& column : FleetColumns) {
        const bool told = std::any_of(summaries.begin(), summaries.end(),
                                      [&column](const Summary& summary) { return !column.text(summary).empty(); });
        for (std::size_t i = 0; told && i < summaries.size(); ++i)
            lines[i] << cellData(column, summaries[i]);
        if (told)
            titles.emplace_back(column.title);
    }
    Data fleet;
    Data rows(Data::type::list);
    for (std::size_t i = 0; i < summaries.size(); ++i) {
        Data row;
        row["id"] = "m" + std::to_string(i + 1);
        row["name"] = printable(summaries[i].name);
        row["cells"] = std::move(lines[i]);
        rows << row;
    }
    fleet["count"] = std::to_string(summaries.size());
    fleet["columns"] = listOf(titles);
    fleet["script"] = FleetJs;
    fleet["scriptHash"] = VQ_SCRIPT_HASH;
    fleet["rows"] = std::move(rows);
    return fleet;
}

std::string pageOf(const std::vector<Machine>& machines, const Setting& setting, bool withClasses)
{
    Templates templates;
    std::vector<Summary> summaries;
    summaries.reserve(machines.size());
    for (const Machine& machine : machines)
        summaries.push_back(summarize(machine));
    const bool one = machines.size() == 1;
    const std::string product = one ? productText(summaries.front()) : "";
    Data data = pageData(
        one ? "Inventory of " + machines.front().name : "Inventory",
        one ? (product.empty() ? "One machine" : product) : counted(machines.size(), "machine", "machines"), setting);
    std::string content;
    for (std::size_t i = 0; i < machines.size(); ++i)
        content += machineHtml(machines[i], summaries[i], "m" + std::to_string(i + 1), withClasses, one, templates);
    if (!one && withClasses)
        content += glossaryHtml(templates);
    data["content"] = content;
    if (!one)
        data["fleet"] = fleetData(summaries);
    return templates.page.render(data);
}

// ---- comparisons

// A row for a property; the first one of a change has the cells that hold for all of its rows.
void addChange(Data& changes, const Change& change, const PropertyChange* property)
{
    Data data;
    data["first"] = property == nullptr || property == change.properties.data();
    data["rows"] = std::to_string(std::max<std::size_t>(change.properties.size(), 1));
    data["kind"] = wordOf(change.kind);
    data["className"] = printable(change.className);
    data["key"] = printable(keyText(change.instance));
    data["property"] = property ? printable(property->name) : "";
    data["before"] = property ? changedValueText(change.className, property->name, property->before) : "";
    data["after"] = property ? changedValueText(change.className, property->name, property->after) : "";
    changes << data;
}

std::string machineComparisonHtml(const MachineComparison& machine, const std::string& id, Templates& templates)
{
    Data changes(Data::type::list);
    for (const Change& change : machine.changes) {
        if (change.properties.empty())
            addChange(changes, change, nullptr);
        for (const PropertyChange& property : change.properties)
            addChange(changes, change, &property);
    }
    std::string left;
    for (const std::string& name : machine.notCompared)
        left += (left.empty() ? "" : ", ") + printable(name);
    std::string times = machine.timeBefore;
    if (!machine.timeAfter.empty())
        times += (times.empty() ? "" : " to ") + machine.timeAfter;
    Data data;
    data["id"] = id;
    data["name"] = printable(machine.name);
    data["kind"] = wordOf(machine.kind);
    data["times"] = setIf(!times.empty(), printable(times));
    data["notCompared"] = setIf(!left.empty(), left);
    data["hasChanges"] = !machine.changes.empty();
    data["changes"] = std::move(changes);
    return templates.comparison.render(data);
}
}

std::string machinesAsHtml(const std::vector<Machine>& machines, const Setting& setting)
{
    return pageOf(machines, setting, true);
}

std::string summaryAsHtml(const std::vector<Machine>& machines, const Setting& setting)
{
    return pageOf(machines, setting, false);
}

std::string comparisonAsHtml(const Comparison& comparison, const Setting& setting)
{
    Templates templates;
    Data data =
        pageData("What changed", "From " + comparison.before + " to " + comparison.after + ": " + countText(comparison),
                 setting);
    std::string content;
    std::size_t count = 0;
    for (const MachineComparison& machine : comparison.machines)
        content += machineComparisonHtml(machine, "m" + std::to_string(++count), templates);
    data["content"] = content;
    return templates.page.render(data);
}

}
