#pragma once

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus
{
/// The base of everything this library throws. It is not a std::exception. Copies share their message, so copying
/// one never throws.
class PEGASUS_EXPORT Exception
{
public:
    explicit Exception(const String& message);
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    virtual ~Exception();

    virtual const String& getMessage() const;

private:
    std::shared_ptr<const String> message_;
};

/// An element beyond the end of a sequence was asked for.
class PEGASUS_EXPORT IndexOutOfBoundsException : public Exception
{
public:
    IndexOutOfBoundsException();
    ~IndexOutOfBoundsException() override;
};

/// Something of that name is there already.
class PEGASUS_EXPORT AlreadyExistsException : public Exception
{
public:
    explicit AlreadyExistsException(const String& message);
    ~AlreadyExistsException() override;
};

/// The text is not a legal CIM name.
class PEGASUS_EXPORT InvalidNameException : public Exception
{
public:
    explicit InvalidNameException(const String& name);
    ~InvalidNameException() override;
};

/// The text is not a legal namespace name.
class PEGASUS_EXPORT InvalidNamespaceNameException : public Exception
{
public:
    explicit InvalidNamespaceNameException(const String& name);
    ~InvalidNamespaceNameException() override;
};

/// An object that was only default-constructed, or a null name, was used.
class PEGASUS_EXPORT UninitializedObjectException : public Exception
{
public:
    UninitializedObjectException();
    ~UninitializedObjectException() override;
};

/// A value, a property or a path is not of the type that its place demands.
class PEGASUS_EXPORT TypeMismatchException : public Exception
{
public:
    TypeMismatchException();
    explicit TypeMismatchException(const String& message);
    ~TypeMismatchException() override;
};

/// The text does not have the form of a CIM datetime.
class PEGASUS_EXPORT InvalidDateTimeFormatException : public Exception
{
public:
    InvalidDateTimeFormatException();
    ~InvalidDateTimeFormatException() override;
};

/// The text has the form of a CIM datetime, but names no date or time that exists.
class PEGASUS_EXPORT DateTimeOutOfRangeException : public Exception
{
public:
    explicit DateTimeOutOfRangeException(const String& message);
    ~DateTimeOutOfRangeException() override;
};

/// The text is not an object path, or a part of a path is not one it may have.
class PEGASUS_EXPORT MalformedObjectNameException : public Exception
{
public:
    explicit MalformedObjectNameException(const String& message);
    ~MalformedObjectNameException() override;
};

/// What an operation reports to its client: a CIM status code and a text.
class PEGASUS_EXPORT CIMException : public Exception
{
public:
    CIMException(CIMStatusCode code = CIM_ERR_SUCCESS, const String& message = String());
    CIMException(const CIMException&) = default;
    CIMException& operator=(const CIMException&) = default;
    ~CIMException() override;

    CIMStatusCode getCode() const { return code_; }

private:
    CIMStatusCode code_;
};
}
