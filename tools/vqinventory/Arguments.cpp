#include "tools/vqinventory/Arguments.h"

#include "tools/knowledge/Classes.h"
#include "tools/knowledge/Methods.h"

#include <CLI/CLI.hpp>

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <algorithm>

namespace VQ::Tool
{

namespace
{
std::vector<std::string> formatNames()
{
    std::vector<std::string> names;
    for (const Format& format : formats())
        names.emplace_back(format.name);
    return names;
}

std::string versionText()
{
    return "vqinventory " VQ_VERSION " (" + std::to_string(8 * sizeof(void*)) +
           "-bit, " VQ_CIM_LIBRARY " CIM library)\n";
}

std::string classHelp()
{
    std::string text = "Classes:\n";
    for (const ClassInfo& served : servedClasses())
        text += "  " + std::string(served.name) + std::string(26 - std::string(served.name).size(), ' ') +
                served.title + "\n";
    return text + "\nExit code: 0 done, 1 a request failed or a problem was found, 2 the command line is wrong.";
}

// What CLI11 stores the command line in.
struct Parser
{
    CLI::App app{"Shows the inventory of this machine as the CIM provider module SystemProvider serves it.\n"
                 "Without a command: every class, or the classes that are named.",
                 "vqinventory"};
    Arguments result;
    std::string format = formats().begin()->name;
    std::string dumpFile;
    std::vector<std::string> namesClasses;
    bool yes = false;
    CLI::Option* dumpOption = nullptr;
    CLI::App* names = nullptr;
    CLI::App* get = nullptr;
    CLI::App* invoke = nullptr;
    CLI::App* check = nullptr;

    Parser()
    {
        addOptions();
        addCommands(); // they take over what the options set for the whole program
    }

    void addOptions()
    {
        app.set_help_flag("--help,-h", "print this text");
        app.set_version_flag("--version", versionText(), "print the version, the width and the CIM library");
        app.add_option("CLASS", result.classes, "classes to show, in any letter case")->type_name("");
        app.add_option("--format", format, "text, json or mof (names, invoke, check: text or json)")
            ->type_name("FORMAT")
            ->check(CLI::IsMember(formatNames()).description(""));
        dumpOption = app.add_option("--from-dump", dumpFile,
                                    "take the SMBIOS table from a file in the form of dmidecode --dump-bin");
        dumpOption->type_name("FILE");
        app.add_option("--module", result.moduleFile, "load this provider module")->type_name("FILE");
        app.footer(classHelp());
        app.require_subcommand(0, 1);
        app.fallthrough();
    }

    void addCommands()
    {
        names = app.add_subcommand("names", "print the object paths of the instances, one on each line");
        names->add_option("CLASS", namesClasses, "classes, in any letter case; none: all of them")->type_name("");
        get = app.add_subcommand("get", "print the instance that an object path names");
        get->add_option("PATH", result.path, "an object path, as `names` prints it")->required()->type_name("");
        invoke = app.add_subcommand("invoke", "call a method: Reboot or Shutdown of QORTAL_OperatingSystem");
        invoke->add_option("CLASS", result.className, "the class of the method")->required()->type_name("");
        invoke->add_option("METHOD", result.method, "the method")->required()->type_name("");
        invoke->add_flag("--yes", yes, "do it, although the machine stops");
        check = app.add_subcommand("check", "say what is wrong with the SMBIOS table, the module and their answers");
        for (CLI::App* command : {names, get, invoke, check})
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
    try {
        Pegasus::CIMObjectPath parsed(path.c_str());
    } catch (const Pegasus::Exception& error) {
        throw UsageError("\"" + path + "\" is not an object path (CLASS.KEY=\"VALUE\",...): " +
                         std::string(static_cast<const char*>(error.getMessage().getCString())));
    }
}

// The same class asked twice is one request, whatever its letter case.
std::vector<std::string> cleanClasses(const std::vector<std::string>& given)
{
    std::vector<std::string> classes;
    for (const std::string& name : given) {
        requireName(name, "class");
        const std::string canonical = canonicalClassName(name);
        if (std::find(classes.begin(), classes.end(), canonical) == classes.end())
            classes.push_back(canonical);
    }
    return classes;
}

void refusePowerMethod(const Arguments& arguments)
{
    if (const PowerMethod* power = findPowerMethod(arguments.method))
        throw UsageError(arguments.className + "." + arguments.method + " " + power->effect +
                         ". Nothing was done; add --yes to do it");
}

Arguments checked(Parser& parser)
{
    Arguments arguments = parser.result;
    arguments.format = findFormat(parser.format);
    const bool hasCommand = !parser.app.get_subcommands().empty();
    if (hasCommand && !arguments.classes.empty())
        throw UsageError("unexpected argument \"" + arguments.classes.front() + "\"");
    if (parser.names->parsed()) {
        arguments.command = Command::Names;
        arguments.classes = parser.namesClasses;
    } else if (parser.get->parsed()) {
        arguments.command = Command::Get;
        requirePath(arguments.path);
    } else if (parser.invoke->parsed()) {
        arguments.command = Command::Invoke;
        requireName(arguments.className, "class");
        requireName(arguments.method, "method");
        if (!parser.yes)
            refusePowerMethod(arguments);
    } else if (parser.check->parsed()) {
        arguments.command = Command::Check;
    }
    arguments.classes = cleanClasses(arguments.classes);
    if (parser.dumpOption->count() > 0)
        arguments.dumpFile = parser.dumpFile;
    if (hasCommand && !parser.get->parsed() && !arguments.format->names)
        throw UsageError(std::string("MOF describes instances only; ") +
                         (parser.check->parsed() ? "check prints" : "names and invoke print") + " text or json");
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
