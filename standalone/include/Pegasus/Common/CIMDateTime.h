#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace Pegasus
{
/// A CIM datetime: a timestamp (yyyymmddhhmmss.mmmmmmsutc, the offset from UTC in minutes) or an interval
/// (ddddddddhhmmss.mmmmmm:000). From some field on, all fields may be unknown, written as asterisks; the last
/// digits of the microseconds may be unknown by themselves.
class PEGASUS_EXPORT CIMDateTime
{
public:
    /// The interval of length zero.
    CIMDateTime();
    /// Throws InvalidDateTimeFormatException for a text that is not one of the two forms, and
    /// DateTimeOutOfRangeException for a month, day, hour, minute or second that does not exist.
    CIMDateTime(const String& text);

    /// The 25 characters.
    String toString() const;
    Boolean isInterval() const;

private:
    friend Boolean operator==(const CIMDateTime& a, const CIMDateTime& b);

    char text_[26]; // the 25 characters, ending in a zero
};

/// The same instant in UTC, or the same length. An unknown digit equals every digit; an offset counts as far as the
/// hours and minutes it would change are known. Throws TypeMismatchException for a timestamp and an interval.
PEGASUS_EXPORT Boolean operator==(const CIMDateTime& a, const CIMDateTime& b);
}
