#include "tests/testing/CimLines.h"

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <type_traits>

using namespace Pegasus;

namespace
{
/// A module loaded as a server loads one that it keeps apart from the others.
class Module
{
public:
    Module() : handle_(dlopen(VQ_THROWING_MODULE, RTLD_LAZY | RTLD_LOCAL)) {}
    ~Module()
    {
        if (handle_)
            dlclose(handle_);
    }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    bool loaded() const { return handle_ != nullptr; }
    void call(const char* function) const { reinterpret_cast<void (*)()>(dlsym(handle_, function))(); }

private:
    void* handle_;
};
}

TEST(Exceptions, AModulesExceptionIsCaughtByItsType)
{
    const Module module;
    ASSERT_TRUE(module.loaded()) << dlerror();
    try {
        module.call("throwCIMException");
        FAIL() << "nothing thrown";
    } catch (const CIMException& e) {
        EXPECT_EQ(CIM_ERR_NOT_FOUND, e.getCode());
        EXPECT_EQ("from a module", text(e.getMessage()));
    }
}

TEST(Exceptions, AnExceptionThrownByAHeaderInAModuleIsCaughtByItsType)
{
    const Module module;
    ASSERT_TRUE(module.loaded()) << dlerror();
    EXPECT_THROW(module.call("throwIndexOutOfBounds"), IndexOutOfBoundsException);
}

TEST(Exceptions, TheLibrarysExceptionPassesThroughAModule)
{
    const Module module;
    ASSERT_TRUE(module.loaded()) << dlerror();
    EXPECT_THROW(module.call("throwBadText"), Exception);
}

TEST(Exceptions, EveryTypeIsAnException)
{
    EXPECT_THROW(throw IndexOutOfBoundsException(), Exception);
    EXPECT_THROW(throw AlreadyExistsException("x"), Exception);
    EXPECT_THROW(throw InvalidNameException("x"), Exception);
    EXPECT_THROW(throw InvalidNamespaceNameException("x"), Exception);
    EXPECT_THROW(throw UninitializedObjectException(), Exception);
    EXPECT_THROW(throw TypeMismatchException(), Exception);
    EXPECT_THROW(throw InvalidDateTimeFormatException(), Exception);
    EXPECT_THROW(throw DateTimeOutOfRangeException("x"), Exception);
    EXPECT_THROW(throw MalformedObjectNameException("x"), Exception);
    EXPECT_THROW(throw CIMException(CIM_ERR_FAILED, "x"), Exception);
}

TEST(Exceptions, AreNoStandardExceptions)
{
    EXPECT_FALSE((std::is_base_of<std::exception, Exception>::value));
}

TEST(Exceptions, AReplacedExceptionHasTheCodeAndTextOfTheOther)
{
    CIMException exception(CIM_ERR_FAILED, "first");
    exception = CIMException(CIM_ERR_NOT_FOUND, "second");
    EXPECT_EQ(CIM_ERR_NOT_FOUND, exception.getCode());
    EXPECT_EQ("second", text(exception.getMessage()));
}

TEST(Exceptions, StatusCodesHaveTheirNames)
{
    EXPECT_STREQ("CIM_ERR_SUCCESS", cimStatusCodeToString(CIM_ERR_SUCCESS));
    EXPECT_STREQ("CIM_ERR_INVALID_CLASS", cimStatusCodeToString(CIMStatusCode(5)));
    EXPECT_STREQ("CIM_ERR_NO_SUCH_PROPERTY", cimStatusCodeToString(CIMStatusCode(12)));
    EXPECT_STREQ("CIM_ERR_METHOD_NOT_FOUND", cimStatusCodeToString(CIMStatusCode(17)));
}
