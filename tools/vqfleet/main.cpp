// vqfleet: asks the CIM servers of many machines for their inventory and shows it to people.

#include "tools/program/Clock.h"
#include "tools/program/Output.h"
#include "tools/vqfleet/Arguments.h"
#include "tools/vqfleet/Commands.h"
#include "tools/vqfleet/Fleet.h"

#include <csignal>
#include <exception>

using namespace VQ::Tool;

const char* const VQ::Tool::ProgramName = "vqfleet";

namespace
{
int run(Arguments arguments, int trouble)
{
    if (!arguments.information.empty())
        return print(arguments.information) ? Done : RequestFailed;
    arguments.setting = terminalSetting(!arguments.outputFile.empty());
    arguments.setting.time = currentTime();
    arguments.setting.tool = toolVersion();
    const Outcome outcome = runCommand(arguments);
    bool written = true;
    if (arguments.outputFile.empty())
        written = print(outcome.output);
    else
        replaceFile(arguments.outputFile, outcome.output);
    complain(outcome.complaints);
    return written ? outcome.code : trouble;
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
        return run(arguments, trouble);
    } catch (const UsageError& error) {
        complain(error.what());
        return WrongUsage;
    } catch (const std::exception& error) {
        complain(error.what());
        return trouble;
    }
}
