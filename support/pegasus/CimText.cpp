#include "support/pegasus/CimText.h"

#include "support/common/Unicode.h"

#include <algorithm>
#include <vector>

namespace VQ
{

namespace
{
constexpr std::uint32_t FirstInTwoUnits = 0x10000;
constexpr std::uint32_t BitsOfAUnit = 10; // of a pair, each carries this many bits of the character
constexpr std::uint32_t UnitMask = 0x3FF;

void appendUtf16(std::vector<Pegasus::Char16>& units, std::uint32_t character)
{
    const auto append = [&units](std::uint32_t unit) {
        units.push_back(Pegasus::Char16(static_cast<Pegasus::Uint16>(unit)));
    };
    if (character < FirstInTwoUnits) {
        append(character);
    } else {
        append(FirstLeadSurrogate + ((character - FirstInTwoUnits) >> BitsOfAUnit));
        append(FirstTrailSurrogate + (character & UnitMask));
    }
}

std::uint32_t unitAt(const Pegasus::String& text, Pegasus::Uint32 position)
{
    return static_cast<Pegasus::Uint16>(text[position]);
}

// True when a pair of surrogates, which stand for one character, begins at the position.
bool isPairAt(const Pegasus::String& text, Pegasus::Uint32 position)
{
    return (unitAt(text, position) & ~UnitMask) == FirstLeadSurrogate && position + 1 < text.size() &&
           (unitAt(text, position + 1) & ~UnitMask) == FirstTrailSurrogate;
}
}

Pegasus::String make_String(const std::wstring& text)
{
    std::vector<Pegasus::Char16> units;
    units.reserve(text.size());
    for (const wchar_t character : text)
        appendUtf16(units, characterOf(static_cast<std::uint32_t>(character)));
    return units.empty() ? Pegasus::String()
                         : Pegasus::String(units.data(), static_cast<Pegasus::Uint32>(units.size()));
}

Pegasus::String make_String(const std::string& text)
{
    // Nearly all text is plain ASCII, which the CIM library takes over as it stands.
    if (text.empty())
        return Pegasus::String();
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return Pegasus::String(text.data(), static_cast<Pegasus::Uint32>(text.size()));
    return make_String(make_wstring(text));
}

// Not by the CIM library's own conversion, which makes text that is not UTF-8 of an unpaired surrogate.
std::string make_string(const Pegasus::String& text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (Pegasus::Uint32 i = 0; i < text.size(); ++i) {
        std::uint32_t character = unitAt(text, i);
        if (isPairAt(text, i))
            character = FirstInTwoUnits + ((character & UnitMask) << BitsOfAUnit) + (unitAt(text, ++i) & UnitMask);
        wide += static_cast<wchar_t>(character);
    }
    return make_string(wide);
}

}
