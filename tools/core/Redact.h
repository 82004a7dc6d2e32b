#pragma once

#include "tools/core/Machine.h"

#include <map>
#include <string>
#include <vector>

namespace VQ::Tool
{

/// Hides serial numbers, asset tags, host names and the places that answers come from, wherever they stand: in their
/// properties, in paths, and within other texts (some firmware repeats serial numbers in its options). Each gets a
/// stand-in, "(serial number 1)", the same for the same text, so that equal ones and changes can still be seen.
class Redactor
{
public:
    void redact(std::vector<Machine>& machines);

private:
    enum Kind
    {
        Serial,
        Host,
        Place,
        Kinds
    };
    using Secrets = std::map<std::string, std::string>; // of one machine, with their stand-ins

    const std::string& standIn(const std::string& secret, Kind kind);
    Secrets secretsOf(const Machine& machine);

    std::map<std::string, std::string> _standIns[Kinds];
};

}
