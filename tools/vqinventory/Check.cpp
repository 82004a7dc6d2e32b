#include "tools/vqinventory/Check.h"

#include "tools/formats/Printable.h"
#include "tools/knowledge/Classes.h"
#include "tools/vqinventory/Module.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace VQ::Tool
{

namespace
{
constexpr const char* BiosClass = "QORTAL_BIOS";
constexpr const char* BoardClass = "QORTAL_BaseBoard";
constexpr const char* MemoryClass = "QORx_SystemMemory";

constexpr std::uint64_t MiB = 1u << 20;
constexpr std::uint64_t AnswerToMention = MiB;
constexpr std::uint64_t AnswerToRefuse = 16 * MiB;
constexpr std::uint64_t ElementSize = 16; // <VALUE></VALUE> and the end of the line

// What the options of all boards take in an answer.
std::uint64_t optionAnswer(const Table& table)
{
    return table.boards * (table.options * ElementSize + table.optionBytes);
}

std::string optionCost(const Table& table)
{
    return std::to_string(table.options) + " configuration options on each of " + std::to_string(table.boards) +
           " boards make an answer of about " + std::to_string(optionAnswer(table) / MiB) + " MiB";
}

std::vector<std::string> classesToAsk(const Table& table)
{
    const auto refused = refusedClasses(table);
    std::vector<std::string> classes;
    for (const ClassInfo& served : servedClasses())
        if (refused.count(served.name) == 0 && !(table.failure && served.fromSmBios))
            classes.emplace_back(served.name);
    return classes;
}

class Findings
{
public:
    void good(const std::string& text) { add(Finding::Good, text); }
    void note(const std::string& text) { add(Finding::Note, text); }
    void problem(const std::string& text) { add(Finding::Problem, text); }
    std::vector<Finding> take() { return std::move(_findings); }

private:
    void add(Finding::Kind kind, const std::string& text) { _findings.push_back({kind, printable(text)}); }
    std::vector<Finding> _findings;
};

bool hasFewerThanAnnounced(const Table& table)
{
    return table.announcedStructures && table.structures < *table.announcedStructures;
}

void judgeTable(const Table& table, bool fromDump, Findings& findings)
{
    const std::string name = "SMBIOS table";
    if (table.failure) {
        findings.problem(name + ": " + *table.failure);
        return;
    }
    if (!table.present) {
        findings.note(name + ": this machine has none (a container, or a machine without SMBIOS); the classes of the "
                             "firmware and the hardware have no facts to show");
        return;
    }
    const std::string early = earlyEnd(table);
    if (!early.empty()) {
        findings.problem(name + ": " + early + ": " +
                         (fromDump ? "make the dump again" : "update the firmware of the machine"));
    } else {
        findings.good(name + ": version " + std::to_string(table.majorVersion) + "." +
                      std::to_string(table.minorVersion) + ", " + extentOf(table) + ", from " + table.origin);
        if (hasFewerThanAnnounced(table))
            findings.note(name + ": it announces " + std::to_string(*table.announcedStructures) +
                          " structures and ends after " + std::to_string(table.structures));
        if (table.announcedStructures && table.givenBytes < table.announcedBytes)
            findings.note(name + ": it announces " + std::to_string(table.announcedBytes) + " bytes, and only " +
                          std::to_string(table.givenBytes) +
                          " are there; nothing is missing, since it is marked as ended before");
    }
    if (optionAnswer(table) >= AnswerToMention && optionAnswer(table) < AnswerToRefuse && !table.endlessOptions)
        findings.note(std::string(BoardClass) + ": " + optionCost(table));
}

void judgeTexts(const ClassTrial& trial, Findings& findings)
{
    for (const UnfitText& unfit : trial.unfit)
        findings.problem(trial.className + ": a client with a strict XML parser refuses the whole answer: " +
                         unfit.property + " of " + unfit.path + " holds a control character: " + unfit.text);
    if (trial.unfitCount > trial.unfit.size())
        findings.problem(trial.className + ": " + std::to_string(trial.unfitCount - trial.unfit.size()) +
                         " more texts with control characters");
}

void judgeTrial(const Trial& trial, const Table& table, const std::string& moduleFile, Findings& findings)
{
    if (trial.loaded)
        findings.good("module: " + moduleFile + " can be loaded");
    for (const ClassTrial& asked : trial.classes) {
        if (asked.failure)
            findings.problem(asked.className + ": " + *asked.failure +
                             remedyOf(asked.className, *asked.failure, table));
        else
            findings.good(asked.className + ": " + std::to_string(asked.instances) +
                          (asked.instances == 1 ? " instance" : " instances"));
        judgeTexts(asked, findings);
    }
    for (const CompanionTrial& companion : trial.companions) {
        if (companion.kind == CompanionTrial::Problem)
            findings.problem(companion.text);
        else if (companion.kind == CompanionTrial::Note)
            findings.note(companion.text);
        else
            findings.good(companion.text);
    }
    if (trial.failure)
        findings.problem("module: " + *trial.failure + "; if the file is damaged, install the package again");
}

void judgeMemory(Findings& findings)
{
    const std::string note = memoryNote();
    if (!note.empty())
        findings.note(std::string(MemoryClass) + ": " + note);
}

const char* nameOf(Finding::Kind kind)
{
    return kind == Finding::Good ? "ok" : kind == Finding::Note ? "note" : "problem";
}
}

std::map<std::string, std::string> refusedClasses(const Table& table)
{
    std::map<std::string, std::string> refused;
    if (table.failure || !table.present)
        return refused;
    const std::string endless = ", which the module counts in 8 bits without ever reaching the end: any request for "
                                "this class takes memory until its process dies. Let nobody ask for it before the "
                                "firmware of the machine is mended";
    if (table.endlessLanguages)
        refused[BiosClass] =
            "a structure of type " + std::to_string(*table.endlessLanguages) + " announces 255 languages" + endless;
    if (table.endlessOptions)
        refused[BoardClass] = "a structure of type 12 announces 255 configuration options" + endless;
    else if (optionAnswer(table) >= AnswerToRefuse)
        refused[BoardClass] = optionCost(table) + ", which takes about four times that in the server and may end a "
                                                  "32-bit one. Let nobody ask for it before the firmware of the "
                                                  "machine is mended";
    return refused;
}

CheckResult check(const Arguments& arguments)
{
    CheckResult result;
    Findings findings;
    std::optional<Dump> dump;
    std::optional<std::string> tableFile;
    if (!arguments.dumpFiles.empty()) {
        dump = openDump(arguments.dumpFiles.front());
        tableFile = dump->readable;
    }
    result.table = readTable(tableFile);
    judgeTable(result.table, dump.has_value(), findings);
    try {
        const std::string moduleFile = arguments.moduleFile.empty() ? defaultModuleFile() : arguments.moduleFile;
        result.trial = tryModule(moduleFile, dump, classesToAsk(result.table));
        judgeTrial(result.trial, result.table, moduleFile, findings);
    } catch (const LoadError& error) {
        findings.problem(std::string("module: ") + error.what());
    }
    for (const auto& [className, reason] : refusedClasses(result.table))
        findings.problem(std::string(className).append(": not asked: ").append(reason));
    judgeMemory(findings);
    result.findings = findings.take();
    return result;
}

std::size_t problemCount(const CheckResult& result)
{
    return static_cast<std::size_t>(
        std::count_if(result.findings.begin(), result.findings.end(),
                      [](const Finding& finding) { return finding.kind == Finding::Problem; }));
}

std::string checkAsText(const CheckResult& result)
{
    std::string text;
    for (const Finding& finding : result.findings) {
        std::string kind = nameOf(finding.kind);
        kind.resize(sizeof "problem ", ' ');
        text += kind + finding.text + "\n";
    }
    const std::size_t problems = problemCount(result);
    return text +
           (problems == 0   ? "no problem"
            : problems == 1 ? "1 problem"
                            : std::to_string(problems) + " problems") +
           " found\n";
}

std::string checkAsJson(const CheckResult& result)
{
    using Json = nlohmann::ordered_json;
    Json findings = Json::array();
    for (const Finding& finding : result.findings)
        findings.push_back({{"kind", nameOf(finding.kind)}, {"text", finding.text}});
    Json table = nullptr;
    if (result.table.present && !result.table.failure) {
        table = {{"majorVersion", result.table.majorVersion},
                 {"minorVersion", result.table.minorVersion},
                 {"structures", result.table.structures},
                 {"announcedStructures", nullptr},
                 {"bytes", result.table.bytes},
                 {"announcedBytes", result.table.announcedBytes}};
        if (result.table.announcedStructures)
            table["announcedStructures"] = *result.table.announcedStructures;
    }
    Json classes = Json::object();
    for (const ClassTrial& asked : result.trial.classes)
        if (!asked.failure)
            classes[asked.className] = {{"instances", asked.instances}, {"seconds", asked.seconds}};
    const Json all = {
        {"problems", problemCount(result)}, {"findings", findings}, {"table", table}, {"classes", classes}};
    return all.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}
