#include "tools/program/Options.h"

#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Classes.h"

#include <algorithm>

namespace VQ::Tool
{

std::string listed(const std::vector<std::string>& names)
{
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? " or " : ", ") + names[i];
    return text;
}

std::string classList()
{
    std::string text = "Classes:\n";
    for (const ClassInfo& served : servedClasses()) {
        const std::string name = served.name;
        text += "  " + name + std::string(26 - name.size(), ' ') + served.title + "\n";
    }
    return text;
}

std::vector<std::string> eachClassOnce(const std::vector<std::string>& given)
{
    std::vector<std::string> classes;
    for (const std::string& name : given) {
        const std::string canonical = canonicalClassName(name);
        if (std::find(classes.begin(), classes.end(), canonical) == classes.end())
            classes.push_back(canonical);
    }
    return classes;
}

void requireQuotes(const std::string& path, const char* program)
{
    if (lostItsQuotes(path))
        throw UsageError(
            "\"" + path +
            "\" has no quotes around its values: the shell took them. Put the path in single quotes, as in\n" +
            program + " get 'QORTAL_Slot.CreationClassName=\"QORTAL_Slot\",Tag=\"PCI 1\"'");
}

}
