#pragma once

#include "tests/testing/TableBuilder.h"

#include <string>
#include <vector>

/// While it lives, readers in this program see this table in place of the machine's own. After it they see a machine
/// without SMBIOS.
class ServedTable
{
public:
    explicit ServedTable(const TableBuilder& table) : ServedTable(table.dump()) {}
    explicit ServedTable(const std::vector<unsigned char>& dump);
    explicit ServedTable(const std::string& file); ///< a dump that exists already
    ~ServedTable();
    ServedTable(const ServedTable&) = delete;
    ServedTable& operator=(const ServedTable&) = delete;

    /// Puts another table in its place.
    void replace(const TableBuilder& table);

private:
    std::string _ownFile;
};

/// A new file below the test's temporary directory with these bytes; the caller removes it.
std::string writeTemporaryFile(const std::vector<unsigned char>& bytes);
