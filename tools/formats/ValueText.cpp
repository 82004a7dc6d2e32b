#include "tools/formats/ValueText.h"

#include "tools/formats/Printable.h"
#include "tools/knowledge/DateTimes.h"
#include "tools/knowledge/PropertyNotes.h"

namespace VQ::Tool
{

namespace
{
std::string escaped(const std::string& text, char escapedToo)
{
    std::string result;
    for (const char c : text) {
        if (c == '\\' || c == escapedToo)
            result += '\\';
        result += c;
    }
    return result;
}

// What the tools write of a value that is no text.
bool looksLikeAWord(const std::string& text)
{
    return text == "(null)" || text == "(empty list)";
}

struct Plain
{
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::uint64_t value) const { return std::to_string(value); }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(const std::string& value) const { return quotedText(value); }
    std::string operator()(const DateTimeText& value) const { return printable(value.text); }
};
}

std::string quotedText(const std::string& text)
{
    const bool inQuotes =
        text.empty() || text.front() == ' ' || text.back() == ' ' || text.front() == '"' || looksLikeAWord(text);
    // Before the escapes of printable() come in, which have a single backslash.
    return inQuotes ? '"' + printable(escaped(text, '"')) + '"' : printable(escaped(text, '\\'));
}

std::string valueText(const std::string& className, const std::string& property, const Scalar& value, bool plainDates)
{
    const std::string plain = std::visit(Plain(), value);
    if (const auto* date = std::get_if<DateTimeText>(&value)) {
        const std::string readable = readableDateTime(date->text, isDayOnly(property));
        return readable.empty() ? plain : plainDates ? readable : plain + " (" + readable + ")";
    }
    const auto* number = std::get_if<std::uint64_t>(&value);
    const std::string meaning = number ? meaningOf(className, property, *number) : "";
    const std::string unit = unitOf(className, property);
    return plain + (unit.empty() ? "" : " " + unit) + (meaning.empty() ? "" : " (" + meaning + ")");
}

}
