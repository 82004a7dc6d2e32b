/* A stand-in for the IPMI access library. Built as it is, without each of its functions, and with a need of its own
   that nothing fulfils. */

#include "tests/inventory/IpmiStandIn.h"

#include <string.h>

#define EXPORTED __attribute__((visibility("default")))

/* A session handle that fills a pointer; a "NB BMC" of revision 1.17. */
EXPORTED struct IpmiStandIn ipmiStandIn = {
    .session = (uintptr_t)0x9ABCDEF012345678ull,
    .identity = {0xFF, 0xFF, 0xFF, 0xFF, 2, 0, 0, 0, 0x43, 0x00, 1, 17, 0xFF, 0xFF, 0xFF, 0xFF},
};

static void called(char letter)
{
    const size_t length = strlen(ipmiStandIn.calls);
    if (length + 1 < sizeof ipmiStandIn.calls)
        ipmiStandIn.calls[length] = letter;
}

#ifdef VQ_WITH_A_MISSING_FUNCTION
void ipmiFunctionThatIsNowhere(void);
EXPORTED void ipmiNotCalled(void);
void ipmiNotCalled(void)
{
    ipmiFunctionThatIsNowhere();
}
#endif

#ifndef VQ_WITHOUT_OPEN
EXPORTED uintptr_t ipmiOpenLocal(void);
uintptr_t ipmiOpenLocal(void)
{
    called('o');
    return ipmiStandIn.session;
}
#endif

#ifndef VQ_WITHOUT_CLOSE
EXPORTED void ipmiClose(uintptr_t session);
void ipmiClose(uintptr_t session)
{
    called('c');
    ipmiStandIn.sessionOfClose = session;
}
#endif

#ifndef VQ_WITHOUT_GET
EXPORTED int ipmiBmcGet(uintptr_t session, void* buffer);
int ipmiBmcGet(uintptr_t session, void* buffer)
{
    called('g');
    ipmiStandIn.sessionOfGet = session;
    ipmiStandIn.bufferOfGet = (uintptr_t)buffer;
    memcpy(buffer, ipmiStandIn.identity, sizeof ipmiStandIn.identity);
    return ipmiStandIn.result;
}
#endif
