#include "tools/vqinventory/Commands.h"

#include "tools/knowledge/Classes.h"
#include "tools/program/Failures.h"

#include <algorithm>
#include <functional>
#include <strings.h>
#include <utility>

namespace VQ::Tool
{

namespace
{
constexpr const char* BiosClass = "QORTAL_BIOS";

std::vector<std::string> requestedClasses(const Arguments& arguments)
{
    if (!arguments.classes.empty())
        return arguments.classes;
    std::vector<std::string> all;
    for (const ClassInfo& served : servedClasses())
        all.emplace_back(served.name);
    return all;
}

bool isZero(const Instance& instance, const char* property)
{
    return std::any_of(instance.properties.begin(), instance.properties.end(), [property](const Property& candidate) {
        return candidate.name == property && candidate.value.elements == std::vector<Scalar>{std::uint64_t{0}};
    });
}

// The BIOS instance of a machine without a table shows as the version 0.0.
bool tellsOfNoTable(const Answer& bios)
{
    return std::any_of(bios.instances.begin(), bios.instances.end(), [](const Instance& instance) {
        return isZero(instance, "SMBIOSMajorVersion") && isZero(instance, "SMBIOSMinorVersion");
    });
}

// A word to the user where firmware and hardware classes have nothing to say, and why.
std::string noTableNotice(const Machine& machine, Module& module)
{
    const bool concerned = std::any_of(machine.answers.begin(), machine.answers.end(), [](const Answer& answer) {
        const ClassInfo* served = findClass(answer.className);
        return served && served->fromSmBios && !answer.failure;
    });
    if (!concerned || !tellsOfNoTable(module.enumerate(BiosClass)))
        return "";
    return "this machine has no SMBIOS table, so the firmware and hardware classes have no facts to show "
           "(--from-dump FILE takes the table of a file)\n";
}

Outcome finish(const Arguments& arguments, const Machine& machine, std::string output, Module& module)
{
    Outcome outcome;
    outcome.output = std::move(output);
    if (!arguments.dumpFile)
        outcome.complaints = noTableNotice(machine, module);
    const std::string failures = failureLines(machine);
    outcome.complaints += failures;
    outcome.failed = !failures.empty();
    return outcome;
}

Outcome show(const Arguments& arguments, Module& module)
{
    Machine machine;
    for (const std::string& className : requestedClasses(arguments))
        machine.answers.push_back(module.enumerate(className));
    return finish(arguments, machine, arguments.format->machines({machine}), module);
}

Outcome names(const Arguments& arguments, Module& module)
{
    Machine machine;
    for (const std::string& className : requestedClasses(arguments))
        machine.answers.push_back(module.names(className));
    return finish(arguments, machine, arguments.format->names({machine}), module);
}

Outcome get(const Arguments& arguments, Module& module)
{
    Machine machine;
    machine.answers = {module.get(arguments.path)};
    const bool nothing = machine.answers[0].instances.empty();
    return finish(arguments, machine, nothing ? "" : arguments.format->machines({machine}), module);
}

// The kernel's refusal of a restart is delivered as a value, not as an error.
bool rebootRefused(const MethodAnswer& answer)
{
    return strcasecmp(answer.method.c_str(), "Reboot") == 0 && answer.returnValue &&
           answer.returnValue->elements != std::vector<Scalar>{std::uint64_t{0}};
}

Outcome invoke(const Arguments& arguments, Module& module)
{
    const MethodAnswer answer = module.invoke(arguments.className, arguments.method);
    Outcome outcome;
    if (answer.failure) {
        outcome.complaints = answer.failure->code + ": " + answer.className + ": " + answer.failure->text + "\n";
        outcome.failed = true;
        return outcome;
    }
    outcome.output = arguments.format->result(answer);
    if (rebootRefused(answer)) {
        outcome.complaints = "the kernel refused to restart the machine; run as root\n";
        outcome.failed = true;
    }
    return outcome;
}
}

Outcome runCommand(const Arguments& arguments, Module& module)
{
    switch (arguments.command) {
    case Command::Names:
        return names(arguments, module);
    case Command::Get:
        return get(arguments, module);
    case Command::Invoke:
        return invoke(arguments, module);
    default:
        return show(arguments, module);
    }
}

}
