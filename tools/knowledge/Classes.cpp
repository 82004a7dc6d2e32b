#include "tools/knowledge/Classes.h"

#include <algorithm>
#include <cstring>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
// Behind QORTAL_ or QORx_.
const char* shortNameOf(const ClassInfo& served)
{
    return std::strchr(served.name, '_') + 1;
}

bool isNamed(const ClassInfo& served, const std::string& name)
{
    for (const char* candidate : {served.name, shortNameOf(served), served.otherName})
        if (strcasecmp(candidate, name.c_str()) == 0)
            return true;
    return false;
}

std::string lowerCase(std::string text)
{
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

// How many characters must be put in, left out or replaced to make one of the other, in any letter case.
std::size_t distance(const std::string& from, const std::string& to)
{
    const std::string one = lowerCase(from);
    const std::string other = lowerCase(to);
    std::vector<std::size_t> row(other.size() + 1);
    for (std::size_t j = 0; j <= other.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t replaced = diagonal + (one[i - 1] == other[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row.back();
}
}

const std::vector<ClassInfo>& servedClasses()
{
    static const std::vector<ClassInfo> classes = {
        {"QORTAL_ComputerSystem", "computer system", true, "system"},
        {"QORTAL_BIOS", "system BIOS and other firmware", true, "firmware"},
        {"QORTAL_Chassis", "chassis", true, "enclosure"},
        {"QORTAL_BaseBoard", "base boards", true, "board"},
        {"QORTAL_CacheMemory", "processor caches", true, "cache"},
        {"QORTAL_Slot", "system slots", true, "slots"},
        {"QORTAL_Port", "port connectors", true, "ports"},
        {"QORTAL_OperatingSystem", "operating system", false, "os"},
        {"QORx_SystemMemory", "system memory", false, "memory"},
    };
    return classes;
}

const ClassInfo* findClass(const std::string& name)
{
    const auto& classes = servedClasses();
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [&name](const ClassInfo& served) { return isNamed(served, name); });
    return found == classes.end() ? nullptr : &*found;
}

const ClassInfo* similarClass(const std::string& name)
{
    constexpr std::size_t Nearest = 3; // further away it is another word
    const ClassInfo* found = nullptr;
    std::size_t best = Nearest;
    for (const ClassInfo& served : servedClasses()) {
        for (const char* candidate : {served.name, shortNameOf(served)}) {
            const std::size_t away = distance(name, candidate);
            if (away < best && away < std::strlen(candidate) / 2) {
                best = away;
                found = &served;
            }
        }
    }
    return found;
}

std::string canonicalClassName(const std::string& name)
{
    const ClassInfo* found = findClass(name);
    return found ? found->name : name;
}

}
