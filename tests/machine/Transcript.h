#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// What a command in the emulated machine answered.
struct Answer
{
    bool returned = false; ///< false when the machine went down first
    int status = -1;       ///< exit code, where it returned
    std::string output;    ///< standard output
    std::string errors;    ///< standard error
};

/// What one emulated machine wrote to its console, and what QEMU reported of it. The form is that of `init`.
class Transcript
{
public:
    /// Reads `<machine>.console` and `<machine>.events` of the directory. Throws std::runtime_error where one is
    /// missing.
    Transcript(const std::string& directory, const std::string& machine);

    /// The answer of this name. Throws std::runtime_error when the machine was never asked.
    const Answer& answer(const std::string& name) const;

    /// The classes in the standard output of a `vqinventory --format json`. Throws when it is not JSON.
    nlohmann::json inventory(const std::string& name) const;

    /// The position of the line that reads exactly so; npos when there is none.
    std::size_t find(const std::string& line) const;
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// How many of QEMU's reports have this event ("RESET", "SHUTDOWN") and this reason ("guest-reset").
    int events(const std::string& event, const std::string& reason) const;

private:
    std::vector<std::string> _lines;
    std::vector<nlohmann::json> _events;
    std::map<std::string, Answer> _answers;
};

/// The values of a field in dmidecode's output, one for each structure of this title that has it, in table order:
/// dmidecodeValues(text, "Cache Information", "Location").
std::vector<std::string> dmidecodeValues(const std::string& text, const std::string& title, const std::string& field);

/// The physical address of the structure table that dmidecode names.
unsigned long long dmidecodeTableAddress(const std::string& text);
