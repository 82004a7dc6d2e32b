#include "tools/formats/Connector.h"

namespace VQ::Tool
{

namespace
{
// Rows of pins, the second row between those of the first.
void drawPins(Svg& svg, int x, int y, int count, int rows)
{
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i + row < count; ++i)
            svg.circle(x + 4 * i + 2 * row, y + 5 * row, 1, "pin");
}

void drawShell(Svg& svg, int left, int right, const char* style)
{
    const auto number = [](int value) { return std::to_string(value); };
    svg.path("M" + number(left) + " 8H" + number(right) + "L" + number(right - 4) + " 23H" + number(left + 4) + "Z",
             style);
}

void drawUsb(Svg& svg)
{
    svg.rectangle(9, 9, 30, 13, "metal", 1);
    svg.rectangle(12, 11, 24, 4, "usb");
}

void drawUsbC(Svg& svg)
{
    svg.rectangle(11, 11, 26, 10, "metal", 5);
    svg.rectangle(16, 14, 16, 3, "usb", 1);
}

void drawJack(Svg& svg, int width)
{
    const int left = 24 - width / 2;
    svg.rectangle(left, 4, width, 22, "metal", 2);
    svg.path("M" + std::to_string(left + 3) + " 8H" + std::to_string(left + width - 3) + "V19H" +
                 std::to_string(left + width - 7) + "V23H" + std::to_string(left + 7) + "V19H" +
                 std::to_string(left + 3) + "Z",
             "hole");
    drawPins(svg, left + 7, 11, (width - 12) / 4 + 1, 1);
}

void drawRound(Svg& svg, const char* style)
{
    svg.circle(24, 15, 11, "metal");
    svg.circle(24, 15, 8, style);
}

void drawOther(Svg& svg)
{
    svg.rectangle(8, 7, 32, 17, "metal", 3);
    svg.rectangle(13, 12, 22, 7, "hole", 1);
}
}

void drawConnector(Svg& svg, ConnectorKind kind)
{
    switch (kind) {
    case ConnectorKind::Usb:
        return drawUsb(svg);
    case ConnectorKind::UsbC:
        return drawUsbC(svg);
    case ConnectorKind::Network:
        return drawJack(svg, 28);
    case ConnectorKind::Modem:
        return drawJack(svg, 20);
    case ConnectorKind::Video:
        drawShell(svg, 4, 44, "video");
        return drawPins(svg, 15, 12, 5, 2);
    case ConnectorKind::Serial:
        drawShell(svg, 8, 40, "serial");
        return drawPins(svg, 16, 13, 5, 2);
    case ConnectorKind::Parallel:
        drawShell(svg, 1, 47, "parallel");
        return drawPins(svg, 8, 13, 9, 2);
    case ConnectorKind::Scsi:
        drawShell(svg, 1, 47, "metal");
        return drawPins(svg, 8, 13, 9, 2);
    case ConnectorKind::Audio:
        drawRound(svg, "audio");
        return svg.circle(24, 15, 4, "hole");
    case ConnectorKind::KeyboardMouse:
        drawRound(svg, "hole");
        return drawPins(svg, 19, 13, 4, 2);
    case ConnectorKind::Fan:
        drawRound(svg, "hole");
        return svg.path("M24 7V23M16 15H32", "line");
    case ConnectorKind::Sata:
        svg.rectangle(6, 10, 36, 10, "metal", 1);
        return svg.path("M10 13H34V17H31V15H10Z", "hole");
    case ConnectorKind::FireWire:
        svg.path("M10 9H33L38 15L33 21H10Z", "metal");
        return svg.rectangle(14, 13, 16, 4, "hole");
    case ConnectorKind::PcCard:
        svg.rectangle(1, 11, 46, 9, "metal", 1);
        return svg.rectangle(4, 14, 40, 3, "hole");
    case ConnectorKind::Power:
        svg.path("M10 5H38V17L32 25H16L10 17Z", "hole");
        return drawPins(svg, 20, 13, 3, 2);
    default:
        return drawOther(svg);
    }
}

}
