#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include <array>
#include <cstring>

namespace Pegasus
{
namespace
{
constexpr Uint32 Length = 25;
constexpr Uint32 Dot = 14;
constexpr Uint32 Microseconds = 15;
constexpr Uint32 Sign = 21;
constexpr Uint32 Offset = 22;

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
    Year,
    Month,
    Day,
    Hour,
    Minute,
    Second
};

// Down to the second; the microseconds follow apart, since single digits of them may be unknown.
constexpr Field TimestampFields[] = {{0, 4, 0, 9999, "year"}, {4, 2, 1, 12, "month"},   {6, 2, 1, 31, "day"},
                                     {8, 2, 0, 23, "hour"},   {10, 2, 0, 59, "minute"}, {12, 2, 0, 59, "second"}};
constexpr Field IntervalFields[] = {
    {0, 8, 0, 99999999, "days"}, {8, 2, 0, 23, "hour"}, {10, 2, 0, 59, "minute"}, {12, 2, 0, 59, "second"}};

constexpr int Unknown = -1;

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
    static const int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : Days[month - 1];
}

/// The field's number, or Unknown. Throws where it is neither, or follows an unknown one and is known.
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
        return Unknown;
    }
    if (digits != field.width || unknownBefore)
        throw InvalidDateTimeFormatException();
    return number(text + field.position, field.width);
}

void checkMicroseconds(const char* text, bool unknownBefore)
{
    for (Uint32 i = Microseconds; i < Sign; ++i) {
        if (text[i] == '*')
            unknownBefore = true;
        else if (!isDigit(text[i]) || unknownBefore)
            throw InvalidDateTimeFormatException();
    }
}

void checkRange(int value, int smallest, int largest, const char* name)
{
    if (value != Unknown && (value < smallest || value > largest))
        throw DateTimeOutOfRangeException(String("CIM datetime with an impossible ") + String(name));
}

using Timestamp = std::array<int, Second + 1>;

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
    checkFields(text, TimestampFields, fields);
    if (fields[Day] != Unknown)
        checkRange(fields[Day], 1, daysInMonth(fields[Year], fields[Month]), "day");
}

void checkInterval(const char* text)
{
    if (std::strcmp(text + Offset, "000") != 0)
        throw InvalidDateTimeFormatException();
    std::array<int, 4> fields = {};
    checkFields(text, IntervalFields, fields);
}

void nextDay(Timestamp& t)
{
    if (++t[Day] <= daysInMonth(t[Year], t[Month]))
        return;
    t[Day] = 1;
    if (++t[Month] > 12) {
        t[Month] = 1;
        ++t[Year];
    }
}

void previousDay(Timestamp& t)
{
    if (--t[Day] >= 1)
        return;
    if (--t[Month] < 1) {
        t[Month] = 12;
        --t[Year];
    }
    t[Day] = daysInMonth(t[Year], t[Month]);
}

/// The fields of a timestamp in UTC, as far as they are known.
Timestamp inUtc(const char* text)
{
    Timestamp t = {};
    bool unknown = false;
    for (int i = Year; i <= Second; ++i)
        t[i] = readField(text, TimestampFields[i], unknown);
    if (t[Hour] == Unknown)
        return t;
    const bool minuteKnown = t[Minute] != Unknown;
    int offset = number(text + Offset, 3) * (text[Sign] == '-' ? -1 : 1);
    if (!minuteKnown)
        offset -= offset % 60;
    int minutes = t[Hour] * 60 + (minuteKnown ? t[Minute] : 0) - offset;
    for (; minutes < 0; minutes += 24 * 60)
        previousDay(t);
    for (; minutes >= 24 * 60; minutes -= 24 * 60)
        nextDay(t);
    t[Hour] = minutes / 60;
    if (minuteKnown)
        t[Minute] = minutes % 60;
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

// Years before 0000 and after 9999 appear here only, by an offset; Unknown is such a year too, so it is looked for
// in the text.
bool equalTimestamps(const char* a, const char* b)
{
    const Timestamp first = inUtc(a);
    const Timestamp second = inUtc(b);
    for (int i = Year; i <= Second; ++i) {
        const Uint32 position = TimestampFields[i].position;
        if (a[position] != '*' && b[position] != '*' && first[i] != second[i])
            return false;
    }
    return equalWhereKnown(a, b, Microseconds, Sign);
}
}

CIMDateTime::CIMDateTime() : text_{"00000000000000.000000:000"} {}

CIMDateTime::CIMDateTime(const String& text)
{
    const CString utf8 = text.getCString();
    const char* const characters = utf8;
    if (std::strlen(characters) != Length || text.size() != Length || characters[Dot] != '.')
        throw InvalidDateTimeFormatException();
    std::memcpy(text_, characters, sizeof text_);
    for (Uint32 i = Offset; i < Length; ++i) {
        if (!isDigit(text_[i]))
            throw InvalidDateTimeFormatException();
    }
    if (text_[Sign] == ':')
        checkInterval(text_);
    else if (text_[Sign] == '+' || text_[Sign] == '-')
        checkTimestamp(text_);
    else
        throw InvalidDateTimeFormatException();
    if (std::strcmp(text_ + Sign, "-000") == 0)
        text_[Sign] = '+';
}

String CIMDateTime::toString() const
{
    return String(text_, Length);
}

Boolean CIMDateTime::isInterval() const
{
    return text_[Sign] == ':';
}

Boolean operator==(const CIMDateTime& a, const CIMDateTime& b)
{
    if (a.isInterval() != b.isInterval())
        throw TypeMismatchException("comparison of a timestamp with an interval");
    return a.isInterval() ? equalWhereKnown(a.text_, b.text_, 0, Sign) : equalTimestamps(a.text_, b.text_);
}
}
