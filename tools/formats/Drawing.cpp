#include "tools/formats/Drawing.h"

#include "tools/formats/Connector.h"
#include "tools/formats/SummaryText.h"
#include "tools/formats/Svg.h"

#include <algorithm>

namespace VQ::Tool
{

namespace
{
constexpr int Margin = 8;
constexpr int Line = 20; // from one line of text to the next

std::string orNone(const std::string& text, const char* none)
{
    return text.empty() ? none : text;
}

// How long a slot is, from what its kind says of its lanes.
int slotLength(const std::string& kind)
{
    if (kind.find("x16") != std::string::npos)
        return 110;
    if (kind.find("x8") != std::string::npos)
        return 80;
    if (kind.find("x4") != std::string::npos || kind == "M.2" || kind == "Mini PCI")
        return 55;
    return kind.find("x1") != std::string::npos ? 30 : 90;
}

// The slots below each other; gives back where the next thing may stand.
int drawSlots(Svg& svg, const Summary& summary, int y)
{
    constexpr std::size_t Most = 24;
    std::size_t drawn = 0, left = 0;
    for (const SlotSummary& slots : summary.slots) {
        for (const std::string& name : slots.names) {
            if (++drawn > Most) {
                ++left;
                continue;
            }
            svg.begin(2 * Margin + 6, y, orNone(name, "a slot without a name") + ", " + slots.kind);
            svg.rectangle(0, 3, slotLength(slots.kind), 12, "slot", 2);
            svg.rectangle(3, 8, slotLength(slots.kind) - 6, 2, "hole");
            svg.text(120, 13, 195, orNone(name, "no name"));
            svg.end();
            y += Line;
        }
    }
    if (left > 0)
        svg.text(2 * Margin + 6, y + 13, 300, "and " + std::to_string(left) + " more");
    return left > 0 ? y + Line : y;
}

std::string boardLine(const BoardSummary& board)
{
    std::string text = orNone(board.maker, "board");
    if (!board.serial.empty())
        text += ", serial " + board.serial;
    return text + (board.location.empty() ? "" : ", at " + board.location);
}

// The levels that a summary has caches of, the ones beyond the third last.
std::vector<unsigned> levelsOf(const Summary& summary)
{
    std::vector<unsigned> levels;
    for (const CacheSummary& cache : summary.caches)
        if (std::find(levels.begin(), levels.end(), cache.level) == levels.end())
            levels.push_back(cache.level);
    return levels;
}

std::string levelText(const Summary& summary, unsigned level)
{
    std::string text;
    for (const CacheSummary& cache : summary.caches)
        if (cache.level == level)
            text += (text.empty() ? "" : " + ") + std::to_string(cache.count) + " \xC3\x97 " +
                    (cache.size == 0 ? "not installed" : cacheSizeText(cache.size)) +
                    (cache.type.empty() ? "" : " " + cache.type);
    return text;
}
}

std::string escapedHtml(const std::string& text)
{
    std::string safe;
    for (const char c : text) {
        switch (c) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '"':
            safe += "&quot;";
            break;
        case '\'':
            safe += "&#39;";
            break;
        default:
            safe += c;
        }
    }
    return safe;
}

std::string drawnBoards(const Summary& summary)
{
    constexpr std::size_t MostBoards = 8;
    if (summary.boards.empty() && summary.slots.empty())
        return "";
    Svg inside("");
    int y = Margin + Line;
    inside.text(2 * Margin, y, 290, orNone(productText(summary), "Machine"), "t strong");
    y += 10;
    const std::size_t boards = std::max<std::size_t>(summary.boards.size(), 1);
    for (std::size_t i = 0; i < std::min(boards, MostBoards); ++i) {
        const int top = y;
        int bottom = top + Line + 6;
        Svg content("");
        if (i == 0 && !summary.slots.empty())
            bottom = drawSlots(content, summary, bottom) + 4;
        inside.rectangle(2 * Margin - 4, top, Svg::Width - 4 * Margin + 8, bottom - top, "board", 4);
        inside.text(2 * Margin + 6, top + 17, 310,
                    i < summary.boards.size() ? boardLine(summary.boards[i])
                                              : "a board that the firmware does not tell of");
        inside.append(content);
        y = bottom + Margin;
    }
    if (boards > MostBoards) {
        inside.text(2 * Margin, y + 13, 300, "and " + std::to_string(boards - MostBoards) + " more boards");
        y += Line;
    }
    Svg svg("The machine with " + std::to_string(summary.boards.size()) + " boards" +
            (summary.slots.empty() ? "" : " and its slots: " + slotCounts(summary)));
    svg.rectangle(2, 2, Svg::Width - 4, y + 2, "case", 8);
    svg.append(inside);
    return svg.finished(y + Margin);
}

std::string drawnPanel(const Summary& summary)
{
    constexpr int InARow = 4, CellWidth = 84, CellHeight = 54;
    constexpr int Most = 60;
    Svg content("");
    int drawn = 0, left = 0;
    for (const ConnectorSummary& connector : summary.connectors) {
        if (!connector.outside)
            continue;
        if (drawn == Most) {
            ++left;
            continue;
        }
        const std::string name = orNone(connector.name, titleOf(connector.kind));
        content.begin(12 + drawn % InARow * CellWidth, 10 + drawn / InARow * CellHeight,
                      name + ", " + titleOf(connector.kind));
        content.begin(CellWidth / 2 - 24, 0);
        drawConnector(content, connector.kind);
        content.end();
        content.text(CellWidth / 2, 42, CellWidth + 4, name, "t small middle");
        content.end();
        ++drawn;
    }
    if (drawn == 0)
        return "";
    int height = 14 + (drawn + InARow - 1) / InARow * CellHeight;
    if (left > 0) {
        content.text(16, height + 8, 300, "and " + std::to_string(left) + " more");
        height += Line;
    }
    Svg svg("The connectors outside: " + connectorCounts(summary, true));
    svg.rectangle(2, 2, Svg::Width - 4, height - 4, "panel", 6);
    svg.append(content);
    return svg.finished(height);
}

std::string drawnCaches(const Summary& summary)
{
    if (summary.caches.empty())
        return "";
    constexpr int Height = 46, Step = 34;
    const std::vector<unsigned> levels = levelsOf(summary);
    std::string label = "Caches:";
    Svg content("");
    int y = 4;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const int half = 100 + Step * static_cast<int>(i) - Step / 2;
        const int top = std::min(half, 172), bottom = std::min(half + Step, 172);
        const auto number = [](int value) { return std::to_string(value); };
        const std::string name = levels[i] == 0 ? "beyond L3" : "L" + std::to_string(levels[i]);
        const std::string text = levelText(summary, levels[i]);
        label += " " + name + " " + text + ".";
        content.path("M" + number(180 - top) + " " + number(y) + "H" + number(180 + top) + "L" + number(180 + bottom) +
                         " " + number(y + Height) + "H" + number(180 - bottom) + "Z",
                     levels[i] == 1   ? "level1"
                     : levels[i] == 2 ? "level2"
                                      : "level3");
        content.begin(180, y, name + ": " + text);
        content.text(0, 19, 2 * top, name, "t strong middle");
        content.text(0, 37, 2 * top, text, "t small middle");
        content.end();
        y += Height + 4;
    }
    Svg svg(label);
    svg.append(content);
    return svg.finished(y);
}

std::string drawnMemory(const Summary& summary)
{
    if (!summary.memory || *summary.memory == 0)
        return "";
    constexpr int Left = 4, Whole = Svg::Width - 8;
    const std::string all = sizeText(*summary.memory);
    const bool known = summary.freeMemory && *summary.freeMemory <= *summary.memory;
    const std::uint64_t used = known ? *summary.memory - *summary.freeMemory : 0;
    const int usedWidth = static_cast<int>(static_cast<double>(used) / static_cast<double>(*summary.memory) * Whole);
    const std::string words = known ? sizeText(used) + " used, " + sizeText(*summary.freeMemory) + " free" : "";
    Svg svg("Memory: " + all + (words.empty() ? "" : ", " + words));
    svg.rectangle(Left, 4, Whole, 30, "memory", 4);
    if (usedWidth > 0)
        svg.rectangle(Left, 4, usedWidth, 30, "used", 4);
    svg.text(Left, 54, 340, all + (words.empty() ? "" : ": " + words));
    return svg.finished(62);
}

}
