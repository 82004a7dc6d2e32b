#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getCSName(char* buffer)
{
    VQ::deliverText(buffer, cs.getName());
}

void getCSModel(char* buffer)
{
    VQ::deliverText(buffer, cs.getModel());
}

void getCSDescription(char* buffer)
{
    VQ::deliverText(buffer, cs.getDescription());
}

void getCSOwnerName(char* buffer)
{
    VQ::deliverText(buffer, cs.getOwnerName());
}

void getCSOwnerContact(char* buffer)
{
    VQ::deliverText(buffer, cs.getOwnerContact());
}

void getName(char* buffer)
{
    getCSName(buffer);
}

void getModel(char* buffer)
{
    getCSModel(buffer);
}
