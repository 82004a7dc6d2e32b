#include "tests/testing/FullTable.h"

TableBuilder fullTable()
{
    TableBuilder table;
    table.type(0)
        .string(0x04, "Maker")
        .string(0x05, "B1 -[ABCDE12-1.05]-")
        .string(0x08, "06/23/2005")
        .word(0x06, 0xE000);
    table.type(1).string(0x05, "Server 100 -[8837ABC]-").string(0x07, "S1");
    table.type(2).string(0x04, "Maker").string(0x05, "Board A").length(0x0B);
    table.type(2).string(0x04, "Maker").string(0x05, "Board B").length(0x0B);
    table.type(3).string(0x04, "Maker").length(0x09);
    table.type(7).string(0x04, "L1").length(0x13);
    table.type(7).string(0x04, "L2").length(0x13);
    table.type(7).string(0x04, "L3").length(0x13);
    table.type(8).string(0x04, "J1A").string(0x06, "COM1").length(0x09);
    table.type(8).string(0x06, "USB").length(0x09);
    table.type(9).string(0x04, "PCI 1");
    table.type(9).string(0x04, "PCI 2");
    table.type(11).byte(0x04, 2).string("Diagnostics -[XXYT01-1.02]-").string("Controller -[XXET02-1.03]-");
    table.type(127);
    return table;
}
