#include "tools/formats/ComparisonText.h"
#include "tools/formats/Formats.h"
#include "tools/formats/Printable.h"
#include "tools/formats/ValueText.h"
#include "tools/knowledge/Classes.h"

#include <algorithm>

namespace VQ::Tool
{

const char* wordOf(Change::Kind kind)
{
    static constexpr const char* Words[] = {"added", "removed", "changed", "replaced"};
    return Words[kind];
}

const char* wordOf(MachineComparison::Kind kind)
{
    static constexpr const char* Words[] = {"same", "changed", "added", "removed"};
    return Words[kind];
}

std::string changedValueText(const std::string& className, const std::string& property,
                             const std::optional<Value>& value)
{
    if (!value)
        return "(not there)";
    if (value->isNull)
        return "(null)";
    if (value->elements.empty())
        return "(empty list)";
    std::string text;
    for (const Scalar& element : value->elements)
        text += (text.empty() ? "" : ", ") + valueText(className, property, element, true);
    return text;
}

std::string countText(const Comparison& comparison)
{
    std::size_t machines[4] = {};
    std::size_t changes[4] = {};
    std::size_t partly = 0;
    for (const MachineComparison& machine : comparison.machines) {
        ++machines[machine.kind];
        partly += machine.notCompared.empty() ? 0 : 1;
        for (const Change& change : machine.changes)
            ++changes[change.kind];
    }
    std::string text;
    const auto add = [&text](std::size_t count, const std::string& what) {
        if (count > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + what;
    };
    const auto machineWord = [](std::size_t count) { return std::string(count == 1 ? "machine " : "machines "); };
    add(machines[MachineComparison::Added], machineWord(machines[MachineComparison::Added]) + "added");
    add(machines[MachineComparison::Removed], machineWord(machines[MachineComparison::Removed]) + "removed");
    for (const Change::Kind kind : {Change::Replaced, Change::Changed, Change::Added, Change::Removed})
        add(changes[kind], wordOf(kind));
    add(partly, machineWord(partly) + "not wholly compared");
    return text.empty() ? "no difference" : text;
}

namespace
{
std::string propertiesText(const Change& change)
{
    std::size_t width = 0;
    for (const PropertyChange& property : change.properties)
        width = std::max(width, property.name.size());
    std::string text;
    for (const PropertyChange& property : change.properties)
        text += "              " + printable(property.name) + std::string(width - property.name.size() + 2, ' ') +
                changedValueText(change.className, property.name, property.before) + " -> " +
                changedValueText(change.className, property.name, property.after) + "\n";
    return text;
}

std::string machineText(const MachineComparison& machine)
{
    std::string text, className;
    for (const Change& change : machine.changes) {
        if (change.className != className) {
            const ClassInfo* known = findClass(change.className);
            text += "  " + printable(change.className) + (known ? ": " + std::string(known->title) : "") + "\n";
            className = change.className;
        }
        std::string word = wordOf(change.kind);
        word.resize(sizeof "replaced ", ' ');
        text += "    " + word + printable(keyText(change.instance)) + "\n" + propertiesText(change);
    }
    std::string left;
    for (const std::string& name : machine.notCompared)
        left += (left.empty() ? "" : ", ") + printable(name);
    return text + (left.empty() ? "" : "  " + left + ": not compared, because only one of the two has an answer\n");
}
}

std::string comparisonAsText(const Comparison& comparison, const Setting&)
{
    std::string text = "before: " + printable(comparison.before) + "\nafter:  " + printable(comparison.after) + "\n\n";
    for (const MachineComparison& machine : comparison.machines) {
        const std::string differences = machineText(machine);
        if (comparison.machines.size() > 1 && machine.kind == MachineComparison::Same && differences.empty())
            continue;
        text += printable(machine.name) + ": " + wordOf(machine.kind) + "\n" + differences + "\n";
    }
    return text + countText(comparison) + "\n";
}

}
