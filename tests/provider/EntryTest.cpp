// The module's entry, the life of a provider, and the handler that it collects its own instances with.

#include "provider/SimpleInstanceResponseHandler.h"
#include "provider/SystemProvider.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/Provider.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>

#include <gtest/gtest.h>

using namespace Pegasus;

extern "C" CIMProvider* PegasusCreateProvider(const String& name);

namespace
{
bool creates(const char* name)
{
    CIMProvider* provider = PegasusCreateProvider(name);
    if (provider)
        provider->terminate();
    return provider != nullptr;
}

// A provider that tells when it is deleted.
class WatchedProvider : public VQ::SystemProvider
{
public:
    explicit WatchedProvider(int& deletions) : _deletions(deletions) {}
    ~WatchedProvider() override { ++_deletions; }

private:
    int& _deletions;
};

CIMInstance instanceOf(const char* className)
{
    return CIMInstance(CIMName(className));
}

std::vector<std::string> classNames(const Array<CIMInstance>& instances)
{
    std::vector<std::string> names;
    for (Uint32 i = 0; i < instances.size(); ++i)
        names.push_back(text(instances[i].getClassName().getString()));
    return names;
}

Array<CIMInstance> threeInstances()
{
    Array<CIMInstance> instances;
    instances.append(instanceOf("A"));
    instances.append(instanceOf("B"));
    instances.append(instanceOf("C"));
    return instances;
}
}

TEST(Entry, CreatesTheProviderInAnyLetterCase)
{
    EXPECT_TRUE(creates("SystemProvider"));
    EXPECT_TRUE(creates("systemprovider"));
    EXPECT_TRUE(creates("SYSTEMPROVIDER"));
    EXPECT_TRUE(creates("sYsTeMpRoViDeR"));
}

TEST(Entry, GivesNullForAnyOtherName)
{
    EXPECT_FALSE(creates(""));
    EXPECT_FALSE(creates("SystemProviderX"));
    EXPECT_FALSE(creates("SystemProvide"));
    EXPECT_FALSE(creates(" SystemProvider"));
    EXPECT_FALSE(creates("SystemProvider "));
    EXPECT_FALSE(creates("OtherProvider"));
}

TEST(Entry, EachCallCreatesAProviderOfItsOwn)
{
    CIMProvider* first = PegasusCreateProvider("SystemProvider");
    CIMProvider* second = PegasusCreateProvider("SystemProvider");
    EXPECT_NE(first, second);
    first->terminate();
    second->terminate();
}

TEST(Entry, ProviderServesInstancesAndMethodsOverOneProviderBase)
{
    CIMProvider* provider = PegasusCreateProvider("SystemProvider");
    auto* instances = dynamic_cast<CIMInstanceProvider*>(provider);
    auto* methods = dynamic_cast<CIMMethodProvider*>(provider);
    ASSERT_NE(instances, nullptr);
    ASSERT_NE(methods, nullptr);
    EXPECT_EQ(static_cast<CIMProvider*>(instances), provider);
    EXPECT_EQ(static_cast<CIMProvider*>(methods), provider);
    provider->terminate();
}

TEST(Lifecycle, InitializeMayBeLeftOut)
{
    CIMProvider* provider = PegasusCreateProvider("SystemProvider");
    RecordingInstanceHandler handler;
    dynamic_cast<CIMInstanceProvider*>(provider)->enumerateInstances(
        OperationContext(), pathOf("QORTAL_OperatingSystem"), false, false, CIMPropertyList(), handler);
    EXPECT_EQ(handler.instances.size(), 1u);
    provider->terminate();
}

TEST(Lifecycle, TerminateDeletesTheProvider)
{
    int deletions = 0;
    CIMProvider* provider = new WatchedProvider(deletions);
    CIMOMHandle handle;
    provider->initialize(handle);
    EXPECT_EQ(deletions, 0);
    provider->terminate();
    EXPECT_EQ(deletions, 1);
}

TEST(Lifecycle, TerminateDeletesTheProviderThroughEitherBase)
{
    int deletions = 0;
    CIMInstanceProvider* instances = new WatchedProvider(deletions);
    instances->terminate();
    EXPECT_EQ(deletions, 1);
    CIMMethodProvider* methods = new WatchedProvider(deletions);
    methods->terminate();
    EXPECT_EQ(deletions, 2);
}

TEST(SimpleInstanceResponseHandler, HoldsNothingForProcessingAndComplete)
{
    VQ::SimpleInstanceResponseHandler handler;
    handler.processing();
    handler.complete();
    EXPECT_EQ(handler.instances.size(), 0u);
}

TEST(SimpleInstanceResponseHandler, HoldsInstancesInDeliveryOrder)
{
    VQ::SimpleInstanceResponseHandler handler;
    handler.deliver(instanceOf("First"));
    handler.deliver(threeInstances());
    handler.deliver(Array<CIMInstance>());
    handler.deliver(instanceOf("Last"));
    EXPECT_EQ(classNames(handler.instances), (std::vector<std::string>{"First", "A", "B", "C", "Last"}));
}

TEST(SimpleInstanceResponseHandler, ArrayIsDeliveredThroughTheSingleDelivery)
{
    class Counting : public VQ::SimpleInstanceResponseHandler
    {
    public:
        using SimpleInstanceResponseHandler::deliver;
        void deliver(const CIMInstance& instance) override
        {
            order.push_back(text(instance.getClassName().getString()));
        }
        std::vector<std::string> order;
    };
    Counting handler;
    handler.deliver(threeInstances());
    EXPECT_EQ(handler.order, (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(handler.instances.size(), 0u);
}
