#include "support/pegasus/CimText.h"

#include "support/common/Text.h"

#include <vector>

namespace VQ
{

namespace
{
constexpr std::uint32_t LastInOneUnit = 0xFFFF;
constexpr std::uint32_t LastCharacter = 0x10FFFF;
constexpr std::uint32_t ReplacementCharacter = 0xFFFD;

void appendUtf16(std::vector<Pegasus::Char16>& units, std::uint32_t character)
{
    const auto append = [&units](std::uint32_t unit) {
        units.push_back(Pegasus::Char16(static_cast<Pegasus::Uint16>(unit)));
    };
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (surrogate || character > LastCharacter) {
        append(ReplacementCharacter);
    } else if (character <= LastInOneUnit) {
        append(character);
    } else {
        append(0xD800 + ((character - 0x10000) >> 10));
        append(0xDC00 + ((character - 0x10000) & 0x3FF));
    }
}
}

Pegasus::String make_String(const std::wstring& text)
{
    std::vector<Pegasus::Char16> units;
    units.reserve(text.size());
    for (const wchar_t character : text)
        appendUtf16(units, static_cast<std::uint32_t>(character));
    return units.empty() ? Pegasus::String()
                         : Pegasus::String(units.data(), static_cast<Pegasus::Uint32>(units.size()));
}

Pegasus::String make_String(const std::string& text)
{
    return make_String(make_wstring(text));
}

std::string make_string(const Pegasus::String& text)
{
    const Pegasus::CString bytes = text.getCString();
    return make_string(static_cast<const char*>(bytes));
}

}
