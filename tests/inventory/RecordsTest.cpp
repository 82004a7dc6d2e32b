// What holds for every record: it is empty by default, and which of them have virtual operations.

#include "inventory/BaseBoard.h"
#include "inventory/Bios.h"
#include "inventory/Cache.h"
#include "inventory/Chassis.h"
#include "inventory/ComputerSystem.h"
#include "inventory/Firmware.h"
#include "inventory/Port.h"
#include "inventory/Slot.h"
#include "tests/testing/CimLines.h"

#include <gtest/gtest.h>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<VQ::Bios> && std::has_virtual_destructor_v<VQ::Firmware>);
static_assert(!std::is_polymorphic_v<VQ::ComputerSystem> && !std::is_polymorphic_v<VQ::BaseBoard>);

namespace
{
template <class Value> void expectEqual(const Value& value, const Value& expected)
{
    EXPECT_EQ(value, expected);
}

// Every getter of a record made by its default constructor gives no text, 0 or no element.
template <class Record, class... Values> void expectEmpty(Values (Record::*... getters)() const)
{
    const Record record;
    (expectEqual((record.*getters)(), Values()), ...);
}
}

TEST(Records, AreEmptyByDefault)
{
    using namespace VQ;
    expectEmpty(&BaseBoard::getManufacturer, &BaseBoard::getSerialNumber, &BaseBoard::getAssetTag,
                &BaseBoard::getVersion, &BaseBoard::getProduct, &BaseBoard::getLocation);
    expectEmpty(&Bios::getVersion, &Bios::getBuildNumber, &Bios::getSmBiosMajorVersion, &Bios::getSmBiosMinorVersion,
                &Bios::getLoadedStartingAddress, &Bios::getLoadedEndingAddress, &Bios::getManufacturer,
                &Bios::getSerialNumber, &Bios::getCurrentLanguage, &Bios::getLanguages);
    EXPECT_FALSE(Bios().getReleaseDate() != DateTime());
    expectEmpty(&Cache::getAssociativity, &Cache::getErrorCorrectionType, &Cache::getLevel, &Cache::getLocation,
                &Cache::getType, &Cache::getWritePolicy, &Cache::getSize, &Cache::getInstalledSize,
                &Cache::getMaximumSize, &Cache::getSpeed, &Cache::getNumberOfBlocks, &Cache::getDesignation,
                &Cache::getPurpose, &Cache::getCurrentSramType, &Cache::getSupportedSramType);
    expectEmpty(&Chassis::getManufacturer, &Chassis::getVersion, &Chassis::getSerialNumber, &Chassis::getAssetTag);
    expectEmpty(&Firmware::getName, &Firmware::getVersion, &Firmware::getManufacturer, &Firmware::getSerialNumber,
                &Firmware::getBuildNumber);
    EXPECT_EQ(text(Firmware().getReleaseDate().toString()), "00000000000000.000000:000");
    expectEmpty(&Port::getManufacturer, &Port::getModel, &Port::getName, &Port::getExternalReferenceDesignator,
                &Port::getInternalReferenceDesignator, &Port::getType, &Port::getConnectors);
    expectEmpty(&Slot::getDesignation);
}

TEST(Records, OfFirmwareAreAssignedWhole)
{
    VQ::Firmware firmware;
    firmware.setName("Diagnostics");
    firmware.setVersion("1.05");
    VQ::Firmware assigned;
    assigned = firmware;
    EXPECT_EQ(assigned.getName(), "Diagnostics");
    EXPECT_EQ(assigned.getVersion(), "1.05");
}
