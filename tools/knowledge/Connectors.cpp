#include "tools/knowledge/Connectors.h"

#include <cctype>

namespace VQ::Tool
{

namespace
{
struct Kind
{
    ConnectorKind kind;
    const char* title;
};

constexpr Kind Kinds[] = {
    {ConnectorKind::Usb, "USB"},           {ConnectorKind::UsbC, "USB-C"},
    {ConnectorKind::Network, "network"},   {ConnectorKind::Video, "video"},
    {ConnectorKind::Audio, "audio"},       {ConnectorKind::Serial, "serial"},
    {ConnectorKind::Parallel, "parallel"}, {ConnectorKind::KeyboardMouse, "keyboard/mouse"},
    {ConnectorKind::Sata, "SATA/SAS"},     {ConnectorKind::Scsi, "SCSI"},
    {ConnectorKind::Modem, "modem"},       {ConnectorKind::FireWire, "FireWire"},
    {ConnectorKind::PcCard, "PC card"},    {ConnectorKind::Power, "power"},
    {ConnectorKind::Fan, "fan"},           {ConnectorKind::Other, "other"},
};

struct Code
{
    std::uint64_t first, last;
    ConnectorKind kind;
};

// SMBIOS type 8, Port Type.
constexpr Code PortTypes[] = {
    {1, 5, ConnectorKind::Parallel}, {6, 9, ConnectorKind::Serial},          {10, 10, ConnectorKind::Scsi},
    {11, 11, ConnectorKind::Audio},  {13, 14, ConnectorKind::KeyboardMouse}, {15, 15, ConnectorKind::Scsi},
    {16, 16, ConnectorKind::Usb},    {17, 17, ConnectorKind::FireWire},      {18, 21, ConnectorKind::PcCard},
    {23, 24, ConnectorKind::Scsi},   {28, 28, ConnectorKind::Video},         {29, 29, ConnectorKind::Audio},
    {30, 30, ConnectorKind::Modem},  {31, 31, ConnectorKind::Network},       {32, 33, ConnectorKind::Sata},
    {34, 34, ConnectorKind::Video},  {35, 35, ConnectorKind::UsbC},          {160, 161, ConnectorKind::Serial},
};

// SMBIOS type 8, connector types.
constexpr Code ConnectorTypes[] = {
    {10, 10, ConnectorKind::Modem},         {11, 11, ConnectorKind::Network},  {12, 12, ConnectorKind::Scsi},
    {15, 15, ConnectorKind::KeyboardMouse}, {18, 18, ConnectorKind::Usb},      {26, 27, ConnectorKind::Scsi},
    {31, 31, ConnectorKind::Audio},         {33, 33, ConnectorKind::FireWire}, {34, 34, ConnectorKind::Sata},
    {35, 35, ConnectorKind::UsbC},
};

struct Word
{
    const char* word; // in capital letters
    ConnectorKind kind;
};

// In designations, the first that is found counts.
constexpr Word Words[] = {
    {"FAN", ConnectorKind::Fan},     {"USB-C", ConnectorKind::UsbC},    {"TYPE-C", ConnectorKind::UsbC},
    {"USB", ConnectorKind::Usb},     {"HDMI", ConnectorKind::Video},    {"DVI", ConnectorKind::Video},
    {"VGA", ConnectorKind::Video},   {"D-SUB", ConnectorKind::Video},   {"DISPLAYPORT", ConnectorKind::Video},
    {"VIDEO", ConnectorKind::Video}, {"MONITOR", ConnectorKind::Video}, {"TV OUT", ConnectorKind::Video},
    {"LVDS", ConnectorKind::Video},  {"SATA", ConnectorKind::Sata},     {"SCSI", ConnectorKind::Scsi},
    {"AUDIO", ConnectorKind::Audio}, {"SPDIF", ConnectorKind::Audio},   {"AAFP", ConnectorKind::Audio},
    {"HDA", ConnectorKind::Audio},   {"LAN", ConnectorKind::Network},   {"ETHERNET", ConnectorKind::Network},
    {"NIC", ConnectorKind::Network}, {"COM", ConnectorKind::Serial},    {"POWER", ConnectorKind::Power},
    {"PWR", ConnectorKind::Power},   {"AC IN", ConnectorKind::Power},   {"AC JACK", ConnectorKind::Power},
    {"BATT", ConnectorKind::Power},
};

std::string capitals(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

template <std::size_t Count> ConnectorKind kindOf(const Code (&codes)[Count], std::uint64_t code)
{
    for (const Code& candidate : codes)
        if (code >= candidate.first && code <= candidate.last)
            return candidate.kind;
    return ConnectorKind::Other;
}

// The lanes behind an x: " x16" for PCIEX16_1.
std::string lanes(const std::string& designation)
{
    for (std::size_t at = designation.find('X'); at != std::string::npos; at = designation.find('X', at + 1)) {
        const std::size_t end = designation.find_first_not_of("0123456789", at + 1);
        const std::string number = designation.substr(at + 1, end == std::string::npos ? end : end - at - 1);
        for (const char* known : {"1", "2", "4", "8", "16", "32"})
            if (number == known)
                return " x" + number;
    }
    return "";
}

bool has(const std::string& text, const char* word)
{
    return text.find(word) != std::string::npos;
}
}

const char* titleOf(ConnectorKind kind)
{
    for (const Kind& known : Kinds)
        if (known.kind == kind)
            return known.title;
    return "other";
}

ConnectorKind connectorKind(std::uint64_t portType, std::uint64_t connectorType, const std::string& designation)
{
    ConnectorKind kind = kindOf(PortTypes, portType);
    if (kind == ConnectorKind::Usb && connectorType == 35) // USB Type-C Receptacle
        return ConnectorKind::UsbC;
    if (kind == ConnectorKind::Other)
        kind = kindOf(ConnectorTypes, connectorType);
    const std::string name = capitals(designation);
    for (const Word& word : Words)
        if (kind == ConnectorKind::Other && has(name, word.word))
            return word.kind;
    return kind;
}

std::string slotKind(const std::string& designation)
{
    const std::string name = capitals(designation);
    if (has(name, "PCI EXPRESS") || has(name, "PCIE") || has(name, "PCI-E") || has(name, "PEG"))
        return "PCI Express" + lanes(name);
    if (has(name, "M.2") || has(name, "M2_"))
        return "M.2";
    if (has(name, "MINIPCI") || has(name, "MINI PCI"))
        return "Mini PCI";
    if (has(name, "PCMCIA") || has(name, "CARDBUS") || has(name, "EXPRESSCARD"))
        return "PC card";
    if (has(name, "PCI-X"))
        return "PCI-X";
    if (has(name, "AGP"))
        return "AGP";
    if (has(name, "ISA"))
        return has(name, "PCI") ? "PCI/ISA" : "ISA";
    if (has(name, "PCI"))
        return "PCI";
    if (has(name, "MEMORY") || has(name, "DIMM"))
        return "memory";
    if (has(name, "PROCESSOR"))
        return "processor";
    if (has(name, "POWER SUPPLY"))
        return "power supply";
    return "other";
}

}
