#include "tools/vqinventory/Trial.h"

#include "tools/vqinventory/Module.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <exception>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace VQ::Tool
{

namespace
{
using Json = nlohmann::json;

constexpr unsigned TimeLimit = 60; // seconds, for all the classes
constexpr std::size_t UnfitShown = 3;

// XML 1.0 has no way to write these: control characters but for tab, line feed and carriage return, and the two
// characters at the end of the basic plane. The texts are UTF-8.
bool fitsXml(const std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r')
            return false;
        if (text.compare(i, 3, "\xEF\xBF\xBE") == 0 || text.compare(i, 3, "\xEF\xBF\xBF") == 0)
            return false;
    }
    return true;
}

void collectUnfit(const Instance& instance, ClassTrial& into)
{
    for (const Property& property : instance.properties) {
        for (const Scalar& element : property.value.elements) {
            const auto* text = std::get_if<std::string>(&element);
            if (!text || fitsXml(*text))
                continue;
            ++into.unfitCount;
            if (into.unfit.size() < UnfitShown)
                into.unfit.push_back({instance.path, property.name, *text});
        }
    }
}

ClassTrial tryClass(Module& module, const std::string& className)
{
    ClassTrial trial;
    trial.className = className;
    const auto begin = std::chrono::steady_clock::now();
    const Answer answer = module.enumerate(className);
    trial.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    trial.instances = answer.instances.size();
    if (answer.failure)
        trial.failure = answer.failure->code + (answer.failure->text.empty() ? "" : ": " + answer.failure->text);
    for (const Instance& instance : answer.instances)
        collectUnfit(instance, trial);
    return trial;
}

// From process to process: a line of JSON for each step that is done, so that the steps before the last are known when
// the process ends early.
Json toJson(const ClassTrial& trial)
{
    Json unfit = Json::array();
    for (const UnfitText& text : trial.unfit)
        unfit.push_back({text.path, text.property, text.text});
    Json json = {{"class", trial.className},
                 {"instances", trial.instances},
                 {"seconds", trial.seconds},
                 {"unfit", unfit},
                 {"unfitCount", trial.unfitCount}};
    if (trial.failure)
        json["failure"] = *trial.failure;
    return json;
}

ClassTrial toClassTrial(const Json& json)
{
    ClassTrial trial;
    trial.className = json.at("class");
    trial.instances = json.at("instances");
    trial.seconds = json.at("seconds");
    trial.unfitCount = json.at("unfitCount");
    for (const Json& text : json.at("unfit"))
        trial.unfit.push_back({text.at(0), text.at(1), text.at(2)});
    if (json.contains("failure"))
        trial.failure = json.at("failure").get<std::string>();
    return trial;
}

void writeLine(int pipe, const Json& json)
{
    const std::string line = json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
    for (std::size_t written = 0; written < line.size();) {
        const ssize_t now = write(pipe, line.data() + written, line.size() - written);
        if (now < 0)
            _exit(1);
        written += static_cast<std::size_t>(now);
    }
}

[[noreturn]] void tryApart(int pipe, const std::string& moduleFile, const std::optional<Dump>& dump,
                           const std::vector<std::string>& classes)
{
    alarm(TimeLimit);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore); // the end of a damaged module is reported, and leaves nothing behind
    try {
        std::optional<DumpReader> reader;
        if (dump)
            reader.emplace(moduleFile).serve(*dump);
        Module module(moduleFile);
        writeLine(pipe, {{"loaded", true}});
        for (const std::string& className : classes)
            writeLine(pipe, toJson(tryClass(module, className)));
        for (const CompanionTrial& companion : tryCompanions(moduleFile))
            writeLine(pipe, {{"companion", companion.text}, {"kind", companion.kind}});
    } catch (const std::exception& error) {
        writeLine(pipe, {{"failure", error.what()}});
    }
    _exit(0);
}

std::string readAll(int pipe)
{
    std::string text;
    char buffer[4096];
    for (ssize_t got; (got = read(pipe, buffer, sizeof buffer)) != 0;) {
        if (got > 0)
            text.append(buffer, static_cast<std::size_t>(got));
        else if (errno != EINTR)
            break;
    }
    return text;
}

// What the lines tell; one that the process did not finish writing is passed over.
Trial parsed(const std::string& lines)
{
    Trial trial;
    for (std::size_t begin = 0, end; (end = lines.find('\n', begin)) != std::string::npos; begin = end + 1) {
        const Json json = Json::parse(lines.substr(begin, end - begin));
        if (json.contains("class"))
            trial.classes.push_back(toClassTrial(json));
        else if (json.contains("companion"))
            trial.companions.push_back({json.at("kind"), json.at("companion")});
        else if (json.contains("failure"))
            trial.failure = json.at("failure").get<std::string>();
        else
            trial.loaded = true;
    }
    return trial;
}

// How the process ended, where it did not end as it should.
std::optional<std::string> endOf(const std::string& file, const Trial& trial, int status,
                                 const std::vector<std::string>& classes)
{
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
        return std::nullopt;
    const std::string when = !trial.loaded                           ? "while it was being loaded"
                             : trial.classes.size() < classes.size() ? "when asked for " + classes[trial.classes.size()]
                             : trial.companions.empty()              ? "when its optional libraries were asked"
                                                                     : "when it was unloaded";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return file + " gave no answer in " + std::to_string(TimeLimit) + " seconds, " + when;
    return file + " ended the process that asked it, " + when + ": " +
           (WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "exit code " + std::to_string(WEXITSTATUS(status)));
}
}

Trial tryModule(const std::string& moduleFile, const std::optional<Dump>& dump, const std::vector<std::string>& classes)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw LoadError(std::string("cannot make a pipe: ") + std::strerror(errno));
    const pid_t child = fork();
    if (child < 0)
        throw LoadError(std::string("cannot start a process: ") + std::strerror(errno));
    if (child == 0) {
        close(ends[0]);
        tryApart(ends[1], moduleFile, dump, classes);
    }
    close(ends[1]);
    Trial trial = parsed(readAll(ends[0]));
    close(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!trial.failure)
        trial.failure = endOf(moduleFile, trial, status, classes);
    return trial;
}

}
