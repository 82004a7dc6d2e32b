#pragma once

#include "tests/testing/TableBuilder.h"

#include <cstddef>
#include <string>

// Tables of a size that no sample has, for measurements.

/// A big machine of 620 structures: 8 boards, 64 processors with three caches each, 256 memory devices and what goes
/// with them.
TableBuilder bigMachine();

/// A class that grows with the table, and the structures that it grows with.
struct GrowingClass
{
    const char* name;
    void (*addStructure)(TableBuilder& table, std::size_t number);
};

/// The seven classes that come from the SMBIOS table. A chassis and a computer system are found once, however many
/// structures there are; the BIOS class has one more instance for each OEM string that announces firmware.
extern const GrowingClass GrowingClasses[7];

/// The one of this name.
const GrowingClass& growingClass(const std::string& name);

/// A table of this many structures of the class's type, with the 64-bit entry point that such a size needs.
TableBuilder tableOf(const GrowingClass& growing, std::size_t structures);
