#include "tools/formats/Formats.h"
#include "tools/formats/Printable.h"
#include "tools/formats/ValueText.h"
#include "tools/knowledge/Classes.h"

#include <algorithm>
#include <cstring>

namespace VQ::Tool
{

namespace
{
constexpr const char* Margin = "    ";
constexpr const char* KeyMargin = "  * ";

// One line, or for a list of more than one element as many, the further ones below the first.
void appendProperty(std::string& text, const std::string& className, const Property& property, std::size_t nameWidth)
{
    const std::string name = printable(property.name);
    text += property.isKey ? KeyMargin : Margin;
    text += name;
    text.append(nameWidth - name.size() + 2, ' ');
    if (property.value.isNull || property.value.elements.empty()) {
        text += property.value.isNull ? "(null)\n" : "(empty list)\n";
        return;
    }
    for (std::size_t i = 0; i < property.value.elements.size(); ++i) {
        if (i > 0)
            text.append(std::strlen(Margin) + nameWidth + 2, ' ');
        text += valueText(className, property.name, property.value.elements[i]);
        text += '\n';
    }
}

void appendInstance(std::string& text, const std::string& className, const Instance& instance, std::size_t nameWidth)
{
    for (const bool keys : {true, false})
        for (const Property& property : instance.properties)
            if (property.isKey == keys)
                appendProperty(text, className, property, nameWidth);
}

std::size_t widestName(const Answer& answer)
{
    std::size_t width = 0;
    for (const Instance& instance : answer.instances)
        for (const Property& property : instance.properties)
            width = std::max(width, printable(property.name).size());
    return width;
}

std::string heading(const Answer& answer)
{
    const ClassInfo* served = findClass(answer.className);
    const std::size_t count = answer.instances.size();
    return printable(answer.className) + ": " + (served ? std::string(served->title) + ", " : "") +
           (count == 0   ? "no instances"
            : count == 1 ? "1 instance"
                         : std::to_string(count) + " instances") +
           (answer.failure ? ", then an error" : "") + (count == 0 ? "" : " (* marks a key)") + "\n";
}

std::string sectionText(const Answer& answer, const Machine& machine)
{
    std::string text = heading(answer);
    if (answer.ofAskedMachine)
        text += "  (of " + printable(machine.askedMachine) + ", which read the dump: a dump holds nothing of this)\n";
    const std::string className = canonicalClassName(answer.className);
    const std::size_t nameWidth = widestName(answer);
    for (const Instance& instance : answer.instances) {
        text += '\n';
        appendInstance(text, className, instance, nameWidth);
    }
    return text;
}

std::string machineTitle(const Machine& machine)
{
    const std::string from = machine.source.place.empty() ? "" : ", from " + machine.source.place;
    return "== " + printable(machine.name + from) + "\n";
}
}

std::string machinesAsText(const std::vector<Machine>& machines, const Setting&)
{
    std::string text;
    for (const Machine& machine : machines) {
        if (machines.size() > 1)
            text += (text.empty() ? "" : "\n") + machineTitle(machine);
        for (const Answer& answer : machine.answers)
            if (!answer.failure || !answer.instances.empty())
                text += (text.empty() ? "" : "\n") + sectionText(answer, machine);
    }
    return text;
}

std::string namesAsText(const std::vector<Machine>& machines, const Setting&)
{
    std::string text;
    for (const Machine& machine : machines) {
        if (machines.size() > 1)
            text += (text.empty() ? "" : "\n") + machineTitle(machine);
        for (const Answer& answer : machine.answers)
            for (const Instance& instance : answer.instances)
                text += printable(instance.path) + "\n";
    }
    return text;
}

std::string resultsAsText(const std::vector<MethodAnswer>& answers)
{
    std::string text;
    for (const MethodAnswer& answer : answers)
        if (answer.returnValue && !answer.returnValue->elements.empty())
            text += printable((answer.machine.empty() ? "" : answer.machine + ": ") + answer.className + "." +
                              answer.method) +
                    ": ReturnValue " + valueText("", "", answer.returnValue->elements.front()) + "\n";
    return text;
}

}
