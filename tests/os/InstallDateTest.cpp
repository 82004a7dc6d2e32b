// An install date other than "not known" cannot come from the record today, so these tests put their own in its place:
// this program is linked with --wrap, by which the mapping's call of getInstallDate, and every conversion of a date to
// CIM, reach the functions here. The objects under test are the module's own.

#include "os/OperatingSystem.h"
#include "tests/testing/CimLines.h"
#include "tests/testing/FakeLibc.h"
#include "tests/testing/Provider.h"

#include <Pegasus/Common/CIMDateTime.h>

#include <functional>
#include <stdexcept>

using VQ::DateTime;
using VQ::OperatingSystem;
using Lines = std::vector<std::string>;

namespace
{
std::function<DateTime()> installDate;                 // of every record, when set
std::function<void(const DateTime&)> beforeConversion; // of any date to CIM, when set

DateTime date(unsigned short year, unsigned char month, unsigned char day)
{
    DateTime result;
    result.setYear(year);
    result.setMonth(month);
    result.setDay(day);
    return result;
}

class InstallDate : public FakeLibcTest
{
protected:
    InstallDate() { libc.now = 1773500966; }
    ~InstallDate() override
    {
        installDate = nullptr;
        beforeConversion = nullptr;
    }

    // What a client gets.
    RecordingInstanceHandler answer()
    {
        RecordingInstanceHandler handler;
        provider.enumerate(pathOf("QORTAL_OperatingSystem"), handler);
        return handler;
    }

    // The instance is delivered, and is the same as with an unknown date.
    void expectTheRestWhole()
    {
        const RecordingInstanceHandler failed = answer();
        const Lines oneInstance = {"processing", "instance", "complete"};
        EXPECT_EQ(failed.calls, oneInstance);
        installDate = nullptr;
        beforeConversion = nullptr;
        const RecordingInstanceHandler unknown = answer();
        ASSERT_EQ(failed.instances.size(), 1u);
        ASSERT_EQ(unknown.instances.size(), 1u);
        EXPECT_EQ(failed.instances[0].getPropertyCount(), 27u);
        EXPECT_EQ(propertyLines(failed.instances[0]), propertyLines(unknown.instances[0]));
        EXPECT_EQ(keyLines(failed.instances[0].getPath()), keyLines(unknown.instances[0].getPath()));
    }

    TestProvider provider;
};
}

// The linker's names for the two functions. A member function takes its object as its first argument.
DateTime replacedInstallDate(const OperatingSystem*) __asm__("__wrap__ZNK2VQ15OperatingSystem14getInstallDateEv");
DateTime recordsInstallDate(const OperatingSystem*) __asm__("__real__ZNK2VQ15OperatingSystem14getInstallDateEv");
Pegasus::CIMDateTime watchedConversion(const DateTime&) __asm__("__wrap__ZN2VQ16make_CIMDateTimeERKNS_8DateTimeE");
Pegasus::CIMDateTime conversion(const DateTime&) __asm__("__real__ZN2VQ16make_CIMDateTimeERKNS_8DateTimeE");

DateTime replacedInstallDate(const OperatingSystem* system)
{
    return installDate ? installDate() : recordsInstallDate(system);
}

Pegasus::CIMDateTime watchedConversion(const DateTime& date)
{
    if (beforeConversion)
        beforeConversion(date);
    return conversion(date);
}

TEST_F(InstallDate, ThatIsNotKnownIsNotAProperty)
{
    const RecordingInstanceHandler unknown = answer();
    ASSERT_EQ(unknown.instances.size(), 1u);
    EXPECT_EQ(unknown.instances[0].getPropertyCount(), 27u);
    EXPECT_EQ(valueOf(unknown.instances[0], "InstallDate"), "absent");
}

TEST_F(InstallDate, ThatIsKnownStandsThirdAsADatetime)
{
    const Lines before = propertyLines(answer().instances.at(0));
    installDate = [] { return date(2005, 3, 14); };
    Lines expected = before;
    expected.insert(expected.begin() + 2, "InstallDate | datetime | 20050314000000.000000+000");
    EXPECT_EQ(expected.size(), 28u);
    EXPECT_EQ(propertyLines(answer().instances.at(0)), expected);
}

TEST_F(InstallDate, ThatDiffersOnlyInItsOffsetIsKnown)
{
    libc.gmtOffset = 3600;
    installDate = [] { return DateTime(0, DateTime::Local); };
    EXPECT_EQ(valueOf(answer().instances.at(0), "InstallDate"), "19700101010000.000000+000");
}

TEST_F(InstallDate, ThatFailsLeavesTheRestWhole)
{
    installDate = []() -> DateTime { throw std::runtime_error("no install date"); };
    expectTheRestWhole();
}

TEST_F(InstallDate, ThatFailsWithNoStandardExceptionLeavesTheRestWhole)
{
    installDate = []() -> DateTime { throw 42; };
    expectTheRestWhole();
}

TEST_F(InstallDate, ThatCannotBeConvertedLeavesTheRestWhole)
{
    installDate = [] { return date(2005, 3, 14); };
    int refused = 0;
    beforeConversion = [&refused](const DateTime& converted) {
        if (converted.getYear() != 2005)
            return;
        ++refused;
        throw std::runtime_error("no such date");
    };
    expectTheRestWhole();
    EXPECT_EQ(refused, 1);
}

TEST_F(InstallDate, IsTheOnlyDateWhoseFailureIsForgiven)
{
    beforeConversion = [](const DateTime&) { throw std::runtime_error("no date at all"); };
    RecordingInstanceHandler handler;
    EXPECT_THROW(provider.enumerate(pathOf("QORTAL_OperatingSystem"), handler), std::runtime_error);
    const Lines notCompleted = {"processing"};
    EXPECT_EQ(handler.calls, notCompleted);
}
