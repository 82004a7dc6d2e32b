#pragma once

#include <stdexcept>

namespace VQ::Load
{

/// What a caller is told: one line that names the file, the reason, and what would help.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

}
