#include "os/OperatingSystem.h"

#include "support/common/Text.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <langinfo.h>
#include <sys/sysinfo.h>
#include <sys/utsname.h>

namespace VQ
{

namespace
{
// CIM OSType
constexpr std::uint16_t TypeUnknown = 0;
constexpr std::uint16_t TypeOther = 1;
constexpr std::uint16_t TypeLinux = 36;

struct sysinfo kernelFigures()
{
    struct sysinfo figures
    {
    };
    sysinfo(&figures);
    return figures;
}

// mem_unit is left out on purpose: where the kernel counts in larger units, the figures are too small by that factor.
// Callers that meet such a machine multiply by themselves (docs/admin.md says when), and would do so once too often.
unsigned long long kibibytes(unsigned long bytes)
{
    return bytes >> 10;
}

std::string environmentText(const char* variable)
{
    return make_string(std::getenv(variable));
}
}

OperatingSystem::OperatingSystem() = default;
OperatingSystem::OperatingSystem(const OperatingSystem&) = default;
OperatingSystem& OperatingSystem::operator=(const OperatingSystem&) = default;
OperatingSystem::~OperatingSystem() = default;

std::string OperatingSystem::getName() const
{
    switch (getType()) {
    case TypeUnknown:
        return "Unknown";
    case TypeOther:
        return "Other";
    case TypeLinux:
        return "Linux";
    default:
        return "";
    }
}

std::uint16_t OperatingSystem::getType() const
{
    return TypeLinux;
}

std::string OperatingSystem::getVersion() const
{
    utsname names{};
    uname(&names);
    return names.release;
}

std::string OperatingSystem::getLanguageEdition() const
{
    std::string text = environmentText("LANG");
    if (text.empty())
        text = environmentText("LC_CTYPE");
    text = trimBlanks(text);
    text = text.substr(0, text.rfind('.'));
    std::replace(text.begin(), text.end(), '_', '-');
    return text;
}

std::string OperatingSystem::getCodeSet() const
{
    // Unlike the language edition this cuts at the first dot and does not look at LC_CTYPE; both are meant.
    std::string text = trimBlanks(environmentText("LANG"));
    const std::size_t dot = text.find('.');
    if (dot != std::string::npos)
        text.erase(0, dot + 1);
    return text.empty() ? make_string(nl_langinfo(CODESET)) : text;
}

std::int16_t OperatingSystem::getCurrentTimeZone() const
{
    return getLocalDateTime().getOffset();
}

DateTime OperatingSystem::getInstallDate() const
{
    return DateTime(0, DateTime::LocalWithOffset);
}

DateTime OperatingSystem::getLocalDateTime() const
{
    return DateTime(std::time(nullptr), DateTime::LocalWithOffset);
}

DateTime OperatingSystem::getLastBootUpTime() const
{
    return DateTime(std::time(nullptr) - kernelFigures().uptime, DateTime::LocalWithOffset);
}

unsigned long long OperatingSystem::getTotalPhysicalMemory() const
{
    return kibibytes(kernelFigures().totalram);
}

unsigned long long OperatingSystem::getFreePhysicalMemory() const
{
    return kibibytes(kernelFigures().freeram);
}

unsigned long long OperatingSystem::getTotalSwapSpaceSize() const
{
    return kibibytes(kernelFigures().totalswap);
}

std::uint32_t OperatingSystem::getNumberOfProcesses() const
{
    return kernelFigures().procs;
}

OperatingSystem GetOperatingSystemInstance()
{
    return OperatingSystem();
}

}
