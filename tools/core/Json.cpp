#include "tools/core/Json.h"

#include <cstdio>

namespace VQ::Tool
{

namespace
{
Json toJson(const Scalar& scalar)
{
    return std::visit(
        [](const auto& element) -> Json {
            if constexpr (std::is_same_v<std::decay_t<decltype(element)>, DateTimeText>)
                return element.text;
            else
                return element;
        },
        scalar);
}

// The library escapes the control characters below U+0020 only; a terminal obeys DEL and C1 (U+0080 to U+009F) too.
// They can stand in the strings of the document only.
std::string withoutControls(const std::string& document)
{
    std::string safe;
    char escape[7];
    for (std::size_t i = 0; i < document.size(); ++i) {
        unsigned code = static_cast<unsigned char>(document[i]);
        if (code == 0xC2 && i + 1 < document.size() && static_cast<unsigned char>(document[i + 1]) < 0xA0)
            code = static_cast<unsigned char>(document[++i]);
        else if (code != 0x7F) {
            safe += document[i];
            continue;
        }
        std::snprintf(escape, sizeof escape, "\\u%04x", code);
        safe += escape;
    }
    return safe;
}
}

Json toJson(const Value& value)
{
    if (value.isNull)
        return nullptr;
    if (!value.isArray)
        return toJson(value.elements.at(0));
    Json array = Json::array();
    for (const Scalar& element : value.elements)
        array.push_back(toJson(element));
    return array;
}

std::string written(const Json& json)
{
    // Bytes that are no UTF-8 become U+FFFD, where the library would otherwise refuse the whole document.
    return withoutControls(json.dump(2, ' ', false, Json::error_handler_t::replace)) + "\n";
}

}
