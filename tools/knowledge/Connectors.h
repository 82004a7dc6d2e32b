#pragma once

#include <cstdint>
#include <string>

namespace VQ::Tool
{

/// The kinds of port connectors that people tell apart.
enum class ConnectorKind
{
    Usb,
    UsbC,
    Network,
    Video,
    Audio,
    Serial,
    Parallel,
    KeyboardMouse,
    Sata,
    Scsi,
    Modem,
    FireWire,
    PcCard,
    Power,
    Fan,
    Other
};

/// "USB", "network" ...
const char* titleOf(ConnectorKind kind);

/// What kind a connector is: by the codes of SMBIOS for its port and for its connector, and where firmware leaves these
/// at "other" or "none", by its designation.
ConnectorKind connectorKind(std::uint64_t portType, std::uint64_t connectorType, const std::string& designation);

/// What kind of slot a designation tells of: "PCI Express x16", "M.2", "PCI" ...; "other" where it tells nothing.
std::string slotKind(const std::string& designation);

}
