#pragma once

#include <string>
#include <vector>

/// What a command left behind.
struct Outcome
{
    int exitCode; ///< -1 when a signal ended it
    std::string output;
    long peakKilobytes; ///< of resident memory
};

/// Runs a command of the shell and reads what it prints on its standard output, until it ends. Throws
/// std::runtime_error where it cannot be started.
Outcome run(const std::string& command);

/// The words as a command line of which the shell makes these words again, whatever is in them.
std::string shellLine(const std::vector<std::string>& words);
