#include "inventory/ArchitectedData.h"

#include "support/common/Text.h"

#include <algorithm>

namespace VQ
{

namespace
{
std::string withoutDashes(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '-'), text.end());
    return trimBlanks(text);
}
}

ArchitectedVersion splitArchitectedVersion(const std::string& architected)
{
    const std::size_t dash = architected.find('-');
    if (dash == std::string::npos)
        return {withoutDashes(architected), ""};
    // The version's length is the dash's position, not what remains of the text: AB-1.05 has version 1. Callers compare
    // versions between machines and over time; a longer one would look like other firmware.
    return {withoutDashes(architected.substr(0, dash)), withoutDashes(architected.substr(dash, dash))};
}

}
