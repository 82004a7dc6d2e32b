#pragma once

#include "tools/core/Machine.h"
#include "tools/program/Request.h"
#include "tools/vqfleet/Transport.h"

namespace VQ::Tool
{

/// Asks each server; a machine for each, in the order of the list, whatever became of it. What befell the whole machine
/// is the failure of all its classes.
std::vector<Machine> askFleet(const std::vector<Server>& servers, const Request& request, const Access& access,
                              const Pace& pace);

/// "3 machines: 1 answered, 2 failed (1 unreachable, 1 timed out)".
std::string countedMachines(const std::vector<Machine>& machines);

/// The version of this program, as it stands in saved answers.
std::string toolVersion();

}
