#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>

using namespace Pegasus;

namespace
{
template <class T> std::string arrayText(const T& first, const T& second)
{
    Array<T> array;
    array.append(first);
    array.append(second);
    return text(CIMValue(array).toString());
}

template <class T> T taken(const CIMValue& value)
{
    T variable = T();
    value.get(variable);
    return variable;
}
}

TEST(CIMValue, GivesBackEveryScalar)
{
    EXPECT_TRUE(taken<Boolean>(CIMValue(Boolean(true))));
    EXPECT_EQ(255, taken<Uint8>(CIMValue(Uint8(255))));
    EXPECT_EQ(-128, taken<Sint8>(CIMValue(Sint8(-128))));
    EXPECT_EQ(65535, taken<Uint16>(CIMValue(Uint16(65535))));
    EXPECT_EQ(-32768, taken<Sint16>(CIMValue(Sint16(-32768))));
    EXPECT_EQ(4294967295u, taken<Uint32>(CIMValue(Uint32(4294967295u))));
    EXPECT_EQ(-5, taken<Sint32>(CIMValue(Sint32(-5))));
    EXPECT_EQ(18446744073709551615ull, taken<Uint64>(CIMValue(Uint64(18446744073709551615ull))));
    EXPECT_EQ(-5, taken<Sint64>(CIMValue(Sint64(-5))));
    EXPECT_EQ("x", text(taken<String>(CIMValue(String("x")))));
    EXPECT_TRUE(taken<CIMDateTime>(CIMValue(CIMDateTime())).isInterval());
}

TEST(CIMValue, WritesArraysWithASpaceAfterEachValue)
{
    EXPECT_EQ("TRUE FALSE ", arrayText<Boolean>(true, false));
    EXPECT_EQ("-1 2 ", arrayText<Sint8>(-1, 2));
    EXPECT_EQ("255 0 ", arrayText<Uint8>(255, 0));
    EXPECT_EQ("00000000000000.000000:000 20050307120000.000000+060 ",
              arrayText(CIMDateTime(), CIMDateTime("20050307120000.000000+060")));
}

TEST(CIMValue, GivesBackAnArrayAsAValue)
{
    Array<String> texts;
    texts.append(String("a"));
    const CIMValue value(texts);
    texts[0] = String("changed");
    Array<String> out = taken<Array<String>>(value);
    out.append(String("more"));
    EXPECT_EQ("a ", text(value.toString()));
    EXPECT_EQ(1u, value.getArraySize());
}

TEST(CIMValue, ANullLeavesTheVariableAsItIs)
{
    String variable("old");
    CIMValue(CIMTYPE_STRING, false).get(variable);
    EXPECT_EQ("old", text(variable));
}

TEST(CIMValue, ANullStillHasItsType)
{
    Uint32 number = 5;
    EXPECT_THROW(CIMValue(CIMTYPE_UINT16, false).get(number), TypeMismatchException);
    EXPECT_EQ(5u, number);
}

TEST(CIMValue, NullsOfOneTypeAreEqual)
{
    const CIMValue null(CIMTYPE_UINT16, false);
    EXPECT_TRUE(null == CIMValue(CIMTYPE_UINT16, false));
    EXPECT_FALSE(null == CIMValue(CIMTYPE_UINT32, false));
    EXPECT_FALSE(null == CIMValue(Uint16(0)));
    EXPECT_FALSE(CIMValue(CIMTYPE_UINT16, true) == CIMValue(Array<Uint16>()));
}

TEST(CIMValue, ADifferentTypeIsNotEqual)
{
    Array<Uint16> one;
    one.append(1);
    EXPECT_FALSE(CIMValue(Uint16(1)) == CIMValue(Uint32(1)));
    EXPECT_FALSE(CIMValue(Uint16(1)) == CIMValue(one));
    EXPECT_TRUE(CIMValue(one) == CIMValue(one));
}

TEST(CIMValue, OnlyAnArrayHasAnArraySize)
{
    EXPECT_EQ(0u, CIMValue(Uint16(3)).getArraySize());
    EXPECT_EQ(7u, CIMValue(CIMTYPE_UINT16, true, 7).getArraySize());
    EXPECT_EQ(0u, CIMValue(CIMTYPE_UINT16, false, 7).getArraySize());
}
