#pragma once

#include <string>

/// What the seven classes that come from the SMBIOS table answer for this dump: every instance in the order of
/// delivery, its path and under it one line for each property. The program that uses it has the host name
/// "sample.example", so that the text is the same on every machine.
std::string goldenText(const std::string& dumpFile);
