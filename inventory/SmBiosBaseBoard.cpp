#include "inventory/SmBiosBaseBoard.h"

#include "inventory/Selection.h"
#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

namespace VQ
{

namespace
{
// Takes over the text of a string field; false when that throws, and the field then stays as it was.
bool readText(std::string& field, const TableType2& board, unsigned char offset)
{
    try {
        field = make_string(board.getString(board.getByte(offset)));
        return true;
    } catch (...) {
        return false;
    }
}
}

SmBiosBaseBoard::SmBiosBaseBoard(const SmBios::Table& table)
{
    const TableType2 board(table);
    readText(_manufacturer, board, 0x04); // Manufacturer
    // The version is read only where the product can't be, so a board that reads normally has none. Callers recognise
    // a board by its texts; one more text would make a known board a new one.
    if (!readText(_product, board, 0x05)) // Product
        readText(_version, board, 0x06);  // Version
    readText(_serialNumber, board, 0x07); // Serial Number
    readText(_assetTag, board, 0x08);     // Asset Tag
    readText(_location, board, 0x0A);     // Location in Chassis
}

std::vector<BaseBoard> GetBaseBoardInstances()
{
    return recordsOf<BaseBoard, SmBiosBaseBoard>(2);
}

std::vector<std::string> getConfigurationOptions()
{
    std::vector<std::string> options;
    const SmBios smBios{12};
    for (const SmBios::Table& table : smBios.getTables()) {
        const TableType12 structure(table);
        const std::uint8_t count = structure.getByte(0x04); // Count
        // An 8-bit counter: with 255 options it wraps to 0, never passes the count, and the call does not return. That
        // is what a machine with such a table is documented to do.
        for (std::uint8_t i = 1; i <= count; ++i)
            options.push_back(make_string(structure.getString(i)));
    }
    return options;
}

}
