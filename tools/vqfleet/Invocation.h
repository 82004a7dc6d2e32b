#pragma once

#include "tools/core/Machine.h"
#include "tools/vqfleet/Transport.h"

#include <string>
#include <vector>

namespace VQ::Tool
{

/// A method to call, of the one instance that its class has.
struct MethodCall
{
    std::string className;
    std::string method;
};

/// Calls it on each server, once: a call that was lost is not repeated. An answer for each, in the order of the list.
std::vector<MethodAnswer> callFleet(const std::vector<Server>& servers, const MethodCall& call, const Access& access,
                                    const Pace& pace);

/// What the call would do, and to which machines: a sentence, or a line for each.
std::string effectOf(const MethodCall& call, const std::vector<Server>& servers);

}
