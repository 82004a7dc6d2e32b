#pragma once

#include <string>

namespace VQ::Tool
{

/// An SVG picture of a fixed width, in units of about a pixel. Numbers are whole, so that the same picture has the same
/// bytes everywhere.
class Svg
{
public:
    static constexpr int Width = 360;

    /// `label` is what the picture shows, for people who do not see it.
    explicit Svg(const std::string& label);

    void rectangle(int x, int y, int width, int height, const char* style, int radius = 0);
    void circle(int x, int y, int radius, const char* style);
    void path(const std::string& steps, const char* style);

    /// As many characters as fit into `width` units, ending in an ellipsis where that is not all of the text.
    void text(int x, int y, int width, const std::string& text, const char* style = "t");

    /// Moves what follows, up to end(); a pointer that rests there gets the whole text.
    void begin(int x, int y, const std::string& hint = "");
    void end();

    /// Puts another one's content over what is there.
    void append(const Svg& other);

    std::string finished(int height) const;

private:
    std::string _label;
    std::string _body;
};

}
