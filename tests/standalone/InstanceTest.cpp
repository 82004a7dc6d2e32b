#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>

using namespace Pegasus;

namespace
{
CIMProperty number(const char* name, Uint16 value)
{
    return CIMProperty(CIMName(name), CIMValue(value));
}

CIMInstance one()
{
    CIMInstance instance(CIMName("One"));
    instance.addProperty(number("P", 1));
    return instance;
}

std::string valueAt(CIMInstance instance, Uint32 index)
{
    return text(instance.getProperty(index).getValue().toString());
}
}

TEST(CIMProperty, AFixedSizeMustBeTheValues)
{
    Array<Uint8> two;
    two.append(1);
    two.append(2);
    EXPECT_EQ(2u, CIMProperty(CIMName("A"), CIMValue(two), 2).getArraySize());
    EXPECT_THROW(CIMProperty(CIMName("A"), CIMValue(two), 3), TypeMismatchException);
}

TEST(CIMProperty, ANullNameOrObjectIsUninitialized)
{
    EXPECT_THROW(CIMProperty(CIMName(), CIMValue(Uint8(1))), UninitializedObjectException);
    EXPECT_THROW(CIMProperty().getName(), UninitializedObjectException);
}

TEST(CIMInstance, ACopyIsTheSameInstance)
{
    CIMInstance original = one();
    CIMInstance copy = original;
    copy.addProperty(number("Q", 7));
    copy.setPath(CIMObjectPath(String("One.a=1")));
    EXPECT_EQ("7", valueAt(original, 1));
    EXPECT_EQ("One.a=1", text(original.getPath().toString()));
}

TEST(CIMInstance, ACloneHasPropertiesAndAPathOfItsOwn)
{
    CIMInstance original = one();
    CIMInstance clone = original.clone();
    clone.removeProperty(0);
    clone.setPath(CIMObjectPath(String("One.a=1")));
    clone.addProperty(number("Q", 2));
    EXPECT_EQ("1", valueAt(original, 0));
    EXPECT_EQ("One", text(original.getPath().toString()));
    EXPECT_EQ(1u, original.getPropertyCount());
}

TEST(CIMInstance, AConstInstanceSeesTheInstanceItWasMadeFrom)
{
    CIMInstance instance = one();
    const CIMConstInstance constant(instance);
    instance.addProperty(number("Q", 2));
    EXPECT_EQ("Q", text(constant.getProperty(1).getName().getString()));
}

TEST(CIMInstance, ReadsItsPropertiesWhileConstant)
{
    const CIMInstance instance = one();
    const CIMConstProperty property = instance.getProperty(0);
    EXPECT_EQ("P", text(property.getName().getString()));
    EXPECT_EQ("1", text(property.getValue().toString()));
}

TEST(CIMInstance, TakesPathsOfItsOwnClassOnly)
{
    CIMInstance instance = one();
    instance.setPath(CIMObjectPath(String("//h/r:ONE.a=1")));
    EXPECT_EQ("//h/r:ONE.a=1", text(instance.getPath().toString()));
    EXPECT_THROW(instance.setPath(CIMObjectPath(String("Two.a=1"))), TypeMismatchException);
    EXPECT_THROW(instance.setPath(CIMObjectPath()), UninitializedObjectException);
}

TEST(CIMInstance, RefusesPositionsBeyondItsProperties)
{
    CIMInstance instance = one();
    const CIMInstance constant = instance;
    EXPECT_THROW(instance.getProperty(1), IndexOutOfBoundsException);
    EXPECT_THROW(constant.getProperty(1), IndexOutOfBoundsException);
    EXPECT_THROW(instance.removeProperty(1), IndexOutOfBoundsException);
}

TEST(CIMInstance, RefusesWhatIsUninitialized)
{
    CIMInstance instance = one();
    EXPECT_THROW(instance.addProperty(CIMProperty()), UninitializedObjectException);
    EXPECT_THROW(CIMInstance{CIMName()}, UninitializedObjectException);
    EXPECT_THROW(CIMInstance().getClassName(), UninitializedObjectException);
    EXPECT_TRUE(CIMInstance().isUninitialized());
}

TEST(CIMParamValue, HoldsANamedValue)
{
    const CIMParamValue parameter("Force", CIMValue(Boolean(true)), false);
    EXPECT_EQ("Force", text(parameter.getParameterName()));
    EXPECT_EQ("TRUE", text(parameter.getValue().toString()));
    EXPECT_THROW(CIMParamValue("", CIMValue()), UninitializedObjectException);
    EXPECT_THROW(CIMParamValue().getParameterName(), UninitializedObjectException);
}

TEST(CIMPropertyList, RefusesANullNameAndAPositionBeyondTheEnd)
{
    Array<CIMName> names;
    names.append(CIMName());
    EXPECT_THROW(CIMPropertyList{names}, UninitializedObjectException);
    EXPECT_THROW(CIMPropertyList()[0], IndexOutOfBoundsException);
}
