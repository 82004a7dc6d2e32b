// Writes the sample tables, and the golden text of each, into the folder that its only argument names.

#include "tests/inventory/GoldenText.h"
#include "tests/testing/SampleTables.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>

namespace
{
void writeFile(const std::string& file, const std::string& bytes)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << bytes;
    if (!out.flush())
        throw std::runtime_error("cannot write " + file);
}
}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_samples FOLDER\n");
        return 2;
    }
    try {
        for (const Sample& sample : Samples) {
            const std::string file = std::string(argv[1]) + "/" + sample.name;
            const std::vector<unsigned char> table = sample.table().dump();
            writeFile(file + ".bin", std::string(table.begin(), table.end()));
            writeFile(file + ".golden.txt", goldenText(file + ".bin"));
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_samples: %s\n", error.what());
        return 1;
    }
    return 0;
}
