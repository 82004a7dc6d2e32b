#pragma once

#include "tools/formats/Formats.h"
#include "tools/program/Errors.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

// What the command lines of the programs have in common.

/// The names of the formats that offer something: `formatsWith(&Format::summary)`.
template <class Member> std::vector<std::string> formatsWith(Member member)
{
    std::vector<std::string> names;
    for (const Format& format : formats())
        if (format.*member)
            names.emplace_back(format.name);
    return names;
}

/// "text, json or html"
std::string listed(const std::vector<std::string>& names);

/// Throws UsageError when the format does not offer what these commands print ("names", "invoke and check").
template <class Member>
void requireOffered(const Format& format, Member member, const std::string& commands, const char* print = "prints")
{
    if (!(format.*member))
        throw UsageError("--format " + std::string(format.name) + " is for instances; " + commands + " " + print + " " +
                         listed(formatsWith(member)));
}

/// The classes with their titles, for the end of --help.
std::string classList();

/// The classes as their schema writes them, each once: asked twice, in whatever letter case, it is one request.
std::vector<std::string> eachClassOnce(const std::vector<std::string>& given);

/// Throws UsageError for a path whose quotes the shell took, and shows how `program` is to be called.
void requireQuotes(const std::string& path, const char* program);

}
