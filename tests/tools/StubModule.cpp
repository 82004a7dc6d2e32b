// A provider module that gives the answers which the real one never gives. The environment steers it:
//   VQ_STUB_CREATE   what PegasusCreateProvider does: null, throw, methods-only; initialize-throws
//   VQ_STUB_STATUS   the return value of the methods; 0 unless told
//   VQ_STUB_DIES     the class that ends the process when it is asked for
//   VQ_STUB_LOG      the file that every method call is written to

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

using namespace Pegasus;

namespace
{
std::string setting(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string narrow(const String& string)
{
    const CString bytes = string.getCString();
    return static_cast<const char*>(bytes);
}

void add(CIMInstance& instance, const char* name, const CIMValue& value)
{
    instance.addProperty(CIMProperty(CIMName(name), value));
}

CIMInstance made(const char* className, const char* tag)
{
    CIMInstance instance{CIMName(className)};
    add(instance, "Caption", String("caption"));
    add(instance, "Tag", String(tag));
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("Tag"), tag, CIMKeyBinding::STRING));
    CIMObjectPath path = instance.getPath();
    path.setKeyBindings(keys);
    instance.setPath(path);
    return instance;
}

// The BIOS instance of a machine without an SMBIOS table.
CIMInstance versionless()
{
    CIMInstance instance = made("QORTAL_BIOS", "bios");
    add(instance, "SMBIOSMajorVersion", Uint16(0));
    add(instance, "SMBIOSMinorVersion", Uint16(0));
    return instance;
}

template <class Element> Array<Element> listOf(const Element& first, const Element& second)
{
    Array<Element> list;
    list.append(first);
    list.append(second);
    return list;
}

// Every type, the odd texts, and the three kinds of key.
CIMInstance everything()
{
    CIMInstance instance{CIMName("Stub_Types")};
    add(instance, "Bool", Boolean(true));
    add(instance, "U8", Uint8(255));
    add(instance, "S8", Sint8(-128));
    add(instance, "U16", Uint16(65535));
    add(instance, "S16", Sint16(-210));
    add(instance, "U32", Uint32(4294967295u));
    add(instance, "S32", Sint32(-2147483647 - 1));
    add(instance, "U64", Uint64(18446744073709551615ull));
    add(instance, "S64", Sint64(-9223372036854775807LL - 1));
    add(instance, "Odd", String("q\" b\\ e\x1B[2J n\nt\t d\x7F c\xC2\x9B u\xC3\xA9 r\xE2\x80\xAEx"));
    add(instance, "Blank", String(" x"));
    add(instance, "Empty", String());
    add(instance, "Date", CIMDateTime("20050307120000.000000-330"));
    add(instance, "Day", CIMDateTime("20050307******.******+000"));
    add(instance, "NoDate", CIMDateTime("**************.******+000"));
    add(instance, "Span", CIMDateTime("00000001010203.000000:000"));
    add(instance, "Null", CIMValue(CIMTYPE_UINT16, false));
    add(instance, "NullList", CIMValue(CIMTYPE_STRING, true));
    add(instance, "Texts", listOf<String>("a, \"b\"", ""));
    add(instance, "Numbers", listOf<Uint16>(0, 8));
    add(instance, "None", Array<String>());
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("U8"), "255", CIMKeyBinding::NUMERIC));
    keys.append(CIMKeyBinding(CIMName("S8"), "-128", CIMKeyBinding::NUMERIC));
    keys.append(CIMKeyBinding(CIMName("Bool"), "TRUE", CIMKeyBinding::BOOLEAN));
    keys.append(CIMKeyBinding(CIMName("Blank"), " x", CIMKeyBinding::STRING));
    CIMObjectPath path = instance.getPath();
    path.setKeyBindings(keys);
    instance.setPath(path);
    return instance;
}

class Stub : public CIMInstanceProvider, public CIMMethodProvider
{
public:
    void initialize(CIMOMHandle&) override
    {
        if (setting("VQ_STUB_CREATE") == "initialize-throws")
            throw CIMException(CIM_ERR_FAILED, "not today");
    }
    void terminate() override { delete this; }

    void getInstance(const OperationContext& context, const CIMObjectPath& path, const Boolean, const Boolean,
                     const CIMPropertyList& list, InstanceResponseHandler& handler) override
    {
        enumerateInstances(context, path, false, false, list, handler);
    }

    void enumerateInstances(const OperationContext&, const CIMObjectPath& path, const Boolean, const Boolean,
                            const CIMPropertyList&, InstanceResponseHandler& handler) override
    {
        const std::string name = narrow(path.getClassName().getString());
        if (name == setting("VQ_STUB_DIES"))
            std::abort();
        handler.processing();
        if (name == "QORTAL_BIOS")
            handler.deliver(versionless());
        else if (name == "QORTAL_ComputerSystem")
            handler.deliver(listOf(made(name.c_str(), "one"), made(name.c_str(), "two")));
        else if (name == "Stub_Types")
            handler.deliver(everything());
        else
            fail(name, handler);
        handler.complete();
    }

    void enumerateInstanceNames(const OperationContext&, const CIMObjectPath&,
                                ObjectPathResponseHandler& handler) override
    {
        handler.processing();
        handler.deliver(listOf(made("Stub_Names", "one").getPath(), made("Stub_Names", "t\x1Bwo").getPath()));
        handler.complete();
    }

    void invokeMethod(const OperationContext&, const CIMObjectPath& path, const CIMName& method,
                      const Array<CIMParamValue>& in, MethodResultResponseHandler& handler) override
    {
        std::ofstream(setting("VQ_STUB_LOG"), std::ios::app)
            << narrow(path.toString()) << " " << narrow(method.getString()) << " " << in.size() << "\n";
        if (method == CIMName("Silent"))
            return;
        if (method == CIMName("Throws"))
            throw CIMException(CIM_ERR_ACCESS_DENIED, "not you");
        handler.processing();
        handler.deliver(CIMValue(static_cast<Uint32>(std::strtoul(setting("VQ_STUB_STATUS").c_str(), nullptr, 10))));
        handler.complete();
    }

    void modifyInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&, const Boolean,
                        const CIMPropertyList&, ResponseHandler&) override
    {
    }
    void createInstance(const OperationContext&, const CIMObjectPath&, const CIMInstance&,
                        ObjectPathResponseHandler&) override
    {
    }
    void deleteInstance(const OperationContext&, const CIMObjectPath&, ResponseHandler&) override {}

private:
    static void fail(const std::string& name, InstanceResponseHandler& handler)
    {
        if (name == "QORTAL_Chassis")
            handler.deliver(made("QORTAL_Chassis", "first"));
        if (name == "QORTAL_Chassis" || name == "QORTAL_Slot" || name == "QORTAL_Port")
            throw std::runtime_error("the table\x1B[31m is broken");
        if (name == "QORTAL_CacheMemory")
            throw CIMException(CIM_ERR_ACCESS_DENIED, "not you");
        if (name == "QORTAL_BaseBoard")
            throw Exception(String("a CIM library's own exception"));
        if (name == "QORTAL_OperatingSystem")
            throw 42;
        throw CIMException(CIM_ERR_INVALID_CLASS, String::EMPTY);
    }
};

class MethodsOnly : public CIMMethodProvider
{
public:
    void initialize(CIMOMHandle&) override {}
    void terminate() override { delete this; }
    void invokeMethod(const OperationContext&, const CIMObjectPath&, const CIMName&, const Array<CIMParamValue>&,
                      MethodResultResponseHandler&) override
    {
    }
};
}

extern "C" __attribute__((visibility("default"))) CIMProvider* PegasusCreateProvider(const String&)
{
    const std::string way = setting("VQ_STUB_CREATE");
    if (way == "throw")
        throw std::runtime_error("out of providers");
    if (way == "null")
        return nullptr;
    if (way == "methods-only")
        return new MethodsOnly;
    return new Stub;
}
