#include "tools/CodeTexts.h"

namespace VQ::Tool
{

const CodeTexts UnknownWhenZero = {{0, "unknown"}};

const CodeTexts SoftwareElementStates = {{0, "deployable"}, {1, "installable"}, {2, "executable"}, {3, "running"}};

const CodeTexts OperatingSystems = {{36, "Linux"}, {66, "not applicable"}};

const CodeTexts CacheLevels = {{0, "not L1 to L3"}, {3, "L1"}, {4, "L2"}, {5, "L3"}};

const CodeTexts CacheWritePolicies = {
    {1, "other"}, {2, "unknown"}, {3, "write back"}, {4, "write through"}, {5, "varies with memory address"}};

const CodeTexts VirtualTypes = {{1, "not virtualized, or not known"}, {2, "under Xen"}, {3, "guest under Xen"}};

const CodeTexts CacheLocations = {{0, "internal"}, {1, "external"}, {2, "reserved"}, {3, "unknown"}};

const CodeTexts CacheTypes = {{1, "other"}, {2, "unknown"}, {3, "instruction"}, {4, "data"}, {5, "unified"}};

const CodeTexts CacheAssociativities = {
    {0x01, "other"},  {0x02, "unknown"}, {0x03, "direct mapped"},
    {0x04, "2-way"},  {0x05, "4-way"},   {0x06, "fully associative"},
    {0x07, "8-way"},  {0x08, "16-way"},  {0x09, "12-way"},
    {0x0A, "24-way"}, {0x0B, "32-way"},  {0x0C, "48-way"},
    {0x0D, "64-way"}, {0x0E, "20-way"},
};

const CodeTexts ConnectorTypes = {
    {0x00, "none"},
    {0x01, "Centronics"},
    {0x02, "mini-Centronics"},
    {0x03, "proprietary"},
    {0x04, "DB-25 male"},
    {0x05, "DB-25 female"},
    {0x06, "DB-15 male"},
    {0x07, "DB-15 female"},
    {0x08, "DB-9 male"},
    {0x09, "DB-9 female"},
    {0x0A, "RJ-11"},
    {0x0B, "RJ-45"},
    {0x0C, "50-pin mini-SCSI"},
    {0x0D, "mini-DIN"},
    {0x0E, "micro-DIN"},
    {0x0F, "PS/2"},
    {0x10, "infrared"},
    {0x11, "HP-HIL"},
    {0x12, "Access Bus (USB)"},
    {0x13, "SSA SCSI"},
    {0x14, "circular DIN-8 male"},
    {0x15, "circular DIN-8 female"},
    {0x16, "onboard IDE"},
    {0x17, "onboard floppy"},
    {0x18, "9-pin dual inline, pin 10 cut"},
    {0x19, "25-pin dual inline, pin 26 cut"},
    {0x1A, "50-pin dual inline"},
    {0x1B, "68-pin dual inline"},
    {0x1C, "onboard sound input from CD-ROM"},
    {0x1D, "mini-Centronics type 14"},
    {0x1E, "mini-Centronics type 26"},
    {0x1F, "mini-jack (headphones)"},
    {0x20, "BNC"},
    {0x21, "IEEE 1394"},
    {0x22, "SAS/SATA plug receptacle"},
    {0x23, "USB Type-C receptacle"},
    {0xA0, "PC-98"},
    {0xA1, "PC-98 Hireso"},
    {0xA2, "PC-H98"},
    {0xA3, "PC-98Note"},
    {0xA4, "PC-98Full"},
    {0xFF, "other"},
};

const CodeTexts PortTypes = {
    {0x00, "none"},
    {0x01, "parallel port XT/AT compatible"},
    {0x02, "parallel port PS/2"},
    {0x03, "parallel port ECP"},
    {0x04, "parallel port EPP"},
    {0x05, "parallel port ECP/EPP"},
    {0x06, "serial port XT/AT compatible"},
    {0x07, "serial port 16450 compatible"},
    {0x08, "serial port 16550 compatible"},
    {0x09, "serial port 16550A compatible"},
    {0x0A, "SCSI port"},
    {0x0B, "MIDI port"},
    {0x0C, "joystick port"},
    {0x0D, "keyboard port"},
    {0x0E, "mouse port"},
    {0x0F, "SSA SCSI"},
    {0x10, "USB"},
    {0x11, "FireWire (IEEE 1394)"},
    {0x12, "PCMCIA type I"},
    {0x13, "PCMCIA type II"},
    {0x14, "PCMCIA type III"},
    {0x15, "CardBus"},
    {0x16, "Access Bus port"},
    {0x17, "SCSI II"},
    {0x18, "SCSI wide"},
    {0x19, "PC-98"},
    {0x1A, "PC-98 Hireso"},
    {0x1B, "PC-H98"},
    {0x1C, "video port"},
    {0x1D, "audio port"},
    {0x1E, "modem port"},
    {0x1F, "network port"},
    {0x20, "SATA"},
    {0x21, "SAS"},
    {0x22, "MFDP (multi-function display port)"},
    {0x23, "Thunderbolt"},
    {0xA0, "8251 compatible"},
    {0xA1, "8251 FIFO compatible"},
    {0xFF, "other"},
};

}
