/* A library that looks like a module for a CIM server, and needs no other. */
void PegasusCreateProvider(void) {}
