#pragma once

#include "tools/formats/Formats.h"
#include "tools/program/Errors.h"
#include "tools/program/Request.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

enum class Command
{
    Show, ///< names and get, too
    Summary,
    Compare,
    Invoke,
    Check
};

/// What the command line asks for.
struct Arguments
{
    std::string information; ///< the text of --help or --version; when not empty, nothing else counts

    Command command = Command::Show;
    Request request;
    const Format* format = formats().begin();
    std::vector<std::string> dumpFiles;  ///< --from-dump
    std::vector<std::string> savedFiles; ///< --from-json
    std::string moduleFile;              ///< --module; empty: the module that belongs to this program
    std::string outputFile;              ///< --output; empty: standard output
    Setting setting;

    bool redact = false; ///< --redact

    std::string before;  ///< of Compare
    std::string after;   ///< of Compare; empty: this machine
    bool moving = false; ///< of Compare: --all

    std::string className; ///< of Invoke
    std::string method;    ///< of Invoke
};

/// Throws UsageError. A method that stops the machine is refused here unless --yes was given, before any module is
/// loaded.
Arguments parseArguments(int count, const char* const* values);

}
