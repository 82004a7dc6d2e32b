#include "tools/formats/Formats.h"

namespace VQ::Tool
{

namespace
{
constexpr Format Known[] = {
    {"text", machinesAsText, summaryAsText, namesAsText, comparisonAsText, resultsAsText, false},
    {"json", machinesAsJson, summaryAsJson, machinesAsJson, comparisonAsJson, resultsAsJson, false},
    {"mof", machinesAsMof, nullptr, nullptr, nullptr, nullptr, false},
    {"html", machinesAsHtml, summaryAsHtml, nullptr, comparisonAsHtml, nullptr, true},
    {"csv", machinesAsCsv, summaryAsCsv, nullptr, comparisonAsCsv, nullptr, false},
    {"prometheus", machinesAsPrometheus, summaryAsPrometheus, nullptr, nullptr, nullptr, false},
};
}

List<Format> formats()
{
    return {Known, sizeof Known / sizeof *Known};
}

const Format* findFormat(const std::string& name)
{
    for (const Format& format : formats())
        if (name == format.name)
            return &format;
    return nullptr;
}

}
