#pragma once

#include "tools/formats/Setting.h"

#include <string>

namespace VQ::Tool
{

extern const char* const ProgramName; ///< which each program defines

enum ExitCode
{
    Done = 0,
    RequestFailed = 1,
    WrongUsage = 2,

    Same = 0, ///< of `compare`
    Different = 1
};

/// What a command gives, and how it went.
struct Outcome
{
    std::string output;
    std::string complaints; ///< for standard error, whole lines without the program's name
    int code = Done;
};

/// Writes each line to standard error with the program's name before it; texts from firmware and the command line are
/// made safe to show.
void complain(const std::string& lines);

/// Writes to standard output. False, with a complaint, where it could not all be written: a full disk must not pass for
/// success. A reader that stops has seen enough, and that is no failure.
bool print(const std::string& output);

/// Replaces the file by one with this content, so that whoever reads it sees the old one or the new one whole. A device
/// or a pipe is written to. Throws LoadError.
void replaceFile(const std::string& file, const std::string& content);

/// The width of the terminal and whether it shows colours: none in a pipe, or where NO_COLOR is set.
Setting terminalSetting(bool toFile);

}
