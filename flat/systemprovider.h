/// The flat interface of libSystemProvider.so: the inventory of this machine for programs that use no CIM server.
///
/// Most programs are better served by systemprovider_load.h, which calls all of this for them, with no buffer, no size
/// and no exception. What stands here are the functions as the module exports them.
///
/// C99 and C++17. Load the module with `dlopen` and find each function with `dlsym` by the name it has here, or take
/// the table of them from systemProviderFunctions(). The module needs the CIM library that it was built with, but no
/// server, no configuration and no call before `init`. See examples/flat_inventory.c.
///
/// C++ programs get the names of systemprovider_snapshot.h as well (`os`, `cs` and others), unless they define
/// SYSTEMPROVIDER_FUNCTIONS_ONLY before they include this header.
///
/// Snapshot. `init` takes a snapshot of the inventory and the accessors read it. Read live on each call instead: the
/// operating system, the texts of the computer system, and the configuration options. Before the first `init` every
/// count but `getCount` is 0, texts are empty and numbers are 0. `getBiosReleaseDate`, `Reboot` and `Shutdown` write a
/// line to standard output.
///
/// Threads. There is no lock. Accessors may run at once, in any number of threads. Two calls of `init` may not, nor
/// `init` beside an accessor, nor `init` beside a request for the class QORTAL_BIOS or one of its superclasses where a
/// CIM server runs the module in the same process: both ask the BMC by way of one library handle.
///
/// Loading. One thing happens when the module is loaded, before any call: the virtualization probe library
/// "../lib/libqorxenprobe.so" is asked, where there is one; without the memory for it, `init` is the first to ask.
/// Nothing else is read. That path is relative to the working directory, and `init` follows it again: a program that
/// works in a directory beside which others may write runs their code. Call `chdir("/")` before `dlopen`, and make the
/// names of files full paths before that; the library is then /lib/libqorxenprobe.so, as it is for a CIM server.
///
/// Errors. No function reports one. A fact that the machine does not tell is an empty text, a number 0 or an empty
/// list. Where the SMBIOS table is there but can't be read (only root may), and for an OEM string whose text between
/// "-[" and "]-" is a single character, a C++ exception (a std::exception whose text tells the reason) leaves `init`;
/// the first kind also leaves `getCSModel`, `getCSDescription`, `getModel` and `getBBConfigurationOptions`. Where
/// memory runs out, std::bad_alloc leaves `init` and any function that delivers a text or a list. C can't catch either:
/// the program ends by std::terminate, which prints the text. A table whose language structure (or, without one, whose
/// system structure, else BIOS structure, at the same byte, the number of the manufacturer's text) announces 255 texts
/// keeps `init` from ever returning, and a configuration-option structure that does so `getBBConfigurationOptions`.
///
/// An index counts from 0 and is not checked: it must be below the matching count.
///
/// BUFFERS ARE NOT CHECKED. No function takes the size of its buffer, none cuts its value, and a buffer that is too
/// small is overwritten past its end. Each function says below how many bytes are always enough. T stands for the
/// length of the machine's SMBIOS table in bytes, but never less than 16. A text of the table is one string of one
/// structure, or a part of it, taken over byte for byte; with its terminator it stands in the table after a header of
/// four bytes, so it never takes more than T bytes. T itself is
/// - the size of the file /sys/firmware/dmi/tables/DMI, where there is one;
/// - else at most 65,535 for an SMBIOS version below 3.0, whose entry point counts the table's length in 16 bits;
/// - else at most 67,108,864 (64 MiB), the most that the module reads from /dev/mem.
/// Texts are zero-terminated; bytes are as the firmware wrote them (UTF-8 in general). A packed list is written in the
/// form that systemprovider_packed.h describes and reads.

#ifndef SYSTEMPROVIDER_H
#define SYSTEMPROVIDER_H

#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

/// Takes a snapshot in place of the last one: computer system, base boards, BIOS, caches, chassis, firmware, ports,
/// slots, in this order. Always 1. What an exception interrupts stays half done: what came before is new, the rest old.
int init(void);

/// The number of records of the BIOS, the chassis, the computer system and the operating system: always 1 each.
int getCount(void);

int getBBCount(void);       ///< base boards (SMBIOS type 2)
int getCacheCount(void);    ///< caches (SMBIOS type 7)
int getFirmwareCount(void); ///< firmware elements: from OEM strings (SMBIOS type 11), then the BMC, where it answers
int getPortCount(void);     ///< port connectors (SMBIOS type 8)
int getSlotCount(void);     ///< system slots (SMBIOS type 9)

// ---- The operating system, live -------------------------------------------------------------------------------------

/// "Linux". 6 bytes.
void getOSName(char* buffer);

/// The kernel's release (`uname`); empty when the kernel does not tell it. 65 bytes.
void getOSVersion(char* buffer);

/// The code set of LANG (en_US.UTF-8 gives UTF-8, POSIX gives POSIX), else `nl_langinfo(CODESET)`. The length of
/// either plus 1.
void getOSCodeSet(char* buffer);

/// The language of LANG, else of LC_CTYPE (en_US.UTF-8 gives en-US); empty without both. The length of either plus 1.
void getOSLanguageEdition(char* buffer);

int getOSType(void);            ///< CIM OSType: always 36, Linux
int getOSDistributed(void);     ///< 0 or 1; no source, always 0
int getOSCurrentTimeZone(void); ///< minutes east of UTC, negative to the west (`localtime`)

unsigned int getOSMaxNumberOfProcesses(void);  ///< always 2147483647
unsigned int getOSNumberOfProcesses(void);     ///< `sysinfo` procs, which counts in 16 bits
unsigned int getOSNumberOfUsers(void);         ///< no source, always 0
unsigned int getOSNumberOfLicensedUsers(void); ///< no source, always 0

unsigned long long getOSMaxProcessMemorySize(void);    ///< KiB; no source, always 0
unsigned long long getOSFreeSpaceInPagingFiles(void);  ///< KiB; no source, always 0
unsigned long long getOSSizeStoredInPagingFiles(void); ///< KiB; no source, always 0
unsigned long long getOSTotalVisibleMemorySize(void);  ///< KiB; no source, always 0
unsigned long long getOSFreePhysicalMemory(void);      ///< KiB; `sysinfo` freeram as if counted in bytes
unsigned long long getOSFreeVirtualMemory(void);       ///< KiB; no source, always 0
unsigned long long getOSTotalVirtualMemorySize(void);  ///< KiB; no source, always 0
unsigned long long getOSTotalSwapSpaceSize(void);      ///< KiB; `sysinfo` totalswap as if counted in bytes

// Dates read yyyymmddhhmmss.mmmmmm+ooo in local time. The six digits after the point are milliseconds, not
// microseconds, and the offset reads 000 whatever the time zone is.

/// Not known: always the first instant of 1970 in UTC, as local time. 32 bytes.
void getOSInstallDate(char* buffer);

/// Now. 32 bytes.
void getOSLocalDateTime(char* buffer);

/// Now less the uptime (`sysinfo`). 32 bytes.
void getOSLastBootUpTime(char* buffer);

// ---- The BIOS: SMBIOS type 0, and what is told of types 1 and 13 ----------------------------------------------------

void getBiosManufacturer(char* buffer); ///< Vendor (04h); empty when not told. T bytes.

/// BIOS Version (05h). Of text between "-[" and "]-" that has a dash: what follows the dash, but from the dash on no
/// more characters than stand before it (ABCDE12-1.05 gives 1.05, AB-1.05 gives 1). Otherwise that text whole, or the
/// whole string where there is none. T bytes.
void getBiosVersion(char* buffer);

/// BIOS Version (05h). Of text between "-[" and "]-" the part before its dash; without a dash that text whole, or the
/// whole string where there is none. T bytes.
void getBiosBuildNumber(char* buffer);

void getBiosSerialNumber(char* buffer); ///< of the system: type 1 Serial Number (07h). T bytes.

/// Type 13 Current Language (15h); empty when not told. Without a type 13 structure the text whose number stands at 15h
/// of type 1 (a byte of its UUID), else of type 0. T bytes.
void getBiosCurrentLanguage(char* buffer);

/// Type 13 Installable Languages (04h), as a packed list of texts; empty when none is told. Without a type 13 structure
/// the first texts of type 1, else of type 0: as many as its byte 04h says, where the number of the maker's text
/// stands. Up to 254 texts of together less than T bytes: 8 + 254 * 9 + T bytes.
void getBiosLanguages(void* buffer);

/// BIOS Release Date (08h), written as the dates of the operating system are, with the date's own offset in minutes
/// after a plus sign that is always there (+-300); SMBIOS knows no time of day and no offset. All digits are 0 when it
/// is not told. Also prints the line "TIME Format : <date>" to standard output. 32 bytes.
void getBiosReleaseDate(char* buffer);

int getBiosSmBiosMajorVersion(void); ///< of the SMBIOS entry point; 0 on a machine without SMBIOS
int getBiosSmBiosMinorVersion(void); ///< of the SMBIOS entry point

/// Both as text, "2.3"; "0.0" on a machine without SMBIOS. The result is the text's length without its terminator.
/// 12 bytes.
int getBiosSmBiosVersion(char* buffer);

/// BIOS Starting Address Segment (06h): a segment, not multiplied by 16.
unsigned long long getBiosLoadedStartingAddress(void);

/// Computed from the segment: segment + (10000h - segment) * 16.
unsigned long long getBiosLoadedEndingAddress(void);

// ---- The computer system, live --------------------------------------------------------------------------------------

/// The kernel's node name as UTF-8; empty when the kernel does not tell it. 129 bytes: a node name has up to 64 bytes,
/// and a byte that is no UTF-8 takes two.
void getCSName(char* buffer);

/// Type 1 Product Name (05h), the text between "-[" and "]-"; empty without. T bytes.
void getCSModel(char* buffer);

/// Type 1 Product Name (05h), the text around that; empty when not told. T bytes.
void getCSDescription(char* buffer);

void getCSOwnerName(char* buffer);    ///< no source, always empty. 1 byte.
void getCSOwnerContact(char* buffer); ///< no source, always empty. 1 byte.
void getName(char* buffer);           ///< the same as getCSName
void getModel(char* buffer);          ///< the same as getCSModel

// ---- The chassis: the first SMBIOS type 3 structure -----------------------------------------------------------------

void getChassisManufacturer(char* buffer); ///< Manufacturer (04h); empty when not told. T bytes.
void getChassisVersion(char* buffer);      ///< Version (06h); empty when not told. T bytes.
void getChassisSerialNumber(char* buffer); ///< Serial Number (07h); empty when not told. T bytes.
void getChassisAssetTag(char* buffer);     ///< Asset Tag Number (08h); empty when not told. T bytes.

// ---- Base boards: SMBIOS type 2 -------------------------------------------------------------------------------------

void getBBManufacturer(char* buffer, unsigned int index); ///< Manufacturer (04h); empty when not told. T bytes.
void getBBProduct(char* buffer, unsigned int index);      ///< Product (05h); empty when not told. T bytes.

/// Version (06h), for a board whose product can't be taken over; empty for every other. T bytes.
void getBBVersion(char* buffer, unsigned int index);

void getBBSerialNumber(char* buffer, unsigned int index); ///< Serial Number (07h); empty when not told. T bytes.
void getBBAssetTag(char* buffer, unsigned int index);     ///< Asset Tag (08h); empty when not told. T bytes.
void getBBLocation(char* buffer, unsigned int index);     ///< Location in Chassis (0Ah); empty when not told. T bytes.

/// The system's configuration options, of all type 12 structures in table order, as a packed list of texts, read live;
/// empty when none is told. A structure gives up to 254 texts, and a text that it announces but lacks is empty: with S
/// such structures 8 + T + S * 2286 bytes. S is at most T / 7, so 8 + 328 * T bytes are always enough.
void getBBConfigurationOptions(void* buffer);

// ---- Caches: SMBIOS type 7 ------------------------------------------------------------------------------------------

void getCacheDesignation(char* buffer, unsigned int index); ///< Socket Designation (04h); empty when not told. T bytes.
void getCachePurpose(char* buffer, unsigned int index);     ///< the designation once more. T bytes.

int getCacheAssociativity(unsigned int index); ///< Associativity (12h), the standard's code
int getCacheWritePolicy(unsigned int index);   ///< 4 write through, 3 write back, 5 varies with address, 2 unknown
int getCacheType(unsigned int index);          ///< System Cache Type (11h), the standard's code
int getCacheLocation(unsigned int index);      ///< bits 5-6 of 05h: 0 internal, 1 external, 3 unknown
int getCacheLevel(unsigned int index);         ///< 3, 4, 5 for levels 1, 2, 3; 0 for any other
int getCacheErrorCorrectionType(unsigned int index); ///< Error Correction Type (10h), the standard's code

unsigned int getCacheSpeed(unsigned int index);         ///< Cache Speed (0Fh), nanoseconds; 0 when unknown
unsigned int getCacheSize(unsigned int index);          ///< Installed Size (09h), kilobytes
unsigned int getCacheMaximumSize(unsigned int index);   ///< Maximum Cache Size (07h), kilobytes
unsigned int getCacheInstalledSize(unsigned int index); ///< the same as getCacheSize

/// Installed Size (09h) in units of its own granularity, 1 K or 64 K, not in kilobytes.
unsigned long long getCacheNumberOfBlocks(unsigned int index);

/// A packed list of integers; no source, always empty. 8 bytes.
void getCacheSupportedSramType(void* buffer, unsigned int index);

/// A packed list of integers; no source, always empty. 8 bytes.
void getCacheCurrentSramType(void* buffer, unsigned int index);

// ---- Port connectors: SMBIOS type 8 ---------------------------------------------------------------------------------

void getPortName(char* buffer, unsigned int index);         ///< no source, always empty. 1 byte.
void getPortModel(char* buffer, unsigned int index);        ///< no source, always empty. 1 byte.
void getPortManufacturer(char* buffer, unsigned int index); ///< no source, always empty. 1 byte.

/// Internal Reference Designator (04h) without blanks at its ends; empty when not told. T bytes.
void getPortInternalReferenceDesignator(char* buffer, unsigned int index);

/// External Reference Designator (06h) without blanks at its ends; empty when not told. T bytes.
void getPortExternalReferenceDesignator(char* buffer, unsigned int index);

int getPortType(unsigned int index); ///< Port Type (08h), the standard's code

/// Internal Connector Type (05h), then External Connector Type (07h), the standard's codes (0 for none), as a packed
/// list of two integers. 24 bytes.
void getPortConnectors(void* buffer, unsigned int index);

// ---- System slots: SMBIOS type 9 ------------------------------------------------------------------------------------

void getSlotDesignation(char* buffer, unsigned int index); ///< Slot Designation (04h); empty when not told. T bytes.

// ---- Firmware elements: OEM strings (SMBIOS type 11), then the BMC over IPMI ----------------------------------------

void getFirmwareName(char* buffer, unsigned int index); ///< the OEM string's free text; the BMC's product. T bytes.

/// Of an OEM string's text between "-[" and "]-" what follows its dash, cut as in getBiosVersion; empty without a dash.
/// Of the BMC its revision, "1.17". T bytes.
void getFirmwareVersion(char* buffer, unsigned int index);

/// "QOR" for an OEM string; the BMC's maker, or its number as 0x and hexadecimal digits. 11 bytes.
void getFirmwareManufacturer(char* buffer, unsigned int index);

void getFirmwareSerialNumber(char* buffer, unsigned int index); ///< no source, always empty. 1 byte.
void getFirmwareBuildNumber(char* buffer, unsigned int index);  ///< of an OEM string; empty for the BMC. T bytes.

/// The text of a CIM datetime; no source, always the interval "00000000000000.000000:000". 26 bytes.
void getFirmwareReleaseDate(char* buffer, unsigned int index);

// ---- Power requests -------------------------------------------------------------------------------------------------

/// Prints the line "Reboot requested" to standard output, and does nothing else: the machine goes on. Always 0.
int Reboot(void);

/// Prints the line "Shutdown requested" to standard output, and does nothing else: the machine goes on. Always 0.
int Shutdown(void);

// ---- A dump in place of the machine ---------------------------------------------------------------------------------

/// Names the dump (a file of `dmidecode --dump-bin`) that the module reads from now on; it is read anew whenever the
/// machine's own table would be. An empty name stands for a machine without SMBIOS. This function is in none of the
/// module's own libraries: load from-dump/libvqsmbios.so of the module's directory with `dlopen` before the module, and
/// find it there. The loader then takes that library for the reader that the module asks for. T is the file's size.
void vqServeSmBiosDump(const char* file);

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#if defined(__cplusplus) && !defined(SYSTEMPROVIDER_FUNCTIONS_ONLY)
#include "systemprovider_snapshot.h"
#endif

#endif
