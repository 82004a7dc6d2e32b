#pragma once

#include <string>

/// What libc and the kernel answer in this program, from its first line on. The figures are unlike each other, and no
/// accessor forwards to `totalram`.
struct FixedSystem
{
    long now = 1110214800; ///< `time`: 2005-03-07 17:00:00 UTC
    int minutesEast = 0;   ///< the time zone of `localtime_r`
    long uptime = 3601;
    unsigned long totalram = 7340032;
    unsigned long freeram = 5242880;
    unsigned long totalswap = 3145728;
    unsigned short procs = 54321;
    std::string release = "9.8.7-fixed";
    std::string nodename = "fixed-host";
    std::string codeSet = "FIXED-CODESET"; ///< `nl_langinfo(CODESET)`
};

/// The answers, which a test may change; FixedSystem() restores them.
FixedSystem& fixedSystem();
