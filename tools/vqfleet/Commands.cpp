#include "tools/vqfleet/Commands.h"

#include "tools/core/Compare.h"
#include "tools/core/Redact.h"
#include "tools/formats/Sorting.h"
#include "tools/knowledge/Methods.h"
#include "tools/program/Failures.h"
#include "tools/program/InputFile.h"
#include "tools/program/SavedFile.h"
#include "tools/vqfleet/Credentials.h"
#include "tools/vqfleet/Fleet.h"

#include <algorithm>
#include <fstream>

namespace VQ::Tool
{

namespace
{
std::vector<Server> serversOf(const Arguments& arguments)
{
    std::vector<Server> servers;
    for (const std::string& url : arguments.servers)
        servers.push_back(parseServer(url));
    for (const std::string& file : arguments.serverFiles) {
        const std::vector<Server> listed = readServerList(file);
        servers.insert(servers.end(), listed.begin(), listed.end());
    }
    return servers;
}

void requireReadable(const std::string& file)
{
    if (!file.empty() && !std::ifstream(file).good())
        throw LoadError("cannot read " + file);
}

Access accessOf(const Arguments& arguments, const std::vector<Server>& servers)
{
    Access access;
    access.netrc = arguments.netrc;
    access.netrcFile = arguments.netrcFile;
    access.caFile = arguments.caFile;
    access.insecure = arguments.insecure;
    for (const std::string& pin : arguments.pins)
        access.pin += (access.pin.empty() ? "" : ";") + pin;
    requireReadable(access.netrcFile);
    requireReadable(access.caFile);
    const std::string password = arguments.passwordFile.empty() ? "" : readPassword(arguments.passwordFile);
    for (const Server& server : servers)
        if (!server.user.empty() && !access.netrc && access.passwords.count(server.user) == 0)
            access.passwords[server.user] = password.empty() ? askForPassword(server.user) : password;
    if (!password.empty() && access.passwords.empty())
        throw UsageError("--password-file is for a user, and no address names one: https://USER@host");
    return access;
}

bool isThisMachine(const Server& server)
{
    for (const char* name : {"//localhost:", "//127.0.0.1:", "//[::1]:"})
        if (server.address.find(name) != std::string::npos)
            return true;
    return false;
}

// What a person must know of how safe the asking was.
std::string warningsOf(const std::vector<Server>& servers, const Arguments& arguments)
{
    std::string warnings;
    const auto tls = std::count_if(servers.begin(), servers.end(), [](const Server& server) { return server.isTls(); });
    if (arguments.insecure && tls > 0)
        warnings += "--insecure: no certificate was verified, so anybody may have answered\n";
    const bool open = std::any_of(servers.begin(), servers.end(), [&arguments](const Server& server) {
        return !server.isTls() && !isThisMachine(server) && (!server.user.empty() || arguments.netrc);
    });
    if (open)
        warnings += "passwords went over the network without TLS: https:// and port 5989 hide them\n";
    return warnings;
}

struct Answers
{
    std::vector<Machine> machines;
    std::string warnings;
};

Answers answersFor(const Arguments& arguments)
{
    if (!arguments.savedFiles.empty())
        return {
            chosen(readSavedFiles(arguments.savedFiles, arguments.request.kind == Request::Names), arguments.request),
            ""};
    const std::vector<Server> servers = serversOf(arguments);
    return {askFleet(servers, arguments.request, accessOf(arguments, servers), {arguments.jobs, arguments.timeout}),
            warningsOf(servers, arguments)};
}

bool hasInstances(const std::vector<Machine>& machines)
{
    return std::any_of(machines.begin(), machines.end(), [](const Machine& machine) {
        return std::any_of(machine.answers.begin(), machine.answers.end(),
                           [](const Answer& answer) { return !answer.instances.empty(); });
    });
}

std::string complaintsAbout(const Answers& answers, bool withNotes)
{
    return answers.warnings + complaintsOf(answers.machines, withNotes) +
           (answers.machines.size() > 1 ? countedMachines(answers.machines) : "");
}

Outcome show(const Arguments& arguments)
{
    Answers answers = answersFor(arguments);
    const Format& format = *arguments.format;
    const MachinesWriter write = arguments.command == Command::Summary      ? format.summary
                                 : arguments.request.kind == Request::Names ? format.names
                                                                            : format.machines;
    if (!arguments.sort.empty())
        sortMachines(answers.machines, arguments.sort);
    if (arguments.redact)
        Redactor().redact(answers.machines);
    Outcome outcome;
    if (arguments.request.kind != Request::Get || hasInstances(answers.machines))
        outcome.output = write(answers.machines, arguments.setting);
    outcome.complaints = complaintsAbout(answers, arguments.command != Command::Summary);
    outcome.code = anyFailed(answers.machines) ? RequestFailed : Done;
    return outcome;
}

Outcome compare(const Arguments& arguments)
{
    std::vector<Machine> before = readSavedFiles({arguments.before});
    Answers after;
    if (arguments.after.empty())
        after = answersFor(arguments);
    else
        after.machines = readSavedFiles({arguments.after});
    if (arguments.redact) {
        Redactor redactor;
        redactor.redact(before);
        redactor.redact(after.machines);
    }
    Comparison comparison = compareMachines(before, after.machines, arguments.moving);
    comparison.before = arguments.redact ? "(redacted)" : arguments.before;
    comparison.after = arguments.redact ? "(redacted)" : arguments.after.empty() ? "the servers" : arguments.after;
    Outcome outcome;
    outcome.output = arguments.format->comparison(comparison, arguments.setting);
    outcome.complaints = arguments.after.empty() ? complaintsAbout(after, true) : "";
    outcome.code = isSame(comparison) ? Same : Different;
    return outcome;
}
// Whoever reads that nothing was done must see what it was, and to whom.
void requireLeave(const Arguments& arguments, const std::vector<Server>& servers)
{
    const bool several = servers.size() > 1;
    if (arguments.yes && (arguments.several || !several))
        return;
    const char* missing = arguments.yes ? "--all" : several && !arguments.several ? "--yes and --all" : "--yes";
    throw UsageError(effectOf(arguments.call, servers) + (several ? "\n" : ". ") + "Nothing was done; add " + missing +
                     " to do it");
}

// The machines that were called, with what failed.
std::vector<Machine> calledMachines(const std::vector<Server>& servers, const std::vector<MethodAnswer>& answers)
{
    std::vector<Machine> machines;
    for (std::size_t i = 0; i < servers.size(); ++i) {
        machines.emplace_back();
        machines.back().name = servers[i].name;
        machines.back().source = {Source::Server, servers[i].place()};
        machines.back().answers = {{answers[i].className, {}, answers[i].failure}};
        if (isRefusedRestart(answers[i]))
            machines.back().notes = {"the kernel refused to restart the machine: the server's user must be root"};
    }
    makeNamesDiffer(machines);
    return machines;
}

Outcome invoke(const Arguments& arguments)
{
    const std::vector<Server> servers = serversOf(arguments);
    requireLeave(arguments, servers);
    std::vector<MethodAnswer> answers =
        callFleet(servers, arguments.call, accessOf(arguments, servers), {arguments.jobs, arguments.timeout});
    Answers called{calledMachines(servers, answers), warningsOf(servers, arguments)};
    if (answers.size() > 1)
        for (std::size_t i = 0; i < answers.size(); ++i)
            answers[i].machine = called.machines[i].name;
    Outcome outcome;
    if (answers.size() > 1 || !answers.front().failure)
        outcome.output = arguments.format->results(answers);
    outcome.complaints = complaintsAbout(called, true);
    const bool refused = std::any_of(answers.begin(), answers.end(), isRefusedRestart);
    outcome.code = refused || anyFailed(called.machines) ? RequestFailed : Done;
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
