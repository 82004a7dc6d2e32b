// vqinventory: loads the provider module as a CIM server does and shows people what it serves.

#include "tools/program/Clock.h"
#include "tools/program/InputFile.h"
#include "tools/program/Output.h"
#include "tools/vqinventory/Arguments.h"
#include "tools/vqinventory/Asking.h"
#include "tools/vqinventory/Check.h"
#include "tools/vqinventory/Commands.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <unistd.h>

using namespace VQ::Tool;

const char* const VQ::Tool::ProgramName = "vqinventory";

namespace
{
// The module looks for an optional library by a path that is relative to the working directory. It must never be one
// that someone left where this person happens to stand, so the program works in the root directory, as a server does.
void leaveForRoot(Arguments& arguments)
{
    arguments.moduleFile = realPath(arguments.moduleFile);
    for (std::vector<std::string>* files : {&arguments.dumpFiles, &arguments.savedFiles})
        for (std::string& file : *files)
            file = fullPath(file);
    for (std::string* file : {&arguments.outputFile, &arguments.before, &arguments.after})
        *file = fullPath(*file);
    if (chdir("/") != 0)
        throw LoadError(std::string("cannot go to /: ") + std::strerror(errno));
}

Outcome runCheck(const Arguments& arguments)
{
    const CheckResult result = check(arguments);
    Outcome outcome;
    outcome.output = arguments.format->name == std::string("json") ? checkAsJson(result) : checkAsText(result);
    outcome.code = problemCount(result) == 0 ? Done : RequestFailed;
    return outcome;
}

int give(const Outcome& outcome, const std::string& outputFile, int trouble)
{
    bool written = true;
    if (outputFile.empty())
        written = print(outcome.output);
    else
        replaceFile(outputFile, outcome.output);
    complain(outcome.complaints);
    return written ? outcome.code : trouble;
}

int run(Arguments arguments)
{
    if (!arguments.information.empty())
        return print(arguments.information) ? Done : RequestFailed;
    leaveForRoot(arguments);
    arguments.setting = terminalSetting(!arguments.outputFile.empty());
    arguments.setting.time = currentTime();
    arguments.setting.tool = toolVersion();
    return give(arguments.command == Command::Check ? runCheck(arguments) : runCommand(arguments), arguments.outputFile,
                arguments.command == Command::Compare ? WrongUsage : RequestFailed);
}
}

int main(int count, char** values)
{
    std::signal(SIGPIPE, SIG_IGN); // a write then fails, with a reason
    int trouble = RequestFailed;
    try {
        const Arguments arguments = parseArguments(count, values);
        if (arguments.command == Command::Compare)
            trouble = WrongUsage; // as that of diff: 1 says that there are differences
        return run(arguments);
    } catch (const UsageError& error) {
        complain(error.what());
        return WrongUsage;
    } catch (const std::exception& error) {
        complain(error.what());
        return trouble;
    }
}
