#include "tools/formats/SummaryText.h"

#include <algorithm>
#include <cstdio>
#include <strings.h>
#include <utility>

namespace VQ::Tool
{

namespace
{
void join(std::string& text, const std::string& part, const char* separator = ", ")
{
    if (!part.empty())
        text += (text.empty() ? "" : separator) + part;
}

std::string counted(std::size_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

// The most frequent first.
std::string countsText(std::vector<std::pair<std::string, std::size_t>> counts)
{
    std::stable_sort(counts.begin(), counts.end(),
                     [](const auto& one, const auto& other) { return one.second > other.second; });
    std::string text;
    for (const auto& [kind, count] : counts)
        join(text, std::to_string(count) + " " + kind);
    return text;
}

std::string boardText(const BoardSummary& board)
{
    std::string text = board.maker;
    join(text, board.serial.empty() ? "" : "serial " + board.serial);
    join(text, board.location.empty() ? "" : "at " + board.location);
    return text;
}

std::vector<std::string> boardTexts(const Summary& summary)
{
    constexpr std::size_t Most = 4;
    std::vector<std::string> texts;
    for (const BoardSummary& board : summary.boards)
        if (texts.size() < Most && !boardText(board).empty())
            texts.push_back(boardText(board));
    if (texts.empty() || summary.boards.size() > Most)
        texts.insert(texts.begin(), counted(summary.boards.size(), "board", "boards"));
    if (summary.boards.front().options > 0)
        texts.back() += ", " + counted(summary.boards.front().options, "option", "options");
    return texts;
}

std::string namesText(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        join(text, name);
    return text;
}

std::string upText(std::int64_t seconds)
{
    constexpr std::int64_t MinutesOfADay = 1440;
    const std::int64_t minutes = seconds / 60;
    std::string text;
    if (minutes >= MinutesOfADay)
        text = counted(static_cast<std::size_t>(minutes / MinutesOfADay), "day", "days") + " ";
    const std::string rest = std::to_string(minutes % 60);
    return "up " + text + std::to_string(minutes / 60 % 24) + ":" + (rest.size() == 1 ? "0" : "") + rest;
}

std::vector<std::string> systemTexts(const Summary& summary)
{
    std::string text = summary.operatingSystem;
    if (summary.uptime)
        join(text, upText(*summary.uptime));
    if (!summary.bootTime.empty())
        text += " since " + summary.bootTime;
    return text.empty() ? std::vector<std::string>() : std::vector<std::string>{text};
}

std::vector<std::string> memoryTexts(const Summary& summary)
{
    std::string text;
    if (summary.memory)
        text = sizeText(*summary.memory);
    if (summary.freeMemory)
        join(text, sizeText(*summary.freeMemory) + " free");
    if (summary.swap && *summary.swap > 0)
        join(text, sizeText(*summary.swap) + " swap");
    return text.empty() ? std::vector<std::string>() : std::vector<std::string>{text};
}

std::vector<std::string> firmwareTexts(const Summary& summary)
{
    constexpr std::size_t Most = 5;
    std::vector<std::string> texts;
    for (const FirmwareSummary& element : summary.firmware)
        texts.push_back((element.name == "BIOS" || element.name.empty() ? "" : element.name + " ") +
                        firmwareText(element));
    if (!texts.empty() && !summary.smbiosVersion.empty())
        texts.front() += ", SMBIOS " + summary.smbiosVersion;
    if (texts.size() > Most) {
        const std::size_t more = texts.size() - Most + 1;
        texts.resize(Most - 1);
        texts.push_back("and " + std::to_string(more) + " more");
    }
    return texts;
}

std::vector<std::string> slotTexts(const Summary& summary)
{
    std::vector<std::string> texts = {slotCounts(summary)};
    std::string all;
    for (const SlotSummary& slots : summary.slots)
        join(all, namesText(slots.names));
    if (!all.empty())
        texts.push_back(all);
    return texts;
}

std::vector<std::string> connectorTexts(const Summary& summary)
{
    std::vector<std::string> texts;
    for (const bool outside : {true, false}) {
        const std::string counts = connectorCounts(summary, outside);
        if (!counts.empty())
            texts.push_back((outside ? "outside: " : "inside: ") + counts);
    }
    return texts;
}

std::string missingText(const Summary& summary)
{
    return namesText(summary.missing);
}
}

std::string sizeText(std::uint64_t bytes)
{
    static constexpr const char* Units[] = {"bytes", "KiB", "MiB", "GiB", "TiB", "PiB", "EiB"};
    std::size_t unit = 0;
    auto size = static_cast<double>(bytes);
    for (; size >= 1024 && unit + 1 < sizeof Units / sizeof *Units; ++unit)
        size /= 1024;
    char text[32];
    std::snprintf(text, sizeof text, size < 100 && unit > 0 ? "%.1f" : "%.0f", size);
    std::string number = text;
    if (number.size() > 2 && number.compare(number.size() - 2, 2, ".0") == 0)
        number.resize(number.size() - 2);
    return number + " " + Units[unit];
}

std::string cacheSizeText(std::uint64_t kilobytes)
{
    const bool inMegabytes = kilobytes >= 1024 && kilobytes % 512 == 0;
    if (!inMegabytes)
        return std::to_string(kilobytes) + " KB";
    return std::to_string(kilobytes / 1024) + (kilobytes % 1024 == 0 ? "" : ".5") + " MB";
}

std::string cacheText(const CacheSummary& cache)
{
    return std::to_string(cache.count) + " x " + (cache.level == 0 ? "beyond L3" : "L" + std::to_string(cache.level)) +
           (cache.type.empty() ? "" : " " + cache.type) + " " +
           (cache.size == 0 ? "not installed" : cacheSizeText(cache.size));
}

std::string firmwareText(const FirmwareSummary& element)
{
    std::string text = element.version;
    if (!element.date.empty())
        text += (text.empty() ? "of " : " of ") + element.date;
    join(text, element.maker);
    return text;
}

std::string productText(const Summary& summary)
{
    // Most products begin with the name of their maker anyway, in its short form.
    const std::string maker = summary.maker.substr(0, summary.maker.find_first_of(" ,."));
    const bool named = !maker.empty() && strncasecmp(summary.product.c_str(), maker.c_str(), maker.size()) == 0;
    std::string text = named ? "" : summary.maker;
    join(text, summary.product, " ");
    if (!summary.model.empty())
        join(text, "(" + summary.model + ")", " ");
    return text;
}

std::string connectorCounts(const Summary& summary, bool outside)
{
    std::vector<std::pair<std::string, std::size_t>> counts;
    for (const ConnectorSummary& connector : summary.connectors) {
        if (connector.outside != outside)
            continue;
        const char* title = titleOf(connector.kind);
        const auto same =
            std::find_if(counts.begin(), counts.end(), [title](const auto& known) { return known.first == title; });
        if (same == counts.end())
            counts.emplace_back(title, 1);
        else
            ++same->second;
    }
    return countsText(counts);
}

std::string slotCounts(const Summary& summary)
{
    std::vector<std::pair<std::string, std::size_t>> counts;
    for (const SlotSummary& slots : summary.slots)
        counts.emplace_back(slots.kind, slots.names.size());
    return countsText(counts);
}

std::vector<SummaryRow> summaryRows(const Summary& summary)
{
    std::vector<SummaryRow> rows;
    const auto add = [&rows](const char* label, std::vector<std::string> texts) {
        texts.erase(std::remove(texts.begin(), texts.end(), ""), texts.end());
        if (!texts.empty())
            rows.push_back({label, std::move(texts)});
    };
    add("Machine", {productText(summary)});
    add("Serial number", {summary.serial});
    add("Chassis", {summary.chassis});
    add("Virtualization", {summary.virtualization});
    add("Firmware", firmwareTexts(summary));
    add("Boards", summary.boards.empty() ? std::vector<std::string>() : boardTexts(summary));
    std::string caches;
    for (const CacheSummary& cache : summary.caches)
        join(caches, cacheText(cache));
    add("Caches", {caches});
    add("Memory", memoryTexts(summary));
    add("Slots", summary.slots.empty() ? std::vector<std::string>() : slotTexts(summary));
    add("Connectors", connectorTexts(summary));
    add("System", systemTexts(summary));
    add("Not told", {missingText(summary)});
    add("Note", summary.notes);
    add("Failed", summary.failures);
    return rows;
}

}
