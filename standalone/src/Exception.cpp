#include <Pegasus/Common/Exception.h>

namespace Pegasus
{
Exception::Exception(const String& message) : message_(std::make_shared<const String>(message)) {}
Exception::~Exception() = default;

const String& Exception::getMessage() const
{
    return *message_;
}

IndexOutOfBoundsException::IndexOutOfBoundsException() : Exception("index out of bounds") {}
IndexOutOfBoundsException::~IndexOutOfBoundsException() = default;

AlreadyExistsException::AlreadyExistsException(const String& message) : Exception(message) {}
AlreadyExistsException::~AlreadyExistsException() = default;

InvalidNameException::InvalidNameException(const String& name) : Exception(String("no legal CIM name: ") + name) {}
InvalidNameException::~InvalidNameException() = default;

InvalidNamespaceNameException::InvalidNamespaceNameException(const String& name)
    : Exception(String("no legal namespace name: ") + name)
{
}
InvalidNamespaceNameException::~InvalidNamespaceNameException() = default;

UninitializedObjectException::UninitializedObjectException() : Exception("uninitialized object") {}
UninitializedObjectException::~UninitializedObjectException() = default;

TypeMismatchException::TypeMismatchException() : Exception("type mismatch") {}
TypeMismatchException::TypeMismatchException(const String& message) : Exception(message) {}
TypeMismatchException::~TypeMismatchException() = default;

InvalidDateTimeFormatException::InvalidDateTimeFormatException() : Exception("text is no CIM datetime") {}
InvalidDateTimeFormatException::~InvalidDateTimeFormatException() = default;

DateTimeOutOfRangeException::DateTimeOutOfRangeException(const String& message) : Exception(message) {}
DateTimeOutOfRangeException::~DateTimeOutOfRangeException() = default;

MalformedObjectNameException::MalformedObjectNameException(const String& message) : Exception(message) {}
MalformedObjectNameException::~MalformedObjectNameException() = default;

CIMException::CIMException(CIMStatusCode code, const String& message) : Exception(message), code_(code) {}
CIMException::~CIMException() = default;
}
