// Requests while system calls fail: each ends in the documented error or in a right answer, nothing is left behind, and
// the next request is right.

#include "tests/failure/Documented.h"
#include "tests/failure/Injection.h"
#include "tests/failure/Machine.h"
#include "tests/failure/Module.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <stdexcept>

using Operation = Request::Operation;

namespace
{
struct Kind
{
    Call call;
    int error; ///< 0: a short answer
    const char* name;
};

const Kind Kinds[] = {
    {Call::Open, ENOENT, "open: ENOENT"},     {Call::Open, EACCES, "open: EACCES"},
    {Call::Open, EMFILE, "open: EMFILE"},     {Call::Open, EINTR, "open: EINTR"},
    {Call::Stat, ENOENT, "stat: ENOENT"},     {Call::Stat, EACCES, "stat: EACCES"},
    {Call::Stat, EIO, "stat: EIO"},           {Call::Fstat, EIO, "fstat: EIO"},
    {Call::Read, EIO, "read: EIO"},           {Call::Read, EPERM, "read: EPERM"},
    {Call::Read, EINTR, "read: EINTR"},       {Call::Read, 0, "read: short"},
    {Call::Pread, EIO, "pread: EIO"},         {Call::Pread, EPERM, "pread: EPERM"},
    {Call::Pread, EFAULT, "pread: EFAULT"},   {Call::Pread, EINTR, "pread: EINTR"},
    {Call::Pread, 0, "pread: short"},         {Call::Mmap, ENOMEM, "mmap: ENOMEM"},
    {Call::Mmap, EPERM, "mmap: EPERM"},       {Call::Uname, EFAULT, "uname"},
    {Call::Sysinfo, EFAULT, "sysinfo"},       {Call::Dlopen, ENOENT, "dlopen: absent"},
    {Call::Dlopen, ENOMEM, "dlopen: ENOMEM"},
};

constexpr long Bound = 100000;

// A short answer makes as many more calls as there are bytes, and each is like the one before.
constexpr long ShortAnswers = 3;

// What left a request: nothing, the project's own error, or lack of memory.
enum class Thrown
{
    Nothing,
    Unreadable, ///< with a text that says what can't be done with which file
    NoMemory,
};

Thrown perform(Request& request, const Failure& failure)
{
    try {
        const Failing failing(failure);
        request.perform();
        return Thrown::Nothing;
    } catch (const std::bad_alloc&) {
        return Thrown::NoMemory;
    } catch (const std::runtime_error& error) {
        const std::string text = error.what();
        EXPECT_EQ(text.rfind("cannot ", 0), 0u) << text;
        EXPECT_TRUE(text.find("/sys/firmware/dmi/tables") != std::string::npos ||
                    text.find("/dev/mem") != std::string::npos)
            << text;
        return Thrown::Unreadable;
    }
}

class SystemCalls : public testing::TestWithParam<Machine::Place>
{
protected:
    SystemCalls()
    {
        setenv("TZ", "UTC", 1);
        // A machine of which nothing can be found; the answers of one without SMBIOS.
        const LoadedModule module;
        for (const char* className : AllClasses) {
            Request request(module, Operation::Enumerate, className);
            request.perform();
            withoutSmbios.push_back(request.answer());
        }
        machine.emplace(GetParam());
    }

    // Calls that a request over this machine does not make need no runs.
    static bool isMade(Call call)
    {
        const bool ofMemory = call == Call::Pread || call == Call::Mmap;
        switch (GetParam()) {
        case Machine::Place::Sysfs:
            return !ofMemory;
        case Machine::Place::Memory:
            return call == Call::Open || call == Call::Stat || call == Call::Pread;
        case Machine::Place::MappedOnly:
            return ofMemory;
        }
        return true;
    }

    // What this failure may make of this answer. An error of the table is one, but for the firmware: a BIOS that can't
    // be described does not cost the others.
    static bool isAllowed(const Kind& kind, Thrown thrown, const Lines& answer, const Lines& expected,
                          const Lines& without, const char* className)
    {
        const bool opens = kind.call == Call::Open || kind.call == Call::Stat;
        if (thrown == Thrown::NoMemory)
            return kind.call == Call::Dlopen && kind.error == ENOMEM && !isCompleted(answer);
        if (thrown == Thrown::Unreadable)
            return kind.error != 0 && kind.error != EINTR && !isCompleted(answer);
        if (answer == expected)
            return true;
        if (isDocumentedLess(answer, expected, className))
            return kind.error != 0 && kind.error != EINTR && kind.call != Call::Fstat && kind.call != Call::Dlopen;
        if (opens && kind.error == ENOENT) // one of the request's readers sees a machine without SMBIOS
            return std::all_of(answer.begin(), answer.end(), [&](const std::string& line) {
                return contains(expected, line) || contains(without, line) || line == "ConfigOptions | string[0] | ";
            });
        if (kind.call == Call::Dlopen && kind.error == ENOENT)
            return answer == withoutBmcOf(expected) || isWithoutWhatTheCallTells(kind.call, answer, expected);
        return isWithoutWhatTheCallTells(kind.call, answer, expected);
    }

    static bool contains(const Lines& lines, const std::string& line)
    {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }

    // Without the last instance, where that is the BMC's.
    static Lines withoutBmcOf(const Lines& answer)
    {
        const auto last = std::find(answer.rbegin(), answer.rend(), "instance");
        if (last == answer.rend() || std::find(last.base(), answer.end(), "Name | string | NB BMC") == answer.end())
            return answer;
        return Lines(answer.begin(), last.base() - 1);
    }

    std::optional<Machine> machine;
    std::vector<Lines> withoutSmbios;
};
}

TEST_P(SystemCalls, OfEachClassFailOneByOne)
{
    const LoadedModule module;
    long runs = 0;
    for (std::size_t i = 0; i < std::size(AllClasses); ++i) {
        const char* const className = AllClasses[i];
        Request clean(module, Operation::Enumerate, className);
        clean.perform();
        const Lines expected = clean.answer();
        for (const Kind& kind : Kinds) {
            for (const bool lasting : {false, true}) {
                if (!isMade(kind.call) || (lasting && kind.error == EINTR))
                    continue; // a call that is interrupted for ever is asked for ever
                SCOPED_TRACE(std::string(className) + ", " + kind.name + (lasting ? ", lasting" : ""));
                bool happened = true;
                for (long number = 1; happened && number < Bound; ++number, ++runs) {
                    const Holdings before = holdings();
                    {
                        Request request(module, Operation::Enumerate, className);
                        const Thrown thrown = perform(request, {kind.call, number, lasting, kind.error});
                        happened = Failing::happened();
                        ASSERT_TRUE(isAllowed(kind, thrown, request.answer(), expected, withoutSmbios[i], className))
                            << "call " << number << ", " << static_cast<int>(thrown) << ", "
                            << testing::PrintToString(request.answer());
                    }
                    {
                        Request next(module, Operation::Enumerate, className);
                        next.perform();
                        ASSERT_EQ(next.answer(), expected) << "call " << number;
                    }
                    ASSERT_EQ(holdings(), before) << "call " << number;
                    if (kind.error == 0 && number == ShortAnswers)
                        break;
                }
            }
        }
    }
    std::printf("%ld runs\n", runs);
}

TEST_P(SystemCalls, OfInitFailOneByOne)
{
    const LoadedModule module;
    const auto init = reinterpret_cast<int (*)()>(dlsym(module.handle(), "init"));
    const auto slots = reinterpret_cast<int (*)()>(dlsym(module.handle(), "getSlotCount"));
    ASSERT_EQ(init(), 1);
    ASSERT_EQ(slots(), 1);
    for (const Kind& kind : Kinds) {
        bool happened = isMade(kind.call);
        for (long number = 1; happened && number < (kind.error == 0 ? ShortAnswers : Bound); ++number) {
            SCOPED_TRACE(std::string(kind.name) + ", call " + std::to_string(number));
            const Holdings before = holdings();
            try {
                const Failing failing({kind.call, number, false, kind.error});
                EXPECT_EQ(init(), 1);
            } catch (const std::bad_alloc&) {
                EXPECT_EQ(kind.error, ENOMEM);
            } catch (const std::runtime_error& error) {
                EXPECT_EQ(std::strncmp(error.what(), "cannot ", 7), 0) << error.what();
            }
            happened = Failing::happened();
            ASSERT_EQ(init(), 1);
            ASSERT_EQ(slots(), 1);
            ASSERT_EQ(holdings(), before);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sysfs, SystemCalls, testing::Values(Machine::Place::Sysfs));
INSTANTIATE_TEST_SUITE_P(Memory, SystemCalls, testing::Values(Machine::Place::Memory));
INSTANTIATE_TEST_SUITE_P(MappedOnly, SystemCalls, testing::Values(Machine::Place::MappedOnly));
