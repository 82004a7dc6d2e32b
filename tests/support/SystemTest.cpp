#include "support/common/System.h"

#include "support/common/Export.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <sys/utsname.h>

namespace
{
std::string nodeName;
bool unameFails = false;
}

// In place of the C library's: the host name that the test wants.
extern "C" VQ_EXPORT int uname(utsname* names) noexcept
{
    if (unameFails) {
        errno = EFAULT;
        return -1;
    }
    std::memset(names, 0, sizeof *names);
    std::memcpy(names->nodename, nodeName.data(), std::min(nodeName.size(), sizeof names->nodename - 1));
    return 0;
}

TEST(System, NameIsTheKernelsNodeName)
{
    nodeName = "host1";
    EXPECT_EQ(VQ::System::getName(), L"host1");
}

TEST(System, NameKeepsItsDomainAndCase)
{
    nodeName = "Host1.Example.org";
    EXPECT_EQ(VQ::System::getName(), L"Host1.Example.org");
}

TEST(System, NameIsReadAnewOnEveryCall)
{
    nodeName = "before";
    EXPECT_EQ(VQ::System::getName(), L"before");
    nodeName = "after";
    EXPECT_EQ(VQ::System::getName(), L"after");
}

TEST(System, LongestNameIsWhole)
{
    nodeName = std::string(64, 'x');
    EXPECT_EQ(VQ::System::getName(), std::wstring(64, L'x'));
}

TEST(System, NameBeyondAsciiIsUtf8)
{
    nodeName = "h\xC3\xB6st";
    EXPECT_EQ(VQ::System::getName(), L"h\xF6st");
}

TEST(System, NoNameIsEmpty)
{
    nodeName = "";
    EXPECT_EQ(VQ::System::getName(), L"");
    unameFails = true;
    EXPECT_EQ(VQ::System::getName(), L"");
    unameFails = false;
}
