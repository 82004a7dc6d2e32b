#include "tools/formats/Printable.h"

#include <algorithm>
#include <cstdio>

namespace VQ::Tool
{

namespace
{
bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

// The length of the well-formed UTF-8 character at `position`; 0 where there is none.
std::size_t characterLength(const std::string& text, std::size_t position)
{
    const auto byte = [&text, position](std::size_t i) { return static_cast<unsigned char>(text[position + i]); };
    const unsigned char lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (position + length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if (!isContinuation(byte(i)))
            return 0;
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool surrogate = lead == 0xED && byte(1) > 0x9F;
    const bool tooLarge = lead == 0xF4 && byte(1) > 0x8F;
    return overlong || surrogate || tooLarge ? 0 : length;
}

std::string escaped(unsigned char value)
{
    char text[5];
    std::snprintf(text, sizeof text, "\\x%02X", value);
    return text;
}

// The marks, embeddings, overrides and isolates of the Unicode bidirectional algorithm; their escaped form, else empty.
std::string escapedDirection(const std::string& character)
{
    static constexpr struct
    {
        const char* first;
        const char* last;
        unsigned code; // of the first; the ranges are of one leading byte pair
    } Ranges[] = {{"\xD8\x9C", "\xD8\x9C", 0x061C},
                  {"\xE2\x80\x8E", "\xE2\x80\x8F", 0x200E},
                  {"\xE2\x80\xAA", "\xE2\x80\xAE", 0x202A},
                  {"\xE2\x81\xA6", "\xE2\x81\xA9", 0x2066}};
    for (const auto& range : Ranges) {
        if (character < range.first || character > range.last)
            continue;
        char text[7];
        const std::string first = range.first;
        std::snprintf(text, sizeof text, "\\u%04X", range.code + (character.back() - first.back()));
        return text;
    }
    return "";
}
}

std::string printable(const std::string& utf8)
{
    // Nearly all text: the names and codes of the classes, and what firmware writes in ASCII.
    if (std::all_of(utf8.begin(), utf8.end(), [](unsigned char byte) { return byte >= 0x20 && byte < 0x7F; }))
        return utf8;
    std::string safe;
    for (std::size_t position = 0; position < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[position]);
        const std::size_t length = characterLength(utf8, position);
        const auto second = length == 2 ? static_cast<unsigned char>(utf8[position + 1]) : 0;
        if (length == 0 || lead < 0x20 || lead == 0x7F)
            safe += escaped(lead);
        else if (lead == 0xC2 && second < 0xA0) // C1: U+0080 to U+009F
            safe += escaped(static_cast<unsigned char>(second));
        else {
            const std::string character = utf8.substr(position, length);
            const std::string direction = escapedDirection(character);
            safe += direction.empty() ? character : direction;
        }
        position += length == 0 ? 1 : length;
    }
    return safe;
}

}
