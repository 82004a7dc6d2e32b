#include "tests/testing/TableBuilder.h"

#include "tests/testing/EntryPoints.h"

#include <algorithm>

namespace
{
constexpr std::size_t HeaderSize = 4;
constexpr std::size_t DumpTableOffset = 32;

void put(std::vector<unsigned char>& bytes, std::size_t offset, std::uint64_t value, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
}
}

TableBuilder& TableBuilder::version(std::uint8_t major, std::uint8_t minor)
{
    _major = major;
    _minor = minor;
    return *this;
}

TableBuilder& TableBuilder::form64()
{
    _form = Form::Bits64;
    return *this;
}

TableBuilder& TableBuilder::formDmi()
{
    _form = Form::Dmi;
    return *this;
}

TableBuilder& TableBuilder::type(std::uint8_t type)
{
    const auto number = static_cast<std::uint16_t>(_structures.size());
    _structures.push_back({{type, HeaderSize, 0, 0}, {}, {}});
    return handle(number);
}

TableBuilder& TableBuilder::handle(std::uint16_t handle)
{
    put(_structures.back().formatted, 2, handle, 2);
    return *this;
}

TableBuilder& TableBuilder::length(std::uint8_t length)
{
    std::vector<unsigned char>& formatted = _structures.back().formatted;
    formatted.resize(std::max<std::size_t>(formatted.size(), length));
    formatted[1] = static_cast<unsigned char>(formatted.size());
    return *this;
}

TableBuilder& TableBuilder::byte(std::uint8_t offset, std::uint8_t value)
{
    length(static_cast<std::uint8_t>(offset + 1));
    _structures.back().formatted[offset] = value;
    return *this;
}

TableBuilder& TableBuilder::word(std::uint8_t offset, std::uint16_t value)
{
    length(static_cast<std::uint8_t>(offset + 2));
    put(_structures.back().formatted, offset, value, 2);
    return *this;
}

TableBuilder& TableBuilder::string(const std::string& text)
{
    _structures.back().strings.push_back(text);
    return *this;
}

TableBuilder& TableBuilder::string(std::uint8_t offset, const std::string& text)
{
    string(text);
    return byte(offset, static_cast<std::uint8_t>(_structures.back().strings.size()));
}

TableBuilder& TableBuilder::raw(const std::vector<unsigned char>& bytes)
{
    _structures.push_back({{}, {}, bytes});
    return *this;
}

std::vector<unsigned char> TableBuilder::structures() const
{
    std::vector<unsigned char> table;
    for (const Structure& structure : _structures) {
        table.insert(table.end(), structure.raw.begin(), structure.raw.end());
        if (structure.formatted.empty())
            continue;
        table.insert(table.end(), structure.formatted.begin(), structure.formatted.end());
        for (const std::string& text : structure.strings) {
            table.insert(table.end(), text.begin(), text.end());
            table.push_back(0);
        }
        if (structure.strings.empty())
            table.push_back(0);
        table.push_back(0);
    }
    return table;
}

std::vector<unsigned char> TableBuilder::entryPoint(std::size_t tableSize) const
{
    const SmBiosVersion version = {_major, _minor};
    const auto length = static_cast<std::uint16_t>(tableSize);
    const auto count = static_cast<std::uint16_t>(_structures.size());
    switch (_form) {
    case Form::Bits64:
        return entryPoint64(DumpTableOffset, static_cast<std::uint32_t>(tableSize), version);
    case Form::Dmi:
        return entryPointDmi(DumpTableOffset, length, count, version);
    default:
        return entryPoint32(DumpTableOffset, length, count, version);
    }
}

std::vector<unsigned char> TableBuilder::dump() const
{
    const std::vector<unsigned char> table = structures();
    std::vector<unsigned char> bytes = entryPoint(table.size());
    bytes.resize(DumpTableOffset);
    bytes.insert(bytes.end(), table.begin(), table.end());
    return bytes;
}
