#pragma once

#include "support/common/DateTime.h"

#include <cstdint>
#include <string>

namespace VQ
{

/// The running operating system. It holds nothing: every getter asks the kernel or libc when it is called. Memory
/// figures are in kibibytes, and are those of `sysinfo` as if its unit were the byte. A failing call of the kernel
/// reads as 0 or as empty text.
class OperatingSystem
{
public:
    OperatingSystem();
    OperatingSystem(const OperatingSystem&);
    OperatingSystem& operator=(const OperatingSystem&);
    virtual ~OperatingSystem();

    std::string getName() const;             ///< the name of getType()
    std::uint16_t getType() const;           ///< the CIM OSType of Linux, 36
    std::string getVersion() const;          ///< the kernel's release (`uname`)
    std::string getLanguageEdition() const;  ///< from LANG, else LC_CTYPE: en_US.UTF-8 gives en-US
    std::string getCodeSet() const;          ///< from LANG, else libc: en_US.UTF-8 gives UTF-8
    std::int16_t getCurrentTimeZone() const; ///< minutes east of UTC

    DateTime getInstallDate() const;    ///< not known to this system: always DateTime(0, 3)
    DateTime getLocalDateTime() const;  ///< now
    DateTime getLastBootUpTime() const; ///< now less the uptime (`sysinfo`)

    unsigned long long getTotalPhysicalMemory() const; ///< KiB, `sysinfo` totalram
    unsigned long long getFreePhysicalMemory() const;  ///< KiB, `sysinfo` freeram
    unsigned long long getTotalSwapSpaceSize() const;  ///< KiB, `sysinfo` totalswap

    unsigned long long getTotalVirtualMemorySize() const { return 0; }  ///< no source: always 0
    unsigned long long getFreeVirtualMemory() const { return 0; }       ///< no source: always 0
    unsigned long long getTotalVisibleMemorySize() const { return 0; }  ///< no source: always 0
    unsigned long long getSizeStoredInPagingFiles() const { return 0; } ///< no source: always 0
    unsigned long long getFreeSpaceInPagingFiles() const { return 0; }  ///< no source: always 0
    unsigned long long getMaxProcessMemorySize() const { return 0; }    ///< no source: always 0

    std::uint32_t getNumberOfProcesses() const; ///< `sysinfo` procs, which counts in 16 bits
    std::uint32_t getMaxNumberOfProcesses() const { return 2147483647; }
    std::uint32_t getNumberOfUsers() const { return 0; }         ///< no source: always 0
    std::uint32_t getNumberOfLicensedUsers() const { return 0; } ///< no source: always 0
    bool getDistributed() const { return false; }

    /// Halts the machine: runs "/sbin/shutdown -h now" and waits for that command. Always 1, whatever came of it.
    int systemShutdown() const;

    /// Restarts the machine at once (`reboot`), with no sync and no notice to services. Does not return on success;
    /// -1, with errno, when the kernel refuses.
    int systemReboot() const;
};

OperatingSystem GetOperatingSystemInstance();

}
