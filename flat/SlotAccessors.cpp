#include "flat/Delivery.h"
#include "flat/Snapshot.h"

void getSlotDesignation(char* buffer, unsigned int index)
{
    VQ::deliverText(buffer, slots[index].getDesignation());
}
