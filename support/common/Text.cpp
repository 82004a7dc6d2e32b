#include "support/common/Text.h"

#include "support/common/Unicode.h"

#include <cstddef>
#include <cstdint>

namespace VQ
{

namespace
{
struct Sequence
{
    std::size_t length;     // in bytes, the first one included
    std::uint32_t leadBits; // the character's bits that the first byte carries
    std::uint32_t smallest; // a smaller character in this many bytes is an overlong form
};

// What a byte says of the sequence that it begins; length 0 for a byte that begins none.
Sequence sequenceOf(unsigned char lead)
{
    if (lead < 0x80)
        return {1, lead, 0};
    if ((lead & 0xE0) == 0xC0)
        return {2, lead & 0x1Fu, 0x80};
    if ((lead & 0xF0) == 0xE0)
        return {3, lead & 0x0Fu, 0x800};
    if ((lead & 0xF8) == 0xF0)
        return {4, lead & 0x07u, 0x10000};
    return {0, 0, 0};
}

// Takes the character at `position` and moves past it.
std::uint32_t nextCharacter(const std::string& text, std::size_t& position)
{
    const auto byteAt = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::uint32_t asLatin1 = byteAt(position);
    const Sequence sequence = sequenceOf(byteAt(position));
    const std::size_t end = position + sequence.length;
    std::uint32_t character = sequence.leadBits;
    bool valid = sequence.length > 0 && end <= text.size();
    for (std::size_t i = position + 1; valid && i < end; ++i) {
        valid = (byteAt(i) & 0xC0) == 0x80;
        character = (character << 6) | (byteAt(i) & 0x3Fu);
    }
    if (!valid || character < sequence.smallest || !isCharacter(character)) {
        ++position;
        return asLatin1;
    }
    position = end;
    return character;
}

void appendUtf8(std::string& text, std::uint32_t character)
{
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}
}

std::string make_string(const char* text)
{
    return text ? std::string(text) : std::string();
}

std::string make_string(const std::wstring& text)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t unit : text)
        appendUtf8(narrow, characterOf(static_cast<std::uint32_t>(unit)));
    return narrow;
}

std::wstring make_wstring(const std::string& text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
        wide += static_cast<wchar_t>(nextCharacter(text, position));
    return wide;
}

std::string trimBlanks(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return text;
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}
