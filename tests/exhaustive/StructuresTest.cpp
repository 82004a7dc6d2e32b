// Every structure of each type that is read, at every length from 4 to 40 bytes of its formatted area, with every
// string number from 0 to 3 in each of its text fields and in all of them at once. It has two texts, so 3 is one too
// many.

#include "inventory/SmBiosBaseBoard.h"
#include "inventory/SmBiosBios.h"
#include "inventory/SmBiosCache.h"
#include "inventory/SmBiosChassis.h"
#include "inventory/SmBiosFirmware.h"
#include "inventory/SmBiosPort.h"
#include "inventory/SmBiosSlot.h"
#include "support/smbios/Source.h"
#include "tests/exhaustive/Reading.h"

#include "inventory/ComputerSystem.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

namespace
{
VQ::RawTables machine;
}

VQ::RawTables VQ::readRawTables()
{
    return machine;
}

namespace
{
std::string number(unsigned long long value)
{
    return std::to_string(value);
}

Lines biosFacts(bool withSystem)
{
    const VQ::Bios bios = VQ::GetBiosInstance();
    const VQ::DateTime date = bios.getReleaseDate();
    Lines lines = {"manufacturer " + bios.getManufacturer(),
                   "version " + bios.getVersion(),
                   "build number " + bios.getBuildNumber(),
                   "serial number " + bios.getSerialNumber(),
                   "released " + number(date.getYear()) + "-" + number(date.getMonth()) + "-" + number(date.getDay()),
                   "from " + number(bios.getLoadedStartingAddress()),
                   "to " + number(bios.getLoadedEndingAddress())};
    for (const std::string& language : bios.getLanguages())
        lines.push_back("language " + language);
    lines.push_back("current language " + bios.getCurrentLanguage());
    if (withSystem) {
        lines.push_back("model " + VQ::ComputerSystem().getModel());
        lines.push_back("description " + VQ::ComputerSystem().getDescription());
    }
    return lines;
}

Lines boardFacts()
{
    const VQ::BaseBoard board = VQ::GetBaseBoardInstances().at(0);
    return {"manufacturer " + board.getManufacturer(), "product " + board.getProduct(),
            "version " + board.getVersion(),           "serial number " + board.getSerialNumber(),
            "asset tag " + board.getAssetTag(),        "location " + board.getLocation()};
}

Lines chassisFacts()
{
    const VQ::Chassis chassis = VQ::GetChassisInstance();
    return {"manufacturer " + chassis.getManufacturer(), "version " + chassis.getVersion(),
            "serial number " + chassis.getSerialNumber(), "asset tag " + chassis.getAssetTag()};
}

Lines cacheFacts()
{
    const VQ::Cache cache = VQ::GetCacheInstances().at(0);
    return {"designation " + cache.getDesignation(),
            "level " + number(cache.getLevel()),
            "location " + number(cache.getLocation()),
            "write policy " + number(cache.getWritePolicy()),
            "maximum " + number(cache.getMaximumSize()),
            "installed " + number(cache.getSize()),
            "blocks " + number(cache.getNumberOfBlocks()),
            "speed " + number(cache.getSpeed()),
            "correction " + number(cache.getErrorCorrectionType()),
            "type " + number(cache.getType()),
            "associativity " + number(cache.getAssociativity())};
}

Lines portFacts()
{
    const VQ::Port port = VQ::GetPortInstances().at(0);
    Lines lines = {"inside " + port.getInternalReferenceDesignator(),
                   "outside " + port.getExternalReferenceDesignator(), "type " + number(port.getType())};
    for (const std::uint16_t connector : port.getConnectors())
        lines.push_back("connector " + number(connector));
    return lines;
}

Lines firmwareFacts()
{
    Lines lines;
    for (const VQ::Firmware& firmware : VQ::GetFirmwareInstances())
        lines.insert(lines.end(), {"name " + firmware.getName(), "build number " + firmware.getBuildNumber(),
                                   "version " + firmware.getVersion()});
    return lines;
}

Lines optionFacts()
{
    Lines lines;
    for (const std::string& option : VQ::getConfigurationOptions())
        lines.push_back("option " + option);
    return lines;
}

struct ReadType
{
    std::uint8_t type;
    std::vector<std::size_t> texts; ///< the fields that hold the number of a text, or a count of texts
};

const ReadType ReadTypes[] = {
    {0, {0x04, 0x05, 0x08}},
    {1, {0x04, 0x05, 0x07}},
    {2, {0x04, 0x05, 0x06, 0x07, 0x08, 0x0A}},
    {3, {0x04, 0x06, 0x07, 0x08}},
    {7, {0x04}},
    {8, {0x04, 0x06}},
    {9, {0x04}},
    {11, {0x04}},
    {12, {0x04}},
    {13, {0x04, 0x15}},
};

// The fields that hold no text have values of their own, none of which is the number of a text.
Structure structureOf(const ReadType& type, std::size_t length)
{
    Structure structure;
    for (std::size_t i = 0; i < length; ++i)
        structure.formatted.push_back(static_cast<unsigned char>(0x47 + 37 * i % 0xB0));
    structure.formatted[0] = type.type;
    structure.formatted[1] = static_cast<unsigned char>(length);
    structure.texts = {"06/23/2005", type.type == 11 ? "Diagnostics -[XXYT01-1.05]-" : " Other text "};
    return structure;
}

void setText(Structure& structure, std::size_t offset, unsigned char value)
{
    if (offset < structure.formatted.size())
        structure.formatted[offset] = value;
}

void expectTheSame(const Structure& structure)
{
    machine.entryPoint = {0x5F, 0x53, 0x4D, 0x33, 0x5F, 0, 0x18, 3, 2, 0, 1, 0, 0, 1, 0, 0};
    machine.entryPoint.resize(0x18, 0);
    unsigned sum = 0;
    for (const unsigned char byte : machine.entryPoint)
        sum += byte;
    machine.entryPoint[5] = static_cast<unsigned char>(256 - sum % 256);
    const std::vector<unsigned char> bytes = structure.bytes();
    machine.structures.assign(bytes.begin(), bytes.end());
    const std::uint8_t type = structure.formatted[0];
    ASSERT_EQ(factsOfTheModule(type), factsRead(structure))
        << "type " << unsigned(type) << ", bytes " << testing::PrintToString(bytes);
}
}

Lines factsOfTheModule(std::uint8_t type)
{
    switch (type) {
    case 2:
        return boardFacts();
    case 3:
        return chassisFacts();
    case 7:
        return cacheFacts();
    case 8:
        return portFacts();
    case 9:
        return {"designation " + VQ::GetSlotInstances().at(0).getDesignation()};
    case 11:
        return firmwareFacts();
    case 12:
        return optionFacts();
    default:
        return biosFacts(type == 1);
    }
}

TEST(EveryStructure, OfEachLengthWithEachNumberOfATextIsReadAsASecondReadingDoes)
{
    constexpr std::size_t shortest = 4;
    constexpr std::size_t longest = 40;
    std::size_t structures = 0;
    for (const ReadType& type : ReadTypes) {
        for (std::size_t length = shortest; length <= longest; ++length) {
            for (unsigned char number = 0; number <= 3; ++number) {
                Structure all = structureOf(type, length);
                for (const std::size_t offset : type.texts)
                    setText(all, offset, number);
                expectTheSame(all);
                for (const std::size_t offset : type.texts) {
                    Structure one = structureOf(type, length);
                    for (const std::size_t other : type.texts)
                        setText(one, other, 1);
                    setText(one, offset, number);
                    expectTheSame(one);
                }
                structures += 1 + type.texts.size();
                if (HasFatalFailure())
                    return;
            }
        }
    }
    std::printf("%zu structures\n", structures);
    EXPECT_EQ(structures, 37u * 4 * (10 + 24));
}
