#pragma once

#include "tools/formats/Formats.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace VQ::Tool
{

enum class Command
{
    Show,
    Names,
    Get,
    Invoke,
    Check
};

/// What the command line asks for.
struct Arguments
{
    std::string information; ///< the text of --help or --version; when not empty, nothing else counts

    Command command = Command::Show;
    const Format* format = formats().begin();
    std::optional<std::string> dumpFile; ///< --from-dump
    std::string moduleFile;              ///< --module; empty: the module that belongs to this program

    std::vector<std::string> classes; ///< of Show and Names, in the case of the class list; empty: all
    std::string path;                 ///< of Get
    std::string className;            ///< of Invoke
    std::string method;               ///< of Invoke
};

/// A command line that does not say what to do; the text tells what is wrong with it.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Throws UsageError. A method that stops the machine is refused here unless --yes was given, before any module is
/// loaded.
Arguments parseArguments(int count, const char* const* values);

}
