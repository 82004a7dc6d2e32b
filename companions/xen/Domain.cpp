#include "companions/xen/Domain.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>

namespace VQ
{

namespace
{
constexpr const char* Type = "/sys/hypervisor/type";
constexpr const char* Features = "/sys/hypervisor/properties/features";
constexpr const char* InitialDomain = "/sys/hypervisor/start_flags/initdomain";
constexpr const char* Privileged = "/sys/hypervisor/start_flags/privileged";
constexpr const char* Capabilities = "/proc/xen/capabilities"; // of xenfs, where it is mounted

constexpr unsigned ControlFeature = 1u << 11;
constexpr int FeatureDigits = 8; // of each word of features
constexpr char ControlCapability[] = "control_d";

struct Text
{
    char bytes[256];
    int length;

    Text(const char* root, const char* file) : length(-1)
    {
        char path[PATH_MAX];
        const int pathLength = std::snprintf(path, sizeof path, "%s%s", root, file);
        if (pathLength > 0 && static_cast<std::size_t>(pathLength) < sizeof path)
            length = readSmallFile(AT_FDCWD, path, bytes, sizeof bytes);
    }
    Line line() const { return Line(bytes, length); }
};

bool isText(const char* text, int length)
{
    for (int i = 0; i < length; ++i)
        if ((text[i] < ' ' || text[i] > '~') && text[i] != '\n')
            return false;
    return true;
}
}

Says hypervisorIsXen(Line type)
{
    Line rest = type;
    if (rest.take("xen") && rest.atEnd())
        return Says::Yes;
    return type.isWord() ? Says::No : Says::Nothing;
}

// Most significant word first; there is one so far.
Says featuresOfControl(Line features)
{
    unsigned word = 0;
    int words = 0;
    for (; !features.atEnd(); ++words)
        if (!features.takeNumber(16, FeatureDigits, FeatureDigits, word))
            return Says::Nothing;
    if (words == 0)
        return Says::Nothing;
    return (word & ControlFeature) != 0 ? Says::Yes : Says::No;
}

Says flagOfControl(Line flag)
{
    unsigned value = 0;
    if (!flag.takeNumber(10, 1, 1, value) || !flag.atEnd() || value > 1)
        return Says::Nothing;
    return value == 1 ? Says::Yes : Says::No;
}

Says capabilitiesOfControl(const char* text, int length)
{
    if (length < 0 || !isText(text, length))
        return Says::Nothing;
    const int wanted = static_cast<int>(sizeof ControlCapability) - 1;
    for (int begin = 0, at = 0; at <= length; ++at) {
        if (at < length && text[at] != '\n')
            continue;
        if (at - begin == wanted && std::memcmp(text + begin, ControlCapability, sizeof ControlCapability - 1) == 0)
            return Says::Yes;
        begin = at + 1;
    }
    return Says::No;
}

Domain findDomain(const char* root)
{
    const Text type(root, Type);
    const Text capabilities(root, Capabilities);
    const Says isXen = hypervisorIsXen(type.line());
    const Says capable = capabilitiesOfControl(capabilities.bytes, capabilities.length);
    // xenfs can be mounted under Xen only, which an old kernel may not say in sysfs.
    if (isXen == Says::No || (isXen == Says::Nothing && capable == Says::Nothing))
        return Domain::None;
    const Says evidence[] = {capable, featuresOfControl(Text(root, Features).line()),
                             flagOfControl(Text(root, InitialDomain).line()),
                             flagOfControl(Text(root, Privileged).line())};
    bool isSaid = false;
    for (const Says says : evidence) {
        if (says == Says::Yes)
            return Domain::Control;
        isSaid = isSaid || says == Says::No;
    }
    return isSaid ? Domain::Guest : Domain::None;
}

}
