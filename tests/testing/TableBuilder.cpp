#include "tests/testing/TableBuilder.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace
{
constexpr std::size_t HeaderSize = 4;
constexpr std::size_t DumpTableOffset = 32;

void put(std::vector<unsigned char>& bytes, std::size_t offset, std::uint64_t value, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
}

// Sets the byte at `at` so that `size` bytes from `begin` on add up to 0.
void setChecksum(std::vector<unsigned char>& bytes, std::size_t begin, std::size_t size, std::size_t at)
{
    bytes[at] = 0;
    const auto first = bytes.begin() + static_cast<long>(begin);
    bytes[at] = static_cast<unsigned char>(-std::accumulate(first, first + static_cast<long>(size), 0));
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
    std::vector<unsigned char> bytes(DumpTableOffset);
    if (_form == Form::Bits64) {
        std::memcpy(bytes.data(), "_SM3_", 5);
        bytes[0x06] = 0x18; // length
        bytes[0x07] = _major;
        bytes[0x08] = _minor;
        bytes[0x0A] = 1; // revision
        put(bytes, 0x0C, tableSize, 4);
        put(bytes, 0x10, DumpTableOffset, 8);
        setChecksum(bytes, 0, 0x18, 0x05);
    } else if (_form == Form::Dmi) {
        std::memcpy(bytes.data(), "_DMI_", 5);
        put(bytes, 0x06, tableSize, 2);
        put(bytes, 0x08, DumpTableOffset, 4);
        put(bytes, 0x0C, _structures.size(), 2);
        bytes[0x0E] = static_cast<unsigned char>(_major << 4 | _minor);
        setChecksum(bytes, 0, 0x0F, 0x05);
    } else {
        std::memcpy(bytes.data(), "_SM_", 4);
        bytes[0x05] = 0x1F; // length
        bytes[0x06] = _major;
        bytes[0x07] = _minor;
        std::memcpy(bytes.data() + 0x10, "_DMI_", 5);
        put(bytes, 0x16, tableSize, 2);
        put(bytes, 0x18, DumpTableOffset, 4);
        put(bytes, 0x1C, _structures.size(), 2);
        bytes[0x1E] = static_cast<unsigned char>(_major << 4 | _minor);
        setChecksum(bytes, 0x10, 0x0F, 0x15);
        setChecksum(bytes, 0, 0x1F, 0x04);
    }
    return bytes;
}

std::vector<unsigned char> TableBuilder::dump() const
{
    const std::vector<unsigned char> table = structures();
    std::vector<unsigned char> bytes = entryPoint(table.size());
    bytes.insert(bytes.end(), table.begin(), table.end());
    return bytes;
}
