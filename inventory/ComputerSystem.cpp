#include "inventory/ComputerSystem.h"

#include "inventory/Selection.h"
#include "support/common/DynamicLibrary.h"
#include "support/common/ProductName.h"
#include "support/common/System.h"
#include "support/common/Text.h"
#include "support/smbios/TableTypes.h"

namespace VQ
{

namespace
{
constexpr const wchar_t* ProbeLibrary = L"../lib/libqorxenprobe.so";
constexpr const wchar_t* GuestSymbol = L"running_in_xen_domU";
constexpr const wchar_t* ControlSymbol = L"running_in_xen_dom0";
constexpr std::uint32_t VirtualTypeAskedAgain = 2;
constexpr std::uint32_t VirtualTypeGuest = 3;

using Probe = int (*)();

// The Product Name of the first type 1 structure, split; both parts empty when there is none.
ProductName systemProductName()
{
    const SmBios smBios;
    const SmBios::Table* found = firstCountedIn8Bits(smBios, 1);
    if (!found)
        return ProductName("");
    const TableType1 system(*found);
    return ProductName(make_string(system.getString(system.getByte(0x05)))); // Product Name
}
}

ComputerSystem::ComputerSystem()
{
    DynamicLibrary library(ProbeLibrary);
    if (!library.load())
        return;
    const auto guest = reinterpret_cast<Probe>(library.getSymbol(GuestSymbol));
    // The control domain's function is looked up and never called; the guest function is called a second time instead.
    // Callers take type 1 for a control domain, too: asking the other function would make it a 2, which they read as a
    // guest that the probe is not sure of.
    library.getSymbol(ControlSymbol);
    if (guest() != 0) {
        _virtualType = VirtualTypeGuest;
        _virtualMethod = "Xen";
    } else if (guest() != 0) {
        _virtualType = VirtualTypeAskedAgain;
        _virtualMethod = "Xen";
    }
    library.unload();
}

std::string ComputerSystem::getName() const
{
    return make_string(System::getName());
}

std::string ComputerSystem::getModel() const
{
    return systemProductName().getArchitectedData();
}

std::string ComputerSystem::getDescription() const
{
    return systemProductName().getUnarchitectedData();
}

std::string ComputerSystem::getOwnerName() const
{
    return {};
}

std::string ComputerSystem::getOwnerContact() const
{
    return {};
}

ComputerSystem GetComputerSystemInstance()
{
    return ComputerSystem();
}

}
