#pragma once

#include "companions/bmc/Deadline.h"
#include "companions/bmc/qoripmi.h"

namespace VQ
{

/// Opens the kernel's device for the first BMC, below this root of the file system ("" for the machine's own). -1 where
/// there is none that can be opened.
int openDevice(const char* root);

/// Asks over the open device until an answer says who the BMC is, it refuses, or the time is over. Answers to anything
/// else are dropped. False, with nothing written, where there was no such answer.
bool askDevice(int device, const Deadline& deadline, qoripmi_identity& identity);

}
