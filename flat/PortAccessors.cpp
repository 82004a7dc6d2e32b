#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getPortName(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, ports[index].getName());
}

void getPortModel(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, ports[index].getModel());
}

void getPortManufacturer(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, ports[index].getManufacturer());
}

void getPortInternalReferenceDesignator(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, ports[index].getInternalReferenceDesignator());
}

void getPortExternalReferenceDesignator(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, ports[index].getExternalReferenceDesignator());
}

int getPortType(unsigned int index)
{
    return ports[index].getType();
}

void getPortConnectors(void* buffer, unsigned int index)
{
    VQ::deliverCodes(buffer, ports[index].getConnectors());
}
