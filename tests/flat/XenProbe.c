/* A probe library on a machine that is a Xen guest. */

#define PROBE __attribute__((visibility("default")))

PROBE int running_in_xen_domU(void);
PROBE int running_in_xen_dom0(void);

int running_in_xen_domU(void)
{
    return 1;
}

int running_in_xen_dom0(void)
{
    return 0;
}
