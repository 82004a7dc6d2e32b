#include "tools/vqfleet/XmlText.h"

#include <cstdint>
#include <stdexcept>

namespace VQ::Tool
{

namespace
{
constexpr std::size_t LongestReference = 12; // "&#x0010FFFF;" with its ends
constexpr std::uint32_t LastCharacter = 0x10FFFF;
constexpr std::uint32_t Replacement = 0xFFFD;

bool isHigh(std::uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLow(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

void append(std::string& text, std::uint32_t character)
{
    const auto byte = [&text](std::uint32_t value) { text += static_cast<char>(value); };
    const auto further = [&](unsigned shift) { byte(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | character >> 6);
        further(0);
    } else if (character < 0x10000) {
        byte(0xE0 | character >> 12);
        further(6);
        further(0);
    } else {
        byte(0xF0 | character >> 18);
        further(12);
        further(6);
        further(0);
    }
}

[[noreturn]] void refuse(const std::string& raw, std::size_t at)
{
    throw std::runtime_error("\"" + raw.substr(at, LongestReference) + "\" stands for no character");
}

std::uint32_t numberOf(const std::string& digits, unsigned base, const std::string& raw, std::size_t at)
{
    static const std::string Digits = "0123456789abcdef";
    std::uint32_t number = 0;
    for (char c : digits) {
        const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
        const std::size_t value = Digits.find(lower);
        if (value >= base)
            refuse(raw, at);
        number = number * base + static_cast<std::uint32_t>(value);
        if (number > LastCharacter)
            refuse(raw, at);
    }
    if (digits.empty())
        refuse(raw, at);
    return number;
}

// The character that the reference at `at` names, which is moved behind it.
std::uint32_t takeReference(const std::string& raw, std::size_t& at)
{
    const std::size_t end = raw.find(';', at);
    if (end == std::string::npos || end - at >= LongestReference)
        refuse(raw, at);
    const std::string name = raw.substr(at + 1, end - at - 1);
    const std::size_t begin = at;
    at = end + 1;
    if (name.compare(0, 2, "#x") == 0)
        return numberOf(name.substr(2), 16, raw, begin);
    if (name.compare(0, 1, "#") == 0)
        return numberOf(name.substr(1), 10, raw, begin);
    if (name == "lt")
        return '<';
    if (name == "gt")
        return '>';
    if (name == "amp")
        return '&';
    if (name == "quot")
        return '"';
    if (name == "apos")
        return '\'';
    refuse(raw, begin);
}

// Bytes of the character that begins at `at`; 0 where they are no UTF-8.
std::size_t lengthAt(const std::string& text, std::size_t at)
{
    const auto byte = [&text](std::size_t i) -> unsigned { return i < text.size() ? text[i] & 0xFFu : 0u; };
    const unsigned first = byte(at);
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(at + i) & 0xC0) != 0x80)
            return 0;
    const unsigned second = byte(at + 1);
    const bool tooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool noCharacter = (first == 0xED && second >= 0xA0) || (first == 0xF4 && second >= 0x90);
    return tooLong || noCharacter ? 0 : length;
}
}

std::string escapedXml(const std::string& text)
{
    std::string escaped;
    for (char c : text) {
        if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else if (c == '&')
            escaped += "&amp;";
        else if (c == '"')
            escaped += "&quot;";
        else if (c >= 0 && c < 0x20)
            escaped += "&#" + std::to_string(static_cast<int>(c)) + ";";
        else
            escaped += c;
    }
    return escaped;
}

std::string unescapedXml(const std::string& raw)
{
    std::string text;
    for (std::size_t at = 0; at < raw.size();) {
        if (raw[at] != '&') {
            text += raw[at++];
            continue;
        }
        std::uint32_t character = takeReference(raw, at);
        if (isHigh(character) && raw.compare(at, 2, "&#") == 0) {
            std::size_t behind = at;
            const std::uint32_t low = takeReference(raw, behind);
            if (isLow(low)) {
                character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
                at = behind;
            }
        }
        append(text, isHigh(character) || isLow(character) ? Replacement : character);
    }
    return text;
}

std::string validUtf8(const std::string& text)
{
    std::string valid;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = lengthAt(text, at);
        if (length == 0)
            append(valid, text[at++] & 0xFFu);
        else
            valid.append(text, at, length);
        at += length;
    }
    return valid;
}

}
