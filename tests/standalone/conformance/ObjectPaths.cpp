#include "Show.h"

#include <Pegasus/Common/CIMObjectPath.h>

#include <initializer_list>

using namespace Pegasus;

namespace
{
CIMKeyBinding key(const char* name, const char* value, CIMKeyBinding::Type type = CIMKeyBinding::STRING)
{
    return CIMKeyBinding(CIMName(name), String(value), type);
}

Array<CIMKeyBinding> keys(std::initializer_list<CIMKeyBinding> list)
{
    Array<CIMKeyBinding> all;
    for (const CIMKeyBinding& binding : list)
        all.append(binding);
    return all;
}

CIMObjectPath path(const Array<CIMKeyBinding>& bindings, const char* className = "QORTAL_Port", const char* host = "",
                   const CIMNamespaceName& nameSpace = CIMNamespaceName())
{
    return CIMObjectPath(String(host), nameSpace, CIMName(className), bindings);
}

void reads()
{
    for (const char* text : {"C",
                             "c",
                             "root:C",
                             "root/cimv2:C",
                             "/root:C",
                             "//h/root:C",
                             "//host.example/root/cimv2:C.a=1",
                             "//HOST:5988/root:C",
                             "//127.0.0.1:5988/root:C",
                             "//[::1]:5989/root:C",
                             "//[fd00::1]/root:C",
                             "//[fe80::1%lo]/root:C",
                             "//[::ffff:1.2.3.4]/root:C",
                             "//h:/root:C",
                             "//a_b-c.d/root:C",
                             "//h:0/r:C",
                             "//h:65535/r:C",
                             "C.",
                             "C.a=1",
                             "C.a=1,",
                             "C.a=1,b=2",
                             "C.b=2,a=1",
                             "C.b=1,A=2,C=3,_x=4,a1=5,B1=6",
                             "C.A=2,a=1",
                             "C.a=\"\"",
                             "C.a=\"x\"",
                             "C.a=\"x, y.z=1/q:r\"",
                             "C.a=\"root:x,b=c.d/e\",b=TRUE,c=-7",
                             "C.a=\"q\\\"b\\\\\"",
                             "C.a=\" \"",
                             "C.a=\"caf\xC3\xA9\"",
                             "C.a=true",
                             "C.a=False,b=TRUE",
                             "C.a=0",
                             "C.a=-0",
                             "C.a=-7",
                             "C.a=18446744073709551615",
                             "C.a=-9223372036854775808",
                             "C.a=0xFF",
                             "C.a=0x0",
                             "C.a=-0x10",
                             "C.a=0XFF",
                             "C.a=0xFFFFFFFFFFFFFFFF",
                             "C.a=\"D.x=\\\"1\\\"\"",
                             "C.a=\"D.b=2,a=1\"",
                             "C.a=\"D\"",
                             "C.a=\"root:D.x=1\"",
                             "C.a=\"D.x=\""})
        print(text, [&] { return shown(CIMObjectPath(String(text))); });
}

void refuses()
{
    for (const char* text : {"",
                             " ",
                             "\n",
                             " C",
                             "C ",
                             "1C",
                             "C-D",
                             "C=1",
                             "/C",
                             ":C",
                             "root/:C",
                             "root//x:C",
                             "root/cimv2",
                             "1C.a=1",
                             ".a=1",
                             "a.b:C.x=1",
                             "//h",
                             "//h/C",
                             "//h/:C",
                             "//h//r:C",
                             "///root:C",
                             "//-h/r:C",
                             "//h..x/r:C",
                             "//h x/r:C",
                             "//1.2.3/r:C",
                             "//1.2.3.400/r:C",
                             "//a.1/r:C",
                             "//h:65536/r:C",
                             "//h:x/r:C",
                             "//user@h/r:C",
                             "//[g]/r:C",
                             "//[]/r:C",
                             "//[::1]x/r:C",
                             "//[fe80::1]/r:C",
                             "//[FE80::1]/r:C",
                             "//[fe80::1%no_such]/r:C",
                             "//[::1%lo]/r:C",
                             "//[::1/r:C",
                             "//\xC3\xA9/r:C",
                             "C.a",
                             "C.a=",
                             "C.=1",
                             "C.1a=1",
                             "C. a=1",
                             "C.a =1",
                             "C.a==1",
                             "C.a=1,,b=2",
                             "C.,a=1",
                             "C.a=1;b=2",
                             "C.a=x",
                             "C.a='x'",
                             "C.a=\"",
                             "C.a=\"x",
                             "C.a=x\"",
                             "C.a=\"x\"y",
                             "C.a=\"x\" ,b=1",
                             "C.a=\"\\\"",
                             "C.a=\"\\n\"",
                             "C.a=01",
                             "C.a=00",
                             "C.a=-",
                             "C.a=--1",
                             "C.a=+1",
                             "C.a=0x",
                             "C.a=0x1G",
                             "C.a=101b",
                             "C.a=1.5",
                             "C.a=1e3",
                             "C.a= 1",
                             "C.a=1 ",
                             "C.a=TRUEx",
                             "C.a=18446744073709551616",
                             "C.a=-9223372036854775809",
                             "C.a=0x10000000000000000"})
        print(quoted(text), [&] { return shown(CIMObjectPath(String(text))); });
}

void partsOf(const char* text)
{
    const CIMObjectPath read{String(text)};
    print(std::string("parts of ") + text, [&] {
        std::string parts = shown(read.getHost()) + ' ' + shown(read.getNameSpace()) + ' ' + shown(read.getClassName());
        const Array<CIMKeyBinding> bindings = read.getKeyBindings();
        for (Uint32 i = 0; i < bindings.size(); ++i)
            parts += ", " + shown(bindings[i].getName()) + ' ' + shown(bindings[i].getType()) + ' ' +
                     shown(bindings[i].getValue());
        return parts;
    });
}

void parts()
{
    partsOf("QORTAL_Port");
    partsOf("//host:5989/root/cimv2:QORTAL_BIOS.Name=\"a \\\"b\\\"\",SoftwareElementState=3");
    partsOf("C.z=true,Y=\"TRUE\",x=0x1F,w=\"D.k=\\\"v\\\"\"");
}

void builds()
{
    SHOW(CIMObjectPath());
    SHOW(CIMObjectPath().getClassName());
    const Array<CIMKeyBinding> two = keys({key("Tag", "Port0"), key("CreationClassName", "QORTAL_Port")});
    SHOW(path(Array<CIMKeyBinding>()));
    SHOW(path(two));
    SHOW(path(two).getKeyBindings()[0].getName());
    SHOW(path(two, "QORTAL_Port", "host", CIMNamespaceName("root/cimv2")));
    SHOW(path(two, "QORTAL_Port", "", CIMNamespaceName("root")));
    SHOW(path(two, "QORTAL_Port", "host"));
    SHOW(path(two, "QORTAL_Port", "a b"));
    SHOW(CIMObjectPath(String(), CIMNamespaceName(), CIMName("C")));
    SHOW(CIMObjectPath(String(), CIMNamespaceName(), CIMName()));
    SHOW(path(keys({key("a", "q\"b\\"), key("b", "x", CIMKeyBinding::NUMERIC), key("c", "", CIMKeyBinding::BOOLEAN),
                    key("d", "E.f=\"g\"", CIMKeyBinding::REFERENCE)})));

    CIMObjectPath changed(String("C"));
    const CIMObjectPath original(changed);
    DO(changed.setHost(String("h")));
    SHOW(changed);
    DO(changed.setNameSpace(CIMNamespaceName("root")));
    DO(changed.setClassName(CIMName("D")));
    DO(changed.setKeyBindings(two));
    SHOW(changed);
    SHOW(changed.getKeyBindings().size());
    DO(changed.setHost(String("a b")));
    DO(changed.setHost(String("1.2.3.4:5988")));
    SHOW(changed);
    DO(changed.setHost(String()));
    DO(changed.setKeyBindings(Array<CIMKeyBinding>()));
    SHOW(changed);
    SHOW(original);
}

void compares()
{
    const Array<CIMKeyBinding> both = keys({key("CreationClassName", "QORTAL_Port"), key("Tag", "Port0")});
    const Array<CIMKeyBinding> swapped = keys({both[1], both[0]});
    const Array<CIMKeyBinding> otherCase = keys({key("CREATIONCLASSNAME", "QORTAL_Port"), key("tag", "Port0")});
    const Array<CIMKeyBinding> otherValue = keys({both[0], key("Tag", "PORT0")});
    const CIMNamespaceName root("root");
    SHOW(path(both) == path(both));
    SHOW(path(both) == path(swapped));
    SHOW(path(both) == path(otherCase));
    SHOW(path(both) == path(otherValue));
    SHOW(path(both) == path(keys({both[0]})));
    SHOW(path(both) == path(keys({both[0], both[1], both[1]})));
    SHOW(path(both) == path(both, "qortal_port"));
    SHOW(path(both) == path(both, "QORTAL_Slot"));
    SHOW(path(both) == path(both, "QORTAL_Port", "h", root));
    SHOW(path(both, "QORTAL_Port", "Host", root) == path(both, "QORTAL_Port", "hOST", CIMNamespaceName("ROOT")));
    SHOW(path(both) == path(both, "QORTAL_Port", "", root));
    SHOW(CIMObjectPath() == CIMObjectPath());
}

void comparesKeys()
{
    const struct
    {
        CIMKeyBinding::Type type;
        const char* first;
        const char* second;
    } pairs[] = {{CIMKeyBinding::STRING, "a", "a"},
                 {CIMKeyBinding::STRING, "a", "A"},
                 {CIMKeyBinding::STRING, "3", "03"},
                 {CIMKeyBinding::BOOLEAN, "TRUE", "true"},
                 {CIMKeyBinding::BOOLEAN, "TRUE", "FALSE"},
                 {CIMKeyBinding::NUMERIC, "3", "3"},
                 {CIMKeyBinding::NUMERIC, "3", "03"},
                 {CIMKeyBinding::NUMERIC, "03", "03"},
                 {CIMKeyBinding::NUMERIC, "16", "0x10"},
                 {CIMKeyBinding::NUMERIC, "10", "0X0a"},
                 {CIMKeyBinding::NUMERIC, "-1", "-0x1"},
                 {CIMKeyBinding::NUMERIC, "0", "-0"},
                 {CIMKeyBinding::NUMERIC, "-1", "18446744073709551615"},
                 {CIMKeyBinding::NUMERIC, "18446744073709551615", "0xffffffffffffffff"},
                 {CIMKeyBinding::NUMERIC, "x", "X"},
                 {CIMKeyBinding::NUMERIC, "", ""},
                 {CIMKeyBinding::REFERENCE, "D.a=1,b=2", "d.B=2,A=1"},
                 {CIMKeyBinding::REFERENCE, "D.a=1", "D.a=2"}};
    for (const auto& pair : pairs)
        print(shown(pair.type) + ' ' + pair.first + " == " + pair.second,
              [&] { return shown(key("A", pair.first, pair.type) == key("a", pair.second, pair.type)); });
    SHOW(key("A", "3", CIMKeyBinding::NUMERIC) == key("A", "3", CIMKeyBinding::STRING));
    SHOW(key("A", "3") == key("B", "3"));

    CIMKeyBinding changed;
    DO(changed.setName(CIMName("Name")));
    DO(changed.setValue(String("value")));
    DO(changed.setType(CIMKeyBinding::NUMERIC));
    SHOW(changed.getName());
    SHOW(changed.getValue());
    SHOW(changed.getType());
    for (const CIMValue& value : {CIMValue(Boolean(true)), CIMValue(Uint16(66)), CIMValue(Sint64(-5)),
                                  CIMValue(String("a \"b\"")), CIMValue(CIMDateTime()), CIMValue(Array<Uint8>())})
        print("CIMKeyBinding of " + shown(value), [&] {
            const CIMKeyBinding made(CIMName("A"), value);
            return shown(made.getType()) + ' ' + shown(made.getValue());
        });
}
}

void showObjectPaths()
{
    section("CIMObjectPath, CIMKeyBinding");
    reads();
    refuses();
    parts();
    builds();
    compares();
    comparesKeys();
}
