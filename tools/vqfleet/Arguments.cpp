#include "tools/vqfleet/Arguments.h"

#include "tools/core/ObjectPath.h"
#include "tools/formats/Sorting.h"
#include "tools/program/Options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>

namespace VQ::Tool
{

namespace
{
constexpr const char* ExitCodes = "\nExit code: 0 done, 1 a machine failed, 2 the command line is wrong.\n"
                                  "compare: 0 no difference, 1 differences, 2 trouble.";

// What CLI11 stores the command line in.
struct Parser
{
    CLI::App app{"Shows the inventory of many machines, which it asks their CIM servers for.\n"
                 "Without a command: a line for each machine, or a screen for one.",
                 "vqfleet"};
    Arguments result;
    std::string format = formats().begin()->name;
    std::vector<std::string> classes;
    CLI::App* summary = nullptr;
    CLI::App* show = nullptr;
    CLI::App* names = nullptr;
    CLI::App* get = nullptr;
    CLI::App* compare = nullptr;
    CLI::App* invoke = nullptr;

    Parser()
    {
        addOptions();
        addAccess();
        addCommands(); // they take over what the options set for the whole program
    }

    void addFile(const char* name, std::string& file, const char* help)
    {
        app.add_option(name, file, help)->type_name("FILE");
    }

    void addFiles(const char* name, std::vector<std::string>& files, const char* type, const char* help)
    {
        app.add_option(name, files, help)->type_name(type)->allow_extra_args(false);
    }

    void addOptions()
    {
        app.set_help_flag("--help,-h", "print this text");
        app.set_version_flag("--version", "vqfleet " VQ_VERSION "\n", "print the version");
        addFiles("--server", result.servers, "URL",
                 "ask this one: http[s]://[user@]host[:port][/namespace]; ports 5988 and 5989 and root/cimv2 unless it "
                 "says otherwise; may be given several times");
        addFiles(
            "--servers", result.serverFiles, "FILE",
            "ask those in a file: a URL on each line, with a name and a pin where it has them; # begins a comment");
        addFiles("--from-json", result.savedFiles, "FILE",
                 "take answers that --format json saved, in place of asking servers");
        const std::vector<std::string> formatNames = formatsWith(&Format::machines);
        app.add_option("--format", format,
                       listed(formatNames) + " (names and invoke: " + listed(formatsWith(&Format::names)) +
                           "; summary: " + listed(formatsWith(&Format::summary)) +
                           "; compare: " + listed(formatsWith(&Format::comparison)) + ")")
            ->type_name("FORMAT")
            ->check(CLI::IsMember(formatNames).description(""));
        addFile("--output", result.outputFile, "write to this file, which is replaced when all is written");
        app.add_flag("--redact", result.redact, "hide serial numbers, asset tags, host names and places");
        app.add_option("--sort", result.sort, "sort the machines by " + listed(sortColumns()))
            ->type_name("COLUMN")
            ->check(CLI::IsMember(sortColumns()).description(""));
        app.add_option("--jobs", result.jobs, "machines to ask at a time (32)")
            ->type_name("N")
            ->check(CLI::Range(1, 1000).description(""));
        app.add_option("--timeout", result.timeout, "seconds that one machine may take (20)")
            ->type_name("SECONDS")
            ->check(CLI::Range(1, 86400).description(""));
        app.footer(classList() + ExitCodes);
        app.require_subcommand(0, 1);
        app.fallthrough();
    }

    void addAccess()
    {
        addFile("--password-file", result.passwordFile, "the first line is the password of the users in the addresses");
        app.add_flag("--netrc", result.netrc, "take users and passwords from ~/.netrc");
        addFile("--netrc-file", result.netrcFile, "take them from this file of the same form");
        addFile("--cacert", result.caFile, "trust the certificates in this file, in place of the system's");
        addFiles("--pin", result.pins, "PIN",
                 "trust the server with this public key, whoever signed its certificate: sha256//BASE64");
        app.add_flag("--insecure", result.insecure, "trust any certificate, which lets anybody answer");
    }

    void addCommands()
    {
        summary = app.add_subcommand("summary", "print what people want to know first (without a command, too)");
        show = app.add_subcommand("show", "print every class, or the classes that are named");
        show->add_option("CLASS", classes, "classes, in any letter case, with their prefix or without it")
            ->type_name("");
        names = app.add_subcommand("names", "print the object paths of the instances, one on each line");
        names->add_option("CLASS", classes, "classes, in any letter case; none: all of them")->type_name("");
        get = app.add_subcommand("get", "print the instance that an object path names");
        get->add_option("PATH", result.request.path, "an object path, as `names` prints it")->required()->type_name("");
        compare = app.add_subcommand("compare", "print what changed between two saved answers (--format json)");
        compare->add_option("BEFORE", result.before, "the file with the earlier answers")->required()->type_name("");
        compare->add_option("AFTER", result.after, "the file with the later ones; none: the servers as they are now")
            ->type_name("");
        compare->add_flag("--all", result.moving, "compare what always moves, too: time, free memory, processes");
        invoke = app.add_subcommand("invoke", "call a method: Reboot or Shutdown of QORTAL_OperatingSystem");
        invoke->add_option("CLASS", result.call.className, "the class of the method")->required()->type_name("");
        invoke->add_option("METHOD", result.call.method, "the method")->required()->type_name("");
        invoke->add_flag("--yes", result.yes, "do it; without this, say what would be done and to which machines");
        invoke->add_flag("--all", result.several, "do it although several servers are named");
        for (CLI::App* command : {summary, show, names, get, compare, invoke})
            command->require_subcommand(0);
    }
};

void requireName(const std::string& name, const char* what)
{
    const bool legal = !name.empty() && std::isdigit(static_cast<unsigned char>(name[0])) == 0 &&
                       std::all_of(name.begin(), name.end(),
                                   [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; });
    if (!legal)
        throw UsageError("\"" + name + "\" is not the name of a " + what);
}

void requirePath(const std::string& path)
{
    requireQuotes(path, "vqfleet");
    if (!parsePath(path))
        throw UsageError("\"" + path + "\" is not an object path (CLASS.KEY=\"VALUE\",...)");
}

bool isPin(const std::string& pin)
{
    return pin.rfind("sha256//", 0) == 0 && pin.size() > 8 && pin.find(';') == std::string::npos;
}

// What can't go together.
void requireSense(const Arguments& arguments)
{
    const bool asksServers = !arguments.servers.empty() || !arguments.serverFiles.empty();
    if (asksServers && !arguments.savedFiles.empty())
        throw UsageError(
            "--from-json does not go together with --server and --servers: what was saved needs no server");
    const bool comparesFiles = arguments.command == Command::Compare && !arguments.after.empty();
    if (arguments.command == Command::Compare && !arguments.savedFiles.empty())
        throw UsageError("compare takes its files as BEFORE and AFTER, without an option");
    if (arguments.command == Command::Invoke && !arguments.savedFiles.empty())
        throw UsageError("invoke calls servers, and saved answers are none: --server or --servers");
    if (arguments.command == Command::Invoke && arguments.redact)
        throw UsageError("--redact hides in answers; invoke has none to hide in");
    const bool showsMachines = arguments.command == Command::Summary ||
                               (arguments.command == Command::Show && arguments.request.kind == Request::Instances);
    if (!arguments.sort.empty() && !showsMachines)
        throw UsageError("--sort is for summary and show");
    if (comparesFiles && asksServers)
        throw UsageError("compare looks at BEFORE and AFTER, or at BEFORE and the servers: leave one of them out");
    if (!asksServers && arguments.savedFiles.empty() && !comparesFiles)
        throw UsageError("no server is named: --server http[s]://[user@]host[:port][/namespace], or --servers FILE");
    if (!arguments.passwordFile.empty() && arguments.netrc)
        throw UsageError("--password-file and --netrc do not go together");
    for (const std::string& pin : arguments.pins)
        if (!isPin(pin))
            throw UsageError("\"" + pin + "\" is not a pin: sha256//, and then the hash of the public key in base 64");
    if (arguments.insecure && !arguments.pins.empty())
        throw UsageError("--insecure and --pin do not go together: a pin is what makes a server sure");
}

void requireFormat(const Arguments& arguments)
{
    const Format& format = *arguments.format;
    if (arguments.command == Command::Summary)
        requireOffered(format, &Format::summary, "summary");
    if (arguments.command == Command::Compare)
        requireOffered(format, &Format::comparison, "compare");
    if (arguments.command == Command::Invoke)
        requireOffered(format, &Format::results, "invoke");
    if (arguments.request.kind == Request::Names)
        requireOffered(format, &Format::names, "names");
}

Arguments checked(Parser& parser)
{
    Arguments arguments = parser.result;
    arguments.format = findFormat(parser.format);
    arguments.netrc = arguments.netrc || !arguments.netrcFile.empty();
    if (parser.compare->parsed()) {
        arguments.command = Command::Compare;
    } else if (parser.invoke->parsed()) {
        arguments.command = Command::Invoke;
        requireName(arguments.call.className, "class");
        requireName(arguments.call.method, "method");
    } else if (parser.show->parsed() || parser.names->parsed() || parser.get->parsed()) {
        arguments.command = Command::Show;
    }
    if (parser.names->parsed())
        arguments.request.kind = Request::Names;
    if (parser.get->parsed()) {
        arguments.request.kind = Request::Get;
        requirePath(arguments.request.path);
        arguments.request.path = withoutServer(arguments.request.path);
    }
    for (const std::string& name : parser.classes)
        requireName(name, "class");
    arguments.request.classes = eachClassOnce(parser.classes);
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
        information.information = "vqfleet " VQ_VERSION "\n";
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what() + std::string("\n--help shows how it is used"));
    }
    return information;
}

}
