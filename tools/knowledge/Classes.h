#pragma once

#include <string>
#include <vector>

namespace VQ::Tool
{

/// What the tool knows of a class that the provider serves.
struct ClassInfo
{
    const char* name;
    const char* title;     ///< for people
    bool fromSmBios;       ///< facts of its instances come from the SMBIOS table
    const char* otherName; ///< what people may call it, beside its name with and without the prefix
};

/// The nine classes, in the order in which they are shown.
const std::vector<ClassInfo>& servedClasses();

/// The class of that name in any letter case, without its prefix ("chassis") or by its other name ("memory"); null when
/// it is none of the nine.
const ClassInfo* findClass(const std::string& name);

/// The class that a misspelt name may mean; null when none is near.
const ClassInfo* similarClass(const std::string& name);

/// The name as `servedClasses` writes it; a name that is not there stays as it is.
std::string canonicalClassName(const std::string& name);

}
