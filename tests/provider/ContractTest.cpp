// What every class of the provider must do, run for each class. A class joins by one line in `Classes`.

#include "tests/testing/CimLines.h"
#include "tests/testing/FullTable.h"
#include "tests/testing/LargeTables.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>

using namespace Pegasus;

namespace
{
struct ServedClass
{
    const char* name;
    std::size_t instances;         ///< over `fullTable()`
    std::size_t withoutStructures; ///< over a table without the class's own
};

const ServedClass Classes[] = {
    {"QORTAL_BIOS", 3, 1},           {"QORTAL_Chassis", 1, 1},
    {"QORTAL_BaseBoard", 2, 0},      {"QORTAL_CacheMemory", 3, 0},
    {"QORTAL_Port", 2, 0},           {"QORTAL_Slot", 2, 0},
    {"QORTAL_ComputerSystem", 1, 1}, {"QORTAL_OperatingSystem", 1, 1},
    {"QORx_SystemMemory", 1, 1},
};

std::string inCase(std::string name, int (*convert)(int))
{
    std::transform(name.begin(), name.end(), name.begin(), [convert](char c) { return static_cast<char>(convert(c)); });
    return name;
}

std::vector<std::string> allButVolatile(const CIMInstance& instance)
{
    // Figures of the running system that change from one request to the next.
    static const char* const Volatile[] = {"FreePhysicalMemory", "NumberOfProcesses", "LocalDateTime",
                                           "LastBootUpTime"};
    std::vector<std::string> lines = propertyLines(instance);
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const std::string& line) {
                                   return std::any_of(std::begin(Volatile), std::end(Volatile),
                                                      [&line](const char* name) {
                                                          return line.rfind(std::string(name) + " |", 0) == 0;
                                                      });
                               }),
                lines.end());
    return lines;
}

class Contract : public testing::TestWithParam<ServedClass>
{
protected:
    const char* name() const { return GetParam().name; }

    std::vector<CIMInstance> enumerated(const std::string& className)
    {
        RecordingInstanceHandler handler;
        provider.enumerate(pathOf(className.c_str()), handler);
        return handler.instances;
    }

    // What getInstance does for a path: the handler's calls and what was delivered.
    RecordingInstanceHandler got(const CIMObjectPath& path)
    {
        RecordingInstanceHandler handler;
        provider.get(path, handler);
        return handler;
    }

    // Nothing found, and no error.
    void expectNothing(const CIMObjectPath& path)
    {
        const std::vector<std::string> emptyAnswer = {"processing", "complete"};
        EXPECT_EQ(got(path).calls, emptyAnswer) << text(path.toString());
    }

    ServedTable table{fullTable()};
    TestProvider provider;
};
}

TEST_P(Contract, EnumerationDeliversOneInstanceAtATimeBetweenProcessingAndComplete)
{
    RecordingInstanceHandler handler;
    provider.enumerate(pathOf(name()), handler);
    std::vector<std::string> expected = {"processing"};
    expected.insert(expected.end(), GetParam().instances, "instance");
    expected.push_back("complete");
    EXPECT_EQ(handler.calls, expected);
}

TEST_P(Contract, EnumerationWithoutItsStructuresIsWhole)
{
    table.replace(TableBuilder().type(12).byte(0x04, 1).string("JP1").type(126).type(127));
    RecordingInstanceHandler handler;
    provider.enumerate(pathOf(name()), handler);
    std::vector<std::string> expected = {"processing"};
    expected.insert(expected.end(), GetParam().withoutStructures, "instance");
    expected.push_back("complete");
    EXPECT_EQ(handler.calls, expected);
}

TEST_P(Contract, NamesAreThePathsOfTheInstancesInTheirOrder)
{
    RecordingPathHandler handler;
    provider.enumerateNames(pathOf(name()), handler);
    std::vector<std::string> expected = {"processing"};
    expected.insert(expected.end(), GetParam().instances, "path");
    expected.push_back("complete");
    EXPECT_EQ(handler.calls, expected);
    const std::vector<CIMInstance> instances = enumerated(name());
    ASSERT_EQ(handler.paths.size(), instances.size());
    for (std::size_t i = 0; i < instances.size(); ++i)
        EXPECT_EQ(text(handler.paths[i].toString()), text(instances[i].getPath().toString()));
}

TEST_P(Contract, EveryDeliveredPathGetsItsInstance)
{
    for (const CIMInstance& instance : enumerated(name())) {
        const RecordingInstanceHandler answer = got(instance.getPath());
        const std::vector<std::string> oneInstance = {"processing", "instance", "complete"};
        ASSERT_EQ(answer.calls, oneInstance) << text(instance.getPath().toString());
        EXPECT_EQ(allButVolatile(answer.instances[0]), allButVolatile(instance));
        EXPECT_EQ(text(answer.instances[0].getPath().toString()), text(instance.getPath().toString()));
    }
}

TEST_P(Contract, PathHasNeitherHostNorNamespace)
{
    for (const CIMInstance& instance : enumerated(name())) {
        EXPECT_EQ(text(instance.getPath().getHost()), "");
        EXPECT_TRUE(instance.getPath().getNameSpace().isNull());
    }
}

TEST_P(Contract, ClassNameIsDeliveredAsTheClientWroteIt)
{
    for (const std::string& written : {inCase(name(), std::tolower), inCase(name(), std::toupper)}) {
        const std::vector<CIMInstance> instances = enumerated(written);
        ASSERT_EQ(instances.size(), GetParam().instances);
        for (const CIMInstance& instance : instances) {
            EXPECT_EQ(text(instance.getClassName().getString()), written);
            EXPECT_EQ(text(instance.getPath().getClassName().getString()), written);
        }
    }
}

TEST_P(Contract, ValuesAndKeysAreTheSameHoweverTheClientWritesTheClass)
{
    // But for one: the system memory's own class name is the client's.
    const std::string ownName = std::string(name()) == "QORx_SystemMemory" ? "CreationClassName | " : "none";
    const auto same = [&ownName](const std::vector<std::string>& written, const std::vector<std::string>& expected) {
        ASSERT_EQ(written.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (expected[i].rfind(ownName, 0) == 0)
                continue;
            EXPECT_EQ(written[i], expected[i]);
        }
    };
    const std::vector<CIMInstance> expected = enumerated(name());
    for (const std::string& written : {inCase(name(), std::tolower), inCase(name(), std::toupper)}) {
        const std::vector<CIMInstance> instances = enumerated(written);
        ASSERT_EQ(instances.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            same(allButVolatile(instances[i]), allButVolatile(expected[i]));
            same(keyLines(instances[i].getPath()), keyLines(expected[i].getPath()));
        }
    }
}

TEST_P(Contract, EveryKeyIsAPropertyOfItsInstance)
{
    for (const CIMInstance& instance : enumerated(name())) {
        const Array<CIMKeyBinding> keys = instance.getPath().getKeyBindings();
        ASSERT_GT(keys.size(), 0u);
        for (Uint32 i = 0; i < keys.size(); ++i) {
            const Uint32 position = instance.findProperty(keys[i].getName());
            ASSERT_NE(position, PEG_NOT_FOUND) << text(keys[i].getName().getString());
            const CIMConstProperty property = instance.getProperty(position);
            EXPECT_EQ(text(keys[i].getValue()), text(property.getValue().toString()));
        }
    }
}

TEST_P(Contract, HostAndNamespaceOfARequestAreIgnored)
{
    for (const CIMInstance& instance : enumerated(name())) {
        CIMObjectPath elsewhere = instance.getPath();
        elsewhere.setHost("other.example");
        elsewhere.setNameSpace(CIMNamespaceName("root/other"));
        EXPECT_EQ(got(elsewhere).instances.size(), 1u);
    }
}

TEST_P(Contract, PropertyListDoesNotLimitTheProperties)
{
    Array<CIMName> one;
    one.append(CIMName("Caption"));
    RecordingInstanceHandler handler;
    provider.instances().enumerateInstances(OperationContext(), pathOf(name()), true, true, CIMPropertyList(one),
                                            handler);
    const std::vector<CIMInstance> whole = enumerated(name());
    ASSERT_EQ(handler.instances.size(), whole.size());
    for (std::size_t i = 0; i < whole.size(); ++i)
        EXPECT_EQ(allButVolatile(handler.instances[i]), allButVolatile(whole[i]));

    RecordingInstanceHandler single;
    provider.instances().getInstance(OperationContext(), whole[0].getPath(), true, true, CIMPropertyList(one), single);
    ASSERT_EQ(single.instances.size(), 1u);
    EXPECT_EQ(allButVolatile(single.instances[0]), allButVolatile(whole[0]));
}

TEST_P(Contract, InstancesCarryNoQualifiersAndNoClassOrigin)
{
    RecordingInstanceHandler handler;
    provider.instances().enumerateInstances(OperationContext(), pathOf(name()), true, true, CIMPropertyList(), handler);
    for (const CIMInstance& instance : handler.instances) {
        for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
            const CIMConstProperty property = instance.getProperty(i);
            EXPECT_EQ(property.getQualifierCount(), 0u);
            EXPECT_TRUE(property.getClassOrigin().isNull());
            EXPECT_FALSE(property.getPropagated());
        }
    }
}

TEST_P(Contract, PropertiesHaveNoFixedArraySize)
{
    std::vector<CIMInstance> instances = enumerated(name());
    for (CIMInstance& instance : instances) {
        for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
            const CIMProperty property = instance.getProperty(i);
            EXPECT_EQ(property.getArraySize(), 0u) << text(property.getName().getString());
        }
    }
}

TEST_P(Contract, PathWithAMissingKeyFindsNothing)
{
    for (const CIMInstance& instance : enumerated(name())) {
        for (Uint32 i = 0; i < instance.getPath().getKeyBindings().size(); ++i) {
            CIMObjectPath shorter = instance.getPath();
            Array<CIMKeyBinding> keys = shorter.getKeyBindings();
            keys.remove(i);
            shorter.setKeyBindings(keys);
            expectNothing(shorter);
        }
    }
    expectNothing(pathOf(name()));
}

TEST_P(Contract, PathWithAnExtraKeyFindsNothing)
{
    CIMObjectPath longer = enumerated(name())[0].getPath();
    Array<CIMKeyBinding> keys = longer.getKeyBindings();
    keys.append(CIMKeyBinding(CIMName("Extra"), String("1"), CIMKeyBinding::STRING));
    longer.setKeyBindings(keys);
    expectNothing(longer);
}

TEST_P(Contract, PathWithAWrongKeyValueFindsNothing)
{
    const CIMObjectPath path = enumerated(name())[0].getPath();
    for (Uint32 i = 0; i < path.getKeyBindings().size(); ++i) {
        CIMObjectPath other = path;
        Array<CIMKeyBinding> keys = other.getKeyBindings();
        keys[i].setValue(keys[i].getType() == CIMKeyBinding::NUMERIC ? "12345" : "no such value");
        other.setKeyBindings(keys);
        expectNothing(other);
    }
}

TEST_P(Contract, PathWithAnotherKeyNameFindsNothing)
{
    CIMObjectPath other = enumerated(name())[0].getPath();
    Array<CIMKeyBinding> keys = other.getKeyBindings();
    keys[0].setName(CIMName("Other"));
    other.setKeyBindings(keys);
    expectNothing(other);
}

TEST_P(Contract, EachRequestReadsTheCurrentTable)
{
    const std::size_t before = enumerated(name()).size();
    table.replace(TableBuilder().type(127));
    const std::size_t after = enumerated(name()).size();
    EXPECT_EQ(before, GetParam().instances);
    EXPECT_EQ(after, GetParam().withoutStructures);
}

namespace
{
// A class with an instance for each structure of a type.
struct ListedClass
{
    const char* name;
    const char* key;     ///< that tells the instances apart
    const char* keyText; ///< before the instance's number
    const char* property;
    const char* text; ///< before the structure's number
};

class Listed : public testing::TestWithParam<ListedClass>
{
};
}

TEST_P(Listed, InstancesOf300StructuresAreNumberedInTableOrder)
{
    const ServedTable table(tableOf(growingClass(GetParam().name), 300));
    const std::vector<CIMInstance> instances = instancesOf(GetParam().name);
    ASSERT_EQ(instances.size(), 300u);
    for (std::size_t i = 0; i < instances.size(); ++i) {
        EXPECT_EQ(valueOf(instances[i], GetParam().key), GetParam().keyText + std::to_string(i));
        EXPECT_EQ(valueOf(instances[i], GetParam().property), GetParam().text + std::to_string(i));
    }
}

INSTANTIATE_TEST_SUITE_P(Classes, Listed,
                         testing::Values(ListedClass{"QORTAL_BaseBoard", "Tag", "BaseBoard", "SerialNumber", "BD"},
                                         ListedClass{"QORTAL_CacheMemory", "DeviceID", "Cache", "Name", "Cache "},
                                         ListedClass{"QORTAL_Port", "Tag", "PortConnector", "Name", "USB "},
                                         ListedClass{"QORTAL_Slot", "Tag", "PCI Express x16 ", "Name",
                                                     "PCI Express x16 "}),
                         [](const testing::TestParamInfo<ListedClass>& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(Classes, Contract, testing::ValuesIn(Classes),
                         [](const testing::TestParamInfo<ServedClass>& info) { return std::string(info.param.name); });
