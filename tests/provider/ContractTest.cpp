// What every class of the provider must do, run for each class. A class joins by one line in `Classes`.

#include "tests/testing/CimLines.h"
#include "tests/testing/FullTable.h"
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
    std::size_t instances; ///< over `fullTable()`
};

const ServedClass Classes[] = {
    {"QORTAL_BIOS", 3},       {"QORTAL_Chassis", 1}, {"QORTAL_BaseBoard", 2},      {"QORTAL_CacheMemory", 3},
    {"QORTAL_Port", 2},       {"QORTAL_Slot", 2},    {"QORTAL_ComputerSystem", 1}, {"QORTAL_OperatingSystem", 1},
    {"QORx_SystemMemory", 1},
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
    const bool fromTableOnly = std::string(name()) == "QORTAL_BaseBoard" ||
                               std::string(name()) == "QORTAL_CacheMemory" || std::string(name()) == "QORTAL_Port" ||
                               std::string(name()) == "QORTAL_Slot";
    EXPECT_EQ(before, GetParam().instances);
    EXPECT_EQ(after, fromTableOnly ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(Classes, Contract, testing::ValuesIn(Classes),
                         [](const testing::TestParamInfo<ServedClass>& info) { return std::string(info.param.name); });
