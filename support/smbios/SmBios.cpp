#include "support/smbios/SmBios.h"

#include "support/smbios/EntryPoint.h"
#include "support/smbios/Source.h"
#include "support/smbios/Structures.h"
#include "support/smbios/TableBytes.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace VQ
{

SmBiosError::~SmBiosError() = default;

SmBios::Table::Table(const std::shared_ptr<const Bytes>& table, std::size_t position, std::size_t size)
    : _size(static_cast<std::uint32_t>(size)), _data(table->data() + position), _table(table)
{
    _type = getDataByte(0x00);
    _length = getDataByte(0x01);
    _handle = static_cast<std::uint16_t>(getDataByte(0x02) | (getDataByte(0x03) << 8));
}

SmBios::Table::Table(const std::vector<unsigned char>& data)
    : Table(std::make_shared<const Bytes>(Buffer(data.begin(), data.end())), 0, data.size())
{
}

SmBios::Table::~Table() = default;

std::uint8_t SmBios::Table::getByte(unsigned char offset) const
{
    return offset < _length ? getDataByte(offset) : std::uint8_t{0};
}

std::uint16_t SmBios::Table::getWord(unsigned char offset) const
{
    const std::size_t last = offset + std::size_t{1};
    if (last >= _length || last >= _size)
        return 0;
    return static_cast<std::uint16_t>(_data[offset] | (_data[last] << 8));
}

const char* SmBios::Table::getString(unsigned char index) const
{
    std::size_t position = _length;
    for (unsigned number = 1; index != 0 && getDataByte(position) != 0; ++number) {
        const unsigned char* text = _data + position;
        const void* end = std::memchr(text, 0, _size - position);
        if (!end)
            return nullptr;
        if (number == index)
            return reinterpret_cast<const char*>(text);
        position += static_cast<std::size_t>(static_cast<const unsigned char*>(end) - text) + 1;
    }
    return nullptr;
}

const std::vector<unsigned char>& SmBios::Table::getData() const
{
    static const std::vector<unsigned char> none;
    return _table ? _table->copyOf(_data, _size) : none;
}

SmBios::SmBios()
{
    RawTables raw = readRawTables();
    if (raw.entryPoint.empty())
        return;
    const EntryPoint entryPoint = parseEntryPoint(raw);
    _majorVersion = entryPoint.majorVersion;
    _minorVersion = entryPoint.minorVersion;
    raw.structures.resize(std::min<std::size_t>(raw.structures.size(), entryPoint.tableLength));
    _tables = parseStructures(std::move(raw.structures), entryPoint.structureCount);
}

SmBios::~SmBios() = default;

}
