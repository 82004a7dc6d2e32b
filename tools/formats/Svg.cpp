#include "tools/formats/Svg.h"

#include "tools/formats/Drawing.h"
#include "tools/formats/Printable.h"

namespace VQ::Tool
{

namespace
{
std::string attribute(const char* name, int value)
{
    return std::string(" ") + name + "=\"" + std::to_string(value) + "\"";
}

std::string classOf(const char* style)
{
    return std::string(" class=\"") + style + "\"";
}

bool beginsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

// About how wide a character is, in tenths of a unit at a size of 12; more than most fonts have.
int widthOf(const std::string& text, std::size_t at)
{
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte >= 0xE3) // ideographs
        return 120;
    if (text.find_first_of("WMmw@%", at) == at)
        return 115;
    return (byte >= 'A' && byte <= 'Z') || byte >= 0x80 ? 88 : 69;
}

std::string fitted(const std::string& text, int width)
{
    constexpr int Ellipsis = 120;
    int taken = 0;
    std::size_t cut = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!beginsCharacter(text[at]))
            continue;
        if (taken + Ellipsis <= width * 10)
            cut = at;
        taken += widthOf(text, at);
    }
    return taken <= width * 10 ? text : text.substr(0, cut) + "\xE2\x80\xA6";
}
}

Svg::Svg(const std::string& label) : _label(label) {}

void Svg::rectangle(int x, int y, int width, int height, const char* style, int radius)
{
    _body += "<rect" + attribute("x", x) + attribute("y", y) + attribute("width", width) + attribute("height", height) +
             (radius > 0 ? attribute("rx", radius) : "") + classOf(style) + "/>\n";
}

void Svg::circle(int x, int y, int radius, const char* style)
{
    _body += "<circle" + attribute("cx", x) + attribute("cy", y) + attribute("r", radius) + classOf(style) + "/>\n";
}

void Svg::path(const std::string& steps, const char* style)
{
    _body += "<path d=\"" + steps + "\"" + classOf(style) + "/>\n";
}

void Svg::text(int x, int y, int width, const std::string& text, const char* style)
{
    _body += "<text" + attribute("x", x) + attribute("y", y) + classOf(style) + ">" +
             escapedHtml(fitted(printable(text), width)) + "</text>\n";
}

void Svg::begin(int x, int y, const std::string& hint)
{
    _body += "<g transform=\"translate(" + std::to_string(x) + " " + std::to_string(y) + ")\">" +
             (hint.empty() ? "" : "<title>" + escapedHtml(printable(hint)) + "</title>") + "\n";
}

void Svg::end()
{
    _body += "</g>\n";
}

void Svg::append(const Svg& other)
{
    _body += other._body;
}

std::string Svg::finished(int height) const
{
    return "<svg viewBox=\"0 0 " + std::to_string(Width) + " " + std::to_string(height) +
           "\" role=\"img\" aria-label=\"" + escapedHtml(printable(_label)) + "\">\n" + _body + "</svg>\n";
}

}
