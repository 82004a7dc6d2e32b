#include "tools/formats/Sorting.h"

#include "tools/core/Summary.h"
#include "tools/formats/SummaryText.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace VQ::Tool
{

namespace
{
struct SortColumn
{
    const char* name;
    std::string (*text)(const Summary& summary);
};

std::string biosKey(const Summary& summary)
{
    return summary.firmware.empty() ? "" : summary.firmware.front().version + " " + summary.firmware.front().date;
}

constexpr SortColumn SortColumns[] = {
    {"name", [](const Summary& summary) { return summary.name; }},
    {"product", productText},
    {"serial", [](const Summary& summary) { return summary.serial; }},
    {"bios", biosKey},
    {"os", [](const Summary& summary) { return summary.operatingSystem; }},
    {"memory", [](const Summary& summary) { return summary.memory ? std::to_string(*summary.memory) : ""; }},
};

bool isDigit(char c)
{
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

// What stands from `at` on: all digits that follow, without zeros before them, or one character. Moves behind it.
std::string takePart(const std::string& text, std::size_t& at)
{
    if (!isDigit(text[at]))
        return std::string(1, static_cast<char>(std::tolower(static_cast<unsigned char>(text[at++]))));
    while (at + 1 < text.size() && text[at] == '0' && isDigit(text[at + 1]))
        ++at;
    const std::size_t begin = at;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return text.substr(begin, at - begin);
}

bool comesBefore(const std::string& one, const std::string& other)
{
    std::size_t i = 0, k = 0;
    while (i < one.size() && k < other.size()) {
        const std::string part = takePart(one, i), otherPart = takePart(other, k);
        const bool numbers = isDigit(part[0]) && isDigit(otherPart[0]);
        if (numbers && part.size() != otherPart.size())
            return part.size() < otherPart.size();
        if (part != otherPart)
            return part < otherPart;
    }
    return i == one.size() && k < other.size();
}
}

std::vector<std::string> sortColumns()
{
    std::vector<std::string> names;
    for (const SortColumn& column : SortColumns)
        names.emplace_back(column.name);
    return names;
}

void sortMachines(std::vector<Machine>& machines, const std::string& column)
{
    const auto known = std::find_if(std::begin(SortColumns), std::end(SortColumns),
                                    [&column](const SortColumn& one) { return column == one.name; });
    std::vector<std::pair<std::string, Machine>> keyed;
    for (Machine& machine : machines) {
        std::string key = known->text(summarize(machine));
        keyed.emplace_back(std::move(key), std::move(machine));
    }
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto& one, const auto& other) {
        if (one.first.empty() || other.first.empty())
            return !one.first.empty() && other.first.empty();
        return comesBefore(one.first, other.first);
    });
    machines.clear();
    for (auto& [key, machine] : keyed)
        machines.push_back(std::move(machine));
}

}
