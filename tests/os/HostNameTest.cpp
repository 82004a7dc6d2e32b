// The host name of the local machine, over fixed answers of libc.

#include "support/common/System.h"

#include "tests/testing/FakeLibc.h"

using HostName = FakeLibcTest;

TEST_F(HostName, IsTheKernelsNodeName)
{
    libc.setHostName("host1");
    EXPECT_EQ(VQ::System::getName(), L"host1");
}

TEST_F(HostName, KeepsItsDomainAndCase)
{
    libc.setHostName("Host1.Example.org");
    EXPECT_EQ(VQ::System::getName(), L"Host1.Example.org");
}

TEST_F(HostName, IsReadAnewOnEveryCall)
{
    libc.setHostName("before");
    EXPECT_EQ(VQ::System::getName(), L"before");
    libc.setHostName("after");
    EXPECT_EQ(VQ::System::getName(), L"after");
}

TEST_F(HostName, OfTheGreatestLengthIsWhole)
{
    libc.setHostName(std::string(64, 'x'));
    EXPECT_EQ(VQ::System::getName(), std::wstring(64, L'x'));
}

TEST_F(HostName, BeyondAsciiIsUtf8)
{
    libc.setHostName("h\xC3\xB6st");
    EXPECT_EQ(VQ::System::getName(), L"h\xF6st");
}

TEST_F(HostName, IsEmptyWhereThereIsNone)
{
    libc.setHostName("");
    EXPECT_EQ(VQ::System::getName(), L"");
    libc.unameFails = true;
    EXPECT_EQ(VQ::System::getName(), L"");
}
