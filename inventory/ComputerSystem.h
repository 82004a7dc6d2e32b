#pragma once

#include <cstdint>
#include <string>

namespace VQ
{

/// The computer system as a whole. The virtualization facts are fixed at construction; every other fact is read anew
/// by its getter. Getters that read the SMBIOS table throw SmBiosError when it is there but can't be read.
class ComputerSystem
{
public:
    /// Asks the virtualization probe library, where there is one. A library that lacks the function it must have
    /// ends the process.
    ComputerSystem();

    /// Asks nobody: not known to be virtualized.
    struct NotAsked
    {
    };
    explicit ComputerSystem(NotAsked) noexcept {}

    /// 1 not virtualized or not known, 3 a Xen guest, 2 a probe that said so only when it was asked again
    std::uint32_t getVirtualType() const { return _virtualType; }
    /// "Xen", or "" when not virtualized or not known
    std::string getVirtualMethod() const { return _virtualMethod; }

    std::string getName() const;         ///< the host name
    std::string getModel() const;        ///< type 1 Product Name (05h), architected part
    std::string getDescription() const;  ///< type 1 Product Name (05h), unarchitected part
    std::string getOwnerName() const;    ///< always ""
    std::string getOwnerContact() const; ///< always ""

private:
    std::uint32_t _virtualType = 1;
    std::string _virtualMethod;
};

ComputerSystem GetComputerSystemInstance();

}
