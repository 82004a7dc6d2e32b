#pragma once

#include "tests/testing/TableBuilder.h"

// The machines of the project's own sample tables, below samples/. All names are invented.

/// A file name without extension below samples/, and the table that it holds.
struct Sample
{
    const char* name;
    TableBuilder (*table)();
};

/// A rack server of SMBIOS 2.6 with a 32-bit entry point: two boards, four caches, firmware in its OEM strings, and
/// texts with blanks, Latin-1 and UTF-8 bytes.
TableBuilder serverTable();

/// A desktop of SMBIOS 3.3 with a 64-bit entry point and a short list of structures.
TableBuilder desktopTable();

constexpr Sample Samples[] = {{"server", serverTable}, {"desktop", desktopTable}};
