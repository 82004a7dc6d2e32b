#include "tools/formats/Formats.h"
#include "tools/formats/Printable.h"

#include <cstdio>

namespace VQ::Tool
{

namespace
{
// A control character takes the form with four digits: a shorter one would swallow a digit that follows it.
std::string escaped(unsigned char control)
{
    switch (control) {
    case '\b':
        return "\\b";
    case '\t':
        return "\\t";
    case '\n':
        return "\\n";
    case '\f':
        return "\\f";
    case '\r':
        return "\\r";
    default:
        char text[7];
        std::snprintf(text, sizeof text, "\\x%04X", control);
        return text;
    }
}

// Characters beyond ASCII stand as they are, in UTF-8: MOF compilers are known to misread their escaped form. Not so
// the control characters among them, C1 (U+0080 to U+009F), which a terminal obeys.
std::string quoted(const std::string& text)
{
    std::string result = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const auto byte = static_cast<unsigned char>(c);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0xFF);
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (byte < 0x20 || byte == 0x7F) {
            result += escaped(byte);
        } else if (byte == 0xC2 && next < 0xA0) {
            result += escaped(next);
            ++i;
        } else {
            result += c;
        }
    }
    return result + '"';
}

struct Literal
{
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::uint64_t value) const { return std::to_string(value); }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(const std::string& value) const { return quoted(value); }
    std::string operator()(const DateTimeText& value) const { return quoted(value.text); }
};

std::string literal(const Value& value)
{
    if (value.isNull)
        return "NULL";
    if (!value.isArray)
        return std::visit(Literal(), value.elements.at(0));
    std::string list;
    for (const Scalar& element : value.elements)
        list += (list.empty() ? "" : ", ") + std::visit(Literal(), element);
    return "{" + list + "}";
}

std::string declaration(const Instance& instance)
{
    std::string text = "instance of " + printable(instance.className) + " {\n";
    for (const Property& property : instance.properties) {
        // The language has no empty list, and NULL would say something else.
        const bool emptyList = property.value.isArray && !property.value.isNull && property.value.elements.empty();
        const std::string name = printable(property.name);
        text += emptyList ? "    // " + name + " is an empty list.\n"
                          : "    " + name + " = " + literal(property.value) + ";\n";
    }
    return text + "};\n";
}
}

std::string machinesAsMof(const std::vector<Machine>& machines, const Setting&)
{
    std::string text;
    for (const Machine& machine : machines) {
        if (machines.size() > 1)
            text += (text.empty() ? "// " : "\n// ") + printable(machine.name) + "\n\n";
        bool first = true;
        for (const Answer& answer : machine.answers) {
            for (const Instance& instance : answer.instances) {
                text += (first ? "" : "\n") + declaration(instance);
                first = false;
            }
        }
    }
    return text;
}

}
