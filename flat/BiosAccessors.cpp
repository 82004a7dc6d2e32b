#include "flat/Delivery.h"
#include "flat/Snapshot.h"

#include <cstdio>

void getBiosManufacturer(char* buffer)
{
    VQ::deliverText(buffer, bios.getManufacturer());
}

void getBiosVersion(char* buffer)
{
    VQ::deliverText(buffer, bios.getVersion());
}

void getBiosBuildNumber(char* buffer)
{
    VQ::deliverText(buffer, bios.getBuildNumber());
}

void getBiosSerialNumber(char* buffer)
{
    VQ::deliverText(buffer, bios.getSerialNumber());
}

void getBiosCurrentLanguage(char* buffer)
{
    VQ::deliverText(buffer, bios.getCurrentLanguage());
}

void getBiosLanguages(void* buffer)
{
    packAS(buffer, bios.getLanguages());
}

void getBiosReleaseDate(char* buffer)
{
    const VQ::DateTime date = bios.getReleaseDate();
    VQ::deliverDate(buffer, date, date.getOffset());
    std::printf("TIME Format : %s\n", buffer);
}

int getBiosSmBiosMajorVersion()
{
    return bios.getSmBiosMajorVersion();
}

int getBiosSmBiosMinorVersion()
{
    return bios.getSmBiosMinorVersion();
}

int getBiosSmBiosVersion(char* buffer)
{
    return std::sprintf(buffer, "%d.%d", bios.getSmBiosMajorVersion(), bios.getSmBiosMinorVersion());
}

unsigned long long getBiosLoadedStartingAddress()
{
    return bios.getLoadedStartingAddress();
}

unsigned long long getBiosLoadedEndingAddress()
{
    return bios.getLoadedEndingAddress();
}
