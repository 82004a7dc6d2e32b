// What holds for this project's own CIM library only.

#include "tests/testing/CimLines.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <gtest/gtest.h>
#include <type_traits>

using namespace Pegasus;

TEST(Standalone, RemovingBeyondTheEndOfAnArrayThrowsAndChangesNothing)
{
    Array<Uint32> array;
    array.append(1);
    array.append(2);
    EXPECT_THROW(array.remove(2), IndexOutOfBoundsException);
    EXPECT_THROW(array.remove(1, 2), IndexOutOfBoundsException);
    const Uint32 notFound = String("a").find(Char16('b')); // PEG_NOT_FOUND, which the compiler need not know
    EXPECT_THROW(array.remove(0, notFound), IndexOutOfBoundsException);
    EXPECT_EQ(2u, array.size());
}

TEST(Standalone, CloningAnUninitializedObjectThrows)
{
    EXPECT_THROW(CIMInstance().clone(), UninitializedObjectException);
}

TEST(Standalone, ALiteralIsNoBooleanValue)
{
    EXPECT_FALSE((std::is_constructible<CIMValue, const char*>::value));
}

TEST(Standalone, ALoneSurrogateKeepsItsPlace)
{
    const Char16 units[] = {Uint16(0xD800), Uint16('a'), Uint16(0xDC00), Uint16(0xD800)};
    EXPECT_EQ("\xED\xA0\x80"
              "a\xED\xB0\x80\xED\xA0\x80",
              text(String(units, 4)));
}

TEST(Standalone, AnAddressWithLeadingZerosIsNoHost)
{
    EXPECT_THROW(CIMObjectPath(String("//010.0.0.1/r:C")), MalformedObjectNameException);
}

TEST(Standalone, AnUnknownCodeOrTypeHasANameToo)
{
    EXPECT_STREQ("unknown CIM status code", cimStatusCodeToString(CIMStatusCode(18)));
    EXPECT_STREQ("unknown CIM type", cimTypeToString(CIMType(17)));
}

TEST(Standalone, AMovedArrayIsEmpty)
{
    Array<String> from;
    from.append("a");
    const Array<String> to(std::move(from));
    EXPECT_EQ(1u, to.size());
    EXPECT_EQ(0u, from.size()); // NOLINT(bugprone-use-after-move): which is what this test is about
    EXPECT_THROW(from[0], IndexOutOfBoundsException);
}
