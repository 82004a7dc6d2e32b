#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

// As much of MOF as the project's own files use.

struct MofProperty
{
    std::string name;
    std::string type; ///< "uint16", "string[]"
    bool key = false;
    std::map<std::string, std::vector<std::string>> qualifiers; ///< name -> texts in brackets, without their quotes
};

struct MofClass
{
    std::string name;
    std::string superclass;
    std::vector<MofProperty> properties;
    std::vector<std::pair<std::string, std::string>> methods; ///< name and return type
};

struct MofInstance
{
    std::string className;
    std::map<std::string, std::string> values; ///< as written, without the quotes of a text
};

/// Throw std::runtime_error on what they do not understand.
std::vector<MofClass> readMofClasses(const std::string& file);
std::vector<MofInstance> readMofInstances(const std::string& file);
