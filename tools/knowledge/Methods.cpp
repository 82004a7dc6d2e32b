#include "tools/knowledge/Methods.h"

#include <strings.h>

namespace VQ::Tool
{

namespace
{
constexpr PowerMethod PowerMethods[] = {
    {"Reboot", "restart",
     "at once, straight through the kernel: no service is stopped and data not yet on disk is lost"},
    {"Shutdown", "stop", "now, by running /sbin/shutdown -h now"},
};
}

std::string effectOn(const std::string& machine, const PowerMethod& method)
{
    return std::string("would ") + method.verb + " " + machine + " " + method.how;
}

const PowerMethod* findPowerMethod(const std::string& name)
{
    for (const PowerMethod& power : PowerMethods)
        if (strcasecmp(name.c_str(), power.name) == 0)
            return &power;
    return nullptr;
}

bool isRefusedRestart(const MethodAnswer& answer)
{
    return strcasecmp(answer.method.c_str(), "Reboot") == 0 && answer.returnValue &&
           answer.returnValue->elements != std::vector<Scalar>{std::uint64_t{0}};
}

}
