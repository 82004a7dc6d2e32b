#include "Show.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>

using namespace Pegasus;

namespace
{
CIMProperty property(const char* name, const CIMValue& value)
{
    return CIMProperty(CIMName(name), value);
}

CIMInstance chassis()
{
    CIMInstance instance(CIMName("QORTAL_Chassis"));
    instance.addProperty(property("Tag", CIMValue(String("Chassis0"))));
    instance.addProperty(property("DeviceID", CIMValue(Uint16(7))));
    return instance;
}

/// Every property of an instance in its order.
std::string contents(const CIMInstance& instance)
{
    std::string all = shown(instance.getPath()) + ':';
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty found = instance.getProperty(i);
        all += ' ' + shown(found.getName()) + '=' + shown(found.getValue());
    }
    return all;
}

void properties()
{
    const CIMProperty made(CIMName("Tag"), CIMValue(String("x")), 0, CIMName(), CIMName(), false);
    SHOW(made.getName());
    SHOW(made.getValue());
    SHOW(made.getType());
    SHOW(made.isArray());
    SHOW(made.getArraySize());
    SHOW(made.getClassOrigin());
    SHOW(made.getPropagated());
    SHOW(made.getQualifierCount());
    SHOW(CIMProperty(CIMName("A"), CIMValue(Uint8(1)), 0, CIMName(), CIMName("Origin"), true).getClassOrigin());
    SHOW(CIMProperty(CIMName("A"), CIMValue(Uint8(1)), 0, CIMName(), CIMName("Origin"), true).getPropagated());
    SHOW(property("A", CIMValue(Array<Uint16>())).isArray());
    SHOW(property("A", CIMValue(CIMTYPE_DATETIME, false)).getType());
    Array<Uint16> two;
    two.append(1);
    two.append(2);
    SHOW(CIMProperty(CIMName("A"), CIMValue(two), 2).getArraySize());
    SHOW(CIMProperty(CIMName("A"), CIMValue(two), 3).getArraySize());
    SHOW(CIMProperty(CIMName("A"), CIMValue(two)).getArraySize());
    SHOW(CIMProperty(CIMName("A"), CIMValue(Uint16(1)), 4).getArraySize());
    SHOW(CIMProperty(CIMName("A"), CIMValue(Uint16(1)), 0, CIMName("Other")).getArraySize());
    DO(CIMProperty(CIMName(), CIMValue(Uint16(1))));
    SHOW(CIMProperty().getName());
    SHOW(CIMProperty().getValue());
    SHOW(CIMConstProperty(made).getName());
    SHOW(CIMConstProperty(made).getValue());
    SHOW(CIMConstProperty(made).getClassOrigin());
    SHOW(CIMConstProperty(made).getPropagated());
    SHOW(CIMConstProperty(made).getQualifierCount());
}

void changes()
{
    Array<Uint16> two;
    two.append(1);
    two.append(2);
    CIMProperty original(CIMName("A"), CIMValue(two), 2, CIMName(), CIMName("Origin"), true);
    CIMProperty copy = original;
    CIMProperty clone = original.clone();
    two[0] = 7;
    DO(copy.setValue(CIMValue(two)));
    DO(copy.setValue(CIMValue(CIMTYPE_UINT16, true, 2)));
    SHOW(original.getValue());
    SHOW(clone.getValue());
    SHOW(clone.getName());
    SHOW(clone.getArraySize());
    SHOW(clone.getClassOrigin());
    SHOW(clone.getPropagated());
    DO(two.append(3));
    DO(copy.setValue(CIMValue(two)));
    DO(copy.setValue(CIMValue(Uint16(1))));
    DO(copy.setValue(CIMValue(Array<Uint32>())));
    DO(copy.setValue(CIMValue()));
    SHOW(copy.getValue());
    CIMProperty text(CIMName("B"), CIMValue(String("x")));
    DO(text.setValue(CIMValue(CIMTYPE_STRING, false)));
    SHOW(text.getValue());
    DO(text.setValue(CIMValue(String("y"))));
    SHOW(text.getValue());
    DO(CIMProperty().setValue(CIMValue()));

    CIMInstance instance = chassis();
    CIMInstance other = instance.clone();
    DO(instance.getProperty(0).setValue(CIMValue(String("Chassis1"))));
    DO(instance.getProperty(1).setValue(CIMValue(Uint32(1))));
    SHOW(contents(instance).c_str());
    SHOW(contents(other).c_str());
}

void instances()
{
    CIMInstance instance = chassis();
    SHOW(contents(instance).c_str());
    SHOW(instance.getClassName());
    SHOW(CIMInstance(CIMName("qortal_chassis")).getClassName());
    SHOW(instance.getPath().getHost());
    SHOW(instance.getPath().getNameSpace());
    SHOW(instance.getPath().getKeyBindings().size());
    SHOW(instance.getPropertyCount());
    SHOW(instance.findProperty(CIMName("Tag")));
    SHOW(instance.findProperty(CIMName("DEVICEid")));
    SHOW(instance.findProperty(CIMName("Version")) == PEG_NOT_FOUND);
    SHOW(instance.getProperty(1).getName());
    SHOW(instance.getProperty(2).getName());
    SHOW(instance.getProperty(PEG_NOT_FOUND).getName());
    const CIMInstance& constant = instance;
    SHOW(constant.getProperty(0).getValue());
    SHOW(constant.getProperty(2).getValue());
    DO(instance.addProperty(property("TAG", CIMValue(Uint16(1)))));
    DO(instance.addProperty(CIMProperty()));
    DO(instance.removeProperty(2));
    SHOW(contents(instance).c_str());
    DO(instance.addProperty(property("A", CIMValue())).addProperty(property("B", CIMValue())));
    DO(instance.removeProperty(0));
    SHOW(contents(instance).c_str());
    SHOW(instance.findProperty(CIMName("B")));
}

void paths()
{
    CIMInstance instance = chassis();
    DO(instance.setPath(CIMObjectPath(String("//h/root:qortal_CHASSIS.Tag=\"Chassis0\",A=1"))));
    SHOW(instance.getPath());
    SHOW(instance.getClassName());
    DO(instance.setPath(CIMObjectPath(String("QORTAL_Slot.Tag=\"x\""))));
    DO(instance.setPath(CIMObjectPath()));
    SHOW(instance.getPath());
    CIMObjectPath taken = instance.getPath();
    DO(taken.setHost(String("other")));
    SHOW(instance.getPath());
}

void sharing()
{
    CIMInstance original = chassis();
    CIMInstance copy = original;
    CIMInstance clone = original.clone();
    const CIMConstInstance constant(original);
    DO(copy.addProperty(property("Version", CIMValue(String("1")))));
    DO(copy.setPath(CIMObjectPath(String("QORTAL_Chassis.Tag=\"shared\""))));
    DO(clone.removeProperty(0));
    DO(clone.setPath(CIMObjectPath(String("QORTAL_Chassis.Tag=\"own\""))));
    SHOW(contents(original).c_str());
    SHOW(contents(copy).c_str());
    SHOW(contents(clone).c_str());
    SHOW(constant.getProperty(2).getName());
    SHOW(constant.getProperty(3).getName());
}

void uninitialized()
{
    SHOW(CIMInstance().isUninitialized());
    SHOW(chassis().isUninitialized());
    DO(CIMInstance(CIMName()));
    SHOW(CIMInstance().getClassName());
    SHOW(CIMInstance().getPath());
    SHOW(CIMInstance().getPropertyCount());
    SHOW(CIMInstance().findProperty(CIMName("A")));
    SHOW(CIMConstInstance().getProperty(0).getName());
    DO(CIMInstance().setPath(CIMObjectPath(String("C"))));
    DO(CIMInstance().addProperty(property("A", CIMValue())));
}

void lists()
{
    SHOW(CIMPropertyList().isNull());
    SHOW(CIMPropertyList().size());
    SHOW(CIMPropertyList()[0]);
    Array<CIMName> names;
    SHOW(CIMPropertyList(names).isNull());
    SHOW(CIMPropertyList(names).size());
    DO(names.append(CIMName("Caption")));
    DO(names.append(CIMName("caption")));
    SHOW(CIMPropertyList(names).isNull());
    SHOW(CIMPropertyList(names).size());
    SHOW(CIMPropertyList(names)[1]);
    SHOW(CIMPropertyList(names)[2]);
    DO(names.append(CIMName()));
    SHOW(CIMPropertyList(names).size());
}

void parameters()
{
    SHOW(CIMParamValue("Force", CIMValue(Boolean(true))).getParameterName());
    SHOW(CIMParamValue("Force", CIMValue(Boolean(true)), false).getValue());
    SHOW(CIMParamValue("", CIMValue()).getParameterName());
    SHOW(CIMParamValue().getParameterName());
}
}

void showInstances()
{
    section("CIMProperty, CIMInstance, CIMPropertyList, CIMParamValue");
    properties();
    changes();
    instances();
    paths();
    sharing();
    uninitialized();
    lists();
    parameters();
}
