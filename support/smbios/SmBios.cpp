#include "support/smbios/SmBios.h"

#include "support/smbios/EntryPoint.h"
#include "support/smbios/Source.h"
#include "support/smbios/Structures.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace VQ
{

SmBiosError::~SmBiosError() = default;

SmBios::Table::Table(const std::vector<unsigned char>& data)
    : _table(Buffer(data.begin(), data.end())), _size(static_cast<std::uint32_t>(data.size()))
{
}

SmBios::Table::~Table() = default;

std::uint8_t SmBios::Table::getByte(unsigned char offset) const
{
    return offset < getLength() ? getDataByte(offset) : std::uint8_t{0};
}

std::uint16_t SmBios::Table::getWord(unsigned char offset) const
{
    const std::size_t last = offset + std::size_t{1};
    if (last >= getLength() || last >= _size)
        return 0;
    return static_cast<std::uint16_t>(data()[offset] | (data()[last] << 8));
}

const char* SmBios::Table::getString(unsigned char index) const
{
    std::size_t position = getLength();
    for (unsigned number = 1; index != 0 && getDataByte(position) != 0; ++number) {
        const unsigned char* text = data() + position;
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
    return _table.isNone() ? none : _table.copyOf(data(), _size);
}

SmBios::SmBios() : SmBios(AllTypes) {}

SmBios::SmBios(std::initializer_list<std::uint8_t> types)
{
    RawTables raw = readRawTables();
    if (raw.entryPoint.empty())
        return;
    const EntryPoint entryPoint = parseEntryPoint(raw);
    _majorVersion = entryPoint.majorVersion;
    _minorVersion = entryPoint.minorVersion;
    raw.structures.resize(std::min<std::size_t>(raw.structures.size(), entryPoint.tableLength));
    _tables = parseStructures(std::move(raw.structures), entryPoint.structureCount, types);
}

SmBios::~SmBios() = default;

}
