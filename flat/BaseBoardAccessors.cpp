#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getBBManufacturer(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, bb[index].getManufacturer());
}

void getBBProduct(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, bb[index].getProduct());
}

void getBBVersion(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, bb[index].getVersion());
}

void getBBSerialNumber(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, bb[index].getSerialNumber());
}

void getBBAssetTag(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, bb[index].getAssetTag());
}

void getBBLocation(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, bb[index].getLocation());
}

void getBBConfigurationOptions(void* buffer)
{
    packAS(buffer, VQ::getConfigurationOptions());
}
