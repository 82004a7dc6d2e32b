#include "tools/vqfleet/Fleet.h"

#include "tools/program/Clock.h"
#include "tools/program/Output.h"
#include "tools/program/SavedFile.h"
#include "tools/vqfleet/Verdict.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace VQ::Tool
{

namespace
{
class Inventory : public Conversation
{
public:
    Inventory(const Server& server, const Request& request) : _server(server), _request(request)
    {
        _classes = request.kind == Request::Get ? std::vector<std::string>{request.path} : classesOf(request);
        machine.name = server.name;
        machine.source = {Source::Server, server.place()};
        machine.askedMachine = server.name;
        machine.tool = toolVersion();
    }

    std::optional<Question> next() override
    {
        if (machine.time.empty())
            machine.time = currentTime();
        if (machine.answers.size() == _classes.size())
            return std::nullopt;
        const std::string& asked = _classes[machine.answers.size()];
        if (_request.kind == Request::Get)
            return askForInstance(_server.nameSpace, asked);
        return _request.kind == Request::Names ? askForNames(_server.nameSpace, asked)
                                               : askForInstances(_server.nameSpace, asked);
    }

    void take(const std::string& body) override
    {
        const std::string& asked = _classes[machine.answers.size()];
        Answer answer = _request.kind == Request::Get     ? answerWithInstance(body, asked)
                        : _request.kind == Request::Names ? answerWithNames(body, asked)
                                                          : answerWithInstances(body, asked);
        if (answer.failure)
            answer.failure->text += remedyOf(*answer.failure, _server);
        machine.answers.push_back(std::move(answer));
    }

    void fail(const Failure& failure) override
    {
        while (machine.answers.size() < _classes.size())
            machine.answers.push_back({_classes[machine.answers.size()], {}, failure});
    }

    Machine machine;

private:
    const Server& _server;
    const Request& _request;
    std::vector<std::string> _classes;
};

// "timed out" for TIMED_OUT
std::string wordsOf(std::string code)
{
    std::transform(code.begin(), code.end(), code.begin(), [](char c) {
        return c == '_' ? ' ' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return code;
}

const Failure* firstFailureOf(const Machine& machine)
{
    for (const Answer& answer : machine.answers)
        if (answer.failure)
            return &*answer.failure;
    return nullptr;
}
}

std::vector<Machine> askFleet(const std::vector<Server>& servers, const Request& request, const Access& access,
                              const Pace& pace)
{
    std::vector<Machine> machines;
    machines.reserve(servers.size());
    for (Inventory& inventory : ended<Inventory>(servers, access, pace, request))
        machines.push_back(std::move(inventory.machine));
    makeNamesDiffer(machines);
    return machines;
}

std::string countedMachines(const std::vector<Machine>& machines)
{
    std::map<std::string, std::size_t> kinds;
    for (const Machine& machine : machines)
        if (const Failure* failure = firstFailureOf(machine))
            ++kinds[failure->code.compare(0, 8, "CIM_ERR_") == 0 ? "CIM error" : wordsOf(failure->code)];
    const std::size_t failed = std::accumulate(kinds.begin(), kinds.end(), std::size_t{0},
                                               [](std::size_t sum, const auto& kind) { return sum + kind.second; });
    std::string text = std::to_string(machines.size()) + " machines: " + std::to_string(machines.size() - failed) +
                       " answered, " + std::to_string(failed) + " failed";
    const char* separator = " (";
    for (const auto& [kind, count] : kinds) {
        text += separator + std::to_string(count) + " " + kind;
        separator = ", ";
    }
    return text + (kinds.empty() ? "\n" : ")\n");
}

std::string toolVersion()
{
    return ProgramName + std::string(" ") + VQ_VERSION;
}

}
