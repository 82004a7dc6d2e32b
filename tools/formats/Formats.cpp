#include "tools/formats/Formats.h"

namespace VQ::Tool
{

namespace
{
constexpr Format Known[] = {
    {"text", machinesAsText, namesAsText, resultAsText},
    {"json", machinesAsJson, namesAsJson, resultAsJson},
    {"mof", machinesAsMof, nullptr, nullptr},
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
