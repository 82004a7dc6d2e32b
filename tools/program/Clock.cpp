#include "tools/program/Clock.h"

#include "tools/program/Errors.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>

namespace VQ::Tool
{

std::string currentTime()
{
    std::time_t now = std::time(nullptr);
    if (const char* fixed = std::getenv("SOURCE_DATE_EPOCH")) {
        char* end = nullptr;
        errno = 0;
        const long long seconds = std::strtoll(fixed, &end, 10);
        now = static_cast<std::time_t>(seconds);
        if (end == fixed || *end != '\0' || errno != 0 || seconds < 0 || now != seconds)
            throw UsageError("SOURCE_DATE_EPOCH is \"" + std::string(fixed) + "\", which is no number of seconds");
    }
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[sizeof "9999999999-12-31T23:59:60Z"];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
    return text;
}

}
