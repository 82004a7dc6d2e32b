#include "tests/testing/LargeTables.h"

#include <algorithm>
#include <string>

namespace
{
std::string numbered(const char* text, std::size_t number)
{
    return text + std::to_string(number);
}

void addBios(TableBuilder& table)
{
    table.type(0)
        .string(0x04, "Norvik")
        .string(0x05, "-[NVE900A-2.01]-")
        .string(0x08, "01/15/2013")
        .word(0x06, 0xE000)
        .length(0x18);
}

void addSystem(TableBuilder& table, std::size_t number)
{
    table.type(1)
        .string(0x04, "Norvik")
        .string(0x05, "Norvik Server 900 -[8890XYZ]-")
        .string(0x07, numbered("KQ", number))
        .length(0x1B);
}

void addBoard(TableBuilder& table, std::size_t number)
{
    table.type(2)
        .string(0x04, "Norvik")
        .string(0x05, "NB-900-CPU")
        .string(0x06, "B1")
        .string(0x07, numbered("BD", number))
        .string(0x08, numbered("Inventory ", number))
        .string(0x0A, numbered("Node ", number))
        .length(0x0F);
}

void addChassis(TableBuilder& table, std::size_t number)
{
    table.type(3)
        .string(0x04, "Norvik")
        .string(0x06, "Rack 8U")
        .string(0x07, numbered("CH", number))
        .string(0x08, numbered("Inventory ", number))
        .length(0x15);
}

void addCache(TableBuilder& table, std::size_t number)
{
    table.type(7)
        .string(0x04, numbered("Cache ", number))
        .word(0x05, static_cast<std::uint16_t>(0x0180 + number % 3))
        .word(0x07, 0x8180)
        .word(0x09, 0x8180)
        .byte(0x0F, 3)
        .byte(0x10, 5)
        .byte(0x11, 5)
        .byte(0x12, 8);
}

void addPort(TableBuilder& table, std::size_t number)
{
    table.type(8)
        .string(0x04, numbered("J", number))
        .string(0x06, numbered("USB ", number))
        .byte(0x07, 0x12)
        .byte(0x08, 0x10);
}

void addSlot(TableBuilder& table, std::size_t number)
{
    // Longer than what a string holds without an allocation, whatever the number: a large table costs no more for that.
    table.type(9).string(0x04, numbered("PCI Express x16 ", number)).byte(0x05, 0xA9).length(0x11);
}

void addFirmware(TableBuilder& table, std::size_t number)
{
    table.type(11).byte(0x04, 1).string(numbered("Adapter ", number) + " -[NVYT04A-1.12]-");
}

void addMemoryDevice(TableBuilder& table, std::size_t number)
{
    table.type(17)
        .word(0x0C, 16384)
        .string(0x10, numbered("DIMM ", number))
        .string(0x11, numbered("Bank ", number))
        .string(0x17, "Talvo")
        .string(0x18, numbered("SN", number))
        .length(0x22);
}

void addProcessor(TableBuilder& table, std::size_t number)
{
    table.type(4).string(0x04, numbered("CPU ", number)).string(0x10, "Talvo T8 2900").length(0x2A);
}

void addMany(TableBuilder& table, std::size_t count, void (*add)(TableBuilder&, std::size_t))
{
    for (std::size_t number = 0; number < count; ++number)
        add(table, number);
}
}

const GrowingClass GrowingClasses[7] = {
    {"QORTAL_BIOS", addFirmware},        {"QORTAL_Chassis", addChassis}, {"QORTAL_BaseBoard", addBoard},
    {"QORTAL_CacheMemory", addCache},    {"QORTAL_Port", addPort},       {"QORTAL_Slot", addSlot},
    {"QORTAL_ComputerSystem", addSystem}};

TableBuilder bigMachine()
{
    TableBuilder table;
    table.version(2, 7).form64();
    addBios(table);
    addSystem(table, 0);
    addMany(table, 8, addBoard);
    addChassis(table, 0);
    addMany(table, 64, addProcessor);
    addMany(table, 192, addCache);
    addMany(table, 48, addPort);
    addMany(table, 37, addSlot);
    addMany(table, 8, addFirmware);
    table.type(12).byte(0x04, 2).string("JP1: clear CMOS").string("JP2: boot block");
    table.type(13).byte(0x04, 1).string("en|US|iso8859-1").byte(0x15, 1);
    addMany(table, 256, addMemoryDevice);
    table.type(32).length(0x0B);
    table.type(127);
    return table;
}

const GrowingClass& growingClass(const std::string& name)
{
    return *std::find_if(std::begin(GrowingClasses), std::end(GrowingClasses),
                         [&name](const GrowingClass& each) { return each.name == name; });
}

TableBuilder tableOf(const GrowingClass& growing, std::size_t structures)
{
    TableBuilder table;
    table.version(3, 0).form64();
    addMany(table, structures, growing.addStructure);
    return table;
}
