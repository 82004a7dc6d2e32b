#include "companions/xen/Domain.h"
#include "companions/xen/qorxenprobe.h"

int running_in_xen_domU()
{
    return VQ::findDomain("") == VQ::Domain::Guest ? 1 : 0;
}

int running_in_xen_dom0()
{
    return VQ::findDomain("") == VQ::Domain::Control ? 1 : 0;
}
