#include "support/smbios/EntryPoint.h"

#include "support/smbios/SmBios.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <string>

namespace VQ
{

namespace
{
// Offsets of the entry point of version 2.0, "_DMI_".
namespace FormDmi
{
constexpr std::size_t TableLength = 0x06;
constexpr std::size_t TableAddress = 0x08;
constexpr std::size_t StructureCount = 0x0C;
constexpr std::size_t Version = 0x0E; // in BCD
constexpr std::size_t Size = 0x0F;
}

// Offsets of the 32-bit entry point, "_SM_".
namespace Form32
{
constexpr std::size_t Length = 0x05;
constexpr std::size_t MajorVersion = 0x06;
constexpr std::size_t MinorVersion = 0x07;
constexpr std::size_t Intermediate = 0x10;   // the form of version 2.0, with its own checksum, tells of the table
constexpr std::size_t SmallestLength = 0x1E; // version 2.1 of the standard gave 1Eh by mistake, and firmware followed
}

// Offsets of the 64-bit entry point, "_SM3_".
namespace Form64
{
constexpr std::size_t Length = 0x06;
constexpr std::size_t MajorVersion = 0x07;
constexpr std::size_t MinorVersion = 0x08;
constexpr std::size_t MaximumTableSize = 0x0C;
constexpr std::size_t TableAddress = 0x10;
constexpr std::size_t Size = 0x18;
}

bool beginsWith(const unsigned char* data, std::size_t size, const char* anchor)
{
    const std::size_t length = std::strlen(anchor);
    return size >= length && std::memcmp(data, anchor, length) == 0;
}

bool checksumHolds(const unsigned char* data, std::size_t size)
{
    return (std::accumulate(data, data + size, 0u) & 0xFF) == 0;
}

std::uint64_t littleEndian(const unsigned char* data, std::size_t bytes)
{
    std::uint64_t value = 0;
    for (std::size_t i = bytes; i > 0; --i)
        value = (value << 8) | data[i - 1];
    return value;
}

std::string hexBytes(const unsigned char* data, std::size_t size)
{
    static constexpr std::size_t Shown = 5;
    std::string text;
    char byte[4];
    for (std::size_t i = 0; i < std::min(size, Shown); ++i) {
        std::snprintf(byte, sizeof byte, "%s%02X", i ? " " : "", data[i]);
        text += byte;
    }
    return text.empty() ? "nothing" : text;
}

void readTablePlace(const unsigned char* dmi, EntryPoint& entryPoint)
{
    entryPoint.tableLength = static_cast<std::uint32_t>(littleEndian(dmi + FormDmi::TableLength, 2));
    entryPoint.tableAddress = littleEndian(dmi + FormDmi::TableAddress, 4);
    entryPoint.structureCount = static_cast<std::uint32_t>(littleEndian(dmi + FormDmi::StructureCount, 2));
}
}

bool isEntryPoint64(const unsigned char* data, std::size_t size)
{
    if (!beginsWith(data, size, "_SM3_") || size < Form64::Size)
        return false;
    const std::size_t length = data[Form64::Length];
    return length >= Form64::Size && length <= size && checksumHolds(data, length);
}

bool isEntryPoint32(const unsigned char* data, std::size_t size)
{
    if (!beginsWith(data, size, "_SM_") || size < Form32::SmallestLength)
        return false;
    const std::size_t length = data[Form32::Length];
    const unsigned char* intermediate = data + Form32::Intermediate;
    const std::size_t intermediateSize = size - Form32::Intermediate;
    // The kernel hands over as many bytes as the length says; of 1Eh, the last byte of the intermediate part is missing
    // and its checksum can't be told.
    return length >= Form32::SmallestLength && length <= size && checksumHolds(data, length) &&
           beginsWith(intermediate, intermediateSize, "_DMI_") &&
           (intermediateSize < FormDmi::Size || checksumHolds(intermediate, FormDmi::Size));
}

bool isEntryPointDmi(const unsigned char* data, std::size_t size)
{
    return size >= FormDmi::Size && beginsWith(data, size, "_DMI_") && checksumHolds(data, FormDmi::Size);
}

EntryPoint parseEntryPoint(const RawTables& raw)
{
    const unsigned char* data = raw.entryPoint.data();
    const std::size_t size = raw.entryPoint.size();
    EntryPoint entryPoint;
    if (isEntryPoint64(data, size)) {
        entryPoint.majorVersion = data[Form64::MajorVersion];
        entryPoint.minorVersion = data[Form64::MinorVersion];
        entryPoint.tableLength = static_cast<std::uint32_t>(littleEndian(data + Form64::MaximumTableSize, 4));
        entryPoint.tableAddress = littleEndian(data + Form64::TableAddress, 8);
    } else if (isEntryPoint32(data, size)) {
        entryPoint.majorVersion = data[Form32::MajorVersion];
        entryPoint.minorVersion = data[Form32::MinorVersion];
        readTablePlace(data + Form32::Intermediate, entryPoint);
    } else if (isEntryPointDmi(data, size)) {
        entryPoint.majorVersion = data[FormDmi::Version] >> 4;
        entryPoint.minorVersion = data[FormDmi::Version] & 0x0F;
        readTablePlace(data, entryPoint);
    } else {
        throw SmBiosError(raw.origin +
                          ": no SMBIOS entry point: expected the bytes \"_SM3_\" (5F 53 4D 33 5F), \"_SM_\" "
                          "(5F 53 4D 5F) or \"_DMI_\" (5F 44 4D 49 5F) of an intact entry point, found " +
                          hexBytes(data, size));
    }
    return entryPoint;
}

}
