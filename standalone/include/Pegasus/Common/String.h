#pragma once

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Shared.h>

#include <string>

namespace Pegasus
{
/// The UTF-8 form of a String; the text lives as long as this object.
class PEGASUS_EXPORT CString
{
public:
    explicit CString(std::string text) : text_(std::move(text)) {}

    operator const char*() const { return text_.c_str(); }

private:
    std::string text_;
};

/// UTF-16 text with value semantics: a copy never sees the original's later changes. Copies share their text until one
/// of them changes.
/// Comparison without case folds the ASCII letters only.
class PEGASUS_EXPORT String
{
public:
    static const String EMPTY;

    String() = default;
    /// From UTF-8 text ending in a zero byte. Throws Exception for a null pointer and for anything that is not UTF-8;
    /// half a surrogate pair, U+FFFE and U+FFFF become the replacement character.
    String(const char* text);
    /// From `size` bytes of UTF-8, zero bytes included; throws as above.
    String(const char* text, Uint32 size);
    /// From `size` UTF-16 units, taken as they are. Throws Exception for a null pointer.
    String(const Char16* text, Uint32 size);

    /// The number of UTF-16 units.
    Uint32 size() const { return text_ ? text_->size : 0; }
    /// The text as UTF-8.
    CString getCString() const;

    /// The unit at `index`, or the final zero at `size()`; throws IndexOutOfBoundsException beyond it.
    Char16& operator[](Uint32 index);
    const Char16& operator[](Uint32 index) const;

    String& append(const Char16& unit);
    String& append(const String& text);

    /// At most `length` units from `index` on; empty where `index` lies beyond the text.
    String subString(Uint32 index, Uint32 length = PEG_NOT_FOUND) const;
    /// The first position of `unit`, or PEG_NOT_FOUND.
    Uint32 find(Char16 unit) const;
    void toLower();

    /// Negative, zero or positive as `a` is before, equal to or after `b` by UTF-16 units.
    static int compare(const String& a, const String& b);
    static int compareNoCase(const String& a, const String& b);
    static Boolean equal(const String& a, const String& b);
    static Boolean equalNoCase(const String& a, const String& b);

private:
    /// The units with a zero unit after them, all in one piece of memory.
    struct Text : Counted
    {
        const Uint32 capacity;
        Uint32 size = 0;
        Char16 units[1];

        static Shared<Text> make(Uint32 capacity);
        // make() asks for more than the size of a Text, so the size must not be told when it is given back.
        // NOLINTNEXTLINE(misc-new-delete-overloads,cert-dcl54-cpp)
        static void operator delete(void* memory) { ::operator delete(memory); }

    private:
        explicit Text(Uint32 room) : capacity(room) {}
    };

    void assignUtf8(const char* text, Uint32 size);
    /// Makes the text this string's own, with room for that many units. Returns what it was copied from.
    Shared<Text> own(Uint32 capacity);
    String& append(const Char16* text, Uint32 size);
    /// The units, followed by a zero unit.
    const Char16* data() const;

    Shared<Text> text_; // null for a text that was always empty
};

PEGASUS_EXPORT String operator+(const String& a, const String& b);
PEGASUS_EXPORT Boolean operator==(const String& a, const String& b);
}
