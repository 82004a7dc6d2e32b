#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Builds SMBIOS tables for tests, structure by structure:
///
///     TableBuilder().type(7).string(0x04, "L1").byte(0x0F, 5).type(127).length(4)
///
/// Each call of `type` begins a structure, the calls after it fill it in. The formatted area reaches as far as the
/// fields that were set, and is never shorter than the header.
class TableBuilder
{
public:
    TableBuilder& version(std::uint8_t major, std::uint8_t minor); ///< of the entry point; 2.4 unless told
    TableBuilder& form64();  ///< a 64-bit entry point (`_SM3_`) in place of the 32-bit one
    TableBuilder& formDmi(); ///< an entry point of version 2.0 (`_DMI_`) in its place

    TableBuilder& type(std::uint8_t type); ///< begins a structure; handles count up from 0
    TableBuilder& handle(std::uint16_t handle);
    TableBuilder& length(std::uint8_t length); ///< of the formatted area, at the least
    TableBuilder& byte(std::uint8_t offset, std::uint8_t value);
    TableBuilder& word(std::uint8_t offset, std::uint16_t value);
    TableBuilder& string(const std::string& text);                      ///< adds a string to the set
    TableBuilder& string(std::uint8_t offset, const std::string& text); ///< the same, its number into a field
    TableBuilder& raw(const std::vector<unsigned char>& bytes); ///< these bytes as they are, after the last structure

    std::vector<unsigned char> structures() const; ///< the structure table
    std::vector<unsigned char> dump() const;       ///< entry point and table, in the form of dmidecode --dump-bin

private:
    struct Structure
    {
        std::vector<unsigned char> formatted;
        std::vector<std::string> strings;
        std::vector<unsigned char> raw;
    };
    std::vector<unsigned char> entryPoint(std::size_t tableSize) const;

    std::uint8_t _major = 2;
    std::uint8_t _minor = 4;
    enum class Form
    {
        Bits32,
        Bits64,
        Dmi
    } _form = Form::Bits32;
    std::vector<Structure> _structures;
};
