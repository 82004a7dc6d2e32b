#include "Show.h"

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>

#include <exception>
#include <type_traits>

using namespace Pegasus;

namespace
{
[[noreturn]] void fail(CIMStatusCode code, const String& text)
{
    throw CIMException(code, text);
}

std::string caughtAsException(CIMStatusCode code, const String& text)
{
    try {
        fail(code, text);
    } catch (const Exception& e) {
        return shown(e.getMessage());
    }
}
}

void showExceptions()
{
    section("Exceptions, status codes");
    for (int code = CIM_ERR_SUCCESS; code <= CIM_ERR_METHOD_NOT_FOUND; ++code)
        SHOW(static_cast<CIMStatusCode>(code));
    DO(fail(CIM_ERR_FAILED, "a text"));
    DO(fail(CIM_ERR_INVALID_CLASS, String::EMPTY));
    DO(fail(CIM_ERR_NOT_SUPPORTED, "caf\xC3\xA9"));
    SHOW(caughtAsException(CIM_ERR_FAILED, "a text").c_str());
    SHOW(caughtAsException(CIM_ERR_ACCESS_DENIED, String::EMPTY).c_str());
    SHOW(CIMException().getCode());
    SHOW(CIMException().getMessage());
    CIMException exception(CIM_ERR_FAILED, "first");
    const CIMException copy(exception);
    DO(exception = CIMException(CIM_ERR_NOT_FOUND, "second"));
    SHOW(exception.getCode());
    SHOW(exception.getMessage());
    SHOW(copy.getCode());
    SHOW(copy.getMessage());
    SHOW(Exception("a text").getMessage());
    SHOW(std::is_base_of<std::exception, Exception>::value);
}
