#include "tests/testing/SampleTables.h"

#include <string>

namespace
{
constexpr std::uint16_t Chassis = 0x0300; // handles that other structures refer to
constexpr std::uint16_t CacheL1 = 0x0700;
constexpr std::uint16_t CacheL2 = 0x0701;
constexpr std::uint16_t CacheL3 = 0x0702;

void uuid(TableBuilder& table, std::uint8_t first)
{
    for (std::uint8_t i = 0; i < 16; ++i)
        table.byte(static_cast<std::uint8_t>(0x08 + i), static_cast<std::uint8_t>(first + i * 13));
}

void serverBios(TableBuilder& table)
{
    table.type(0)
        .string(0x04, "Norvik")
        .string(0x05, "-[NVE128A-1.27]-")
        .word(0x06, 0xE000) // starting address segment
        .string(0x08, "03/07/2011")
        .byte(0x09, 63)      // ROM size: 4 MB
        .word(0x0A, 0x9880)  // characteristics: PCI, upgradeable, shadowing, boot from CD
        .byte(0x12, 0x01)    // ACPI
        .byte(0x13, 0x04)    // targeted content distribution
        .word(0x14, 0x1B01)  // release 1.27
        .word(0x16, 0x0201); // embedded controller 1.2
    table.type(1)
        .string(0x04, "Norvik")
        .string(0x05, "Norvik Server 410 -[8837ABC]-")
        .string(0x06, "02")
        .string(0x07, "KQ0A417")
        .string(0x19, "8837ABC-EU")
        .string(0x1A, "Norvik 400")
        .byte(0x18, 6); // wake-up: power switch
    uuid(table, 0x41);
}

void serverBoards(TableBuilder& table)
{
    table.type(2)
        .string(0x04, "Norvik")
        .string(0x05, "NB-410-MAIN")
        .string(0x06, "B3")
        .string(0x07, "BD11000417")
        .string(0x08, "Inventory 2001")
        .byte(0x09, 0x09) // hosting, replaceable
        .string(0x0A, "Tray 1, rear")
        .word(0x0B, Chassis)
        .byte(0x0D, 0x0A) // motherboard
        .byte(0x0E, 0);
    table.type(2)
        .string(0x04, "Talvo")
        .string(0x05, "TV-510-RISER")
        .string(0x06, "A0")
        .string(0x07, "  BD11000991 ")
        .byte(0x08, 0)
        .byte(0x09, 0x08)
        .string(0x0A, "T\xFCr 2") // Latin-1
        .word(0x0B, Chassis)
        .byte(0x0D, 0x0C) // processor and I/O module
        .byte(0x0E, 0);
    table.type(3)
        .handle(Chassis)
        .string(0x04, "Norvik")
        .byte(0x05, 0x17) // rack mount
        .string(0x06, "Rack 2U")
        .string(0x07, "CH5500417")
        .string(0x08, "Inventory 2000")
        .byte(0x09, 3) // boot-up, power supply, thermal and security state: safe, safe, safe, none
        .byte(0x0A, 3)
        .byte(0x0B, 3)
        .byte(0x0C, 3)
        .byte(0x11, 2) // height in U
        .byte(0x12, 2) // power cords
        .byte(0x13, 0)
        .byte(0x14, 0);
}

void serverProcessor(TableBuilder& table)
{
    table.type(4)
        .string(0x04, "CPU 1")
        .byte(0x05, 3) // central processor
        .byte(0x06, 2) // family: unknown
        .string(0x07, "Talvo")
        .string(0x10, "Talvo T6 2400")
        .byte(0x11, 0x8C) // 1.2 V
        .word(0x12, 133)
        .word(0x14, 4000)
        .word(0x16, 2400)
        .byte(0x18, 0x41) // populated, enabled
        .byte(0x19, 4)    // upgrade: ZIF socket
        .word(0x1A, CacheL1)
        .word(0x1C, CacheL2)
        .word(0x1E, CacheL3)
        .byte(0x23, 6) // cores
        .byte(0x24, 6)
        .byte(0x25, 12) // threads
        .word(0x26, 0x0004)
        .word(0x28, 2);
}

struct CacheFields
{
    std::uint16_t handle;
    const char* designation;
    std::uint16_t configuration;
    std::uint16_t maximumSize;
    std::uint16_t installedSize;
    std::uint8_t speed;
    std::uint8_t errorCorrection;
    std::uint8_t cacheType;
    std::uint8_t associativity;
};

void cache(TableBuilder& table, const CacheFields& cache)
{
    table.type(7)
        .handle(cache.handle)
        .string(0x04, cache.designation)
        .word(0x05, cache.configuration)
        .word(0x07, cache.maximumSize)
        .word(0x09, cache.installedSize)
        .word(0x0B, 0x0020) // SRAM supported and current: synchronous
        .word(0x0D, 0x0020)
        .byte(0x0F, cache.speed)
        .byte(0x10, cache.errorCorrection)
        .byte(0x11, cache.cacheType)
        .byte(0x12, cache.associativity);
}

void serverCaches(TableBuilder& table)
{
    // Level 1, write through, parity, data, 8-way; level 2, write back, single-bit ECC, unified, 4-way; level 3, varies
    // with memory address, multi-bit ECC, unified, 16-way, in units of 64 K; and an empty external socket of level 4.
    cache(table, {CacheL1, "L1 Cache", 0x0080, 192, 192, 1, 4, 4, 7});
    cache(table, {CacheL2, "L2 Cache", 0x0181, 1536, 1536, 3, 5, 5, 5});
    cache(table, {CacheL3, "L3 Cache", 0x0282, 0x8180, 0x80C0, 7, 6, 5, 8});
    cache(table, {0x0703, " L4 Socket ", 0x032B, 0x8400, 0, 0, 2, 3, 2});
}

struct PortFields
{
    const char* internal; // null: no designator
    std::uint8_t internalConnector;
    const char* external;
    std::uint8_t externalConnector;
    std::uint8_t type;
};

void port(TableBuilder& table, const PortFields& port)
{
    table.type(8).length(0x09).byte(0x05, port.internalConnector).byte(0x07, port.externalConnector);
    if (port.internal)
        table.string(0x04, port.internal);
    if (port.external)
        table.string(0x06, port.external);
    table.byte(0x08, port.type);
}

void serverPorts(TableBuilder& table)
{
    port(table, {"J12", 0, "Serial A", 8, 9});         // DB-9 male, 16550A
    port(table, {nullptr, 0, "  Video ", 7, 0x1C});    // DB-15 female
    port(table, {"J20", 0, "USB 1", 0x12, 0x10});      // USB
    port(table, {"J20", 0, "USB 2", 0x12, 0x10});      // USB
    port(table, {nullptr, 0, "Ethernet", 0x0B, 0x1F}); // RJ-45, network
    port(table, {" SAS 0", 0x22, nullptr, 0, 0x21});   // SAS
    port(table, {nullptr, 0xFF, nullptr, 0xFF, 0xFF}); // other
}

struct SlotFields
{
    const char* designation;
    std::uint8_t type;
    std::uint8_t width;
    std::uint8_t usage;
    std::uint8_t bus;
};

void slot(TableBuilder& table, std::uint16_t id, const SlotFields& slot)
{
    table.type(9)
        .string(0x04, slot.designation)
        .byte(0x05, slot.type)
        .byte(0x06, slot.width)
        .byte(0x07, slot.usage)
        .byte(0x08, 4) // long
        .word(0x09, id)
        .byte(0x0B, 0x04) // 3.3 V
        .byte(0x0C, 0x01) // PME
        .word(0x0D, 0)
        .byte(0x0F, slot.bus)
        .byte(0x10, 0);
}

void serverSlots(TableBuilder& table)
{
    slot(table, 1, {"PCI Express x16", 0xAA, 0x0D, 4, 0x15}); // in use
    slot(table, 2, {"PCI Express x8", 0xA9, 0x0B, 3, 0x1A});  // available
    slot(table, 3, {"PCI Express x8", 0xA9, 0x0B, 4, 0x1F});
    slot(table, 4, {"  PCI-X 133 ", 0x12, 0x06, 3, 0x24});
    slot(table, 5, {"Emplacement n\xC2\xB0 5", 0xA8, 0x0A, 3, 0x29}); // UTF-8
}

void serverTexts(TableBuilder& table)
{
    table.type(11)
        .byte(0x04, 5)
        .string("Norvik Update Agent -[NVYT04A-1.12]-")
        .string("  Norvik Diagnostics  -[NVETB1-2.05]-")
        .string("Talvo array controller -[TVZZ12-3.00]-")
        .string("Service: +00 (0)12 345")
        .string("Gepr\xC3\xBC"
                "ft"); // UTF-8
    table.type(12)
        .byte(0x04, 2)
        .string("JP1: clear CMOS")
        .string("JP2: boot block (\xB1"
                "5 V)"); // Latin-1
    table.type(12).byte(0x04, 1).string(" SW1-3: console redirection ");
    table.type(13)
        .byte(0x04, 3)
        .byte(0x05, 0) // long form
        .string("en|US|iso8859-1")
        .string("fr|FR|iso8859-1")
        .string("ja|JP|unicode")
        .byte(0x15, 2);
}
}

TableBuilder serverTable()
{
    TableBuilder table;
    table.version(2, 6);
    serverBios(table);
    serverBoards(table);
    serverProcessor(table);
    serverCaches(table);
    serverPorts(table);
    serverSlots(table);
    serverTexts(table);
    table.type(32).length(0x0B); // no boot error
    table.type(127);
    return table;
}

TableBuilder desktopTable()
{
    TableBuilder table;
    table.version(3, 3).form64();
    table.type(0)
        .string(0x04, "Talvo Firmware")
        .string(0x05, "T5.21")
        .word(0x06, 0xF000)
        .string(0x08, "11/30/2020")
        .byte(0x09, 0xFF)    // ROM size: see the extended size
        .word(0x0A, 0x9880)  // PCI, upgradeable, shadowing, boot from CD
        .word(0x12, 0x0C01)  // ACPI, targeted content distribution, UEFI
        .word(0x14, 0x1505)  // release 5.21
        .word(0x16, 0xFFFF)  // no embedded controller
        .word(0x18, 0x0010); // 16 MB
    table.type(1).string(0x04, "Talvo").string(0x05, "Talvo Desk 7").string(0x07, "TD7-000042").byte(0x18, 6);
    table.string(0x1A, "Desk");
    uuid(table, 0x91);
    table.type(2)
        .string(0x04, "Talvo")
        .string(0x05, "TD7-BOARD")
        .string(0x06, "1.0")
        .string(0x07, "TB-000042")
        .byte(0x09, 0x09)
        .word(0x0B, Chassis)
        .byte(0x0D, 0x0A)
        .byte(0x0E, 0);
    table.type(3)
        .handle(Chassis)
        .string(0x04, "Talvo")
        .byte(0x05, 0x03) // desktop
        .string(0x07, "TD7-000042")
        .word(0x09, 0x0303)
        .word(0x0B, 0x0303)
        .byte(0x12, 1)
        .length(0x16);
    cache(table, {CacheL1, "L1 - Cache", 0x0180, 384, 384, 0, 5, 5, 7});
    table.word(0x13, 384).word(0x15, 0).word(0x17, 384).word(0x19, 0);
    port(table, {"JUSB1", 0, "USB-C", 0x23, 0x10});
    port(table, {"JAUD1", 0, "Line Out", 0x1F, 0x1D});
    slot(table, 1, {"PCIEX16", 0xB6, 0x0D, 3, 0x01});
    table.byte(0x11, 0x0D).byte(0x12, 0); // data bus width, no peers
    table.type(13).byte(0x04, 1).byte(0x05, 1).string("en-US").byte(0x15, 1);
    table.type(127);
    return table;
}
