#include "tools/core/Failures.h"

#include <algorithm>
#include <utility>

namespace VQ::Tool
{

std::vector<std::string> failureLines(const Machine& machine)
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
    std::vector<std::string> texts;
    for (const auto& [failure, classes] : lines) {
        const bool ofClasses = failure->code.compare(0, 8, "CIM_ERR_") == 0; // else of the machine as a whole
        texts.push_back(failure->code + (ofClasses ? ": " + classes : "") +
                        (failure->text.empty() ? "" : ": " + failure->text));
    }
    return texts;
}

}
