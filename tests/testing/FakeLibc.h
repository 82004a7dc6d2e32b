#pragma once

#include <ctime>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <sys/utsname.h>

/// The answers of libc, as a test fixes them. A program that links vq_fake_libc has no other `sysinfo`, `uname`,
/// `time`, `localtime`, `localtime_r` and `nl_langinfo`: its own objects and the libraries it loads call these.
struct FakeLibc
{
    /// The fields of `sysinfo`'s record. The record itself cannot be a member: it may end in an array of no elements.
    struct
    {
        long uptime;
        unsigned long totalram, freeram, sharedram, bufferram, totalswap, freeswap;
        unsigned short procs;
        unsigned int mem_unit;
    } figures;
    bool sysinfoFails; ///< -1, and the caller's record stays as it was
    int sysinfoCalls;

    utsname names;                             ///< the host is "test-host" unless told
    bool unameFails;                           ///< -1, and the caller's record stays as it was
    void setHostName(const std::string& name); ///< of 64 bytes at most

    std::time_t now;
    long gmtOffset;      ///< of local time, in seconds east of UTC
    std::time_t summer;  ///< from this instant on, when set, local time is an hour further east
    bool localtimeFails; ///< a null pointer, and the caller's record stays as it was
    int localtimeCalls;  ///< of the one with the static buffer

    const char* codeSet; ///< of nl_langinfo(CODESET); every other item is ""
    int langinfoCalls;
};

FakeLibc& fakeLibc();

/// Every test begins with nothing failing, zero figures, "test-host", the epoch in UTC, and without LANG, LC_CTYPE and
/// LC_ALL.
class FakeLibcTest : public testing::Test
{
protected:
    FakeLibcTest();
    ~FakeLibcTest() override;

    FakeLibc& libc = fakeLibc();

private:
    std::map<std::string, std::optional<std::string>> _environment;
};

/// Fills the memory that the next calls will use for their local objects, so that what they leave unset shows.
void soilStack();
