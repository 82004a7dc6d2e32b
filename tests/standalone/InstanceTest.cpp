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

TEST(CIMProperty, ACopyIsTheSameProperty)
{
    const CIMProperty original = number("P", 1);
    CIMProperty copy(original);
    copy.setValue(CIMValue(Uint16(9)));
    EXPECT_EQ("9", text(original.getValue().toString()));
}

TEST(CIMProperty, ACloneIsAnotherProperty)
{
    const CIMProperty original = number("P", 1);
    CIMProperty clone = original.clone();
    clone.setValue(CIMValue(Uint16(9)));
    EXPECT_EQ("1", text(original.getValue().toString()));
}

TEST(CIMProperty, KeepsItsTypeAndFixedSize)
{
    CIMProperty scalar = number("P", 1);
    EXPECT_THROW(scalar.setValue(CIMValue(String("x"))), TypeMismatchException);
    EXPECT_THROW(scalar.setValue(CIMValue()), TypeMismatchException);

    CIMProperty array(CIMName("A"), CIMValue(Array<Uint8>(3)), 3);
    EXPECT_EQ(3u, array.getArraySize());
    EXPECT_THROW(array.setValue(CIMValue(Array<Uint8>(4))), TypeMismatchException);
    EXPECT_THROW(CIMProperty(CIMName("A"), CIMValue(Array<Uint8>(3)), 4), TypeMismatchException);
}

TEST(CIMProperty, ComparesNameAndValue)
{
    EXPECT_TRUE(number("P", 1).identical(number("p", 1)));
    EXPECT_FALSE(number("P", 1).identical(number("P", 2)));
    EXPECT_FALSE(number("P", 1).identical(number("Q", 1)));
}

TEST(CIMProperty, ANullNameOrObjectIsUninitialized)
{
    EXPECT_THROW(CIMProperty(CIMName(), CIMValue(Uint8(1))), UninitializedObjectException);
    EXPECT_THROW(CIMProperty().getName(), UninitializedObjectException);
    EXPECT_TRUE(CIMProperty().isUninitialized());
    EXPECT_FALSE(number("P", 1).isUninitialized());
}

TEST(CIMInstance, SharesAPropertyThatWasAdded)
{
    CIMProperty property = number("Q", 1);
    CIMInstance instance = one();
    instance.addProperty(property);
    property.setValue(CIMValue(Uint16(9)));
    EXPECT_EQ("9", valueAt(instance, 1));
}

TEST(CIMInstance, ACopyIsTheSameInstance)
{
    CIMInstance original = one();
    CIMInstance copy = original;
    copy.getProperty(0).setValue(CIMValue(Uint16(7)));
    copy.setPath(CIMObjectPath(String("One.a=1")));
    EXPECT_EQ("7", valueAt(original, 0));
    EXPECT_EQ("One.a=1", text(original.getPath().toString()));
}

TEST(CIMInstance, ACloneHasPropertiesAndAPathOfItsOwn)
{
    CIMInstance original = one();
    CIMInstance clone = original.clone();
    clone.getProperty(0).setValue(CIMValue(Uint16(7)));
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
    EXPECT_EQ(2u, constant.getPropertyCount());
    EXPECT_EQ(1u, constant.findProperty(CIMName("q")));
    EXPECT_EQ(2u, constant.clone().getPropertyCount());
}

TEST(CIMInstance, ReadsItsPropertiesWhileConstant)
{
    const CIMInstance instance = one();
    const CIMConstProperty property = instance.getProperty(0);
    EXPECT_EQ("P", text(property.getName().getString()));
    EXPECT_EQ(CIMTYPE_UINT16, property.getType());
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

TEST(CIMInstance, ComparesPathAndPropertiesWithoutCaseOfNames)
{
    CIMInstance other(CIMName("ONE"));
    other.addProperty(number("p", 1));
    EXPECT_TRUE(one().identical(other));
    other.getProperty(0).setValue(CIMValue(Uint16(2)));
    EXPECT_FALSE(one().identical(other));
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
    EXPECT_TRUE(CIMConstInstance(CIMInstance()).isUninitialized());
}

TEST(CIMParamValue, HoldsANamedValue)
{
    const CIMParamValue parameter("Force", CIMValue(Boolean(true)), false);
    EXPECT_EQ("Force", text(parameter.getParameterName()));
    EXPECT_EQ("TRUE", text(parameter.getValue().toString()));
    EXPECT_FALSE(parameter.isTyped());
    EXPECT_THROW(CIMParamValue("", CIMValue()), UninitializedObjectException);
    EXPECT_THROW(CIMParamValue().getParameterName(), UninitializedObjectException);
}

TEST(CIMPropertyList, RefusesANullNameAndAPositionBeyondTheEnd)
{
    EXPECT_THROW(CIMPropertyList(Array<CIMName>(1)), UninitializedObjectException);
    EXPECT_THROW(CIMPropertyList()[0], IndexOutOfBoundsException);
}
