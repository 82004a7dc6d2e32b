#pragma once

#include "inventory/Bios.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads the BIOS from the structures of type 0, 1 and 13.
class SmBiosBios : public Bios
{
public:
    SmBiosBios();

private:
    void readVersion(const SmBios::Table& bios);
    void readReleaseDate(const SmBios::Table& bios);
    void readAddresses(const SmBios::Table& bios);
    void readLanguages(const SmBios::Table& language);
};

}
