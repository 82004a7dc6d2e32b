#include "tools/PropertyNotes.h"

#include "tools/CodeTexts.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace VQ::Tool
{

namespace
{
enum class Show
{
    Plain,
    Hexadecimal
};

struct Note
{
    const char* className;
    const char* property;
    const char* unit;
    const CodeTexts* codes;
    Show show = Show::Plain;
};

const Note Notes[] = {
    {"QORTAL_ComputerSystem", "VirtualType", "", &VirtualTypes},
    {"QORTAL_BIOS", "SoftwareElementState", "", &SoftwareElementStates},
    {"QORTAL_BIOS", "TargetOperatingSystem", "", &OperatingSystems},
    {"QORTAL_BIOS", "LoadedStartingAddress", "", nullptr, Show::Hexadecimal},
    {"QORTAL_BIOS", "LoadedEndingAddress", "", nullptr, Show::Hexadecimal},
    {"QORTAL_CacheMemory", "Associativity", "", &CacheAssociativities},
    {"QORTAL_CacheMemory", "CacheType", "", &CacheTypes},
    {"QORTAL_CacheMemory", "Level", "", &CacheLevels},
    {"QORTAL_CacheMemory", "WritePolicy", "", &CacheWritePolicies},
    {"QORTAL_CacheMemory", "Location", "", &CacheLocations},
    {"QORTAL_CacheMemory", "CacheSpeed", "ns", &UnknownWhenZero},
    {"QORTAL_CacheMemory", "MaximumInstallableSize", "KB", nullptr},
    {"QORTAL_CacheMemory", "InstalledSize", "KB", nullptr},
    {"QORTAL_Port", "PortType", "", &PortTypes},
    {"QORTAL_Port", "ConnectorType", "", &ConnectorTypes},
    {"QORTAL_OperatingSystem", "OSType", "", &OperatingSystems},
    {"QORTAL_OperatingSystem", "CurrentTimeZone", "minutes", nullptr},
    {"QORTAL_OperatingSystem", "FreePhysicalMemory", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "FreeSpaceInPagingFiles", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "FreeVirtualMemory", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "MaxProcessMemorySize", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "SizeStoredInPagingFiles", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "TotalSwapSpaceSize", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "TotalVirtualMemorySize", "KiB", nullptr},
    {"QORTAL_OperatingSystem", "TotalVisibleMemorySize", "KiB", nullptr},
    {"QORx_SystemMemory", "BlockSize", "bytes", nullptr},
    {"QORx_SystemMemory", "ConsumableBlocks", "blocks", nullptr},
    {"QORx_SystemMemory", "NumberOfBlocks", "blocks", nullptr},
    {"QORx_SystemMemory", "StartingAddress", "bytes", nullptr},
    {"QORx_SystemMemory", "EndingAddress", "bytes", nullptr},
};

const Note* noteOf(const std::string& className, const std::string& property)
{
    const auto* found = std::find_if(std::begin(Notes), std::end(Notes), [&](const Note& note) {
        return className == note.className && property == note.property;
    });
    return found == std::end(Notes) ? nullptr : found;
}

bool allDigits(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}
}

std::string unitOf(const std::string& className, const std::string& property)
{
    const Note* note = noteOf(className, property);
    return note ? note->unit : "";
}

std::string meaningOf(const std::string& className, const std::string& property, const Scalar& value)
{
    const Note* note = noteOf(className, property);
    const auto* number = std::get_if<std::uint64_t>(&value);
    if (!note || !number)
        return "";
    if (note->show == Show::Hexadecimal) {
        char text[19];
        std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(*number));
        return text;
    }
    if (!note->codes)
        return "";
    const auto found = note->codes->find(*number);
    return found == note->codes->end() ? "" : found->second;
}

std::string readableDateTime(const std::string& cimText)
{
    // yyyymmddhhmmss.mmmmmmsutc; an interval has a colon in place of the sign.
    constexpr std::size_t Length = 25;
    if (cimText.size() != Length || cimText[21] == ':' || !allDigits(cimText.substr(0, 8)))
        return "";
    std::string text = cimText.substr(0, 4) + "-" + cimText.substr(4, 2) + "-" + cimText.substr(6, 2);
    if (!allDigits(cimText.substr(8, 6)) || !allDigits(cimText.substr(22)))
        return text;
    text += " " + cimText.substr(8, 2) + ":" + cimText.substr(10, 2) + ":" + cimText.substr(12, 2);
    const int offset = std::stoi(cimText.substr(22));
    char zone[16];
    std::snprintf(zone, sizeof zone, " %c%02d:%02d", cimText[21], offset / 60, offset % 60);
    return text + zone;
}

}
