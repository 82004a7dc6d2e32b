#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>

#include <cstddef>
#include <string>
#include <vector>

// The least that the module's work can cost: what its figures are compared with.

/// Finds the end of each structure, looks at nothing else and copies nothing. The number of structures.
std::size_t structuresIn(const unsigned char* data, std::size_t size);

/// The instances of the cache class, with all that does not change from one to the next made beforehand. There is no
/// record behind them and nothing is asked: what varies is ready text and ready numbers.
class CacheFloor
{
public:
    explicit CacheFloor(std::size_t caches);
    void deliver(std::size_t index, Pegasus::InstanceResponseHandler& handler) const;

private:
    std::vector<std::string> _designations;
    std::vector<std::string> _devices;
    Pegasus::CIMName _class;
    std::vector<Pegasus::CIMName> _names;
    std::vector<Pegasus::CIMValue> _constants; // null where the value varies
    std::vector<Pegasus::CIMKeyBinding> _constantKeys;
    Pegasus::CIMName _deviceId;
    Pegasus::CIMName _systemName;
};
