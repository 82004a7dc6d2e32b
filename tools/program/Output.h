#pragma once

#include <string>

namespace VQ::Tool
{

extern const char* const ProgramName; ///< which each program defines

enum ExitCode
{
    Done = 0,
    RequestFailed = 1,
    WrongUsage = 2
};

/// What a command gives, and how it went.
struct Outcome
{
    std::string output;
    std::string complaints; ///< for standard error, whole lines without the program's name
    bool failed = false;
};

/// Writes each line to standard error with the program's name before it; texts from firmware and the command line are
/// made safe to show.
void complain(const std::string& lines);

/// Writes to standard output and gives back the exit code, or RequestFailed where it could not all be written: a full
/// disk must not pass for success.
int print(const std::string& output, int code);

}
