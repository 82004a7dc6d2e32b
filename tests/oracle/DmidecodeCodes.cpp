// The meanings of codes, in the words of dmidecode 3.4 (Debian 12).

#include "tests/oracle/Facts.h"

#include <map>

namespace
{
using Texts = std::map<unsigned, const char*>;

const Texts ConnectorTypes = {
    {0x00, "None"},
    {0x01, "Centronics"},
    {0x02, "Mini Centronics"},
    {0x03, "Proprietary"},
    {0x04, "DB-25 male"},
    {0x05, "DB-25 female"},
    {0x06, "DB-15 male"},
    {0x07, "DB-15 female"},
    {0x08, "DB-9 male"},
    {0x09, "DB-9 female"},
    {0x0A, "RJ-11"},
    {0x0B, "RJ-45"},
    {0x0C, "50 Pin MiniSCSI"},
    {0x0D, "Mini DIN"},
    {0x0E, "Micro DIN"},
    {0x0F, "PS/2"},
    {0x10, "Infrared"},
    {0x11, "HP-HIL"},
    {0x12, "Access Bus (USB)"},
    {0x13, "SSA SCSI"},
    {0x14, "Circular DIN-8 male"},
    {0x15, "Circular DIN-8 female"},
    {0x16, "On Board IDE"},
    {0x17, "On Board Floppy"},
    {0x18, "9 Pin Dual Inline (pin 10 cut)"},
    {0x19, "25 Pin Dual Inline (pin 26 cut)"},
    {0x1A, "50 Pin Dual Inline"},
    {0x1B, "68 Pin Dual Inline"},
    {0x1C, "On Board Sound Input From CD-ROM"},
    {0x1D, "Mini Centronics Type-14"},
    {0x1E, "Mini Centronics Type-26"},
    {0x1F, "Mini Jack (headphones)"},
    {0x20, "BNC"},
    {0x21, "IEEE 1394"},
    {0x22, "SAS/SATA Plug Receptacle"},
    {0x23, "USB Type-C Receptacle"},
    {0xA0, "PC-98"},
    {0xA1, "PC-98 Hireso"},
    {0xA2, "PC-H98"},
    {0xA3, "PC-98 Note"},
    {0xA4, "PC-98 Full"},
    {0xFF, "Other"},
};

const Texts PortTypes = {
    {0x00, "None"},
    {0x01, "Parallel Port XT/AT Compatible"},
    {0x02, "Parallel Port PS/2"},
    {0x03, "Parallel Port ECP"},
    {0x04, "Parallel Port EPP"},
    {0x05, "Parallel Port ECP/EPP"},
    {0x06, "Serial Port XT/AT Compatible"},
    {0x07, "Serial Port 16450 Compatible"},
    {0x08, "Serial Port 16550 Compatible"},
    {0x09, "Serial Port 16550A Compatible"},
    {0x0A, "SCSI Port"},
    {0x0B, "MIDI Port"},
    {0x0C, "Joystick Port"},
    {0x0D, "Keyboard Port"},
    {0x0E, "Mouse Port"},
    {0x0F, "SSA SCSI"},
    {0x10, "USB"},
    {0x11, "Firewire (IEEE P1394)"},
    {0x12, "PCMCIA Type I"},
    {0x13, "PCMCIA Type II"},
    {0x14, "PCMCIA Type III"},
    {0x15, "Cardbus"},
    {0x16, "Access Bus Port"},
    {0x17, "SCSI II"},
    {0x18, "SCSI Wide"},
    {0x19, "PC-98"},
    {0x1A, "PC-98 Hireso"},
    {0x1B, "PC-H98"},
    {0x1C, "Video Port"},
    {0x1D, "Audio Port"},
    {0x1E, "Modem Port"},
    {0x1F, "Network Port"},
    {0x20, "SATA"},
    {0x21, "SAS"},
    {0xA0, "8251 Compatible"},
    {0xA1, "8251 FIFO Compatible"},
    {0xFF, "Other"},
};

const Texts CacheLocations = {{0, "Internal"}, {1, "External"}, {3, "Unknown"}};

const Texts CacheErrorCorrections = {{1, "Other"},  {2, "Unknown"},        {3, "None"},
                                     {4, "Parity"}, {5, "Single-bit ECC"}, {6, "Multi-bit ECC"}};

const Texts CacheTypes = {{1, "Other"}, {2, "Unknown"}, {3, "Instruction"}, {4, "Data"}, {5, "Unified"}};

const Texts CacheAssociativities = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Direct Mapped"},
    {0x04, "2-way Set-associative"},
    {0x05, "4-way Set-associative"},
    {0x06, "Fully Associative"},
    {0x07, "8-way Set-associative"},
    {0x08, "16-way Set-associative"},
    {0x09, "12-way Set-associative"},
    {0x0A, "24-way Set-associative"},
    {0x0B, "32-way Set-associative"},
    {0x0C, "48-way Set-associative"},
    {0x0D, "64-way Set-associative"},
    {0x0E, "20-way Set-associative"},
};

std::string textOf(const Texts& texts, unsigned code)
{
    const auto found = texts.find(code);
    if (found != texts.end())
        return found->second;
    return code == 0 ? "0" : "<OUT OF SPEC>";
}
}

std::string connectorTypeText(unsigned code)
{
    return textOf(ConnectorTypes, code);
}

std::string portTypeText(unsigned code)
{
    return textOf(PortTypes, code);
}

std::string cacheLocationText(unsigned code)
{
    return textOf(CacheLocations, code);
}

std::string cacheErrorCorrectionText(unsigned code)
{
    return textOf(CacheErrorCorrections, code);
}

std::string cacheTypeText(unsigned code)
{
    return textOf(CacheTypes, code);
}

std::string cacheAssociativityText(unsigned code)
{
    return textOf(CacheAssociativities, code);
}

std::string listText(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "\"" : " \"") + text + "\"";
    return all;
}
