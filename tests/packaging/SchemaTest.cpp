// The MOF files against the provider itself, in both directions.

#include "tests/packaging/Mof.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/FullTable.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <stdexcept>

extern "C" Pegasus::CIMProvider* PegasusCreateProvider(const Pegasus::String& name);

namespace
{
const char* const ClassesFile = VQ_SOURCE_DIR "/schema/SystemProvider.mof";
const char* const RegistrationFile = VQ_SOURCE_DIR "/schema/SystemProviderRegistration.mof";
const char* const MethodsFile = VQ_SOURCE_DIR "/schema/SystemProviderMethods.mof";

const std::vector<std::string> ServedClasses = {
    "QORTAL_BIOS", "QORTAL_Chassis",        "QORTAL_BaseBoard",       "QORTAL_CacheMemory", "QORTAL_Port",
    "QORTAL_Slot", "QORTAL_ComputerSystem", "QORTAL_OperatingSystem", "QORx_SystemMemory"};

std::string typeOf(const Pegasus::CIMInstance& instance, Pegasus::Uint32 position)
{
    const Pegasus::CIMConstProperty property = instance.getProperty(position);
    return std::string(Pegasus::cimTypeToString(property.getType())) + (property.isArray() ? "[]" : "");
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

const MofProperty& schemaOf(const std::string& className, const std::string& name)
{
    static const std::vector<MofClass> classes = readMofClasses(ClassesFile);
    for (const MofClass& mofClass : classes)
        for (const MofProperty& property : mofClass.properties)
            if (mofClass.name == className && property.name == name)
                return property;
    throw std::runtime_error("no " + className + "." + name + " in the schema");
}

// The text that a client finds for a code; empty when there is none.
std::string textOfCode(const char* className, const char* name, unsigned code)
{
    const MofProperty& property = schemaOf(className, name);
    const std::vector<std::string>& codes = property.qualifiers.at("ValueMap");
    auto found = std::find(codes.begin(), codes.end(), std::to_string(code));
    if (found == codes.end())
        found = std::find(codes.begin(), codes.end(), "..");
    return found == codes.end() ? ""
                                : property.qualifiers.at("Values").at(static_cast<std::size_t>(found - codes.begin()));
}

using Texts = std::vector<std::string>;

// What a generic client reads as the unit: Units and PUnit.
Texts unitsOf(const char* className, const char* name)
{
    Texts units;
    for (const char* qualifier : {"Units", "PUnit"}) {
        const auto& qualifiers = schemaOf(className, name).qualifiers;
        const auto found = qualifiers.find(qualifier);
        units.push_back(found == qualifiers.end() ? "" : found->second.at(0));
    }
    return units;
}

std::vector<MofInstance> registrationsOf(const std::string& className, const char* file = RegistrationFile)
{
    std::vector<MofInstance> instances = readMofInstances(file);
    instances.erase(std::remove_if(instances.begin(), instances.end(),
                                   [&className](const MofInstance& i) { return i.className != className; }),
                    instances.end());
    return instances;
}
}

TEST(Schema, DescribesTheServedClassesAndNoOther)
{
    std::vector<std::string> names;
    for (const MofClass& mofClass : readMofClasses(ClassesFile))
        names.push_back(mofClass.name);
    EXPECT_EQ(names, ServedClasses);
}

TEST(Schema, EveryPropertyOfAnInstanceIsInItsClassWithTheSameTypeAndOrder)
{
    const ServedTable table(fullTable());
    for (const MofClass& mofClass : readMofClasses(ClassesFile)) {
        for (const Pegasus::CIMInstance& instance : instancesOf(mofClass.name.c_str())) {
            auto searchFrom = mofClass.properties.begin();
            for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
                const std::string name = text(instance.getProperty(i).getName().getString());
                const auto found = std::find_if(searchFrom, mofClass.properties.end(),
                                                [&name](const MofProperty& p) { return p.name == name; });
                ASSERT_NE(found, mofClass.properties.end())
                    << mofClass.name << "." << name << " is published: " << ClassesFile
                    << " must have it, in the same place (then run scripts/update-docs)";
                EXPECT_EQ(found->type, typeOf(instance, i)) << mofClass.name << "." << name;
                searchFrom = found + 1;
            }
        }
    }
}

TEST(Schema, EveryPropertyOfAClassIsCarriedBySomeInstance)
{
    const ServedTable table(fullTable());
    for (const MofClass& mofClass : readMofClasses(ClassesFile)) {
        std::set<std::string> carried;
        for (const Pegasus::CIMInstance& instance : instancesOf(mofClass.name.c_str()))
            for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i)
                carried.insert(text(instance.getProperty(i).getName().getString()));
        for (const MofProperty& property : mofClass.properties) {
            // The one property that is published only when its value is known, which it never is.
            if (mofClass.name == "QORTAL_OperatingSystem" && property.name == "InstallDate")
                continue;
            EXPECT_EQ(carried.count(property.name), 1u)
                << mofClass.name << "." << property.name << " is in " << ClassesFile
                << ": the class's mapping in provider/ must publish it, over tests/testing/FullTable.cpp";
        }
    }
}

TEST(Schema, KeysAreTheKeysOfThePaths)
{
    const ServedTable table(fullTable());
    for (const MofClass& mofClass : readMofClasses(ClassesFile)) {
        std::set<std::string> marked;
        for (const MofProperty& property : mofClass.properties)
            if (property.key)
                marked.insert(lower(property.name));
        std::set<std::string> bound;
        const Pegasus::CIMObjectPath path = instancesOf(mofClass.name.c_str()).at(0).getPath();
        for (Pegasus::Uint32 i = 0; i < path.getKeyBindings().size(); ++i)
            bound.insert(lower(text(path.getKeyBindings()[i].getName().getString())));
        EXPECT_EQ(marked, bound) << mofClass.name;
    }
}

TEST(Schema, OnlyTheOperatingSystemHasMethods)
{
    for (const MofClass& mofClass : readMofClasses(ClassesFile)) {
        std::vector<std::pair<std::string, std::string>> expected;
        if (mofClass.name == "QORTAL_OperatingSystem")
            expected = {{"Reboot", "uint32"}, {"Shutdown", "uint32"}};
        EXPECT_EQ(mofClass.methods, expected) << mofClass.name;
    }
}

TEST(Schema, EveryCodeHasExactlyOneText)
{
    for (const MofClass& mofClass : readMofClasses(ClassesFile)) {
        for (const MofProperty& property : mofClass.properties) {
            if (property.qualifiers.count("ValueMap") == 0)
                continue;
            const Texts& codes = property.qualifiers.at("ValueMap");
            EXPECT_EQ(property.qualifiers.at("Values").size(), codes.size()) << mofClass.name << "." << property.name;
            EXPECT_EQ(std::set<std::string>(codes.begin(), codes.end()).size(), codes.size())
                << mofClass.name << "." << property.name;
            for (const std::string& text : property.qualifiers.at("Values"))
                EXPECT_NE(text, "") << mofClass.name << "." << property.name;
        }
    }
}

TEST(Schema, EveryByteThatIsHandedOnAsACodeHasAText)
{
    for (unsigned code = 0; code < 256; ++code) {
        EXPECT_NE(textOfCode("QORTAL_CacheMemory", "Associativity", code), "") << code;
        EXPECT_NE(textOfCode("QORTAL_CacheMemory", "CacheType", code), "") << code;
        EXPECT_NE(textOfCode("QORTAL_Port", "PortType", code), "") << code;
        EXPECT_NE(textOfCode("QORTAL_Port", "ConnectorType", code), "") << code;
    }
}

TEST(Schema, EveryCodeThatTheModuleMakesHasAText)
{
    for (const unsigned code : {0u, 3u, 4u, 5u})
        EXPECT_NE(textOfCode("QORTAL_CacheMemory", "Level", code), "") << code;
    for (const unsigned code : {2u, 3u, 4u, 5u})
        EXPECT_NE(textOfCode("QORTAL_CacheMemory", "WritePolicy", code), "") << code;
    for (const unsigned code : {0u, 1u, 2u, 3u})
        EXPECT_NE(textOfCode("QORTAL_CacheMemory", "Location", code), "") << code;
    for (const unsigned code : {1u, 2u, 3u})
        EXPECT_NE(textOfCode("QORTAL_ComputerSystem", "VirtualType", code), "") << code;
    EXPECT_EQ(textOfCode("QORTAL_BIOS", "SoftwareElementState", 3), "Running");
    EXPECT_EQ(textOfCode("QORTAL_BIOS", "TargetOperatingSystem", 66), "Not Applicable");
    EXPECT_EQ(textOfCode("QORTAL_OperatingSystem", "OSType", 36), "Linux");
}

TEST(Schema, CodesOfFirmwareHaveTheTextsOfItsStandard)
{
    const auto connector = [](unsigned code) { return textOfCode("QORTAL_Port", "ConnectorType", code); };
    EXPECT_EQ(connector(0x00), "None");
    EXPECT_EQ(connector(0x08), "DB-9 pin male");
    EXPECT_EQ(connector(0x0B), "RJ-45");
    EXPECT_EQ(connector(0x0F), "PS/2");
    EXPECT_EQ(connector(0x12), "Access Bus (USB)"); // "ATA-2" to CIM_PhysicalConnector
    EXPECT_EQ(connector(0x1F), "Mini-jack (headphones)");
    EXPECT_EQ(connector(0x20), "BNC");
    EXPECT_EQ(connector(0x22), "SAS/SATA Plug Receptacle");
    EXPECT_EQ(connector(0x23), "USB Type-C Receptacle");
    EXPECT_EQ(connector(0x24), "Reserved");
    EXPECT_EQ(connector(0xA0), "PC-98");
    EXPECT_EQ(connector(0xA4), "PC-98Full");
    EXPECT_EQ(connector(0xFF), "Other");
    const auto port = [](unsigned code) { return textOfCode("QORTAL_Port", "PortType", code); };
    EXPECT_EQ(port(0x09), "Serial Port 16550A Compatible");
    EXPECT_EQ(port(0x10), "USB");
    EXPECT_EQ(port(0x1C), "Video Port");
    EXPECT_EQ(port(0x1F), "Network Port");
    EXPECT_EQ(port(0x22), "MFDP (Multi-Function Display Port)");
    EXPECT_EQ(port(0x23), "Thunderbolt");
    EXPECT_EQ(port(0xA1), "8251 FIFO Compatible");
    EXPECT_EQ(port(0xFF), "Other");
    const auto ways = [](unsigned code) { return textOfCode("QORTAL_CacheMemory", "Associativity", code); };
    EXPECT_EQ(ways(0x00), "Not Given"); // a structure that is too short to tell
    EXPECT_EQ(ways(0x07), "8-way Set-Associative");
    EXPECT_EQ(ways(0x09), "12-way Set-Associative");
    EXPECT_EQ(ways(0x0E), "20-way Set-Associative");
    EXPECT_EQ(ways(0x0F), "Reserved");
    EXPECT_EQ(textOfCode("QORTAL_CacheMemory", "CacheType", 5), "Unified");
    EXPECT_EQ(textOfCode("QORTAL_CacheMemory", "Location", 1), "External");
}

TEST(Schema, QuantitiesHaveTheUnitsInWhichTheModuleCounts)
{
    for (const char* name :
         {"FreePhysicalMemory", "FreeSpaceInPagingFiles", "FreeVirtualMemory", "MaxProcessMemorySize",
          "SizeStoredInPagingFiles", "TotalSwapSpaceSize", "TotalVirtualMemorySize", "TotalVisibleMemorySize"})
        EXPECT_EQ(unitsOf("QORTAL_OperatingSystem", name), (Texts{"KiloBytes", "byte * 2^10"})) << name;
    EXPECT_EQ(unitsOf("QORTAL_OperatingSystem", "CurrentTimeZone"), (Texts{"Minutes", "minute"}));
    // CIM_Memory counts its addresses in kilobytes.
    for (const char* name : {"BlockSize", "StartingAddress", "EndingAddress"})
        EXPECT_EQ(unitsOf("QORx_SystemMemory", name), (Texts{"Bytes", "byte"})) << name;
    EXPECT_EQ(unitsOf("QORTAL_CacheMemory", "CacheSpeed"), (Texts{"NanoSeconds", "second * 10^-9"}));
    EXPECT_EQ(unitsOf("QORTAL_CacheMemory", "InstalledSize"), (Texts{"KiloBytes", ""}));
    EXPECT_EQ(unitsOf("QORTAL_CacheMemory", "MaximumInstallableSize"), (Texts{"KiloBytes", ""}));
}

TEST(Registration, NamesTheModuleAndAProviderThatItCreates)
{
    const std::vector<MofInstance> modules = registrationsOf("PG_ProviderModule");
    ASSERT_EQ(modules.size(), 1u);
    EXPECT_EQ(modules[0].values.at("Location"), "SystemProvider"); // libSystemProvider.so
    EXPECT_EQ(modules[0].values.at("InterfaceType"), "C++Default");
    EXPECT_EQ(modules[0].values.at("UserContext"), "4"); // privileged: the table is readable by root only
    EXPECT_EQ(modules[0].values.at("ModuleGroupName"), "SystemProvider");

    const std::vector<MofInstance> providers = registrationsOf("PG_Provider");
    ASSERT_EQ(providers.size(), 1u);
    EXPECT_EQ(providers[0].values.at("ProviderModuleName"), modules[0].values.at("Name"));
    Pegasus::CIMProvider* provider = PegasusCreateProvider(providers[0].values.at("Name").c_str());
    ASSERT_NE(provider, nullptr);
    provider->terminate();
}

TEST(Registration, HasOneCapabilityForEachClassAndTheProviderAnswersToIt)
{
    const ServedTable table(fullTable());
    std::vector<std::string> classes;
    for (const MofInstance& capability : registrationsOf("PG_ProviderCapabilities")) {
        const std::string className = capability.values.at("ClassName");
        classes.push_back(className);
        // vq-register tells by the number which class is registered.
        EXPECT_EQ(capability.values.at("CapabilityID"), std::to_string(classes.size()));
        EXPECT_EQ(capability.values.at("ProviderName"), "SystemProvider");
        EXPECT_EQ(capability.values.at("ProviderModuleName"), "SystemProviderModule");
        EXPECT_EQ(capability.values.at("Namespaces"), "{root/cimv2}");
        EXPECT_EQ(capability.values.at("ProviderType"), "{2}"); // instances
        EXPECT_FALSE(instancesOf(className.c_str()).empty()) << className;
    }
    EXPECT_EQ(classes, ServedClasses);
}

TEST(Registration, HasTheMethodsApart)
{
    ASSERT_EQ(readMofInstances(MethodsFile).size(), 1u);
    const std::vector<MofInstance> capabilities = registrationsOf("PG_ProviderCapabilities", MethodsFile);
    ASSERT_EQ(capabilities.size(), 1u);
    const std::map<std::string, std::string> expected = {{"ProviderModuleName", "SystemProviderModule"},
                                                         {"ProviderName", "SystemProvider"},
                                                         {"CapabilityID", "10"},
                                                         {"ClassName", "QORTAL_OperatingSystem"},
                                                         {"Namespaces", "{root/cimv2}"},
                                                         {"ProviderType", "{5}"}, // methods
                                                         {"SupportedProperties", "NULL"},
                                                         {"SupportedMethods", "NULL"}};
    EXPECT_EQ(capabilities[0].values, expected);
}
