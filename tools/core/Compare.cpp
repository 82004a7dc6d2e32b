#include "tools/core/Compare.h"

#include "tools/knowledge/DateTimes.h"
#include "tools/knowledge/Placeholders.h"
#include "tools/knowledge/Roles.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
struct Pair
{
    const Instance* before;
    const Instance* after;
};

std::string scalarText(const Scalar& scalar)
{
    return std::visit(
        [](const auto& value) -> std::string {
            using Type = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Type, std::string>)
                return value;
            else if constexpr (std::is_same_v<Type, DateTimeText>)
                return value.text;
            else
                return std::to_string(value);
        },
        scalar);
}

// The keys in one text, by which instances are found again; `withVersion`: with the version that is a key of firmware.
std::string identityOf(const Instance& instance, const std::string& className, bool withVersion)
{
    std::vector<std::string> parts;
    for (const NamedValue& key : instance.keys) {
        std::string name = key.name;
        std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
        if (!isHostName(className, key.name) && (withVersion || name != "version") && !key.value.elements.empty())
            parts.push_back(name + "=" + scalarText(key.value.elements.front()) + '\0');
    }
    std::sort(parts.begin(), parts.end());
    std::string all;
    for (const std::string& part : parts)
        all += part;
    return all;
}

// Instances of one identity are paired in their order, whatever there is left over stays.
void pairUp(std::vector<const Instance*>& before, std::vector<const Instance*>& after, const std::string& className,
            bool withVersion, std::vector<Pair>& pairs)
{
    std::multimap<std::string, const Instance*> open;
    for (const Instance* instance : before)
        open.emplace(identityOf(*instance, className, withVersion), instance);
    std::vector<const Instance*> left;
    for (const Instance* instance : after) {
        const auto found = open.find(identityOf(*instance, className, withVersion)); // the first that was put in
        if (found == open.end()) {
            left.push_back(instance);
            continue;
        }
        pairs.push_back({found->second, instance});
        before.erase(std::find(before.begin(), before.end(), found->second));
        open.erase(found);
    }
    after = left;
}

const Property* propertyOf(const Instance& instance, const std::string& name)
{
    for (const Property& property : instance.properties)
        if (property.name == name)
            return &property;
    return nullptr;
}

bool isSameMinute(const Value& before, const Value& after)
{
    constexpr std::int64_t Minute = 60;
    const auto seconds = [](const Value& value) -> std::optional<std::int64_t> {
        const auto* date = value.elements.empty() ? nullptr : std::get_if<DateTimeText>(&value.elements.front());
        return date ? secondsOf(date->text) : std::nullopt;
    };
    const auto one = seconds(before);
    const auto other = seconds(after);
    return one && other && std::llabs(*one - *other) < Minute;
}

class MachineComparer
{
public:
    MachineComparer(const Machine& before, const Machine& after, bool moving)
        : _before(before), _after(after), _moving(moving),
          _hasDump(before.source.kind == Source::Dump || after.source.kind == Source::Dump)
    {
    }

    MachineComparison compare()
    {
        _result.name = _after.name;
        _result.timeBefore = _before.time;
        _result.timeAfter = _after.time;
        for (const Answer& answer : _after.answers) {
            const Answer* old = answerOf(_before, answer.className);
            if (old && !old->failure && !answer.failure)
                compareAnswers(*old, answer);
            else if (!answer.ofAskedMachine)
                _result.notCompared.push_back(answer.className);
        }
        for (const Answer& answer : _before.answers)
            if (!answer.ofAskedMachine && !hasAnswer(_after, answer.className))
                _result.notCompared.push_back(answer.className);
        _result.kind = _result.changes.empty() ? MachineComparison::Same : MachineComparison::Changed;
        return _result;
    }

private:
    static bool hasAnswer(const Machine& machine, const std::string& className)
    {
        return std::any_of(machine.answers.begin(), machine.answers.end(),
                           [&](const Answer& answer) { return answer.className == className; });
    }

    static const Answer* answerOf(const Machine& machine, const std::string& className)
    {
        for (const Answer& answer : machine.answers)
            if (answer.className == className)
                return &answer;
        return nullptr;
    }

    void compareAnswers(const Answer& before, const Answer& after)
    {
        if (before.ofAskedMachine || after.ofAskedMachine)
            return;
        std::vector<const Instance*> old, now;
        for (const Instance& instance : before.instances)
            old.push_back(&instance);
        for (const Instance& instance : after.instances)
            now.push_back(&instance);
        std::vector<Pair> pairs;
        pairUp(old, now, after.className, true, pairs);
        pairUp(old, now, after.className, false, pairs);
        for (const Pair& pair : pairs)
            compareInstances(pair, after.className);
        for (const Instance* instance : old)
            _result.changes.push_back({Change::Removed, after.className, *instance, {}});
        for (const Instance* instance : now)
            _result.changes.push_back({Change::Added, after.className, *instance, {}});
    }

    bool isLeftOut(const std::string& className, const std::string& property) const
    {
        return (!_moving && isMoving(className, property)) || repeatsHostName(className, property) ||
               (_hasDump && isHostName(className, property));
    }

    void compareInstances(const Pair& pair, const std::string& className)
    {
        Change change{Change::Changed, className, *pair.after, {}};
        for (const Property& property : pair.after->properties) {
            const Property* old = propertyOf(*pair.before, property.name);
            if (!isLeftOut(className, property.name))
                compareProperties(change, property.name, old ? &old->value : nullptr, &property.value);
        }
        for (const Property& property : pair.before->properties)
            if (!propertyOf(*pair.after, property.name) && !isLeftOut(className, property.name))
                compareProperties(change, property.name, &property.value, nullptr);
        if (!change.properties.empty())
            _result.changes.push_back(change);
    }

    void compareProperties(Change& change, const std::string& name, const Value* before, const Value* after) const
    {
        if (before && after && *before == *after)
            return;
        if (!_moving && before && after && isBootTime(change.className, name) && isSameMinute(*before, *after))
            return;
        if (isSerial(name) && before && after)
            change.kind = Change::Replaced;
        change.properties.push_back({name, before ? std::optional<Value>(*before) : std::nullopt,
                                     after ? std::optional<Value>(*after) : std::nullopt});
    }

    const Machine& _before;
    const Machine& _after;
    bool _moving;
    bool _hasDump;
    MachineComparison _result;
};

const Machine* machineOf(const std::vector<Machine>& machines, const std::string& name)
{
    for (const Machine& machine : machines)
        if (machine.name == name)
            return &machine;
    return nullptr;
}

MachineComparison comeOrGone(MachineComparison::Kind kind, const Machine& machine)
{
    MachineComparison result;
    result.kind = kind;
    result.name = machine.name;
    (kind == MachineComparison::Added ? result.timeAfter : result.timeBefore) = machine.time;
    return result;
}
}

Comparison compareMachines(const std::vector<Machine>& before, const std::vector<Machine>& after, bool moving)
{
    Comparison comparison;
    if (before.size() == 1 && after.size() == 1) {
        comparison.machines.push_back(MachineComparer(before.front(), after.front(), moving).compare());
        return comparison;
    }
    for (const Machine& machine : before)
        if (!machineOf(after, machine.name))
            comparison.machines.push_back(comeOrGone(MachineComparison::Removed, machine));
    for (const Machine& machine : after)
        if (!machineOf(before, machine.name))
            comparison.machines.push_back(comeOrGone(MachineComparison::Added, machine));
    for (const Machine& machine : after)
        if (const Machine* old = machineOf(before, machine.name))
            comparison.machines.push_back(MachineComparer(*old, machine, moving).compare());
    return comparison;
}

bool isSame(const Comparison& comparison)
{
    return std::all_of(comparison.machines.begin(), comparison.machines.end(), [](const MachineComparison& machine) {
        return machine.kind == MachineComparison::Same && machine.notCompared.empty();
    });
}

std::string keyText(const Instance& instance)
{
    std::string text;
    for (const NamedValue& key : instance.keys)
        if (isTellingKey(key.name) && !isHostName(instance.className, key.name) && !key.value.elements.empty())
            text += (text.empty() ? "" : ", ") + key.name + " " + scalarText(key.value.elements.front());
    return text;
}

}
