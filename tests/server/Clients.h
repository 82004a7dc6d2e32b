#pragma once

#include "tests/testing/Process.h"

#include <string>
#include <vector>

// What a CIM server answers through its clients' programs, and what vqinventory shows for the same table, in one form.

struct Property
{
    std::string name;
    std::vector<std::string> values; ///< one for a scalar; the text alone, without quotes
};

struct Instance
{
    std::string path; ///< without host and namespace
    std::vector<Property> properties;
};

/// One line for the path and one for each property, to compare and to show.
std::string shown(const std::vector<Instance>& instances);

/// Runs a program, found through PATH; what it says on standard output and standard error alike.
Outcome runProgram(const std::vector<std::string>& command);

/// A variable that the script `serve` sets; throws std::runtime_error where it is not set.
std::string setting(const char* name);

extern const std::vector<std::string> ServedClasses;

/// What vqinventory shows; throws std::runtime_error where it fails.
std::vector<Instance> expectedInstances(const std::string& className);
std::vector<std::string> expectedPaths(const std::string& className);

/// The `cimcli` of OpenPegasus, over the network.
namespace CimCli
{
Outcome ask(std::vector<std::string> command);
std::vector<Instance> instances(const std::string& className);
std::vector<std::string> paths(const std::string& className);
std::vector<Instance> get(const std::string& path); ///< the instance, with the path that was asked
}

/// Debian's `wbemcli`.
namespace WbemCli
{
/// `operation object further...`; `object` without host and namespace.
Outcome ask(const std::string& operation, const std::string& object, const std::vector<std::string>& further = {});
std::vector<Instance> instances(const std::string& className);
std::vector<std::string> paths(const std::string& className);
std::vector<Instance> get(const std::string& path);
}
