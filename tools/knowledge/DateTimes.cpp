#include "tools/knowledge/DateTimes.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <ctime>

namespace VQ::Tool
{

namespace
{
bool allDigits(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// yyyymmddhhmmss.mmmmmmsutc; an interval has a colon in place of the sign.
bool isTimestamp(const std::string& cimText)
{
    constexpr std::size_t Length = 25;
    return cimText.size() == Length && cimText[21] != ':';
}
}

std::string readableDateTime(const std::string& cimText, bool dayOnly)
{
    if (!isTimestamp(cimText) || !allDigits(cimText.substr(0, 8)))
        return "";
    std::string text = cimText.substr(0, 4) + "-" + cimText.substr(4, 2) + "-" + cimText.substr(6, 2);
    if (dayOnly || !allDigits(cimText.substr(8, 6)) || !allDigits(cimText.substr(22)))
        return text;
    text += " " + cimText.substr(8, 2) + ":" + cimText.substr(10, 2) + ":" + cimText.substr(12, 2);
    const int offset = std::stoi(cimText.substr(22));
    char zone[16];
    std::snprintf(zone, sizeof zone, " %c%02d:%02d", cimText[21], offset / 60, offset % 60);
    return text + zone;
}

bool isDayOnly(const std::string& property)
{
    return property == "ReleaseDate";
}

std::optional<std::int64_t> secondsOf(const std::string& cimText)
{
    if (!isTimestamp(cimText) || !allDigits(cimText.substr(0, 14)) || !allDigits(cimText.substr(22)))
        return std::nullopt;
    std::tm parts{};
    parts.tm_year = std::stoi(cimText.substr(0, 4)) - 1900;
    parts.tm_mon = std::stoi(cimText.substr(4, 2)) - 1;
    parts.tm_mday = std::stoi(cimText.substr(6, 2));
    parts.tm_hour = std::stoi(cimText.substr(8, 2));
    parts.tm_min = std::stoi(cimText.substr(10, 2));
    parts.tm_sec = std::stoi(cimText.substr(12, 2));
    const int offset = std::stoi(cimText.substr(22)) * (cimText[21] == '-' ? -60 : 60);
    return static_cast<std::int64_t>(timegm(&parts)) - offset;
}

}
