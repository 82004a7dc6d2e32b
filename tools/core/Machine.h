#pragma once

#include "tools/core/Answer.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// Where the answers of a machine come from.
struct Source
{
    enum Kind
    {
        ThisMachine, ///< the module on the machine that the program runs on
        Dump,        ///< the module over a file with the SMBIOS table of a machine
        Server       ///< a CIM server
    };
    Kind kind = ThisMachine;
    std::string place; ///< the file or the address; empty for this machine
};

/// A machine with its answers: what every source gives, and what is compared, summarized and written.
struct Machine
{
    std::string name; ///< its host name; of a dump: from its file
    Source source;
    std::string askedMachine;       ///< the host name of the machine that was asked; of a dump this is another one
    std::string time;               ///< when it was asked: "2026-11-21T19:02:17Z"
    std::string tool;               ///< the program that asked, with its version: "vqinventory 1.0.0"
    std::string moduleVersion;      ///< of the provider module; empty when it is not known
    std::vector<std::string> notes; ///< what else a person should know of the answers, a sentence each
    std::vector<Answer> answers;    ///< in the order in which they were asked for
};

}
