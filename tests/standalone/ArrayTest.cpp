#include "tests/testing/CimLines.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

#include <gtest/gtest.h>
#include <initializer_list>

using namespace Pegasus;

namespace
{
Array<Uint32> arrayOf(std::initializer_list<Uint32> numbers)
{
    Array<Uint32> array;
    for (const Uint32 number : numbers)
        array.append(number);
    return array;
}

Array<Uint32> oneTwoThree()
{
    return arrayOf({1, 2, 3});
}

template <class T> class ArrayOf : public ::testing::Test
{
};
using Elements =
    ::testing::Types<Boolean, Uint8, Sint8, Uint16, Sint16, Uint32, Sint32, Uint64, Sint64, String, CIMDateTime,
                     CIMName, CIMKeyBinding, CIMObjectPath, CIMProperty, CIMInstance, CIMParamValue, CIMValue>;
TYPED_TEST_SUITE(ArrayOf, Elements);
}

TYPED_TEST(ArrayOf, GrowsOneByOneAndShrinks)
{
    Array<TypeParam> array;
    for (Uint32 i = 0; i < 20; ++i)
        array.append(TypeParam());
    array.remove(3);
    EXPECT_EQ(19u, array.size());
    EXPECT_EQ(19u, Array<TypeParam>(array).size());
    EXPECT_EQ(&array[18], &array[0] + 18);
}

TEST(Array, IndexPastTheEndThrows)
{
    Array<Uint32> array = oneTwoThree();
    const Array<Uint32>& constant = array;
    EXPECT_THROW(array[3], IndexOutOfBoundsException);
    EXPECT_THROW(constant[3], IndexOutOfBoundsException);
    EXPECT_THROW(Array<Uint32>()[0], IndexOutOfBoundsException);
    EXPECT_THROW(array[PEG_NOT_FOUND], IndexOutOfBoundsException);
}

TEST(Array, InsertsAtTheEndButNotBeyond)
{
    Array<Uint32> array = oneTwoThree();
    array.insert(3, 4);
    EXPECT_EQ(4u, array[3]);
    EXPECT_THROW(array.insert(5, 5), IndexOutOfBoundsException);
    EXPECT_EQ(4u, array.size());
}

TEST(Array, InsertMovesTheRest)
{
    Array<Uint32> array = oneTwoThree();
    array.insert(1, 9);
    array.prepend(8);
    EXPECT_TRUE(array == arrayOf({8, 1, 9, 2, 3}));
}

TEST(Array, RemovesARange)
{
    Array<Uint32> array = oneTwoThree();
    array.remove(0, 2);
    EXPECT_EQ(1u, array.size());
    EXPECT_EQ(3u, array[0]);
}

TEST(Array, RemovesTheLastElement)
{
    Array<Uint32> array = oneTwoThree();
    array.remove(2);
    EXPECT_EQ(2u, array.size());
    EXPECT_EQ(2u, array[1]);
}

TEST(Array, AppendsItselfAndItsOwnElements)
{
    Array<String> array;
    array.append(String("a"));
    array.append(String("b"));
    array.appendArray(array);
    for (int i = 0; i < 10; ++i)
        array.append(array[1]);
    EXPECT_EQ(14u, array.size());
    EXPECT_EQ("a", text(array[2]));
    EXPECT_EQ("b", text(array[13]));
}

TEST(Array, ACopyIsAValue)
{
    Array<String> original;
    original.append(String("a"));
    Array<String> copy(original);
    copy[0].append(Char16('b'));
    copy.append(String("c"));
    EXPECT_EQ(1u, original.size());
    EXPECT_EQ("a", text(original[0]));
}

TEST(Array, ComparesElementByElement)
{
    Array<Uint32> shorter = oneTwoThree();
    shorter.remove(2);
    EXPECT_TRUE(oneTwoThree() == oneTwoThree());
    EXPECT_FALSE(oneTwoThree() == shorter);
}
