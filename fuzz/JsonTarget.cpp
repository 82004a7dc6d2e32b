// A file with saved answers of any bytes, packed or not, as --from-json reads it: it is refused with a text, or what
// was read is written so that it reads the same, and every format can write it.

#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "tools/core/Compare.h"
#include "tools/core/Redact.h"
#include "tools/core/Saved.h"
#include "tools/formats/Formats.h"
#include "tools/program/Errors.h"
#include "tools/program/Output.h"
#include "tools/program/SavedFile.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace VQ::Tool;

const char* const VQ::Tool::ProgramName = "fuzz";

namespace
{
template <class Element, class Same>
bool equal(const std::vector<Element>& one, const std::vector<Element>& other, Same same)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), same);
}

bool isSame(const NamedValue& one, const NamedValue& other)
{
    return one.name == other.name && one.value == other.value;
}

bool isSame(const Instance& one, const Instance& other)
{
    return one.className == other.className && one.path == other.path &&
           equal(one.keys, other.keys, [](const auto& a, const auto& b) { return isSame(a, b); }) &&
           equal(one.properties, other.properties,
                 [](const auto& a, const auto& b) { return isSame(a, b) && a.isKey == b.isKey; });
}

bool isSame(const Answer& one, const Answer& other)
{
    const bool failuresAgree =
        one.failure.has_value() == other.failure.has_value() &&
        (!one.failure || (one.failure->code == other.failure->code && one.failure->text == other.failure->text));
    return failuresAgree && one.className == other.className && one.ofAskedMachine == other.ofAskedMachine &&
           equal(one.instances, other.instances, [](const auto& a, const auto& b) { return isSame(a, b); });
}

bool isSame(const Machine& one, const Machine& other)
{
    return one.name == other.name && one.source.kind == other.source.kind && one.source.place == other.source.place &&
           one.askedMachine == other.askedMachine && one.time == other.time && one.tool == other.tool &&
           one.moduleVersion == other.moduleVersion && one.notes == other.notes &&
           equal(one.answers, other.answers, [](const auto& a, const auto& b) { return isSame(a, b); });
}

void checkSavedAgain(const std::vector<Machine>& machines)
{
    const std::string saved = savedMachines(machines);
    const std::vector<Machine> again = readMachines(saved, true);
    require(equal(machines, again, [](const auto& a, const auto& b) { return isSame(a, b); }),
            "what is saved again reads the same");
    require(savedMachines(again) == saved, "and is written the same");
}

void checkNames(const std::vector<Machine>& machines)
{
    std::set<std::string> names;
    for (const Machine& machine : machines)
        require(names.insert(machine.name).second, "no two machines have one name");
}

void checkCompared(const std::vector<Machine>& machines)
{
    for (const MachineComparison& comparison : compareMachines(machines, machines, true).machines)
        require(comparison.kind == MachineComparison::Same && comparison.changes.empty(),
                "nothing differs from itself");
}

// No control character, which a terminal would obey, but the end of a line.
bool isSafe(const std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte < 0x20 && byte != '\n') || byte == 0x7F)
            return false;
        if (byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0)
            return false;
    }
    return true;
}

void checkFormats(const std::vector<Machine>& machines)
{
    const Setting setting{80, false, "2026-11-21T19:02:17Z", "fuzz"};
    const Comparison comparison = compareMachines({}, machines, true);
    for (const Format& format : formats()) {
        for (const MachinesWriter write : {format.machines, format.summary, format.names})
            require(!write || isSafe(write(machines, setting)), "no format writes what a terminal obeys");
        require(!format.comparison || isSafe(format.comparison(comparison, setting)), "nor does it in a comparison");
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    std::vector<Machine> machines;
    try {
        machines = readSavedFiles({memoryFileOf(data, size)}, true);
    } catch (const LoadError& error) {
        require(*error.what() != '\0', "a refusal has a text");
        return 0;
    }
    checkNames(machines);
    checkSavedAgain(machines);
    checkCompared(machines);
    checkFormats(machines);
    Redactor().redact(machines);
    checkFormats(machines);
    return 0;
}
