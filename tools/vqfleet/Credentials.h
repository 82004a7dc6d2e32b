#pragma once

#include <string>

namespace VQ::Tool
{

/// The first line of the file ("-": standard input). Throws LoadError, also where it is empty.
std::string readPassword(const std::string& file);

/// Asks on the terminal, which does not show what is typed. Throws LoadError where there is no terminal.
std::string askForPassword(const std::string& user);

}
