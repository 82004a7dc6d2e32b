#pragma once

#include <string>
#include <vector>

namespace VQ::Tool
{

/// What the tool knows of a class that the provider serves.
struct ClassInfo
{
    const char* name;
    const char* title; ///< for people
    bool fromSmBios;   ///< facts of its instances come from the SMBIOS table
};

/// The nine classes, in the order in which they are shown.
const std::vector<ClassInfo>& servedClasses();

/// The class of that name in any letter case; null when it is none of the nine.
const ClassInfo* findClass(const std::string& name);

/// The name as `servedClasses` writes it; a name that is not there stays as it is.
std::string canonicalClassName(const std::string& name);

}
