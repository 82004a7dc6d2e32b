#include "Show.h"

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/String.h>

#include <initializer_list>

using namespace Pegasus;

namespace
{
/// The UTF-16 units of a text, up to and with the zero after them.
std::string units(const String& text)
{
    std::string all;
    for (Uint32 i = 0; i <= text.size(); ++i)
        all += (i ? " " : "") + shown(text[i]);
    return all;
}

void takesUtf8()
{
    for (const char* bytes : {"",
                              "a",
                              "\x01",
                              "\x7F",
                              "\xC2\x80",
                              "\xDF\xBF",
                              "\xE0\xA0\x80",
                              "\xE2\x82\xAC",
                              "\xEF\xBF\xBD",
                              "\xED\x9F\xBF",
                              "\xED\xA0\x80",
                              "x\xED\xBF\xBFy",
                              "\xEE\x80\x80",
                              "\xEF\xBF\xBE",
                              "\xEF\xBF\xBF",
                              "\xF0\x90\x80\x80",
                              "\xF0\x9F\x98\x80",
                              "\xF4\x8F\xBF\xBF",
                              "a\xC3\xA9z",
                              "tab\tand\nline"}) {
        print("units of String " + quoted(bytes), [&] { return units(String(bytes)); });
        print("again as UTF-8", [&] { return shown(String(bytes)); });
    }
}

void refusesOtherBytes()
{
    for (const char* bytes : {"caf\xE9",
                              "\x80",
                              "\xBF",
                              "\xC0\x80",
                              "\xC1\xBF",
                              "\xC3",
                              "\xC3z",
                              "\xC3\xC3",
                              "\xE0\x80\x80",
                              "\xE0\x9F\xBF",
                              "\xE2\x82",
                              "\xE2\x82z",
                              "\xE2",
                              "\xF0\x8F\xBF\xBF",
                              "\xF0\x9F\x98",
                              "\xF0\x9F",
                              "\xF4\x90\x80\x80",
                              "\xF5\x80\x80\x80",
                              "\xF8\x88\x80\x80\x80",
                              "\xFE",
                              "\xFF"})
        print("String " + quoted(bytes), [&] { return shown(String(bytes)); });
}

void builds()
{
    SHOW(String());
    SHOW(String::EMPTY);
    SHOW(String().size());
    SHOW(String(static_cast<const char*>(nullptr)));
    SHOW(String(static_cast<const char*>(nullptr), 3));
    SHOW(String(static_cast<const Char16*>(nullptr), 3));
    SHOW(String("abcdef", 3));
    SHOW(String("abcdef", 0));
    SHOW(units(String("a\0b", 3)).c_str());
    SHOW(String("\xC3\xA9", 1));
    const Char16 given[] = {Uint16('a'), Uint16(0xE9), Uint16(0), Uint16(0x20AC)};
    SHOW(units(String(given, 4)).c_str());
    SHOW(String(given, 2));
    SHOW(String(given, 0));
}

void grows()
{
    String text("ab");
    DO(text.append(String("cd")));
    DO(text.append(Char16('e')));
    DO(text.append(String()));
    DO(text.append(text));
    DO(text.append(text[0]));
    SHOW(text);
    String empty;
    DO(empty.append(Char16(0x20AC)));
    SHOW(empty);
    SHOW(String("a") + String("b"));
    SHOW(String() + String());

    String original("abc");
    String copy(original);
    String assigned;
    assigned = original;
    DO(original[0] = Char16('x'));
    DO(copy.append(Char16('d')));
    DO(assigned.toLower());
    SHOW(original);
    SHOW(copy);
    SHOW(assigned);
    DO(copy = copy);
    SHOW(copy);
}

void tellsUnits()
{
    String text("ab");
    const String constant("ab");
    SHOW(text[1]);
    SHOW(text[2]);
    SHOW(text[3]);
    SHOW(constant[1]);
    SHOW(constant[2]);
    SHOW(constant[3]);
    SHOW(String()[0]);
    SHOW(String()[1]);
    SHOW(Char16());
    SHOW(Char16('a') == Char16(97));
    SHOW(Char16('a') != Char16('A'));
}

void takesParts()
{
    const String text("abcde");
    SHOW(text.subString(1, 2));
    SHOW(text.subString(1));
    SHOW(text.subString(0, 0));
    SHOW(text.subString(4, 1));
    SHOW(text.subString(4, 100));
    SHOW(text.subString(5, 1));
    SHOW(text.subString(6));
    SHOW(text.subString(PEG_NOT_FOUND));
    SHOW(text.find(Char16('a')));
    SHOW(text.find(Char16('e')));
    SHOW(text.find(Char16('z')) == PEG_NOT_FOUND);
    SHOW(String("abab").find(Char16('b')));
    SHOW(String().find(Char16('a')) == PEG_NOT_FOUND);
}

const char* sign(int order)
{
    return order < 0 ? "before" : order > 0 ? "after" : "equal";
}

void compares()
{
    const struct
    {
        const char* first;
        const char* second;
    } pairs[] = {{"", ""},
                 {"", "a"},
                 {"a", "a"},
                 {"a", "A"},
                 {"a", "b"},
                 {"B", "a"},
                 {"a", "ab"},
                 {"b", "ab"},
                 {"SystemProvider", "SYSTEMPROVIDER"},
                 {"SystemProvider", "SYSTEMPROVIDERS"},
                 {"[", "{"},
                 {"@", "`"},
                 {"a_", "aB"},
                 {"\xC3\xA9", "\xC3\x89"},
                 {"z", "\xC3\xA9"},
                 {"\xEF\xBF\xBD", "\xF0\x90\x80\x80"}};
    for (const auto& pair : pairs) {
        const String a(pair.first);
        const String b(pair.second);
        print("compare " + quoted(pair.first) + " with " + quoted(pair.second), [&] {
            return std::string(sign(String::compare(a, b))) + ", back " + sign(String::compare(b, a)) +
                   ", without case " + sign(String::compareNoCase(a, b)) + ", equal " + shown(String::equal(a, b)) +
                   ", == " + shown(a == b) + ", equal without case " + shown(String::equalNoCase(a, b));
        });
    }
    for (const char* bytes : {"MiXed 09_[]", "", "\xC3\x89\xC3\xA9"})
        print("toLower of " + quoted(bytes), [&] {
            String text(bytes);
            text.toLower();
            return shown(text);
        });
}
}

void showStrings()
{
    section("String, Char16");
    builds();
    takesUtf8();
    refusesOtherBytes();
    grows();
    tellsUnits();
    takesParts();
    compares();
}
