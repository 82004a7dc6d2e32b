#include "tests/machine/Transcript.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace
{
std::vector<std::string> splitLines(std::istream& in)
{
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        while (!line.empty() && line.back() == '\r') // two under Xen
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> readLines(const std::string& file)
{
    std::ifstream in(file);
    if (!in)
        throw std::runtime_error("cannot read " + file);
    return splitLines(in);
}

std::map<std::string, Answer> readAnswers(const std::vector<std::string>& lines)
{
    std::map<std::string, Answer> answers;
    std::string* text = nullptr;
    for (const std::string& line : lines) {
        std::istringstream words(line);
        std::string mark, name;
        words >> mark >> name;
        if (mark == "@begin") {
            text = &answers[name].output;
        } else if (mark == "@errors") {
            text = &answers[name].errors;
        } else if (mark == "@end") {
            words >> answers[name].status;
            answers[name].returned = true;
            text = nullptr;
        } else if (text && mark.compare(0, 1, "@") != 0) {
            *text += line + "\n";
        }
    }
    return answers;
}
}

Transcript::Transcript(const std::string& directory, const std::string& machine)
    : _lines(readLines(directory + "/" + machine + ".console")), _answers(readAnswers(_lines))
{
    for (const std::string& line : readLines(directory + "/" + machine + ".events"))
        _events.push_back(nlohmann::json::parse(line));
}

const Answer& Transcript::answer(const std::string& name) const
{
    const auto found = _answers.find(name);
    if (found == _answers.end())
        throw std::runtime_error("the machine has no answer " + name);
    return found->second;
}

nlohmann::json Transcript::inventory(const std::string& name) const
{
    return nlohmann::json::parse(answer(name).output).at("machines").at(0).at("classes");
}

std::size_t Transcript::find(const std::string& line) const
{
    const auto found = std::find(_lines.begin(), _lines.end(), line);
    return found == _lines.end() ? npos : static_cast<std::size_t>(found - _lines.begin());
}

int Transcript::events(const std::string& event, const std::string& reason) const
{
    return static_cast<int>(std::count_if(_events.begin(), _events.end(), [&](const nlohmann::json& report) {
        return report.value("event", "") == event && report["data"].value("reason", "") == reason;
    }));
}

std::vector<std::string> dmidecodeValues(const std::string& text, const std::string& title, const std::string& field)
{
    const std::string begin = "\t" + field + ": ";
    std::vector<std::string> values;
    std::istringstream in(text);
    bool wanted = false;
    for (const std::string& line : splitLines(in)) {
        if (!line.empty() && line[0] != '\t')
            wanted = line == title;
        else if (wanted && line.compare(0, begin.size(), begin) == 0)
            values.push_back(line.substr(begin.size()));
    }
    return values;
}

unsigned long long dmidecodeTableAddress(const std::string& text)
{
    static const std::string begin = "\nTable at ";
    const std::size_t position = text.find(begin);
    if (position == std::string::npos)
        throw std::runtime_error("dmidecode names no table address");
    return std::stoull(text.substr(position + begin.size()), nullptr, 16);
}
