#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A structure of the exhaustive test: its formatted area, header included, and its texts.
struct Structure
{
    std::vector<unsigned char> formatted;
    std::vector<std::string> texts;

    std::vector<unsigned char> bytes() const;
};

/// What a machine with this one structure answers, one line for each fact: the second reading, as docs/classes.md and
/// the standard tell it, without any code of the module.
std::vector<std::string> factsRead(const Structure& structure);

/// The same through the module's factories.
std::vector<std::string> factsOfTheModule(std::uint8_t type);
