#pragma once

#include "companions/bmc/Deadline.h"
#include "companions/bmc/qoripmi.h"

namespace VQ
{

/// Opens the directory in which the kernel's driver tells of the first BMC (/sys/devices/platform/ipmi_bmc.0), below
/// this root of the file system ("" for the machine's own). -1 where there is none.
int openDriverDirectory(const char* root);

/// Reads from that directory who the BMC is. False, with nothing written, when it does not say so in time.
///
/// The driver asks the BMC anew for some of these reads, and the reader of a dead BMC's files is stuck for minutes, in
/// a state in which no signal reaches it. So another process reads, and is left behind when the time is over.
bool readDriver(int directory, const Deadline& deadline, qoripmi_identity& identity);

}
