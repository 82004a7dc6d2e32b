#include "inventory/IpmiFirmware.h"

#include "support/common/DynamicLibrary.h"
#include "support/common/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>

namespace VQ
{

char IPMILib[] = "libqoripmi.so";
void* hLib = nullptr;
interfaceStruct ipmiintStruct[3] = {{"ipmiOpenLocal", nullptr}, {"ipmiClose", nullptr}, {"ipmiBmcGet", nullptr}};

namespace
{
enum Entry
{
    OpenLocal,
    Close,
    BmcGet,
    EntryCount
};

using Session = std::uintptr_t; // an integer or a pointer, the library's affair; 0 is no session
using OpenLocalFunction = Session (*)();
using CloseFunction = void (*)(Session);
using BmcGetFunction = int (*)(Session, void*);

struct Product
{
    unsigned int manufacturerId;
    unsigned int productId;
    const char* name;
};

constexpr std::array<Product, 7> Products = {{
    {2, 0x0003, "Norvik 410 BMC"},
    {2, 0x0004, "Norvik 420 BMC"},
    {2, 0x0006, "Norvik 430 BMC"},
    {2, 0x0007, "Norvik 440 BMC"},
    {2, 0x0043, "NB BMC"},
    {2, 0x8835, "Talvo 510 BMC"},
    {2, 0x8848, "Talvo 520 BMC"},
}};

// The identity buffer that ipmiBmcGet fills. The library may take it for a structure of its own, so it is aligned for
// any.
struct BmcIdentity
{
    alignas(std::max_align_t) unsigned char bytes[32] = {};

    template <class Number> Number at(std::size_t offset) const
    {
        Number value;
        std::memcpy(&value, bytes + offset, sizeof value);
        return value;
    }
    std::uint32_t manufacturerId() const { return at<std::uint32_t>(4); }
    std::uint16_t productId() const { return at<std::uint16_t>(8); }
    unsigned majorRevision() const { return bytes[10]; }
    unsigned minorRevision() const { return bytes[11]; }
};

template <class Function> Function functionAt(Entry entry)
{
    return reinterpret_cast<Function>(ipmiintStruct[entry].function);
}

// The library, open until the end of the scope, and a session with the BMC: both are given back however the reading
// ends.
struct OpenLink
{
    OpenLink() = default;
    ~OpenLink() { closeInterfaceLink(); }
    OpenLink(const OpenLink&) = delete;
    OpenLink& operator=(const OpenLink&) = delete;
};

struct OpenSession
{
    OpenSession() : handle(functionAt<OpenLocalFunction>(OpenLocal)()) {}
    ~OpenSession()
    {
        if (handle != 0)
            functionAt<CloseFunction>(Close)(handle);
    }
    OpenSession(const OpenSession&) = delete;
    OpenSession& operator=(const OpenSession&) = delete;

    const Session handle;
};

Firmware describe(const BmcIdentity& identity)
{
    Firmware firmware;
    firmware.setName(prodStr(identity.manufacturerId(), identity.productId()));
    firmware.setManufacturer(manStr(identity.manufacturerId()));
    char version[16];
    std::snprintf(version, sizeof version, "%u.%u", identity.majorRevision(), identity.minorRevision());
    firmware.setVersion(make_string(version));
    return firmware;
}
}

int openInterfaceLink(char* library, interfaceStruct* table, int count)
{
    hLib = openLibrary(library);
    if (!hLib)
        return 0;
    for (int i = 0; i < count; ++i) {
        if (table[i].name[0] == '\0')
            continue;
        table[i].function = dlsym(hLib, table[i].name);
        if (!table[i].function)
            return 0;
    }
    return 1;
}

void closeInterfaceLink()
{
    if (hLib)
        dlclose(hLib);
}

std::string manStr(unsigned int manufacturerId)
{
    switch (manufacturerId) {
    case 2:
        return "QOR";
    case 343:
        return "Intel";
    default:
        char text[16];
        std::snprintf(text, sizeof text, "0x%.6X", manufacturerId);
        return text;
    }
}

std::string prodStr(unsigned int manufacturerId, unsigned short productId)
{
    for (const Product& product : Products)
        if (product.manufacturerId == manufacturerId && product.productId == productId)
            return product.name;
    char text[16];
    std::snprintf(text, sizeof text, "BMC(0x%.4X)", static_cast<unsigned>(productId));
    return text;
}

std::vector<Firmware> getIpmiFirmwareInstances()
{
    std::vector<Firmware> firmwares;
    if (!openInterfaceLink(IPMILib, ipmiintStruct, EntryCount))
        return firmwares; // a library that lacks a function stays open, as openInterfaceLink says
    const OpenLink link;
    const OpenSession session;
    if (session.handle == 0)
        return firmwares;
    BmcIdentity identity;
    if (functionAt<BmcGetFunction>(BmcGet)(session.handle, identity.bytes) == 0)
        firmwares.push_back(describe(identity));
    return firmwares;
}

}
