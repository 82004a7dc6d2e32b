// The tables of virtual operations, in which a program that was compiled elsewhere finds an operation by its number.

#include "os/OperatingSystem.h"
#include "provider/SimpleInstanceResponseHandler.h"
#include "provider/SystemProvider.h"
#include "tests/testing/Provider.h"

#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/OperationContext.h>

#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <new>
#include <type_traits>

using namespace Pegasus;

namespace
{
// The bases, and which of them the object begins with.
static_assert(std::is_base_of_v<CIMInstanceProvider, VQ::SystemProvider> &&
              std::is_base_of_v<CIMMethodProvider, VQ::SystemProvider>);
static_assert(std::is_base_of_v<InstanceResponseHandler, VQ::SimpleInstanceResponseHandler>);

// The operation at a place of the table that an object begins with. A member function takes its object first.
template <class Function> Function* operationAt(std::size_t slot, void* object)
{
    void** table = nullptr;
    std::memcpy(&table, object, sizeof table);
    return reinterpret_cast<Function*>(table[slot]);
}

// The place of a virtual operation, as the compiler writes it into a pointer to it: the offset in the table, plus 1.
template <class Operation> std::size_t slotOf(Operation operation)
{
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return static_cast<std::size_t>(offset - 1) / sizeof(void*);
}

std::string called;

// Each operation tells its name. Overriding changes no place in the table.
struct ToldProvider : VQ::SystemProvider
{
    ~ToldProvider() override { called = "destructor"; }
    void initialize(CIMOMHandle&) override { called = "initialize"; }
    void terminate() override { called = "terminate"; }
    void getInstance(const OperationContext&, const CIMObjectPath&, const Boolean, const Boolean,
                     const CIMPropertyList&, InstanceResponseHandler&) override
    {
        called = "getInstance";
    }
    void enumerateInstances(const OperationContext&, const CIMObjectPath&, const Boolean, const Boolean,
                            const CIMPropertyList&, InstanceResponseHandler&) override
    {
        called = "enumerateInstances";
    }
    void enumerateInstanceNames(const OperationContext&, const CIMObjectPath&, ObjectPathResponseHandler&) override
    {
        called = "enumerateInstanceNames";
    }
    void modifyInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&, const Boolean,
                        const CIMPropertyList&, ResponseHandler&) override
    {
        called = "modifyInstance";
    }
    void createInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        ObjectPathResponseHandler&) override
    {
        called = "createInstance";
    }
    void deleteInstance(const OperationContext&, const CIMObjectPath&, ResponseHandler&) override
    {
        called = "deleteInstance";
    }
    void invokeMethod(const OperationContext&, const CIMObjectPath&, const CIMName&, const Array<CIMParamValue>&,
                      MethodResultResponseHandler&) override
    {
        called = "invokeMethod";
    }
    virtual void oneMore() {}
};

struct ToldHandler : VQ::SimpleInstanceResponseHandler
{
    ~ToldHandler() override { called = "destructor"; }
    void processing() override { called = "processing"; }
    void complete() override { called = "complete"; }
    void deliver(const CIMInstance&) override { called = "deliver one"; }
    void deliver(const Array<CIMInstance>&) override { called = "deliver many"; }
    virtual void oneMore() {}
};

struct ToldSystem : VQ::OperatingSystem
{
    ~ToldSystem() override { called = "destructor"; }
    virtual void oneMore() {}
};

template <class Function, class Object, class... Arguments>
std::string calledAt(std::size_t slot, Object& object, Arguments&&... arguments)
{
    called.clear();
    operationAt<Function>(slot, &object)(&object, std::forward<Arguments>(arguments)...);
    return called;
}

// The first place destroys an object where it stands, the second one deletes it.
template <class Object> void expectTwoDestructorsFirst()
{
    using Destructor = void(void*);
    alignas(Object) unsigned char storage[sizeof(Object)];
    auto* placed = new (storage) Object;
    EXPECT_EQ(calledAt<Destructor>(0, *placed), "destructor");
    EXPECT_EQ(calledAt<Destructor>(1, *new Object), "destructor"); // the leak check sees it when it does not
}
}

TEST(VirtualOperations, OfTheProviderStandInTheirOrder)
{
    expectTwoDestructorsFirst<ToldProvider>();

    ToldProvider provider;
    ASSERT_EQ(dynamic_cast<void*>(static_cast<CIMInstanceProvider*>(&provider)), &provider);
    const OperationContext context;
    const CIMObjectPath path;
    const CIMInstance instance;
    const CIMPropertyList properties;
    const CIMName method("Reboot");
    const Array<CIMParamValue> parameters;
    CIMOMHandle handle;
    RecordingInstanceHandler instances;
    RecordingPathHandler paths;
    RecordingMethodHandler results;
    ResponseHandler& plain = instances;

    EXPECT_EQ((calledAt<void(void*, CIMOMHandle&)>(2, provider, handle)), "initialize");
    EXPECT_EQ(calledAt<void(void*)>(3, provider), "terminate");
    using Read = void(void*, const OperationContext&, const CIMObjectPath&, Boolean, Boolean, const CIMPropertyList&,
                      InstanceResponseHandler&);
    EXPECT_EQ(calledAt<Read>(4, provider, context, path, false, false, properties, instances), "getInstance");
    EXPECT_EQ(calledAt<Read>(5, provider, context, path, false, false, properties, instances), "enumerateInstances");
    using Names = void(void*, const OperationContext&, const CIMObjectPath&, ObjectPathResponseHandler&);
    EXPECT_EQ(calledAt<Names>(6, provider, context, path, paths), "enumerateInstanceNames");
    using Modify = void(void*, const OperationContext&, const CIMObjectPath&, const CIMInstance&, Boolean,
                        const CIMPropertyList&, ResponseHandler&);
    EXPECT_EQ(calledAt<Modify>(7, provider, context, path, instance, false, properties, plain), "modifyInstance");
    using Create =
        void(void*, const OperationContext&, const CIMObjectPath&, const CIMInstance&, ObjectPathResponseHandler&);
    EXPECT_EQ(calledAt<Create>(8, provider, context, path, instance, paths), "createInstance");
    using Delete = void(void*, const OperationContext&, const CIMObjectPath&, ResponseHandler&);
    EXPECT_EQ(calledAt<Delete>(9, provider, context, path, plain), "deleteInstance");
    using Invoke = void(void*, const OperationContext&, const CIMObjectPath&, const CIMName&,
                        const Array<CIMParamValue>&, MethodResultResponseHandler&);
    EXPECT_EQ(calledAt<Invoke>(10, provider, context, path, method, parameters, results), "invokeMethod");
    EXPECT_EQ(slotOf(&ToldProvider::oneMore), 11u) << "the provider has another virtual operation";
}

TEST(VirtualOperations, OfTheCollectingHandlerStandInTheirOrder)
{
    expectTwoDestructorsFirst<ToldHandler>();

    ToldHandler handler;
    EXPECT_EQ(calledAt<void(void*)>(2, handler), "processing");
    EXPECT_EQ(calledAt<void(void*)>(3, handler), "complete");
    EXPECT_EQ((calledAt<void(void*, const CIMInstance&)>(4, handler, CIMInstance())), "deliver one");
    EXPECT_EQ((calledAt<void(void*, const Array<CIMInstance>&)>(5, handler, Array<CIMInstance>())), "deliver many");
    EXPECT_EQ(slotOf(&ToldHandler::oneMore), 6u) << "the handler has another virtual operation";
}

TEST(VirtualOperations, OfTheOperatingSystemAreItsDestructors)
{
    expectTwoDestructorsFirst<ToldSystem>();
    EXPECT_EQ(slotOf(&ToldSystem::oneMore), 2u) << "the record has another virtual operation";
}
