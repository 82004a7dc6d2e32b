#pragma once

#include <functional>
#include <string>
#include <vector>

/// What became of the power actions. A program with PowerRecorder.cpp has no other `reboot` and `popen`, and no other
/// way to start a program: its own objects and the libraries it loads get as far as this record. Before its first test
/// the program makes sure of that, and ends when it is not so.
struct PowerRecorder
{
    /// In their order: "reboot 0x01234567", "popen [/sbin/shutdown -h now] r", "pclose", or the name of another
    /// function that was called
    std::vector<std::string> calls;

    int rebootResult = -1; ///< with errno EPERM when it is -1
    bool popenFails = false;
    int pcloseResult = 0;
    /// Runs inside `reboot` and `popen`, when set, on the caller's thread. Only in `popen` may it throw.
    std::function<void()> during;
};

/// One for the program; a test clears it by assignment.
PowerRecorder& powerRecorder();

/// The functions of libc that the recorder stands in for.
const std::vector<const char*>& recordedFunctions();

/// True when the program itself defines what lies at the address.
bool liesInThisProgram(const void* address);

/// True when a call of the function, from the program or from a library, reaches the program's own definition.
bool bindsToThisProgram(const char* function);
