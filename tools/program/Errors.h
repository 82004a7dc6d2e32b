#pragma once

#include <stdexcept>

namespace VQ::Tool
{

/// A file that can't be used: the text names the file, the reason, and what would help.
class LoadError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A command line that does not say what to do; the text tells what is wrong with it.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

}
