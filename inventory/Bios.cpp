#include "inventory/Bios.h"

namespace VQ
{

Bios::Bios() = default;
Bios::Bios(const Bios&) = default;
Bios& Bios::operator=(const Bios&) = default;
Bios::~Bios() = default;

}
