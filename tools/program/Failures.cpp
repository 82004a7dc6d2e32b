#include "tools/program/Failures.h"

#include <algorithm>
#include <sstream>
#include <utility>
#include <vector>

namespace VQ::Tool
{

std::string failureLines(const Machine& machine)
{
    std::vector<std::pair<const Failure*, std::string>> lines;
    for (const Answer& answer : machine.answers) {
        if (!answer.failure)
            continue;
        const auto same = std::find_if(lines.begin(), lines.end(), [&answer](const auto& line) {
            return line.first->code == answer.failure->code && line.first->text == answer.failure->text;
        });
        if (same == lines.end())
            lines.emplace_back(&*answer.failure, answer.className);
        else
            same->second += ", " + answer.className;
    }
    std::string text;
    for (const auto& [failure, classes] : lines) {
        const bool ofClasses = failure->code.compare(0, 8, "CIM_ERR_") == 0; // else of the machine as a whole
        text += failure->code + (ofClasses ? ": " + classes : "") +
                (failure->text.empty() ? "" : ": " + failure->text) + "\n";
    }
    return text;
}

std::string complaintsOf(const std::vector<Machine>& machines, bool withNotes)
{
    std::string all;
    for (const Machine& machine : machines) {
        std::string lines;
        if (withNotes)
            for (const std::string& note : machine.notes)
                lines += note + "\n";
        std::istringstream in(lines + failureLines(machine));
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
