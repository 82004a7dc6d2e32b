#include "bench/Floors.h"

#include <cstring>

using namespace Pegasus;

std::size_t structuresIn(const unsigned char* data, std::size_t size)
{
    const unsigned char* const end = data + size;
    std::size_t count = 0;
    while (end - data >= 6) {
        const unsigned char* next = data + data[1];
        while ((next = static_cast<const unsigned char*>(std::memchr(next, 0, static_cast<std::size_t>(end - next))))) {
            if (next + 1 == end || next[1] == 0)
                break;
            ++next;
        }
        ++count;
        if (!next || data[0] == 127)
            break;
        data = next + 2;
    }
    return count;
}

namespace
{
enum Place
{
    Name = 2,
    DeviceId = 5,
    SystemName = 7,
    NumberOfBlocks = 8,
    Purpose = 9,
    FirstNumber = 10,
    CacheSpeed = 14,
    MaximumSize = 15,
    InstalledSize = 17,
    PropertyCount = 18
};

constexpr const char* Names[PropertyCount] = {"Caption",
                                              "Description",
                                              "Name",
                                              "Status",
                                              "CreationClassName",
                                              "DeviceID",
                                              "SystemCreationClassName",
                                              "SystemName",
                                              "NumberOfBlocks",
                                              "Purpose",
                                              "Associativity",
                                              "CacheType",
                                              "Level",
                                              "WritePolicy",
                                              "CacheSpeed",
                                              "MaximumInstallableSize",
                                              "Location",
                                              "InstalledSize"};

CIMValue constantAt(int place)
{
    switch (place) {
    case 0:
    case 1:
        return CIMValue(String("Cache"));
    case 3:
        return CIMValue(String("Unknown"));
    case 4:
        return CIMValue(String("QORTAL_CacheMemory"));
    case 6:
        return CIMValue(String("QORTAL_ComputerSystem"));
    default:
        return CIMValue();
    }
}
}

CacheFloor::CacheFloor(std::size_t caches)
    : _class("QORTAL_CacheMemory"), _deviceId("DeviceID"), _systemName("SystemName")
{
    for (int i = 0; i < PropertyCount; ++i) {
        _names.emplace_back(Names[i]);
        _constants.push_back(constantAt(i));
    }
    for (std::size_t i = 0; i < caches; ++i) {
        _designations.push_back("Cache " + std::to_string(i));
        _devices.push_back("Cache" + std::to_string(i));
    }
    _constantKeys = {{CIMName("CreationClassName"), String("QORTAL_CacheMemory"), CIMKeyBinding::STRING},
                     {CIMName("SystemCreationClassName"), String("QORTAL_ComputerSystem"), CIMKeyBinding::STRING}};
}

void CacheFloor::deliver(std::size_t index, InstanceResponseHandler& handler) const
{
    const CIMName none;
    const char* designation = _designations[index].c_str();
    const String device(_devices[index].c_str());
    const String host("host.example");

    CIMInstance instance(_class);
    for (int i = 0; i < PropertyCount; ++i) {
        CIMValue value = _constants[static_cast<std::size_t>(i)];
        if (i == Name || i == Purpose)
            value = CIMValue(String(designation));
        else if (i == DeviceId)
            value = CIMValue(device);
        else if (i == SystemName)
            value = CIMValue(host);
        else if (i == NumberOfBlocks)
            value = CIMValue(Uint64{256});
        else if (i == CacheSpeed || i == MaximumSize || i == InstalledSize)
            value = CIMValue(Uint32{16384});
        else if (i >= FirstNumber)
            value = CIMValue(Uint16{5});
        instance.addProperty(CIMProperty(_names[static_cast<std::size_t>(i)], value, 0, none, none, false));
    }
    Array<CIMKeyBinding> keys;
    keys.append(_constantKeys[0]);
    keys.append(CIMKeyBinding(_deviceId, device, CIMKeyBinding::STRING));
    keys.append(_constantKeys[1]);
    keys.append(CIMKeyBinding(_systemName, host, CIMKeyBinding::STRING));
    CIMObjectPath path = instance.getPath();
    path.setKeyBindings(keys);
    instance.setPath(path);
    handler.deliver(instance);
}
