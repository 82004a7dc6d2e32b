#include "tools/program/Failures.h"

#include <algorithm>
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
    for (const auto& [failure, classes] : lines)
        text += failure->code + ": " + classes + (failure->text.empty() ? "" : ": " + failure->text) + "\n";
    return text;
}

}
