#pragma once

#include "tools/vqinventory/Arguments.h"
#include "tools/vqinventory/Table.h"
#include "tools/vqinventory/Trial.h"

#include <map>
#include <string>
#include <vector>

namespace VQ::Tool
{

/// One thing that was looked at, and what is to be said of it.
struct Finding
{
    enum Kind
    {
        Good,
        Note,
        Problem
    };
    Kind kind;
    std::string text; ///< begins with the name of what it is about, and a colon
};

/// All that `check` found out.
struct CheckResult
{
    Table table;
    Trial trial;
    std::vector<Finding> findings;
};

/// The classes that must not be asked over such a table, each with the reason: their requests would never end, or make
/// an answer that takes the server down.
std::map<std::string, std::string> refusedClasses(const Table& table);

/// Reads the table, then asks the module in a process of its own for every class that can be asked.
CheckResult check(const Arguments& arguments);

std::size_t problemCount(const CheckResult& result);

/// A line for each finding: "ok", "note" or "problem", and its text; then the number of problems.
std::string checkAsText(const CheckResult& result);

/// One object: problems, findings, table, classes.
std::string checkAsJson(const CheckResult& result);

}
