#include "tools/formats/Formats.h"
#include "tools/formats/Printable.h"
#include "tools/formats/SummaryText.h"

#include <algorithm>

namespace VQ::Tool
{

namespace
{
constexpr std::size_t LabelWidth = 16;
constexpr std::size_t MostLines = 4;    // of one text
constexpr std::size_t ScreenLines = 39; // and one that says that there is more
constexpr unsigned NarrowestTerminal = 40;
constexpr unsigned WidestLine = 100;

// Columns of a terminal, near enough: the bytes that begin a character.
std::size_t width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// As many bytes as fill the columns, never a part of a character.
std::size_t bytesFor(const std::string& text, std::size_t columns)
{
    std::size_t at = 0;
    for (std::size_t taken = 0; at < text.size(); ++at)
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80 && ++taken > columns)
            break;
    return at;
}

// Lines of at most so many columns, broken at blanks where there are some; what is too long ends in three dots.
std::vector<std::string> wrapped(std::string text, std::size_t columns)
{
    std::vector<std::string> lines;
    while (width(text) > columns && lines.size() + 1 < MostLines) {
        std::size_t end = bytesFor(text, columns);
        const std::size_t blank = text.rfind(' ', end);
        if (blank != std::string::npos && blank > end / 2)
            end = blank;
        lines.push_back(text.substr(0, end));
        text.erase(0, text[end] == ' ' ? end + 1 : end);
    }
    if (width(text) > columns)
        text = text.substr(0, bytesFor(text, columns - 3)) + "...";
    lines.push_back(text);
    return lines;
}

std::string emphasized(const std::string& text, const char* code, const Setting& setting)
{
    return setting.colour ? "\x1B[" + std::string(code) + "m" + text + "\x1B[0m" : text;
}

std::string padded(std::string text, std::size_t columns)
{
    const std::size_t have = width(text);
    return text.append(have < columns ? columns - have : 0, ' ');
}

std::size_t lineWidth(const Setting& setting)
{
    return std::min(std::max(setting.columns, NarrowestTerminal), WidestLine);
}

std::string titleOf(const Summary& summary, const Setting& setting)
{
    std::string origin;
    if (summary.source.kind == Source::Dump)
        origin = "from the dump " + summary.source.place;
    else if (summary.source.kind == Source::Server)
        origin = "from " + summary.source.place;
    const std::size_t columns = lineWidth(setting);
    std::string text = emphasized(wrapped(printable(summary.name), columns).front(), "1", setting) + "\n";
    if (!origin.empty())
        text += "  " + wrapped(printable(origin), columns - 2).front() + "\n";
    return text;
}

std::string summaryText(const Summary& summary, const Setting& setting)
{
    std::string text = titleOf(summary, setting);
    auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::size_t columns = lineWidth(setting) - LabelWidth - 2;
    for (const SummaryRow& row : summaryRows(summary)) {
        std::string label = row.label;
        const bool alarming = label == "Failed" || label == "Note";
        for (const std::string& part : row.texts) {
            for (const std::string& line : wrapped(printable(part), columns)) {
                if (++lines > ScreenLines)
                    return text + "  ... and more: the classes tell all\n";
                text += "  " + emphasized(padded(label, LabelWidth), alarming ? "33" : "36", setting) + line + "\n";
                label.clear();
            }
        }
    }
    return text;
}

struct Column
{
    const char* title;
    std::string (*text)(const Summary& summary);
};

std::string biosText(const Summary& summary)
{
    if (summary.firmware.empty())
        return "";
    const FirmwareSummary& bios = summary.firmware.front();
    return bios.version + (bios.version.empty() || bios.date.empty() ? "" : " of ") + bios.date;
}

constexpr Column Columns[] = {
    {"Name", [](const Summary& summary) { return summary.name; }},
    {"Machine", productText},
    {"Serial number", [](const Summary& summary) { return summary.serial; }},
    {"BIOS", biosText},
    {"System", [](const Summary& summary) { return summary.operatingSystem; }},
    {"Memory", [](const Summary& summary) { return summary.memory ? sizeText(*summary.memory) : ""; }},
};

// Each column as wide as its texts; where that is too wide, the widest are cut until the line fits. A name that does
// not take more than a third of it stays whole, since it tells the machine.
std::string summaryTable(const std::vector<Summary>& summaries, const Setting& setting)
{
    std::vector<std::vector<std::string>> columns;
    std::vector<std::size_t> widths;
    std::size_t total = 0;
    for (const Column& column : Columns) {
        std::vector<std::string> cells;
        std::size_t widest = 0;
        for (const Summary& summary : summaries) {
            cells.push_back(printable(column.text(summary)));
            widest = std::max(widest, width(cells.back()));
        }
        if (widest == 0)
            continue;
        cells.insert(cells.begin(), column.title);
        widths.push_back(std::max(widest, width(column.title)));
        total += widths.back() + 2;
        columns.push_back(std::move(cells));
    }
    const std::size_t room = std::max(setting.columns, NarrowestTerminal);
    for (; total > room + 2; --total)
        --*std::max_element(widths.begin() + (widths.front() > room / 3 ? 0 : 1), widths.end());
    std::string text;
    for (std::size_t row = 0; row <= summaries.size(); ++row) {
        std::string line;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const std::string& cell = columns[i][row];
            const bool fits = width(cell) <= widths[i];
            line += padded(fits ? cell : cell.substr(0, bytesFor(cell, widths[i] - 3)) + "...", widths[i] + 2);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += (row == 0 ? emphasized(line, "1", setting) : line) + "\n";
    }
    return text;
}
}

std::string summaryAsText(const std::vector<Machine>& machines, const Setting& setting)
{
    std::vector<Summary> summaries;
    summaries.reserve(machines.size());
    for (const Machine& machine : machines)
        summaries.push_back(summarize(machine));
    return summaries.size() == 1 ? summaryText(summaries.front(), setting) : summaryTable(summaries, setting);
}

}
