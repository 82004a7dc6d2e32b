/* A virtualization probe for tests: it answers what the test program wants, which so learns how often it was asked. */
int vqProbeAnswer(const char* function);

#ifdef WITH_GUEST
__attribute__((visibility("default"))) int running_in_xen_domU(void);

int running_in_xen_domU(void)
{
    return vqProbeAnswer("domU");
}
#endif

#ifdef WITH_CONTROL
__attribute__((visibility("default"))) int running_in_xen_dom0(void);

int running_in_xen_dom0(void)
{
    return vqProbeAnswer("dom0");
}
#endif
