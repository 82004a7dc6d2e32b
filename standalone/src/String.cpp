#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <algorithm>
#include <cstring>

namespace Pegasus
{
namespace
{
const Char16 Zero;
constexpr Uint32 ReplacementCharacter = 0xFFFD;

Uint16 lowered(Uint16 unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<Uint16>(unit + ('a' - 'A')) : unit;
}

/// The difference of the first units that differ, or of the lengths.
template <class Fold> int compareUnits(const Char16* a, Uint32 sizeOfA, const Char16* b, Uint32 sizeOfB, Fold fold)
{
    const Uint32 common = std::min(sizeOfA, sizeOfB);
    for (Uint32 i = 0; i < common; ++i) {
        const int difference = fold(a[i]) - fold(b[i]);
        if (difference != 0)
            return difference;
    }
    return sizeOfA < sizeOfB ? -1 : sizeOfA > sizeOfB;
}

/// The number of bytes that the UTF-8 character starting with `lead` has; 0 where none starts so.
Uint32 sequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Decodes the character of `length` bytes at `bytes`. False where it is not one, or a longer form than needed.
bool decode(const unsigned char* bytes, Uint32 length, Uint32& character)
{
    static const unsigned char LeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    static const Uint32 Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    character = bytes[0] & LeadBits[length];
    for (Uint32 i = 1; i < length; ++i) {
        if ((bytes[i] & 0xC0) != 0x80)
            return false;
        character = character << 6 | (bytes[i] & 0x3F);
    }
    return character >= Smallest[length] && character <= 0x10FFFF;
}

/// What no text may hold: half a surrogate pair written as UTF-8, and the last two units, which are no characters.
bool isForbidden(Uint32 character)
{
    return (character >= 0xD800 && character <= 0xDFFF) || character == 0xFFFE || character == 0xFFFF;
}

void encode(Uint32 character, std::string& utf8)
{
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
        return;
    }
    const int length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    utf8 += static_cast<char>((0xF00 >> length & 0xF0) | character >> 6 * (length - 1));
    for (int i = length - 2; i >= 0; --i)
        utf8 += static_cast<char>(0x80 | (character >> 6 * i & 0x3F));
}

bool isHighSurrogate(Uint16 unit)
{
    return (unit & 0xFC00) == 0xD800;
}
bool isLowSurrogate(Uint16 unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

void requirePointer(const void* text)
{
    if (!text)
        throw Exception("null pointer given as text");
}
}

const String String::EMPTY;

String::String(const char* text)
{
    requirePointer(text);
    assignUtf8(text, static_cast<Uint32>(std::strlen(text)));
}

String::String(const char* text, Uint32 size)
{
    requirePointer(text);
    assignUtf8(text, size);
}

String::String(const Char16* text, Uint32 size)
{
    requirePointer(text);
    append(text, size);
}

Shared<String::Text> String::Text::make(Uint32 capacity)
{
    void* const memory = ::operator new(sizeof(Text) + capacity * sizeof(Char16));
    return Shared<Text>(::new (memory) Text(capacity));
}

Shared<String::Text> String::own(Uint32 capacity)
{
    if (text_.isOwn() && capacity <= text_->capacity)
        return Shared<Text>();
    Shared<Text> copy = Text::make(capacity <= size() ? capacity : std::max(capacity, 2 * size()));
    copy->size = size();
    std::copy_n(data(), size() + 1, copy->units);
    std::swap(text_, copy);
    return copy;
}

void String::assignUtf8(const char* text, Uint32 size)
{
    if (size == 0)
        return;
    const unsigned char* const bytes = reinterpret_cast<const unsigned char*>(text);
    own(size);
    Char16* unit = text_->units;
    for (Uint32 i = 0; i < size;) {
        if (bytes[i] < 0x80) {
            *unit++ = bytes[i++];
            continue;
        }
        const Uint32 length = sequenceLength(bytes[i]);
        Uint32 character = 0;
        if (length == 0 || length > size - i || !decode(bytes + i, length, character))
            throw Exception(String("no UTF-8 at byte ") + String(std::to_string(i).c_str()) + String(" of a text"));
        if (character >= 0x10000) {
            *unit++ = static_cast<Uint16>(0xD800 + ((character - 0x10000) >> 10));
            *unit++ = static_cast<Uint16>(0xDC00 + (character & 0x3FF));
        } else {
            *unit++ = static_cast<Uint16>(isForbidden(character) ? ReplacementCharacter : character);
        }
        i += length;
    }
    *unit = Zero;
    text_->size = static_cast<Uint32>(unit - text_->units);
}

const Char16* String::data() const
{
    return text_ ? text_->units : &Zero;
}

CString String::getCString() const
{
    const Char16* const units = data();
    if (std::all_of(units, units + size(), [](Uint16 unit) { return unit < 0x80; })) // nearly all text
        return CString(std::string(units, units + size()));
    std::string utf8;
    utf8.reserve(size());
    for (Uint32 i = 0; i < size(); ++i) {
        Uint32 character = units[i];
        // The zero unit at the end makes the look ahead safe.
        if (isHighSurrogate(units[i]) && isLowSurrogate(units[i + 1]))
            character = 0x10000 + ((character & 0x3FF) << 10 | (units[++i] & 0x3FF));
        encode(character, utf8);
    }
    return CString(std::move(utf8));
}

Char16& String::operator[](Uint32 index)
{
    if (index > size())
        throw IndexOutOfBoundsException();
    own(size());
    return text_->units[index];
}

const Char16& String::operator[](Uint32 index) const
{
    if (index > size())
        throw IndexOutOfBoundsException();
    return data()[index];
}

String& String::append(const Char16& unit)
{
    return append(&unit, 1);
}

String& String::append(const Char16* text, Uint32 size)
{
    if (size == 0)
        return *this;
    const Shared<Text> before = own(this->size() + size); // `text` may be part of it
    std::copy_n(text, size, text_->units + text_->size);
    text_->size += size;
    text_->units[text_->size] = Zero;
    return *this;
}

String& String::append(const String& text)
{
    return append(text.data(), text.size());
}

String String::subString(Uint32 index, Uint32 length) const
{
    if (index >= size())
        return String();
    return String(data() + index, std::min(length, size() - index));
}

Uint32 String::find(Char16 unit) const
{
    const Char16* const end = data() + size();
    const Char16* const found = std::find(data(), end, unit);
    return found == end ? PEG_NOT_FOUND : static_cast<Uint32>(found - data());
}

void String::toLower()
{
    own(size());
    for (Uint32 i = 0; i < size(); ++i)
        text_->units[i] = lowered(text_->units[i]);
}

int String::compare(const String& a, const String& b)
{
    return compareUnits(a.data(), a.size(), b.data(), b.size(), [](Uint16 unit) { return unit; });
}

int String::compareNoCase(const String& a, const String& b)
{
    return compareUnits(a.data(), a.size(), b.data(), b.size(), lowered);
}

Boolean String::equal(const String& a, const String& b)
{
    return a.size() == b.size() && (a.data() == b.data() || compare(a, b) == 0);
}

Boolean String::equalNoCase(const String& a, const String& b)
{
    return a.size() == b.size() && (a.data() == b.data() || compareNoCase(a, b) == 0);
}

String operator+(const String& a, const String& b)
{
    return String(a).append(b);
}

Boolean operator==(const String& a, const String& b)
{
    return String::equal(a, b);
}
}
