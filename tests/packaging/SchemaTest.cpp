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
#include <set>

extern "C" Pegasus::CIMProvider* PegasusCreateProvider(const Pegasus::String& name);

namespace
{
const char* const ClassesFile = VQ_SOURCE_DIR "/schema/SystemProvider.mof";
const char* const RegistrationFile = VQ_SOURCE_DIR "/schema/SystemProviderRegistration.mof";

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

std::vector<MofInstance> registrationsOf(const std::string& className)
{
    std::vector<MofInstance> instances = readMofInstances(RegistrationFile);
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
                ASSERT_NE(found, mofClass.properties.end()) << mofClass.name << "." << name;
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
            EXPECT_EQ(carried.count(property.name), 1u) << mofClass.name << "." << property.name;
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
    std::set<std::string> identifiers;
    for (const MofInstance& capability : registrationsOf("PG_ProviderCapabilities")) {
        const std::string className = capability.values.at("ClassName");
        classes.push_back(className);
        identifiers.insert(capability.values.at("CapabilityID"));
        EXPECT_EQ(capability.values.at("ProviderName"), "SystemProvider");
        EXPECT_EQ(capability.values.at("ProviderModuleName"), "SystemProviderModule");
        EXPECT_EQ(capability.values.at("Namespaces"), "{root/cimv2}");
        EXPECT_EQ(capability.values.at("ProviderType"), className == "QORTAL_OperatingSystem" ? "{2,5}" : "{2}");
        EXPECT_FALSE(instancesOf(className.c_str()).empty()) << className;
    }
    EXPECT_EQ(classes, ServedClasses);
    EXPECT_EQ(identifiers.size(), classes.size());
}
