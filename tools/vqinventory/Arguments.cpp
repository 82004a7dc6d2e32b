#include "tools/vqinventory/Arguments.h"

#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Methods.h"
#include "tools/program/InputFile.h"
#include "tools/program/Options.h"

#include <CLI/CLI.hpp>

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <iterator>

namespace VQ::Tool
{

namespace
{
std::string versionText()
{
    return "vqinventory " VQ_VERSION " (" + std::to_string(8 * sizeof(void*)) +
           "-bit, " VQ_CIM_LIBRARY " CIM library)\n";
}

constexpr const char* ExitCodes =
    "\nExit code: 0 done, 1 a request failed or a problem was found, 2 the command line is wrong.\n"
    "compare: 0 no difference, 1 differences, 2 trouble.";

// What CLI11 stores the command line in.
struct Parser
{
    CLI::App app{"Shows the inventory of this machine as the CIM provider module SystemProvider serves it.\n"
                 "Without a command: every class, or the classes that are named.",
                 "vqinventory"};
    Arguments result;
    std::string format = formats().begin()->name;
    std::vector<std::string> classes;
    std::vector<std::string> namesClasses;
    bool yes = false;
    CLI::App* summary = nullptr;
    CLI::App* names = nullptr;
    CLI::App* get = nullptr;
    CLI::App* invoke = nullptr;
    CLI::App* check = nullptr;
    CLI::App* compare = nullptr;
    std::vector<std::string> summaryFiles;

    Parser()
    {
        addOptions();
        addCommands(); // they take over what the options set for the whole program
    }

    void addOptions()
    {
        app.set_help_flag("--help,-h", "print this text");
        app.set_version_flag("--version", versionText(), "print the version, the width and the CIM library");
        app.add_option("CLASS", classes, "classes to show, in any letter case, with their prefix or without it")
            ->type_name("");
        const std::vector<std::string> formatNames = formatsWith(&Format::machines);
        app.add_option("--format", format,
                       listed(formatNames) + " (names, invoke and check: " + listed(formatsWith(&Format::names)) +
                           "; summary: " + listed(formatsWith(&Format::summary)) +
                           "; compare: " + listed(formatsWith(&Format::comparison)) + ")")
            ->type_name("FORMAT")
            ->check(CLI::IsMember(formatNames).description(""));
        addFiles(
            "--from-dump", result.dumpFiles,
            "take the SMBIOS table from a file: as dmidecode --dump-bin writes it, or as the kernel gives it (DMI), "
            "packed by gzip or not; - is standard input; several files are several machines");
        addFiles("--from-json", result.savedFiles,
                 "take answers that --format json saved, in place of asking the module");
        app.add_option("--output", result.outputFile, "write to this file, which is replaced when all is written")
            ->type_name("FILE");
        app.add_option("--module", result.moduleFile, "load this provider module")->type_name("FILE");
        app.add_flag("--redact", result.redact, "hide serial numbers, asset tags, host names and places");
        app.footer(classList() + ExitCodes);
        app.require_subcommand(0, 1);
        app.fallthrough();
    }

    void addFiles(const char* name, std::vector<std::string>& files, const char* help)
    {
        app.add_option(name, files, help)->type_name("FILE")->allow_extra_args(false);
    }

    void addCommands()
    {
        summary = app.add_subcommand("summary", "print what people want to know first, on one screen");
        summary->add_option("FILES", summaryFiles)->group(""); // what a shell made of --from-dump *.bin
        compare =
            app.add_subcommand("compare", "print what changed between two saved answers (--format json) or dumps");
        compare->add_option("BEFORE", result.before, "the file with the earlier answers")->required()->type_name("");
        compare->add_option("AFTER", result.after, "the file with the later ones; none: this machine as it is now")
            ->type_name("");
        compare->add_flag("--all", result.moving, "compare what always moves, too: time, free memory, processes");
        names = app.add_subcommand("names", "print the object paths of the instances, one on each line");
        names->add_option("CLASS", namesClasses, "classes, in any letter case; none: all of them")->type_name("");
        get = app.add_subcommand("get", "print the instance that an object path names");
        get->add_option("PATH", result.request.path, "an object path, as `names` prints it")->required()->type_name("");
        invoke = app.add_subcommand("invoke", "call a method: Reboot or Shutdown of QORTAL_OperatingSystem");
        invoke->add_option("CLASS", result.className, "the class of the method")->required()->type_name("");
        invoke->add_option("METHOD", result.method, "the method")->required()->type_name("");
        invoke->add_flag("--yes", yes, "do it, although the machine stops");
        check = app.add_subcommand("check", "say what is wrong with the SMBIOS table, the module and their answers");
        for (CLI::App* command : {summary, names, get, compare, invoke, check})
            command->require_subcommand(0);
    }
};

void requireName(const std::string& name, const char* what)
{
    bool legal = false;
    try {
        legal = Pegasus::CIMName::legal(name.c_str());
    } catch (const Pegasus::Exception&) {
        // Not even UTF-8.
    }
    if (!legal)
        throw UsageError("\"" + name + "\" is not the name of a " + what);
}

void requirePath(const std::string& path)
{
    requireQuotes(path, "vqinventory");
    try {
        Pegasus::CIMObjectPath parsed(withoutServer(path).c_str());
    } catch (const Pegasus::Exception& error) {
        throw UsageError("\"" + path + "\" is not an object path (CLASS.KEY=\"VALUE\",...): " +
                         std::string(static_cast<const char*>(error.getMessage().getCString())));
    }
}

// A shell makes many words of --from-dump *.bin. What is not the name of a class, behind such an option, is one of
// them.
void takeFurtherFiles(std::vector<std::string>& words, std::vector<std::string>& files)
{
    if (files.empty())
        return;
    const auto isFile = [](const std::string& word) { return word.find_first_of("./") != std::string::npos; };
    std::copy_if(words.begin(), words.end(), std::back_inserter(files), isFile);
    words.erase(std::remove_if(words.begin(), words.end(), isFile), words.end());
}

void refusePowerMethod(const Arguments& arguments)
{
    if (const PowerMethod* power = findPowerMethod(arguments.method))
        throw UsageError(arguments.className + "." + arguments.method + " " + effectOn("this machine", *power) +
                         ". Nothing was done; add --yes to do it");
}

// What can't go together.
void requireSense(const Arguments& arguments)
{
    const std::size_t files = arguments.dumpFiles.size() + arguments.savedFiles.size();
    if (!arguments.dumpFiles.empty() && !arguments.savedFiles.empty())
        throw UsageError("--from-dump and --from-json do not go together: a saved answer needs no table");
    const auto isStandardInput = [](const std::string& file) { return file == StandardInput; };
    if (std::count_if(arguments.dumpFiles.begin(), arguments.dumpFiles.end(), isStandardInput) +
            std::count_if(arguments.savedFiles.begin(), arguments.savedFiles.end(), isStandardInput) >
        1)
        throw UsageError("standard input (-) can be read once only");
    if (arguments.command == Command::Compare && files > 0)
        throw UsageError("compare takes its files as BEFORE and AFTER, without an option");
    if (arguments.command == Command::Compare && isStandardInput(arguments.before) && isStandardInput(arguments.after))
        throw UsageError("standard input (-) can be read once only");
    const bool asksTheModule = arguments.command == Command::Invoke || arguments.command == Command::Check;
    if (asksTheModule && arguments.redact)
        throw UsageError("--redact hides in answers; invoke and check have none to hide in");
    if (asksTheModule && (files > 1 || !arguments.savedFiles.empty()))
        throw UsageError("invoke and check ask the module of this machine: no saved answers, and one dump at most");
}

void requireFormat(const Arguments& arguments)
{
    const Format& format = *arguments.format;
    if (arguments.command == Command::Summary)
        requireOffered(format, &Format::summary, "summary");
    if (arguments.command == Command::Compare)
        requireOffered(format, &Format::comparison, "compare");
    if (arguments.command == Command::Show && arguments.request.kind == Request::Names)
        requireOffered(format, &Format::names, "names");
    if (arguments.command == Command::Invoke || arguments.command == Command::Check)
        requireOffered(format, &Format::results, "invoke and check", "print");
}

Arguments checked(Parser& parser)
{
    Arguments arguments = parser.result;
    arguments.format = findFormat(parser.format);
    std::vector<std::string>& classes = parser.names->parsed() ? parser.namesClasses : parser.classes;
    for (std::vector<std::string>* words : {&parser.classes, &parser.namesClasses, &parser.summaryFiles}) {
        takeFurtherFiles(*words, arguments.dumpFiles);
        takeFurtherFiles(*words, arguments.savedFiles);
    }
    const bool hasCommand = !parser.app.get_subcommands().empty();
    for (const std::vector<std::string>& words : {parser.classes, parser.summaryFiles})
        if (hasCommand && !words.empty())
            throw UsageError("unexpected argument \"" + words.front() + "\"");
    if (parser.names->parsed()) {
        arguments.request.kind = Request::Names;
    } else if (parser.get->parsed()) {
        arguments.request.kind = Request::Get;
        requirePath(arguments.request.path);
        arguments.request.path = withoutServer(arguments.request.path);
    } else if (parser.invoke->parsed()) {
        arguments.command = Command::Invoke;
        requireName(arguments.className, "class");
        requireName(arguments.method, "method");
        if (!parser.yes)
            refusePowerMethod(arguments);
    } else if (parser.check->parsed()) {
        arguments.command = Command::Check;
    } else if (parser.summary->parsed()) {
        arguments.command = Command::Summary;
    } else if (parser.compare->parsed()) {
        arguments.command = Command::Compare;
    }
    for (const std::string& name : classes)
        requireName(name, "class");
    arguments.request.classes = eachClassOnce(classes);
    requireSense(arguments);
    requireFormat(arguments);
    return arguments;
}
}

Arguments parseArguments(int count, const char* const* values)
{
    Parser parser;
    Arguments information;
    try {
        parser.app.parse(count, values);
        return checked(parser);
    } catch (const CLI::CallForHelp&) {
        information.information = parser.app.help();
    } catch (const CLI::CallForVersion&) {
        information.information = versionText();
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what() + std::string("\n--help shows how it is used"));
    }
    return information;
}

}
