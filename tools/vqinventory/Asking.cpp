#include "tools/vqinventory/Asking.h"

#include "tools/knowledge/Classes.h"
#include "tools/program/Clock.h"
#include "tools/program/InputFile.h"
#include "tools/program/Output.h"
#include "tools/program/SavedFile.h"
#include "tools/vqinventory/Module.h"
#include "tools/vqinventory/ModuleFile.h"
#include "tools/vqinventory/Table.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <sys/utsname.h>

namespace VQ::Tool
{

namespace
{
constexpr const char* BiosClass = "QORTAL_BIOS";
constexpr const char* MemoryClass = "QORx_SystemMemory";

std::string hostName()
{
    utsname names{};
    return uname(&names) == 0 ? names.nodename : "";
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

const Answer* answerOf(const Machine& machine, const char* className)
{
    for (const Answer& answer : machine.answers)
        if (answer.className == className)
            return &answer;
    return nullptr;
}

bool hasFirmwareFacts(const Machine& machine)
{
    return std::any_of(machine.answers.begin(), machine.answers.end(), [](const Answer& answer) {
        const ClassInfo* served = findClass(answer.className);
        return served && served->fromSmBios && !answer.failure;
    });
}

Answer answerTo(Module& module, const Request& request, const std::string& className)
{
    return request.kind == Request::Names ? module.names(className) : module.enumerate(className);
}

// What a file in memory is called is nobody's business.
void nameTheDump(std::string& text, const Dump& dump)
{
    const std::string name = dump.file == StandardInput ? "standard input" : dump.file;
    if (dump.readable == dump.file)
        return;
    for (std::size_t at; (at = text.find(dump.readable)) != std::string::npos;)
        text.replace(at, dump.readable.size(), name);
}

class Asker
{
public:
    Asker(const std::string& moduleFile, const Request& request)
        : _request(request), _module(moduleFile), _version(moduleVersion(moduleFile))
    {
    }

    Machine askAbout(const Dump* dump, bool oneOfMany)
    {
        Machine machine;
        machine.askedMachine = hostName();
        machine.name = dump ? machineNameOf(dump->file) : machine.askedMachine;
        if (dump)
            machine.source = {Source::Dump, dump->file == StandardInput ? "standard input" : dump->file};
        machine.time = currentTime();
        machine.tool = toolVersion();
        machine.moduleVersion = _version;
        if (_request.kind == Request::Get)
            machine.answers.push_back(_module.get(_request.path));
        else
            askForClasses(machine, oneOfMany);
        for (Answer& answer : machine.answers)
            if (const ClassInfo* served = findClass(answer.className))
                answer.ofAskedMachine = dump && !served->fromSmBios;
        explain(machine, dump);
        return machine;
    }

private:
    void askForClasses(Machine& machine, bool oneOfMany)
    {
        for (const std::string& className : classesOf(_request)) {
            const ClassInfo* served = findClass(className);
            if (!oneOfMany || !_request.classes.empty() || !served || served->fromSmBios)
                machine.answers.push_back(answerTo(_module, _request, className));
        }
    }

    // Notes, and what the table has to do with the failures.
    void explain(Machine& machine, const Dump* dump)
    {
        const bool firmwareFacts = hasFirmwareFacts(machine);
        if (firmwareFacts || answerOf(machine, BiosClass))
            explainTable(machine, dump, firmwareFacts);
        const bool memoryFigures = !dump && _request.kind != Request::Names && answerOf(machine, MemoryClass);
        const std::string memory = memoryFigures ? memoryNote() : "";
        if (!memory.empty())
            machine.notes.push_back(memory);
    }

    void explainTable(Machine& machine, const Dump* dump, bool firmwareFacts)
    {
        const Table table = readTable(dump ? std::optional<std::string>(dump->readable) : std::nullopt);
        std::string early = table.failure ? "" : earlyEnd(table);
        if (!early.empty())
            machine.notes.push_back("SMBIOS table: " + early);
        if (dump && !dump->incomplete.empty())
            machine.notes.push_back(dump->incomplete);
        for (Answer& answer : machine.answers) {
            if (!answer.failure)
                continue;
            answer.failure->text += remedyOf(answer.className, answer.failure->text, table);
            if (dump)
                nameTheDump(answer.failure->text, *dump);
        }
        if (firmwareFacts && !dump && hasNoTable(machine))
            machine.notes.emplace_back("this machine has no SMBIOS table, so the firmware and hardware classes have no "
                                       "facts to show (--from-dump FILE takes the table of a file)");
    }

    bool hasNoTable(const Machine& machine)
    {
        const Answer* bios = _request.kind == Request::Instances ? answerOf(machine, BiosClass) : nullptr;
        return tellsOfNoTable(bios ? *bios : _module.enumerate(BiosClass));
    }

    const Request& _request;
    Module _module;
    std::string _version;
};
}

std::vector<Machine> ask(const std::string& moduleFile, const std::vector<Dump>& dumps, const Request& request)
{
    std::optional<DumpReader> reader;
    if (!dumps.empty())
        reader.emplace(moduleFile).serve(dumps.front());
    Asker asker(moduleFile, request);
    if (dumps.empty())
        return {asker.askAbout(nullptr, false)};
    std::vector<Machine> machines;
    for (const Dump& dump : dumps) {
        reader->serve(dump);
        machines.push_back(asker.askAbout(&dump, dumps.size() > 1));
    }
    makeNamesDiffer(machines);
    return machines;
}

std::string toolVersion()
{
    return ProgramName + std::string(" ") + VQ_VERSION;
}

}
