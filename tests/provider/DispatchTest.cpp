// Which class serves a request, the operations that are refused or derived, and how failures leave a request.

#include "provider/SystemProvider.h"
#include "support/smbios/SmBios.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"
#include "tests/testing/ServedTable.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/OperationContext.h>

#include <functional>
#include <gtest/gtest.h>

using namespace Pegasus;
using Calls = std::vector<std::string>;

namespace
{
const char* const AllClasses[] = {
    "QORTAL_BIOS", "QORTAL_Chassis",        "QORTAL_BaseBoard",       "QORTAL_CacheMemory", "QORTAL_Port",
    "QORTAL_Slot", "QORTAL_ComputerSystem", "QORTAL_OperatingSystem", "QORx_SystemMemory",
};

// "7: SystemProvider::createInstance" of the CIM exception that the operation throws.
std::string cimErrorOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const CIMException& exception) {
        return std::to_string(exception.getCode()) + ": " + text(exception.getMessage());
    }
    return "no exception";
}

CIMObjectPath pathWith(const char* className, const char* key, const char* value)
{
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName(key), String(value), CIMKeyBinding::STRING));
    return pathOf(className, keys);
}

// An exception that no library throws, so that it is recognised where it arrives.
struct HandlerFailure
{
    std::string where;
};

// A client's handler that fails on one delivery.
class FailingHandler : public RecordingInstanceHandler
{
public:
    explicit FailingHandler(std::size_t failing) : _failing(failing) {}
    using RecordingInstanceHandler::deliver;
    void deliver(const CIMInstance& instance) override
    {
        RecordingInstanceHandler::deliver(instance);
        if (instances.size() == _failing)
            throw HandlerFailure{text(instance.getClassName().getString())};
    }

private:
    std::size_t _failing; ///< counted from 1
};

// A provider whose own enumeration is another one, to see what the derived operations ask of it.
class OtherEnumeration : public VQ::SystemProvider
{
public:
    void enumerateInstances(const OperationContext&, const CIMObjectPath& classReference,
                            const Boolean includeQualifiers, const Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList, InstanceResponseHandler& handler) override
    {
        asked = text(classReference.getClassName().getString());
        qualifiers = includeQualifiers;
        classOrigin = includeClassOrigin;
        everyProperty = propertyList.isNull();
        handler.processing();
        for (const char* name : {"One", "Two"}) {
            CIMInstance instance{CIMName("Other")};
            instance.setPath(pathWith("Other", "Name", name));
            handler.deliver(instance);
        }
        handler.complete();
    }
    std::string asked;
    bool qualifiers = true;
    bool classOrigin = true;
    bool everyProperty = false;
};

CIMPropertyList captionOnly()
{
    Array<CIMName> names;
    names.append(CIMName("Caption"));
    return CIMPropertyList(names);
}

class Dispatch : public testing::Test
{
protected:
    TestProvider provider;
    RecordingInstanceHandler instances;
    RecordingPathHandler paths;
};
using Refused = Dispatch;
using Failure = Dispatch;
}

TEST_F(Dispatch, ClassThatIsNotServedIsAnInvalidClassWithoutAnyCall)
{
    for (const char* name : {"CIM_ComputerSystem", "QORTAL_BIO", "QORTAL_BIOSX", "QORTAL_SystemMemory", "X"}) {
        EXPECT_EQ(cimErrorOf([&] { provider.enumerate(pathOf(name), instances); }), "5: ") << name;
        EXPECT_EQ(instances.calls, Calls{}) << name;
    }
}

TEST_F(Dispatch, NoClassIsAnInvalidClass)
{
    EXPECT_EQ(cimErrorOf([&] { provider.enumerate(CIMObjectPath(), instances); }), "5: ");
    EXPECT_EQ(instances.calls, Calls{});
}

TEST_F(Dispatch, NamesOfAnInvalidClassHaveBegunButNotCompleted)
{
    EXPECT_EQ(cimErrorOf([&] { provider.enumerateNames(pathOf("CIM_ComputerSystem"), paths); }), "5: ");
    EXPECT_EQ(paths.calls, Calls{"processing"});
}

TEST_F(Dispatch, GetOfAnInvalidClassHasBegunButNotCompleted)
{
    const CIMObjectPath path = pathWith("CIM_ComputerSystem", "Name", "x");
    EXPECT_EQ(cimErrorOf([&] { provider.get(path, instances); }), "5: ");
    EXPECT_EQ(instances.calls, Calls{"processing"});
}

TEST_F(Dispatch, KeysOfAClassReferenceAreIgnoredByAnEnumeration)
{
    provider.enumerate(pathWith("QORTAL_ComputerSystem", "Name", "no such host"), instances);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance", "complete"}));
}

TEST_F(Dispatch, ClassWithoutRecordsIsAnEmptyAnswer)
{
    provider.enumerate(pathOf("QORTAL_Slot"), instances);
    EXPECT_EQ(instances.calls, (Calls{"processing", "complete"}));
    provider.enumerateNames(pathOf("QORTAL_Slot"), paths);
    EXPECT_EQ(paths.calls, (Calls{"processing", "complete"}));
}

TEST_F(Dispatch, FirstInstanceOfSeveralWithTheSamePathIsGot)
{
    // Name and version are keys, the build number is not.
    TableBuilder table;
    table.type(11).byte(0x04, 2).string("Diagnostics -[XXYT01-1.02]-").string("Diagnostics -[XXYT02-1.02]-").type(127);
    const ServedTable served(table);
    provider.enumerate(pathOf("QORTAL_BIOS"), instances);
    ASSERT_EQ(instances.instances.size(), 3u);
    EXPECT_EQ(text(instances.instances[1].getPath().toString()), text(instances.instances[2].getPath().toString()));
    ASSERT_NE(valueOf(instances.instances[1], "BuildNumber"), valueOf(instances.instances[2], "BuildNumber"));

    RecordingInstanceHandler got;
    provider.get(instances.instances[2].getPath(), got);
    EXPECT_EQ(got.calls, (Calls{"processing", "instance", "complete"}));
    EXPECT_EQ(propertyLines(got.instances.at(0)), propertyLines(instances.instances[1]));
}

TEST_F(Dispatch, SlotsDesignatedAlikeAreBothNamedAndOneIsGot)
{
    const ServedTable served(TableBuilder().type(9).string(0x04, "PCI").type(9).string(0x04, "PCI").type(127));
    provider.enumerateNames(pathOf("QORTAL_Slot"), paths);
    ASSERT_EQ(paths.paths.size(), 2u);
    EXPECT_EQ(text(paths.paths[0].toString()), text(paths.paths[1].toString()));
    provider.get(paths.paths[1], instances);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance", "complete"}));
}

TEST_F(Dispatch, KeyValuesAreComparedInTheirLetterCaseAndKeyNamesWithoutIt)
{
    const ServedTable served(TableBuilder().type(9).string(0x04, "PCI").type(127));
    const auto got = [&](const char* name, const char* value) {
        Array<CIMKeyBinding> keys;
        keys.append(CIMKeyBinding(CIMName("CREATIONCLASSNAME"), String("QORTAL_Slot"), CIMKeyBinding::STRING));
        keys.append(CIMKeyBinding(CIMName(name), String(value), CIMKeyBinding::STRING));
        RecordingInstanceHandler handler;
        provider.get(pathOf("qortal_slot", keys), handler);
        return handler.instances.size();
    };
    EXPECT_EQ(got("Tag", "PCI"), 1u);
    EXPECT_EQ(got("tag", "PCI"), 1u);
    EXPECT_EQ(got("Tag", "pci"), 0u);
}

TEST_F(Dispatch, DerivedOperationsEnumerateThroughTheVirtualOperation)
{
    auto* other = new OtherEnumeration;
    other->enumerateInstanceNames(OperationContext(), pathOf("Anything"), paths);
    EXPECT_EQ(paths.calls, (Calls{"processing", "path", "path", "complete"}));
    EXPECT_EQ(other->asked, "Anything");
    EXPECT_FALSE(other->qualifiers);
    EXPECT_FALSE(other->classOrigin);
    EXPECT_TRUE(other->everyProperty);

    other->getInstance(OperationContext(), pathWith("Other", "Name", "Two"), true, true, captionOnly(), instances);
    EXPECT_EQ(instances.calls, (Calls{"processing", "instance", "complete"}));
    EXPECT_EQ(keyLines(instances.instances.at(0).getPath()), Calls{"Name | STRING | Two"});
    EXPECT_EQ(other->asked, "Other");
    EXPECT_TRUE(other->qualifiers);
    EXPECT_TRUE(other->classOrigin);
    EXPECT_TRUE(other->everyProperty);
    other->terminate();
}

TEST_F(Dispatch, OtherMethodsAndOtherClassesAreSilentThroughTheMethodInterface)
{
    RecordingMethodHandler handler;
    provider.invoke(pathOf("QORTAL_OperatingSystem"), "NoSuchMethod", handler);
    provider.invoke(pathOf("QORTAL_Chassis"), "NoSuchMethod", handler);
    provider.invoke(pathOf("CIM_OperatingSystem"), "NoSuchMethod", handler);
    EXPECT_EQ(handler.calls, Calls{});
}

TEST_F(Refused, CreateModifyAndDeleteAreNotSupportedAndCallNothing)
{
    const OperationContext context;
    for (const char* name : {"QORTAL_Slot", "CIM_ComputerSystem"}) {
        const CIMObjectPath path = pathOf(name);
        const CIMInstance instance{CIMName(name)};
        EXPECT_EQ(cimErrorOf([&] { provider.instances().createInstance(context, path, instance, paths); }),
                  "7: SystemProvider::createInstance");
        EXPECT_EQ(cimErrorOf([&] {
                      provider.instances().modifyInstance(context, path, instance, false, CIMPropertyList(), instances);
                  }),
                  "7: SystemProvider::modifyInstance");
        EXPECT_EQ(cimErrorOf([&] { provider.instances().deleteInstance(context, path, instances); }),
                  "7: SystemProvider::deleteInstance");
    }
    EXPECT_EQ(paths.calls, Calls{});
    EXPECT_EQ(instances.calls, Calls{});
}

TEST_F(Failure, UnreadableTableLeavesAnEnumerationUnchangedAndNotCompleted)
{
    const ServedTable missing(std::string("/no/such/dump.bin"));
    for (const char* name : AllClasses) {
        const bool fromKernelOnly =
            std::string(name) == "QORTAL_OperatingSystem" || std::string(name) == "QORx_SystemMemory";
        RecordingInstanceHandler handler;
        try {
            provider.enumerate(pathOf(name), handler);
            EXPECT_TRUE(fromKernelOnly) << name;
            EXPECT_EQ(handler.calls, (Calls{"processing", "instance", "complete"})) << name;
        } catch (const VQ::SmBiosError& error) {
            EXPECT_FALSE(fromKernelOnly) << name;
            EXPECT_STREQ(error.what(), "cannot open /no/such/dump.bin: No such file or directory");
            EXPECT_EQ(handler.calls, Calls{"processing"}) << name;
        }
    }
}

TEST_F(Failure, UnreadableTableLeavesNamesAndGetNotCompleted)
{
    const ServedTable missing(std::string("/no/such/dump.bin"));
    EXPECT_THROW(provider.enumerateNames(pathOf("QORTAL_Slot"), paths), VQ::SmBiosError);
    EXPECT_EQ(paths.calls, Calls{"processing"});
    EXPECT_THROW(provider.get(pathOf("QORTAL_Slot"), instances), VQ::SmBiosError);
    EXPECT_EQ(instances.calls, Calls{"processing"});
}

TEST_F(Failure, HandlersExceptionLeavesAnEnumerationUnchanged)
{
    const ServedTable served(TableBuilder().type(9).type(9).type(9).type(127));
    FailingHandler handler(2);
    try {
        provider.enumerate(pathOf("QORTAL_Slot"), handler);
        ADD_FAILURE() << "no exception";
    } catch (const HandlerFailure& failure) {
        EXPECT_EQ(failure.where, "QORTAL_Slot");
    }
    EXPECT_EQ(handler.calls, (Calls{"processing", "instance", "instance"}));
}

TEST_F(Failure, BiosInstanceThatCannotBeDeliveredDoesNotCostTheFirmware)
{
    TableBuilder table;
    table.type(0).type(11).byte(0x04, 2);
    table.string("Diagnostics -[XXYT01-1.02]-").string("Controller -[XXET02-1.03]-").type(127);
    const ServedTable served(table);
    FailingHandler handler(1);
    provider.enumerate(pathOf("QORTAL_BIOS"), handler);
    EXPECT_EQ(handler.calls, (Calls{"processing", "instance", "instance", "instance", "complete"}));
    EXPECT_EQ(valueOf(handler.instances.at(1), "PrimaryBIOS"), "FALSE");
}

TEST_F(Failure, FirmwareInstanceThatCannotBeDeliveredEndsTheEnumeration)
{
    TableBuilder table;
    table.type(0).type(11).byte(0x04, 2);
    table.string("Diagnostics -[XXYT01-1.02]-").string("Controller -[XXET02-1.03]-").type(127);
    const ServedTable served(table);
    FailingHandler handler(2);
    EXPECT_THROW(provider.enumerate(pathOf("QORTAL_BIOS"), handler), HandlerFailure);
    EXPECT_EQ(handler.calls, (Calls{"processing", "instance", "instance"}));
}

TEST_F(Failure, RequestAfterAFailedOneIsServed)
{
    {
        const ServedTable missing(std::string("/no/such/dump.bin"));
        EXPECT_THROW(provider.enumerate(pathOf("QORTAL_Slot"), instances), VQ::SmBiosError);
    }
    const ServedTable served(TableBuilder().type(9).type(127));
    RecordingInstanceHandler handler;
    provider.enumerate(pathOf("QORTAL_Slot"), handler);
    EXPECT_EQ(handler.calls, (Calls{"processing", "instance", "complete"}));
}
