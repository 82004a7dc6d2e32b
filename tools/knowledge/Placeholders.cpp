#include "tools/knowledge/Placeholders.h"

#include <algorithm>
#include <cctype>

namespace VQ::Tool
{

namespace
{
// In lower case, with letters and digits only.
constexpr const char* Placeholders[] = {
    "tobefilledbyoem",
    "defaultstring",
    "systemproductname",
    "systemmanufacturer",
    "systemversion",
    "systemserialnumber",
    "systemname",
    "chassisserialnumber",
    "chassismanufacture",
    "chassismanufacturer",
    "chassisversion",
    "baseboardserialnumber",
    "notspecified",
    "notapplicable",
    "notavailable",
    "none",
    "na",
    "noenclosure",
    "oem",
    "unknown",
    "other",
    "invalid",
    "empty",
    "123456789",
    "0123456789",
    "1234567890",
    "type2boardchassislocation",
    "partcomponent",
    "serialnumber",
    "noassettag",
    "00h",
    "null",
};

std::string essence(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || byte >= 0x80)
            result += static_cast<char>(std::tolower(byte));
    }
    return result;
}
}

std::string withoutPlaceholder(const std::string& text)
{
    const std::string left = essence(text);
    const bool allAlike = left.find_first_not_of(left.substr(0, 1)) == std::string::npos; // nothing, too
    if (left.empty() || (allAlike && left.size() > 3) || left == "0" ||
        std::find(std::begin(Placeholders), std::end(Placeholders), left) != std::end(Placeholders))
        return "";
    const std::size_t first = text.find_first_not_of(' ');
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}
