#pragma once

#include "inventory/Firmware.h"

#include <string>
#include <vector>

namespace VQ
{

/// One function of the IPMI access library: its name, and where it was found.
struct interfaceStruct
{
    char name[128]; ///< zero-terminated; an entry with an empty name is passed over
    void* function; ///< filled when the symbol is resolved
};

/// The IPMI access library, as the loader is asked for it.
extern char IPMILib[];

/// The handle of the library that was opened last, or null when that failed. It is not reset when the library is
/// closed. Shared by all requests and not protected.
extern void* hLib;

/// The functions of the library: "ipmiOpenLocal", "ipmiClose", "ipmiBmcGet". Shared like hLib.
extern interfaceStruct ipmiintStruct[3];

/// Opens the library (`dlopen`, lazily bound) and fills the `count` entries of the table. 1 on success. 0 when the
/// library can't be loaded, or at the first function that it lacks; it then stays open and earlier entries stay filled.
/// Throws std::bad_alloc where it can't be loaded for lack of memory.
int openInterfaceLink(char* library, interfaceStruct* table, int count);

/// Closes the library, if one is open.
void closeInterfaceLink();

/// The name of a manufacturer by its IANA enterprise number; the number as hexadecimal text for one not known.
std::string manStr(unsigned int manufacturerId);

/// The name of a BMC product; "BMC(0x....)" with the product ID for one not known.
std::string prodStr(unsigned int manufacturerId, unsigned short productId);

/// The BMC's firmware, read over IPMI: one record, or none where there is no IPMI access library, no BMC, or no answer.
std::vector<Firmware> getIpmiFirmwareInstances();

}
