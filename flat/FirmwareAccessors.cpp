#include "flat/Delivery.h"
#include "flat/Snapshot.h"
#include "support/pegasus/CimText.h"

void getFirmwareName(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, firmwares[index].getName());
}

void getFirmwareVersion(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, firmwares[index].getVersion());
}

void getFirmwareManufacturer(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, firmwares[index].getManufacturer());
}

void getFirmwareSerialNumber(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, firmwares[index].getSerialNumber());
}

void getFirmwareBuildNumber(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, firmwares[index].getBuildNumber());
}

void getFirmwareReleaseDate(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, VQ::make_string(firmwares[index].getReleaseDate().toString()));
}
