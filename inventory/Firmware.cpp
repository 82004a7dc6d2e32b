#include "inventory/Firmware.h"

#include <utility>

namespace VQ
{

Firmware::Firmware() = default;
Firmware::Firmware(const Firmware&) = default;
Firmware& Firmware::operator=(const Firmware&) = default;
Firmware::~Firmware() = default;

void Firmware::setName(std::string name)
{
    _name = std::move(name);
}

void Firmware::setVersion(std::string version)
{
    _version = std::move(version);
}

void Firmware::setManufacturer(std::string manufacturer)
{
    _manufacturer = std::move(manufacturer);
}

}
