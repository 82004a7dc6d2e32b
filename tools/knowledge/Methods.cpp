#include "tools/knowledge/Methods.h"

#include <strings.h>

namespace VQ::Tool
{

namespace
{
constexpr PowerMethod PowerMethods[] = {
    {"Reboot", "would restart this machine at once, straight through the kernel: no service is stopped and data not "
               "yet on disk is lost"},
    {"Shutdown", "would stop this machine now, by running /sbin/shutdown -h now"},
};
}

const PowerMethod* findPowerMethod(const std::string& name)
{
    for (const PowerMethod& power : PowerMethods)
        if (strcasecmp(name.c_str(), power.name) == 0)
            return &power;
    return nullptr;
}

}
