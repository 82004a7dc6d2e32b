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

SmBios::Table::Table(std::vector<unsigned char> data) : _data(std::move(data))
{
    const auto byteAt = [this](std::size_t offset) -> unsigned { return offset < _data.size() ? _data[offset] : 0; };
    _type = static_cast<std::uint8_t>(byteAt(0));                       // 00h
    _length = static_cast<std::uint8_t>(byteAt(1));                     // 01h
    _handle = static_cast<std::uint16_t>(byteAt(2) | (byteAt(3) << 8)); // 02h
}

SmBios::Table::~Table() = default;

std::uint8_t SmBios::Table::getByte(unsigned char offset) const
{
    return offset < _length && offset < _data.size() ? _data[offset] : 0;
}

std::uint16_t SmBios::Table::getWord(unsigned char offset) const
{
    const std::size_t last = offset + std::size_t{1};
    if (last >= _length || last >= _data.size())
        return 0;
    return static_cast<std::uint16_t>(_data[offset] | (_data[last] << 8));
}

const char* SmBios::Table::getString(unsigned char index) const
{
    std::size_t position = _length;
    for (unsigned number = 1; index != 0 && position < _data.size() && _data[position] != 0; ++number) {
        const unsigned char* text = &_data[position];
        const void* end = std::memchr(text, 0, _data.size() - position);
        if (!end)
            return nullptr;
        if (number == index)
            return reinterpret_cast<const char*>(text);
        position += static_cast<std::size_t>(static_cast<const unsigned char*>(end) - text) + 1;
    }
    return nullptr;
}

SmBios::SmBios()
{
    const RawTables raw = readRawTables();
    if (raw.entryPoint.empty())
        return;
    const EntryPoint entryPoint = parseEntryPoint(raw);
    _majorVersion = entryPoint.majorVersion;
    _minorVersion = entryPoint.minorVersion;
    const std::size_t size = std::min<std::size_t>(raw.structures.size(), entryPoint.tableLength);
    _tables = parseStructures(raw.structures.data(), size, entryPoint.structureCount);
}

SmBios::~SmBios() = default;

}
