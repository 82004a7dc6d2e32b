// vqinventory: loads the provider module as a CIM server does and shows people what it serves.

#include "tools/vqinventory/Arguments.h"
#include "tools/vqinventory/Check.h"
#include "tools/vqinventory/Commands.h"
#include "tools/vqinventory/DumpFile.h"
#include "tools/vqinventory/InputFile.h"
#include "tools/vqinventory/Module.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <memory>
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
    if (arguments.dumpFile)
        arguments.dumpFile = fullPath(*arguments.dumpFile);
    if (chdir("/") != 0)
        throw LoadError(std::string("cannot go to /: ") + std::strerror(errno));
}

int runCheck(const Arguments& arguments)
{
    if (arguments.dumpFile)
        checkDumpFile(*arguments.dumpFile);
    const CheckResult result = check(arguments);
    return print(arguments.format->name == std::string("json") ? checkAsJson(result) : checkAsText(result),
                 problemCount(result) == 0 ? Done : RequestFailed);
}

int run(Arguments arguments)
{
    if (!arguments.information.empty())
        return print(arguments.information, Done);
    leaveForRoot(arguments);
    if (arguments.command == Command::Check)
        return runCheck(arguments);
    const std::string moduleFile = arguments.moduleFile.empty() ? defaultModuleFile() : arguments.moduleFile;
    std::unique_ptr<SharedLibrary> dumpReader;
    if (arguments.dumpFile) {
        checkDumpFile(*arguments.dumpFile);
        dumpReader = serveDumpFile(*arguments.dumpFile, moduleFile);
    }
    Module module(moduleFile);
    const Outcome outcome = runCommand(arguments, module);
    const int code = print(outcome.output, outcome.failed ? RequestFailed : Done);
    complain(outcome.complaints);
    return code;
}
}

int main(int count, char** values)
{
    std::signal(SIGPIPE, SIG_IGN); // a write then fails, with a reason
    try {
        return run(parseArguments(count, values));
    } catch (const UsageError& error) {
        complain(error.what());
        return WrongUsage;
    } catch (const std::exception& error) {
        complain(error.what());
        return RequestFailed;
    }
}
