#include "Show.h"

#include <Pegasus/Common/CIMName.h>

#include <initializer_list>

using namespace Pegasus;

namespace
{
void names()
{
    SHOW(CIMName());
    SHOW(CIMName().getString());
    for (const char* text : {"a",
                             "Z",
                             "_",
                             "_a1",
                             "a_1",
                             "QORTAL_Slot",
                             "qortal_slot",
                             "",
                             "1a",
                             "9",
                             "a b",
                             " a",
                             "a ",
                             "a-b",
                             "a.b",
                             "a:b",
                             "a/b",
                             "a\"b",
                             "@",
                             "[",
                             "`",
                             "{",
                             "a\x01",
                             "\x7F",
                             "\xC2\x80",
                             "\xC3\xA9x",
                             "x\xC3\xA9",
                             "\xEF\xBF\xAF",
                             "\xEF\xBF\xB0",
                             "x\xEF\xBF\xB0",
                             "\xF0\x90\x80\x80"}) {
        print("CIMName::legal " + quoted(text), [&] { return shown(CIMName::legal(text)); });
        print("CIMName " + quoted(text), [&] { return shown(CIMName(text)); });
    }
    SHOW(CIMName(String("DeviceID")));
    SHOW(CIMName(String("Device ID")));
    SHOW(CIMName("DeviceID") == CIMName("DeviceId"));
    SHOW(CIMName("DeviceID") != CIMName("DEVICEID"));
    SHOW(CIMName("DeviceID") != CIMName("DeviceIDs"));
    SHOW(CIMName("\xC3\xA9") == CIMName("\xC3\x89"));
    SHOW(CIMName() == CIMName());
    SHOW(CIMName() == CIMName("a"));
    CIMName copy("first");
    const CIMName original(copy);
    DO(copy = CIMName("second"));
    SHOW(original);
    SHOW(copy);
    DO(copy = CIMName());
    SHOW(copy.isNull());
}

void namespaces()
{
    SHOW(CIMNamespaceName());
    for (const char* text :
         {"root", "root/cimv2", "/root", "/root/cimv2", "a/b/c/d", "Root/CIMv2", "_/_1", "", "/", "//root", "root/",
          "root//cimv2", "1root", "root/1", "root cimv2", "root:cimv2", "root\\cimv2", "\xC3\xA9/x"}) {
        print("CIMNamespaceName::legal " + quoted(text), [&] { return shown(CIMNamespaceName::legal(text)); });
        print("CIMNamespaceName " + quoted(text), [&] { return shown(CIMNamespaceName(text)); });
    }
    SHOW(CIMNamespaceName(String("root/cimv2")));
    SHOW(CIMNamespaceName("ROOT/cimv2") == CIMNamespaceName("root/CIMV2"));
    SHOW(CIMNamespaceName("/root") == CIMNamespaceName("root"));
    SHOW(CIMNamespaceName("root") == CIMNamespaceName("root/cimv2"));
    SHOW(CIMNamespaceName() == CIMNamespaceName());
}
}

void showNames()
{
    section("CIMName, CIMNamespaceName");
    names();
    namespaces();
}
