#include "tests/exhaustive/Reading.h"

using Lines = std::vector<std::string>;

namespace
{
// The fields of a structure: 0 or no text where the formatted area does not reach.
class Fields
{
public:
    explicit Fields(const Structure& structure) : _structure(structure) {}

    unsigned byte(std::size_t offset) const
    {
        return offset < _structure.formatted.size() ? _structure.formatted[offset] : 0;
    }
    unsigned word(std::size_t offset) const
    {
        return offset + 1 < _structure.formatted.size() ? byte(offset) + 256 * byte(offset + 1) : 0;
    }
    std::string textAt(std::size_t offset) const { return text(byte(offset)); }
    std::string text(std::size_t number) const
    {
        return number >= 1 && number <= _structure.texts.size() ? _structure.texts[number - 1] : "";
    }
    bool hasTextAt(std::size_t offset) const { return byte(offset) >= 1 && byte(offset) <= _structure.texts.size(); }

private:
    const Structure& _structure;
};

std::string number(unsigned long long value)
{
    return std::to_string(value);
}

std::string withoutBlanks(std::string text)
{
    while (text.size() > 1 && text.front() == ' ')
        text.erase(0, 1);
    while (text.size() > 1 && text.back() == ' ')
        text.pop_back();
    return text;
}

// The languages are those of the structure found last.
void addLanguages(Lines& lines, const Fields& fields)
{
    for (unsigned i = 1; i <= fields.byte(0x04); ++i)
        lines.push_back("language " + fields.text(i));
    lines.push_back("current language " + fields.textAt(0x15));
}

// The texts of the test are "06/23/2005" or no date at all, of which the year is 0, which is 2000.
std::string releaseDate(const Fields& fields)
{
    if (!fields.hasTextAt(0x08))
        return "0-0-0";
    return fields.textAt(0x08) == "06/23/2005" ? "2005-6-23" : "2000-0-0";
}

Lines bios(const Fields& fields)
{
    const unsigned long long segment = fields.word(0x06);
    Lines lines = {"manufacturer " + fields.textAt(0x04),
                   "version " + fields.textAt(0x05),
                   "build number " + fields.textAt(0x05),
                   "serial number " + fields.textAt(0x07),
                   "released " + releaseDate(fields),
                   "from " + number(segment),
                   "to " + number(segment + 16 * (65536 - segment))};
    addLanguages(lines, fields);
    return lines;
}

Lines system(const Fields& fields)
{
    Lines lines = {"manufacturer ",  "version ", "build number ", "serial number " + fields.textAt(0x07),
                   "released 0-0-0", "from 0",   "to 1048576"};
    addLanguages(lines, fields);
    lines.push_back("model ");
    lines.push_back("description " + fields.textAt(0x05));
    return lines;
}

Lines languages(const Fields& fields)
{
    Lines lines = {"manufacturer ",  "version ", "build number ", "serial number ",
                   "released 0-0-0", "from 0",   "to 1048576"};
    addLanguages(lines, fields);
    return lines;
}

Lines board(const Fields& fields)
{
    return {
        "manufacturer " + fields.textAt(0x04),  "product " + fields.textAt(0x05),   "version ",
        "serial number " + fields.textAt(0x07), "asset tag " + fields.textAt(0x08), "location " + fields.textAt(0x0A)};
}

Lines chassis(const Fields& fields)
{
    return {"manufacturer " + fields.textAt(0x04), "version " + fields.textAt(0x06),
            "serial number " + fields.textAt(0x07), "asset tag " + fields.textAt(0x08)};
}

unsigned kilobytes(unsigned size)
{
    return size >= 0x8000 ? (size - 0x8000) * 64 : size;
}

Lines cache(const Fields& fields)
{
    const unsigned configuration = fields.word(0x05);
    const unsigned level = configuration % 8;
    const unsigned policies[] = {4, 3, 5, 2};
    // The first byte of a text is the number of none, so it does not matter where the formatted area ends.
    return {"designation " + fields.textAt(0x04),
            "level " + number(level > 2 ? 0 : level + 3),
            "location " + number(configuration / 32 % 4),
            "write policy " + number(policies[configuration / 256 % 4]),
            "maximum " + number(kilobytes(fields.word(0x07))),
            "installed " + number(kilobytes(fields.word(0x09))),
            "blocks " + number(fields.word(0x09) % 0x8000),
            "speed " + number(fields.byte(0x0F)),
            "correction " + number(fields.byte(0x10)),
            "type " + number(fields.byte(0x11)),
            "associativity " + number(fields.byte(0x12))};
}

Lines port(const Fields& fields)
{
    return {"inside " + withoutBlanks(fields.textAt(0x04)), "outside " + withoutBlanks(fields.textAt(0x06)),
            "type " + number(fields.byte(0x08)), "connector " + number(fields.byte(0x05)),
            "connector " + number(fields.byte(0x07))};
}

// Of the test's texts the second one names a firmware element.
Lines firmware(const Fields& fields)
{
    Lines lines;
    for (unsigned i = 1; i <= fields.byte(0x04); ++i)
        if (fields.text(i) == "Diagnostics -[XXYT01-1.05]-")
            lines = {"name Diagnostics", "build number XXYT01", "version 1.05"};
    return lines;
}

Lines options(const Fields& fields)
{
    Lines lines;
    for (unsigned i = 1; i <= fields.byte(0x04); ++i)
        lines.push_back("option " + fields.text(i));
    return lines;
}
}

std::vector<unsigned char> Structure::bytes() const
{
    std::vector<unsigned char> all = formatted;
    for (const std::string& text : texts) {
        all.insert(all.end(), text.begin(), text.end());
        all.push_back(0);
    }
    if (texts.empty())
        all.push_back(0);
    all.push_back(0);
    return all;
}

Lines factsRead(const Structure& structure)
{
    const Fields fields(structure);
    switch (structure.formatted.at(0)) {
    case 0:
        return bios(fields);
    case 1:
        return system(fields);
    case 2:
        return board(fields);
    case 3:
        return chassis(fields);
    case 7:
        return cache(fields);
    case 8:
        return port(fields);
    case 9:
        return {"designation " + fields.textAt(0x04)};
    case 11:
        return firmware(fields);
    case 12:
        return options(fields);
    case 13:
        return languages(fields);
    default:
        return {};
    }
}
