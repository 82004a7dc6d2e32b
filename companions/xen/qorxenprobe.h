#pragma once

/* The virtualization probe, libqorxenprobe.so: whether this system is a domain of the Xen hypervisor, and which kind.
 * The SystemProvider module loads it by its path where it is installed.
 *
 * Both functions read what the kernel tells (sysfs, and xenfs where it is mounted) each time that they are called. They
 * may be called from several threads at once, print nothing and remember nothing. At most one of them returns 1; where
 * the kernel does not say, neither does. */

#ifdef __cplusplus
extern "C" {
#endif

/* 1 in a guest domain, of whatever kind (PV, HVM, PVH); else 0. */
__attribute__((visibility("default"))) int running_in_xen_domU(void);

/* 1 in the control domain; else 0. */
__attribute__((visibility("default"))) int running_in_xen_dom0(void);

#ifdef __cplusplus
}
#endif
