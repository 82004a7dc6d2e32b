#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getCacheDesignation(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, caches[index].getDesignation());
}

void getCachePurpose(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, caches[index].getPurpose());
}

int getCacheAssociativity(unsigned int index)
{
    return caches[index].getAssociativity();
}

int getCacheWritePolicy(unsigned int index)
{
    return caches[index].getWritePolicy();
}

int getCacheType(unsigned int index)
{
    return caches[index].getType();
}

int getCacheLocation(unsigned int index)
{
    return caches[index].getLocation();
}

int getCacheLevel(unsigned int index)
{
    return caches[index].getLevel();
}

int getCacheErrorCorrectionType(unsigned int index)
{
    return caches[index].getErrorCorrectionType();
}

unsigned int getCacheSpeed(unsigned int index)
{
    return caches[index].getSpeed();
}

unsigned int getCacheSize(unsigned int index)
{
    return caches[index].getSize();
}

unsigned int getCacheMaximumSize(unsigned int index)
{
    return caches[index].getMaximumSize();
}

unsigned int getCacheInstalledSize(unsigned int index)
{
    return caches[index].getInstalledSize();
}

unsigned long long getCacheNumberOfBlocks(unsigned int index)
{
    return caches[index].getNumberOfBlocks();
}

void getCacheSupportedSramType(void* buffer, unsigned int index)
{
    VQ::deliverCodes(buffer, caches[index].getSupportedSramType());
}

void getCacheCurrentSramType(void* buffer, unsigned int index)
{
    VQ::deliverCodes(buffer, caches[index].getCurrentSramType());
}
