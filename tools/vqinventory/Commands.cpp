#include "tools/vqinventory/Commands.h"

#include "tools/core/Compare.h"
#include "tools/core/Redact.h"
#include "tools/knowledge/Methods.h"
#include "tools/program/Failures.h"
#include "tools/program/InputFile.h"
#include "tools/program/SavedFile.h"
#include "tools/vqinventory/Asking.h"
#include "tools/vqinventory/Module.h"

#include <algorithm>
#include <optional>

namespace VQ::Tool
{

namespace
{
std::string moduleFileOf(const Arguments& arguments)
{
    return arguments.moduleFile.empty() ? defaultModuleFile() : arguments.moduleFile;
}

std::vector<Machine> machinesFor(const Arguments& arguments)
{
    if (!arguments.savedFiles.empty())
        return chosen(readSavedFiles(arguments.savedFiles, arguments.request.kind == Request::Names),
                      arguments.request);
    std::vector<Dump> dumps;
    for (const std::string& file : arguments.dumpFiles)
        dumps.push_back(openDump(file));
    return ask(moduleFileOf(arguments), dumps, arguments.request);
}

bool hasInstances(const std::vector<Machine>& machines)
{
    return std::any_of(machines.begin(), machines.end(), [](const Machine& machine) {
        return std::any_of(machine.answers.begin(), machine.answers.end(),
                           [](const Answer& answer) { return !answer.instances.empty(); });
    });
}

Outcome show(const Arguments& arguments)
{
    std::vector<Machine> machines = machinesFor(arguments);
    const Format& format = *arguments.format;
    const MachinesWriter write = arguments.command == Command::Summary      ? format.summary
                                 : arguments.request.kind == Request::Names ? format.names
                                                                            : format.machines;
    if (arguments.redact)
        Redactor().redact(machines);
    Outcome outcome;
    if (arguments.request.kind != Request::Get || hasInstances(machines))
        outcome.output = write(machines, arguments.setting);
    outcome.complaints = complaintsOf(machines, arguments.command != Command::Summary && !format.showsNotes);
    outcome.code = anyFailed(machines) ? RequestFailed : Done;
    return outcome;
}

// Saved answers, or dumps of which the module is asked; nothing: this machine.
std::vector<Machine> machinesIn(const std::string& file, const Arguments& arguments)
{
    if (file.empty())
        return ask(moduleFileOf(arguments), {}, arguments.request);
    if (file != StandardInput && isDump(file))
        return ask(moduleFileOf(arguments), {openDump(file)}, arguments.request);
    return readSavedFiles({file});
}

Outcome compare(const Arguments& arguments)
{
    std::vector<Machine> before = machinesIn(arguments.before, arguments);
    std::vector<Machine> after = machinesIn(arguments.after, arguments);
    if (arguments.redact) {
        Redactor redactor;
        redactor.redact(before);
        redactor.redact(after);
    }
    Comparison comparison = compareMachines(before, after, arguments.moving);
    comparison.before = arguments.redact ? "(redacted)" : arguments.before;
    comparison.after = arguments.redact ? "(redacted)" : arguments.after.empty() ? "this machine" : arguments.after;
    Outcome outcome;
    outcome.output = arguments.format->comparison(comparison, arguments.setting);
    outcome.code = isSame(comparison) ? Same : Different;
    return outcome;
}

Outcome invoke(const Arguments& arguments)
{
    std::optional<DumpReader> reader;
    const std::string moduleFile = moduleFileOf(arguments);
    if (!arguments.dumpFiles.empty())
        reader.emplace(moduleFile).serve(openDump(arguments.dumpFiles.front()));
    Module module(moduleFile);
    const MethodAnswer answer = module.invoke(arguments.className, arguments.method);
    Outcome outcome;
    if (answer.failure) {
        outcome.complaints = answer.failure->code + ": " + answer.className + ": " + answer.failure->text + "\n";
        outcome.code = RequestFailed;
        return outcome;
    }
    outcome.output = arguments.format->results({answer});
    if (isRefusedRestart(answer)) {
        outcome.complaints = "the kernel refused to restart the machine; run as root\n";
        outcome.code = RequestFailed;
    }
    return outcome;
}
}

Outcome runCommand(const Arguments& arguments)
{
    switch (arguments.command) {
    case Command::Invoke:
        return invoke(arguments);
    case Command::Compare:
        return compare(arguments);
    default:
        return show(arguments);
    }
}

}
