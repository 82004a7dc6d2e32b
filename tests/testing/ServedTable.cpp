#include "tests/testing/ServedTable.h"

#include "support/smbios/DumpSource.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <unistd.h>

namespace
{
void writeFile(const std::string& file, const std::vector<unsigned char>& bytes)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush())
        throw std::runtime_error("cannot write " + file);
}
}

std::string writeTemporaryFile(const std::vector<unsigned char>& bytes)
{
    std::string file = testing::TempDir() + "vq-table-XXXXXX";
    const int descriptor = mkstemp(file.data());
    if (descriptor < 0)
        throw std::runtime_error("cannot create " + file);
    close(descriptor);
    writeFile(file, bytes);
    return file;
}

ServedTable::ServedTable(const std::vector<unsigned char>& dump) : _ownFile(writeTemporaryFile(dump))
{
    vqServeSmBiosDump(_ownFile.c_str());
}

ServedTable::ServedTable(const std::string& file)
{
    vqServeSmBiosDump(file.c_str());
}

ServedTable::~ServedTable()
{
    vqServeSmBiosDump("");
    if (!_ownFile.empty())
        std::remove(_ownFile.c_str());
}

void ServedTable::replace(const TableBuilder& table)
{
    writeFile(_ownFile, table.dump());
}
