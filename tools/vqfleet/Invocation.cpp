#include "tools/vqfleet/Invocation.h"

#include "tools/knowledge/Classes.h"
#include "tools/knowledge/Methods.h"
#include "tools/vqfleet/Verdict.h"

namespace VQ::Tool
{

namespace
{
// Asks for the name of the instance, and then for the call.
class Invocation : public Conversation
{
public:
    Invocation(const Server& server, const MethodCall& call)
        : answer{call.className, call.method, {}, {}}, _server(server), _className(canonicalClassName(call.className))
    {
    }

    std::optional<Question> next() override
    {
        if (answer.failure || _called)
            return std::nullopt;
        if (!_object)
            return askForNames(_server.nameSpace, _className);
        _called = true;
        return askForCall(_server.nameSpace, *_object, answer.method);
    }

    void take(const std::string& body) override
    {
        if (_called)
            takeResult(answerToCall(body, answer.className, answer.method));
        else
            takeNames(answerWithNames(body, _className));
    }

    void fail(const Failure& failure) override
    {
        answer.failure = failure;
        const bool lost = failure.code == "CUT_OFF" || failure.code == "TIMED_OUT" || failure.code == "UNREACHABLE";
        if (_called && lost)
            answer.failure->text += "; whether it carried out " + answer.method + " is not known: ask it again later";
    }

    MethodAnswer answer;

private:
    void takeNames(Answer names)
    {
        if (names.failure) {
            answer.failure = names.failure;
            answer.failure->text += remedyOf(*names.failure, _server);
        } else if (names.instances.size() != 1) {
            answer.failure = Failure{"CIM_ERR_NOT_FOUND", "a method is called on the one instance of its class, and " +
                                                              std::to_string(names.instances.size()) + " are there"};
        } else {
            _object = std::move(names.instances.front());
        }
    }

    void takeResult(const MethodAnswer& result)
    {
        answer.returnValue = result.returnValue;
        answer.failure = result.failure;
        if (!result.failure && !result.returnValue)
            answer.failure = Failure{"CIM_ERR_METHOD_NOT_FOUND",
                                     "the module did not answer the call of " + answer.method +
                                         "; the methods are Reboot and Shutdown of QORTAL_OperatingSystem"};
    }

    const Server& _server;
    std::string _className;
    std::optional<Instance> _object;
    bool _called = false;
};
}

std::vector<MethodAnswer> callFleet(const std::vector<Server>& servers, const MethodCall& call, const Access& access,
                                    const Pace& pace)
{
    std::vector<MethodAnswer> answers;
    answers.reserve(servers.size());
    for (Invocation& invocation : ended<Invocation>(servers, access, pace, call))
        answers.push_back(std::move(invocation.answer));
    return answers;
}

std::string effectOf(const MethodCall& call, const std::vector<Server>& servers)
{
    const auto named = [](const Server& server) { return server.name + " (" + server.place() + ")"; };
    const bool several = servers.size() > 1;
    const std::string machines =
        several ? "these " + std::to_string(servers.size()) + " machines" : named(servers.front());
    const PowerMethod* power = findPowerMethod(call.method);
    std::string text = call.className + "." + call.method + " " +
                       (power ? effectOn(machines, *power) : "would be called on " + machines);
    for (const Server& server : servers)
        if (several)
            text += "\n  " + named(server);
    return text;
}

}
