#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include <array>
#include <cstring>

namespace Pegasus
{
namespace
{
constexpr Uint32 LENGTH = 25;
constexpr Uint32 DOT = 14;
constexpr Uint32 MICROSECONDS = 15;
constexpr Uint32 SIGN = 21;
constexpr Uint32 OFFSET = 22;

struct Field
{
    Uint32 position;
    Uint32 width;
    int smallest;
    int largest;
    const char* name;
};

enum TimestampField
{
    YEAR,
    MONTH,
    DAY,
    HOUR,
    MINUTE,
    SECOND
};

// Down to the second; the microseconds follow apart, since single digits of them may be unknown.
constexpr Field TIMESTAMP[] = {{0, 4, 0, 9999, "year"}, {4, 2, 1, 12, "month"},   {6, 2, 1, 31, "day"},
                               {8, 2, 0, 23, "hour"},   {10, 2, 0, 59, "minute"}, {12, 2, 0, 59, "second"}};
constexpr Field INTERVAL[] = {
    {0, 8, 0, 99999999, "days"}, {8, 2, 0, 23, "hour"}, {10, 2, 0, 59, "minute"}, {12, 2, 0, 59, "second"}};

constexpr int UNKNOWN = -1;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int number(const char* digits, Uint32 width)
{
    int value = 0;
    for (Uint32 i = 0; i < width; ++i)
        value = value * 10 + (digits[i] - '0');
    return value;
}

int daysInMonth(int year, int month)
{
    static const int DAYS[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : DAYS[month - 1];
}

/// The field's number, or UNKNOWN. Throws where it is neither, or follows an unknown one and is known.
int readField(const char* text, const Field& field, bool& unknownBefore)
{
    Uint32 digits = 0;
    Uint32 asterisks = 0;
    for (Uint32 i = field.position; i < field.position + field.width; ++i) {
        digits += isDigit(text[i]);
        asterisks += text[i] == '*';
    }
    if (asterisks == field.width) {
        unknownBefore = true;
        return UNKNOWN;
    }
    if (digits != field.width || unknownBefore)
        throw InvalidDateTimeFormatException();
    return number(text + field.position, field.width);
}

void checkMicroseconds(const char* text, bool unknownBefore)
{
    for (Uint32 i = MICROSECONDS; i < SIGN; ++i) {
        if (text[i] == '*')
            unknownBefore = true;
        else if (!isDigit(text[i]) || unknownBefore)
            throw InvalidDateTimeFormatException();
    }
}

void checkRange(int value, int smallest, int largest, const char* name)
{
    if (value != UNKNOWN && (value < smallest || value > largest))
        throw DateTimeOutOfRangeException(String("CIM datetime with an impossible ") + String(name));
}

using Timestamp = std::array<int, SECOND + 1>;

template <std::size_t N> void checkFields(const char* text, const Field (&fields)[N], std::array<int, N>& values)
{
    bool unknown = false;
    for (std::size_t i = 0; i < N; ++i)
        values[i] = readField(text, fields[i], unknown);
    checkMicroseconds(text, unknown);
    for (std::size_t i = 0; i < N; ++i)
        checkRange(values[i], fields[i].smallest, fields[i].largest, fields[i].name);
}

void checkTimestamp(const char* text)
{
    Timestamp fields = {};
    checkFields(text, TIMESTAMP, fields);
    if (fields[DAY] != UNKNOWN)
        checkRange(fields[DAY], 1, daysInMonth(fields[YEAR], fields[MONTH]), "day");
}

void checkInterval(const char* text)
{
    if (std::strcmp(text + OFFSET, "000") != 0)
        throw InvalidDateTimeFormatException();
    std::array<int, 4> fields = {};
    checkFields(text, INTERVAL, fields);
}

void nextDay(Timestamp& t)
{
    if (++t[DAY] <= daysInMonth(t[YEAR], t[MONTH]))
        return;
    t[DAY] = 1;
    if (++t[MONTH] > 12) {
        t[MONTH] = 1;
        ++t[YEAR];
    }
}

void previousDay(Timestamp& t)
{
    if (--t[DAY] >= 1)
        return;
    if (--t[MONTH] < 1) {
        t[MONTH] = 12;
        --t[YEAR];
    }
    t[DAY] = daysInMonth(t[YEAR], t[MONTH]);
}

/// The fields of a timestamp in UTC, as far as they are known.
Timestamp inUtc(const char* text)
{
    Timestamp t = {};
    bool unknown = false;
    for (int i = YEAR; i <= SECOND; ++i)
        t[i] = readField(text, TIMESTAMP[i], unknown);
    if (t[HOUR] == UNKNOWN)
        return t;
    const bool minuteKnown = t[MINUTE] != UNKNOWN;
    int offset = number(text + OFFSET, 3) * (text[SIGN] == '-' ? -1 : 1);
    if (!minuteKnown)
        offset -= offset % 60;
    int minutes = t[HOUR] * 60 + (minuteKnown ? t[MINUTE] : 0) - offset;
    for (; minutes < 0; minutes += 24 * 60)
        previousDay(t);
    for (; minutes >= 24 * 60; minutes -= 24 * 60)
        nextDay(t);
    t[HOUR] = minutes / 60;
    if (minuteKnown)
        t[MINUTE] = minutes % 60;
    return t;
}

bool equalWhereKnown(const char* a, const char* b, Uint32 from, Uint32 to)
{
    for (Uint32 i = from; i < to; ++i) {
        if (a[i] != '*' && b[i] != '*' && a[i] != b[i])
            return false;
    }
    return true;
}

// Years before 0000 and after 9999 appear here only, by an offset; UNKNOWN is such a year too, so it is looked for
// in the text.
bool equalTimestamps(const char* a, const char* b)
{
    const Timestamp first = inUtc(a);
    const Timestamp second = inUtc(b);
    for (int i = YEAR; i <= SECOND; ++i) {
        const Uint32 position = TIMESTAMP[i].position;
        if (a[position] != '*' && b[position] != '*' && first[i] != second[i])
            return false;
    }
    return equalWhereKnown(a, b, MICROSECONDS, SIGN);
}
}

CIMDateTime::CIMDateTime() : text_{"00000000000000.000000:000"} {}

CIMDateTime::CIMDateTime(const String& text)
{
    const CString utf8 = text.getCString();
    const char* const characters = utf8;
    if (std::strlen(characters) != LENGTH || text.size() != LENGTH || characters[DOT] != '.')
        throw InvalidDateTimeFormatException();
    std::memcpy(text_, characters, sizeof text_);
    for (Uint32 i = OFFSET; i < LENGTH; ++i) {
        if (!isDigit(text_[i]))
            throw InvalidDateTimeFormatException();
    }
    if (text_[SIGN] == ':')
        checkInterval(text_);
    else if (text_[SIGN] == '+' || text_[SIGN] == '-')
        checkTimestamp(text_);
    else
        throw InvalidDateTimeFormatException();
    if (std::strcmp(text_ + SIGN, "-000") == 0)
        text_[SIGN] = '+';
}

String CIMDateTime::toString() const
{
    return String(text_, LENGTH);
}

Boolean CIMDateTime::isInterval() const
{
    return text_[SIGN] == ':';
}

Boolean CIMDateTime::equal(const CIMDateTime& other) const
{
    if (isInterval() != other.isInterval())
        throw TypeMismatchException("comparison of a timestamp with an interval");
    return isInterval() ? equalWhereKnown(text_, other.text_, 0, SIGN) : equalTimestamps(text_, other.text_);
}

Boolean operator==(const CIMDateTime& a, const CIMDateTime& b)
{
    return a.equal(b);
}

Boolean operator!=(const CIMDateTime& a, const CIMDateTime& b)
{
    return !a.equal(b);
}
}
