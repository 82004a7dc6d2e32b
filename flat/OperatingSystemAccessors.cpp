#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getOSName(char* buffer)
{
    VQ::deliverText(buffer, os.getName());
}

void getOSVersion(char* buffer)
{
    VQ::deliverText(buffer, os.getVersion());
}

void getOSCodeSet(char* buffer)
{
    VQ::deliverText(buffer, os.getCodeSet());
}

void getOSLanguageEdition(char* buffer)
{
    VQ::deliverText(buffer, os.getLanguageEdition());
}

int getOSType()
{
    return os.getType();
}

int getOSDistributed()
{
    return os.getDistributed();
}

int getOSCurrentTimeZone()
{
    return os.getCurrentTimeZone();
}

unsigned int getOSMaxNumberOfProcesses()
{
    return os.getMaxNumberOfProcesses();
}

unsigned int getOSNumberOfProcesses()
{
    return os.getNumberOfProcesses();
}

unsigned int getOSNumberOfUsers()
{
    return os.getNumberOfUsers();
}

unsigned int getOSNumberOfLicensedUsers()
{
    return os.getNumberOfLicensedUsers();
}

unsigned long long getOSMaxProcessMemorySize()
{
    return os.getMaxProcessMemorySize();
}

unsigned long long getOSFreeSpaceInPagingFiles()
{
    return os.getFreeSpaceInPagingFiles();
}

unsigned long long getOSSizeStoredInPagingFiles()
{
    return os.getSizeStoredInPagingFiles();
}

unsigned long long getOSTotalVisibleMemorySize()
{
    return os.getTotalVisibleMemorySize();
}

unsigned long long getOSFreePhysicalMemory()
{
    return os.getFreePhysicalMemory();
}

unsigned long long getOSFreeVirtualMemory()
{
    return os.getFreeVirtualMemory();
}

unsigned long long getOSTotalVirtualMemorySize()
{
    return os.getTotalVirtualMemorySize();
}

unsigned long long getOSTotalSwapSpaceSize()
{
    return os.getTotalSwapSpaceSize();
}

// The offset field of the three dates is 0, not the dates' own offset: callers take them as local time.

void getOSInstallDate(char* buffer)
{
    VQ::deliverDate(buffer, os.getInstallDate(), 0);
}

void getOSLocalDateTime(char* buffer)
{
    VQ::deliverDate(buffer, os.getLocalDateTime(), 0);
}

void getOSLastBootUpTime(char* buffer)
{
    VQ::deliverDate(buffer, os.getLastBootUpTime(), 0);
}
