#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>

using namespace Pegasus;

namespace
{
std::string rewritten(const char* path)
{
    return text(CIMObjectPath(String(path)).toString());
}

CIMKeyBinding onlyKey(const char* path)
{
    return CIMObjectPath(String(path)).getKeyBindings()[0];
}

void expectKept(const char* path)
{
    EXPECT_EQ(path, rewritten(path));
}

void expectMalformed(const char* path)
{
    EXPECT_THROW(CIMObjectPath{String(path)}, MalformedObjectNameException) << path;
}

bool equalKeys(CIMKeyBinding::Type type, const char* a, const char* b)
{
    return CIMKeyBinding(CIMName("A"), String(a), type) == CIMKeyBinding(CIMName("A"), String(b), type);
}

bool equalNumbers(const char* a, const char* b)
{
    return equalKeys(CIMKeyBinding::NUMERIC, a, b);
}
}

TEST(CIMObjectPath, ReadsEveryForm)
{
    expectKept("C");
    expectKept("root/cimv2:C");
    expectKept("//host.example/root/cimv2:C.a=1");
    expectKept("//127.0.0.1:5988/root:C");
    expectKept("//[::1]:5989/root:C");
    expectKept("C.a=\"root:x,b=c.d/e\",b=TRUE,c=-7");
}

TEST(CIMObjectPath, DropsTheSlashBeforeANamespace)
{
    EXPECT_EQ("root:C", rewritten("/root:C"));
}

TEST(CIMObjectPath, LetsTheKeysBeAbsentAfterTheirPointOrComma)
{
    EXPECT_EQ("C", rewritten("C."));
    EXPECT_EQ("C.a=1", rewritten("C.a=1,"));
}

TEST(CIMObjectPath, RefusesABadHost)
{
    for (const char* path :
         {"//h", "///root:C", "//-h/r:C", "//h..x/r:C", "//h x/r:C", "//1.2.3/r:C", "//1.2.3.400/r:C", "//a.1/r:C",
          "//h:65536/r:C", "//user@h/r:C", "//[g]/r:C", "//[::1/r:C", "//\xC3\xA9/r:C"})
        expectMalformed(path);
}

TEST(CIMObjectPath, RefusesAHostWithoutANamespace)
{
    expectMalformed("//h/C");
    expectMalformed("//h/:C");
    expectMalformed("//h//r:C");
}

TEST(CIMObjectPath, RefusesABadNamespaceOrClass)
{
    for (const char* path : {":C", "root/:C", "root//x:C", "/C", "root/cimv2", "1C.a=1", ".a=1", " C", "C=1", "\n"})
        expectMalformed(path);
}

TEST(CIMObjectPath, RefusesABadKey)
{
    for (const char* path : {"C.a", "C.=1", "C.1a=1", "C. a=1", "C.a =1", "C.a==1", "C.a=1,,b=2", "a.b:C.x=1"})
        expectMalformed(path);
}

TEST(CIMObjectPath, RefusesBadQuoting)
{
    for (const char* path : {"C.a=\"x", "C.a=\"x\"y", "C.a=\"x\" ,b=1", "C.a=\"\\\"", "C.a=\"\\n\"", "C.a='x'"})
        expectMalformed(path);
}

TEST(CIMObjectPath, RefusesAValueThatIsNoNumber)
{
    for (const char* value : {"01", "00", "-", "--1", "+1", "0x", "0x1G", "101b", "1.5", "1e3", " 1", "1 ", "TRUEx"})
        expectMalformed((std::string("C.a=") + value).c_str());
}

TEST(CIMObjectPath, TakesNumbersOf64Bits)
{
    expectKept("C.a=18446744073709551615");
    expectKept("C.a=-9223372036854775808");
    expectKept("C.a=0xFFFFFFFFFFFFFFFF");
    expectMalformed("C.a=18446744073709551616");
    expectMalformed("C.a=-9223372036854775809");
    expectMalformed("C.a=0x10000000000000000");
}

TEST(CIMObjectPath, ReadsABooleanInAnyCase)
{
    EXPECT_EQ(CIMKeyBinding::BOOLEAN, onlyKey("C.a=true").getType());
    EXPECT_EQ("TRUE", text(onlyKey("C.a=true").getValue()));
    EXPECT_EQ("FALSE", text(onlyKey("C.a=False").getValue()));
}

TEST(CIMObjectPath, ReadsEscapes)
{
    EXPECT_EQ("a\"b\\c", text(onlyKey("C.a=\"a\\\"b\\\\c\"").getValue()));
    expectKept("C.a=\"a\\\"b\\\\c\"");
}

TEST(CIMObjectPath, AQuotedPathWithKeysIsAReference)
{
    EXPECT_EQ(CIMKeyBinding::REFERENCE, onlyKey("C.a=\"D.x=\\\"1\\\"\"").getType());
    EXPECT_EQ(CIMKeyBinding::STRING, onlyKey("C.a=\"D\"").getType());
    EXPECT_EQ("D.a=1,b=2", text(onlyKey("C.x=\"D.b=2,a=1\"").getValue()));
}

TEST(CIMObjectPath, SortsItsKeysByNameWithoutCase)
{
    EXPECT_EQ("C._x=4,A=2,a1=5,b=1,B1=6,C=3", rewritten("C.b=1,A=2,C=3,_x=4,a1=5,B1=6"));
}

TEST(CIMObjectPath, KeepsDuplicateKeysInTheirOrder)
{
    EXPECT_EQ("C.A=2,a=1", rewritten("C.A=2,a=1"));
}

TEST(CIMObjectPath, ACopyIsAValue)
{
    const CIMObjectPath original(String("C.a=1"));
    CIMObjectPath copy(original);
    copy.setClassName(CIMName("D"));
    copy.setKeyBindings(Array<CIMKeyBinding>());
    EXPECT_EQ("C.a=1", text(original.toString()));
}

TEST(CIMObjectPath, AHostAloneStillWritesANamespace)
{
    CIMObjectPath path(String("C"));
    path.setHost("h");
    EXPECT_EQ("//h/:C", text(path.toString()));
}

TEST(CIMObjectPath, SetHostRefusesWhatIsNoHost)
{
    CIMObjectPath path(String("//h/r:C"));
    EXPECT_THROW(path.setHost("a b"), MalformedObjectNameException);
    EXPECT_EQ("h", text(path.getHost()));
    path.setHost("");
    EXPECT_EQ("r:C", text(path.toString()));
}

TEST(CIMObjectPath, ComparesNamesWithoutCase)
{
    EXPECT_TRUE(CIMObjectPath(String("C.a=1")) == CIMObjectPath(String("c.A=1")));
    EXPECT_FALSE(CIMObjectPath(String("C.a=1")) == CIMObjectPath(String("C.a=2")));
}

TEST(CIMKeyBinding, NumbersCompareByValue)
{
    EXPECT_TRUE(equalNumbers("-1", "-0x1"));
    EXPECT_TRUE(equalNumbers("0", "-0"));
    EXPECT_TRUE(equalNumbers("0X0A", "10"));
    EXPECT_TRUE(equalNumbers("+1", "0x1"));
    EXPECT_TRUE(equalNumbers("18446744073709551615", "0xffffffffffffffff"));
    EXPECT_TRUE(equalNumbers("-9223372036854775808", "-0x8000000000000000"));
    EXPECT_FALSE(equalNumbers("-1", "18446744073709551615"));
    EXPECT_FALSE(equalNumbers("1", "2"));
}

TEST(CIMKeyBinding, WhatIsNoNumberComparesAsWritten)
{
    EXPECT_TRUE(equalNumbers("01", "01"));
    EXPECT_TRUE(equalNumbers("", ""));
    EXPECT_FALSE(equalNumbers("101b", "5"));
    EXPECT_FALSE(equalNumbers("abc", "ABC"));
    EXPECT_FALSE(equalNumbers("18446744073709551616", "0x10000000000000000"));
}

TEST(CIMKeyBinding, ReferencesCompareAsPaths)
{
    EXPECT_TRUE(equalKeys(CIMKeyBinding::REFERENCE, "D.a=1,b=2", "d.B=2,A=1"));
    EXPECT_FALSE(equalKeys(CIMKeyBinding::REFERENCE, "D.a=1", "D.a=2"));
    EXPECT_FALSE(equalKeys(CIMKeyBinding::REFERENCE, "junk=", "JUNK="));
}

TEST(CIMKeyBinding, TakesItsTypeFromAValue)
{
    EXPECT_EQ(CIMKeyBinding::BOOLEAN, CIMKeyBinding(CIMName("A"), CIMValue(Boolean(true))).getType());
    EXPECT_EQ(CIMKeyBinding::STRING, CIMKeyBinding(CIMName("A"), CIMValue(String("x"))).getType());
    EXPECT_EQ(CIMKeyBinding::STRING, CIMKeyBinding(CIMName("A"), CIMValue(CIMDateTime())).getType());
    EXPECT_EQ(CIMKeyBinding::NUMERIC, CIMKeyBinding(CIMName("A"), CIMValue(Sint8(-5))).getType());
    EXPECT_THROW(CIMKeyBinding(CIMName("A"), CIMValue(Array<Uint8>())), TypeMismatchException);
}
