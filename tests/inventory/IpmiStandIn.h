#pragma once

#include <stdint.h>

/* What a stand-in for the IPMI access library answers, and what it was asked. Exported by each as `ipmiStandIn`. */
struct IpmiStandIn
{
    uintptr_t session;          /* what ipmiOpenLocal returns */
    int result;                 /* what ipmiBmcGet returns */
    unsigned char identity[32]; /* what ipmiBmcGet fills in, whatever it returns */

    char calls[16];           /* a letter for each call in order: o(pen), g(et), c(lose) */
    uintptr_t sessionOfGet;   /* what ipmiBmcGet was given */
    uintptr_t bufferOfGet;    /* the same */
    uintptr_t sessionOfClose; /* what ipmiClose was given */
};
