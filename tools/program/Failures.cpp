#include "tools/program/Failures.h"

#include "tools/core/Failures.h"

#include <algorithm>
#include <sstream>

namespace VQ::Tool
{

std::string complaintsOf(const std::vector<Machine>& machines, bool withNotes)
{
    std::string all;
    for (const Machine& machine : machines) {
        std::string lines;
        if (withNotes)
            for (const std::string& note : machine.notes)
                lines += note + "\n";
        for (const std::string& failure : failureLines(machine))
            lines += failure + "\n";
        std::istringstream in(lines);
        for (std::string line; std::getline(in, line);)
            all += (machines.size() > 1 ? machine.name + ": " : "") + line + "\n";
    }
    return all;
}

bool anyFailed(const std::vector<Machine>& machines)
{
    return std::any_of(machines.begin(), machines.end(), [](const Machine& machine) {
        return std::any_of(machine.answers.begin(), machine.answers.end(),
                           [](const Answer& answer) { return answer.failure.has_value(); });
    });
}

}
