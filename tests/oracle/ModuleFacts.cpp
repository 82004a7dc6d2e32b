#include "tests/oracle/Facts.h"

#include "inventory/BaseBoard.h"
#include "inventory/Cache.h"
#include "inventory/Chassis.h"
#include "support/pegasus/CimText.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <Pegasus/Common/CIMInstance.h>

#include <sstream>
#include <stdexcept>

using Pegasus::CIMInstance;

namespace
{
// A property that an instance does not have counts as empty.
std::string published(const CIMInstance& instance, const char* property)
{
    const std::string value = valueOf(instance, property);
    return value == "absent" ? "" : value;
}

unsigned code(const CIMInstance& instance, const char* property)
{
    return static_cast<unsigned>(std::stoul(valueOf(instance, property)));
}

void add(Facts& facts, const std::string& name, const CIMInstance& instance,
         std::initializer_list<const char*> properties)
{
    for (const char* property : properties)
        facts[name + "." + property] = published(instance, property);
}

// The instances of a class, under the names that their facts have.
std::map<std::string, CIMInstance> named(Facts& facts, const std::string& name)
{
    std::map<std::string, CIMInstance> instances;
    for (const CIMInstance& instance : instancesOf(("QORTAL_" + name).c_str()))
        instances[name + "[" + std::to_string(instances.size()) + "]"] = instance;
    facts[name + " count"] = std::to_string(instances.size());
    return instances;
}

std::string element(const std::string& name, std::size_t index)
{
    return name + "[" + std::to_string(index) + "]";
}

std::string cimText(const std::string& bytes)
{
    return text(VQ::make_String(bytes));
}

void addBios(Facts& facts)
{
    const std::vector<CIMInstance> instances = instancesOf("QORTAL_BIOS");
    facts["Firmware count"] = std::to_string(instances.size() - 1);
    add(facts, "BIOS", instances.at(0),
        {"Version", "BuildNumber", "Manufacturer", "SerialNumber", "CurrentLanguage", "ListOfLanguages",
         "LoadedStartingAddress", "LoadedEndingAddress", "ReleaseDate", "SMBIOSBIOSVersion", "SMBIOSMajorVersion",
         "SMBIOSMinorVersion"});
    for (std::size_t i = 1; i < instances.size(); ++i)
        add(facts, element("Firmware", i - 1), instances[i], {"Name", "Version", "BuildNumber"});
}

void addChassis(Facts& facts)
{
    for (const auto& [name, instance] : named(facts, "Chassis")) {
        add(facts, name, instance, {"Manufacturer", "SerialNumber", "Version"});
        facts[name + ".asset tag"] = cimText(VQ::GetChassisInstance().getAssetTag());
    }
}

void addBoards(Facts& facts)
{
    for (const auto& [name, instance] : named(facts, "BaseBoard"))
        add(facts, name, instance, {"Manufacturer", "SerialNumber", "Version", "LocationInChassis", "ConfigOptions"});
    const std::vector<VQ::BaseBoard> boards = VQ::GetBaseBoardInstances();
    for (std::size_t i = 0; i < boards.size(); ++i) {
        facts[element("BaseBoard", i) + ".asset tag"] = cimText(boards[i].getAssetTag());
        facts[element("BaseBoard", i) + ".product"] = cimText(boards[i].getProduct());
    }
}

void addCaches(Facts& facts)
{
    for (const auto& [name, instance] : named(facts, "CacheMemory")) {
        add(facts, name, instance,
            {"Name", "Purpose", "Level", "WritePolicy", "CacheSpeed", "MaximumInstallableSize", "InstalledSize"});
        facts[name + ".Location"] = cacheLocationText(code(instance, "Location"));
        facts[name + ".CacheType"] = cacheTypeText(code(instance, "CacheType"));
        facts[name + ".Associativity"] = cacheAssociativityText(code(instance, "Associativity"));
    }
    const std::vector<VQ::Cache> caches = VQ::GetCacheInstances();
    for (std::size_t i = 0; i < caches.size(); ++i)
        facts[element("CacheMemory", i) + ".error correction"] =
            cacheErrorCorrectionText(caches[i].getErrorCorrectionType());
}

void addPorts(Facts& facts)
{
    for (const auto& [name, instance] : named(facts, "Port")) {
        add(facts, name, instance, {"Name", "ExternalReferenceDesignator", "InternalReferenceDesignator"});
        facts[name + ".PortType"] = portTypeText(code(instance, "PortType"));
        std::istringstream connectors(valueOf(instance, "ConnectorType"));
        unsigned internal;
        unsigned external;
        if (!(connectors >> internal >> external) || !(connectors >> std::ws).eof())
            throw std::runtime_error(name + " has not two connector types");
        facts[name + ".ConnectorType"] = listText({connectorTypeText(internal), connectorTypeText(external)});
    }
}
}

Facts moduleFacts(const std::string& dumpFile)
{
    const ServedTable table(dumpFile);
    Facts facts;
    addBios(facts);
    addChassis(facts);
    addBoards(facts);
    addCaches(facts);
    addPorts(facts);
    for (const auto& [name, instance] : named(facts, "Slot"))
        add(facts, name, instance, {"Name", "Tag"});
    for (const auto& [name, instance] : named(facts, "ComputerSystem"))
        add(facts, name, instance, {"Description", "Model"});
    return facts;
}
