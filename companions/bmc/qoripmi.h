#pragma once

/* The IPMI access library, libqoripmi.so: the identity of the machine's own baseboard management controller (BMC), as
 * the Linux kernel's IPMI driver gets it. The SystemProvider module loads it by name where it is installed.
 *
 * The functions may be called from several threads at once, each with a session of its own. They print nothing and
 * remember nothing: a session is all that there is, and `ipmiClose` gives it back whole. */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A way to the BMC that is open; 0 is none. */
typedef uintptr_t qoripmi_session;

enum
{
    QORIPMI_FROM_DRIVER =
        1,                 /* read from what the driver tells in sysfs; bytes 0 to 3 and `auxiliary` are not known: 0 */
    QORIPMI_AUXILIARY = 2, /* the BMC has told its auxiliary revision */
    QORIPMI_UPDATING = 4,  /* the BMC is being updated, or is starting */
    QORIPMI_MINOR_BINARY = 8, /* the minor revision was no BCD and is the number of that byte */
    QORIPMI_SECONDS = 2       /* what ipmiBmcGet takes at most, however the BMC behaves */
};

/* What a BMC answers to Get Device ID: 32 bytes, numbers in the machine's byte order. */
struct qoripmi_identity
{
    uint8_t device_id;        /*  0: chosen by the maker; 0 is not specified */
    uint8_t device_revision;  /*  1: bit 7 device provides sensor records, bits 3-0 revision of the hardware */
    uint8_t ipmi_version;     /*  2: BCD, least significant digit in bits 7-4: 51h for 1.5, 02h for 2.0 */
    uint8_t support;          /*  3: what the BMC does beside answering, a bit for each, as IPMI lists them */
    uint32_t manufacturer_id; /*  4: IANA enterprise number, 20 bits; 0 is not specified */
    uint16_t product_id;      /*  8: chosen by the maker; 0 is not specified */
    uint8_t firmware_major;   /* 10: firmware revision before the dot, 0 to 127 */
    uint8_t firmware_minor;   /* 11: and behind it: 17 for 1.17, 5 for 2.05 */
    uint8_t auxiliary[4];     /* 12: the maker's own continuation of the revision, in the BMC's order; see `flags` */
    uint8_t flags;            /* 16: QORIPMI_... */
    uint8_t reserved[15];     /* 17: 0 */
};

/* Opens the kernel's device for the first BMC (/dev/ipmi0, /dev/ipmi/0, /dev/ipmidev/0). Where none of them can be
 * opened: what the driver tells of the BMC in /sys/devices/platform, for which no right is needed. 0 where there is
 * neither. Does not ask the BMC anything. */
__attribute__((visibility("default"))) qoripmi_session ipmiOpenLocal(void);

/* Closes the session. Does nothing for 0. */
__attribute__((visibility("default"))) void ipmiClose(qoripmi_session session);

/* Asks the BMC who it is and fills the 32 bytes of a `struct qoripmi_identity`, aligned or not. 0 when that worked; 1,
 * with nothing written, when the session is none, the BMC does not answer within QORIPMI_SECONDS, refuses, or its
 * answer is none. */
__attribute__((visibility("default"))) int ipmiBmcGet(qoripmi_session session, void* identity);

#ifdef __cplusplus
}
#endif
