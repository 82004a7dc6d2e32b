#pragma once

#include <string>
#include <vector>

namespace VQ
{

/// A base board. Empty texts where the firmware does not tell.
class BaseBoard
{
public:
    std::string getManufacturer() const { return _manufacturer; }
    std::string getSerialNumber() const { return _serialNumber; }
    std::string getAssetTag() const { return _assetTag; }
    std::string getVersion() const { return _version; } ///< empty for every board whose product could be read
    std::string getProduct() const { return _product; }
    std::string getLocation() const { return _location; } ///< in the chassis

protected:
    std::string _manufacturer;
    std::string _serialNumber;
    std::string _assetTag;
    std::string _version;
    std::string _product;
    std::string _location;
};

/// One record for each type 2 structure, in table order. Throws SmBiosError when the table is there but can't be read.
std::vector<BaseBoard> GetBaseBoardInstances();

/// The options of all System Configuration Options structures (type 12), in table order. Throws SmBiosError when the
/// table is there but can't be read. Does not return for a structure that announces 255 options.
std::vector<std::string> getConfigurationOptions();

}
