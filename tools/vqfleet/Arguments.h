#pragma once

#include "tools/formats/Formats.h"
#include "tools/program/Errors.h"
#include "tools/program/Request.h"
#include "tools/vqfleet/Invocation.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

enum class Command
{
    Summary,
    Show, ///< names and get, too
    Compare,
    Invoke
};

/// What the command line asks for.
struct Arguments
{
    std::string information; ///< the text of --help or --version; when not empty, nothing else counts

    Command command = Command::Summary;
    Request request;
    const Format* format = formats().begin();
    std::vector<std::string> servers;     ///< --server
    std::vector<std::string> serverFiles; ///< --servers
    std::vector<std::string> savedFiles;  ///< --from-json
    std::string outputFile;               ///< --output; empty: standard output
    bool redact = false;                  ///< --redact
    std::string sort;                     ///< --sort; empty: in the order of the list
    Setting setting;

    unsigned jobs = 32;            ///< --jobs
    unsigned timeout = 20;         ///< --timeout, in seconds
    std::string passwordFile;      ///< --password-file
    bool netrc = false;            ///< --netrc or --netrc-file
    std::string netrcFile;         ///< --netrc-file
    std::string caFile;            ///< --cacert
    std::vector<std::string> pins; ///< --pin
    bool insecure = false;         ///< --insecure

    std::string before;  ///< of Compare
    std::string after;   ///< of Compare; empty: the servers as they are now
    bool moving = false; ///< of Compare: --all

    MethodCall call;
    bool yes = false;     ///< of Invoke
    bool several = false; ///< of Invoke: --all
};

/// Throws UsageError.
Arguments parseArguments(int count, const char* const* values);

}
