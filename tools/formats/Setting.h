#pragma once

#include <string>

namespace VQ::Tool
{

/// What the output depends on beside its content.
struct Setting
{
    unsigned columns = 100; ///< of the terminal
    bool colour = false;
    std::string time; ///< when it is written: "2026-11-21T19:02:17Z"
    std::string tool; ///< by what: "vqinventory 1.0.0"
};

}
