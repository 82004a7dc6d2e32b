#pragma once

#include "support/common/Export.h"
#include "support/smbios/TableBytes.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace VQ
{

/// The SMBIOS table is there but can't be read; the text names the file, the reason and what would help.
class VQ_EXPORT SmBiosError : public std::runtime_error
{
public:
    explicit SmBiosError(const std::string& what) : std::runtime_error(what) {}
    ~SmBiosError() override;
};

/// A reader of the platform's SMBIOS structure table (DMTF DSP0134). It takes a snapshot when it is constructed; use
/// one for one operation and drop it, so that every request sees the current table.
class VQ_EXPORT SmBios
{
public:
    /// One structure of the table: a value, which may outlive its reader. The structures of a table share its bytes,
    /// which live as long as one of them.
    class VQ_EXPORT Table
    {
    public:
        /// An empty structure: type, length and handle 0, no data.
        Table() = default;

        /// A structure of these bytes: header, formatted area, string set with its final zero bytes. Bytes too few for
        /// a header count as 0.
        explicit Table(const std::vector<unsigned char>& data);

        /// The structure from `begin` to `end` of a whole table.
        Table(const TableBytes& table, const unsigned char* begin, const unsigned char* end)
            : _table(table), _position(static_cast<std::uint32_t>(begin - table.data())),
              _size(static_cast<std::uint32_t>(end - begin))
        {
        }

        Table(const Table&) = default;
        Table& operator=(const Table&) = default;
        virtual ~Table();

        std::uint8_t getType() const { return getDataByte(0x00); }   ///< header offset 00h
        std::uint8_t getLength() const { return getDataByte(0x01); } ///< of the formatted area in bytes, offset 01h
        std::uint16_t getHandle() const                              ///< header offset 02h
        {
            return static_cast<std::uint16_t>(getDataByte(0x02) | (getDataByte(0x03) << 8));
        }

        /// The byte at `offset`, counted from the start of the header. 0 beyond the formatted area, so a field that an
        /// old structure does not have reads as 0, never as a byte of its strings.
        std::uint8_t getByte(unsigned char offset) const;

        /// The little-endian word at `offset`; 0 where any of its bytes lies beyond the formatted area.
        std::uint16_t getWord(unsigned char offset) const;

        /// The byte at `offset` of the structure's bytes, wherever the formatted area ends; 0 beyond them.
        std::uint8_t getDataByte(std::size_t offset) const { return offset < _size ? data()[offset] : std::uint8_t{0}; }

        /// The NUL-terminated text of string number `index` (from 1), as it stands in the table; null for 0 and for a
        /// number beyond the strings. Valid while this object or a copy of it lives unchanged.
        const char* getString(unsigned char index) const;

        /// The structure's bytes: formatted area and string set, final zero bytes included. Valid while this object or
        /// a copy of it lives unchanged. Made when it is first asked for: the other functions cost less.
        const std::vector<unsigned char>& getData() const;

    private:
        const unsigned char* data() const { return _table.data() + _position; }

        TableBytes _table;
        std::uint32_t _position = 0; // in _table
        std::uint32_t _size = 0;
    };

    /// Reads entry point and table. A machine without SMBIOS gives version 0.0 and no structures. A malformed table
    /// gives the structures before the first one that does not fit. Throws SmBiosError when the table is there but
    /// can't be read.
    SmBios();
    /// The same with the structures of these types only; of all types where the list is empty.
    SmBios(std::initializer_list<std::uint8_t> types);
    ~SmBios();
    SmBios(const SmBios&) = delete;
    SmBios& operator=(const SmBios&) = delete;

    std::uint8_t getMajorVersion() const { return _majorVersion; } ///< of the entry point
    std::uint8_t getMinorVersion() const { return _minorVersion; } ///< of the entry point

    /// The structures in the order of the table; the same vector on every call.
    const std::vector<Table>& getTables() const { return _tables; }

private:
    std::uint8_t _majorVersion = 0;
    std::uint8_t _minorVersion = 0;
    std::vector<Table> _tables;
};

}
