#pragma once

#include <string>

/// What a command left behind.
struct Outcome
{
    int exitCode; ///< -1 when a signal ended it
    std::string output;
};

/// Runs a command of the shell and reads what it prints on its standard output, until it ends. Throws
/// std::runtime_error where it cannot be started.
Outcome run(const std::string& command);
