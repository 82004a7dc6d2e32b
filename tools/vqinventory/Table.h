#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace VQ::Tool
{

/// What an SMBIOS table announces and what of it can be read, and what it makes the module do. Read by the code that
/// the module reads it with, before the module is asked.
struct Table
{
    std::string origin;                 ///< the file that the entry point comes from
    std::optional<std::string> failure; ///< why it can't be read; nothing below counts then
    bool present = false;               ///< false on a machine without SMBIOS; nothing below counts then
    unsigned majorVersion = 0;
    unsigned minorVersion = 0;

    std::optional<std::uint32_t> announcedStructures; ///< the 64-bit entry point announces none
    std::size_t announcedBytes = 0;                   ///< of the 64-bit entry point: a maximum
    std::size_t givenBytes = 0;                       ///< what is there
    std::size_t structures = 0;                       ///< what was read
    std::size_t bytes = 0;                            ///< what they take
    bool endMarked = false;                           ///< the last structure read is the end-of-table structure
    std::string obstacle; ///< what stands where reading stopped and is no structure; empty when nothing does

    std::string oddOemString;      ///< an OEM string with a bracketed part of one character; empty when there is none
    std::uint64_t boards = 0;      ///< structures of type 2
    std::uint64_t options = 0;     ///< configuration options that the structures of type 12 announce
    std::uint64_t optionBytes = 0; ///< their texts
    bool endlessOptions = false;   ///< a structure of type 12 announces 255 of them
    std::optional<unsigned> endlessLanguages; ///< the type of the structure that is read as announcing 255 languages
};

/// The table of this machine, or of a file in the form of `dmidecode --dump-bin`. What goes wrong is in the result.
Table readTable(const std::optional<std::string>& dumpFile);

/// "25 of 30 structures, 1000 of 1234 bytes"
std::string extentOf(const Table& table);

/// What is missing of a table that ends before what it announces, and why; empty where nothing is.
std::string earlyEnd(const Table& table);

/// What the failure of a class means to who must do something about it, to be put behind its text; mostly empty.
std::string remedyOf(const std::string& className, const std::string& failure, const Table& table);

/// What is wrong with this machine's memory figures; empty where they are right.
std::string memoryNote();

}
