#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getChassisManufacturer(char* buffer)
{
    VQ::deliverText(buffer, chassis.getManufacturer());
}

void getChassisVersion(char* buffer)
{
    VQ::deliverText(buffer, chassis.getVersion());
}

void getChassisSerialNumber(char* buffer)
{
    VQ::deliverText(buffer, chassis.getSerialNumber());
}

void getChassisAssetTag(char* buffer)
{
    VQ::deliverText(buffer, chassis.getAssetTag());
}
