// Writes the tables that the tests of the Python module read into the directory of its argument.

#include "tests/testing/LargeTables.h"
#include "tests/testing/TableBuilder.h"

#include <fstream>
#include <string>
#include <vector>

namespace
{
void write(const std::string& file, const TableBuilder& table)
{
    const std::vector<unsigned char> bytes = table.dump();
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

TableBuilder released(const std::string& date)
{
    TableBuilder table;
    return table.type(0).string(0x08, date).type(127);
}
}

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const std::string directory = std::string(argv[1]) + "/";
    write(directory + "empty", TableBuilder().type(127));
    write(directory + "no-such-day", released("02/31/2020"));
    write(directory + "endless-languages", TableBuilder().type(13).byte(0x04, 255).type(127));
    write(directory + "endless-options", TableBuilder().type(12).byte(0x04, 255).type(127));
    write(directory + "one-character", TableBuilder().type(11).byte(0x04, 1).string("Odd -[X]-").type(127));
    write(directory + "odd-text", TableBuilder().type(9).string(0x04, "\xE9t\xC3\xA9 \xFF").type(127));
    write(directory + "long-text", TableBuilder().form64().type(9).string(0x04, std::string(60000, 'x')).type(127));
    write(directory + "large", tableOf(growingClass("QORTAL_Port"), 65535));
    return 0;
}
