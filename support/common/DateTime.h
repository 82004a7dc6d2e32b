#pragma once

#include "support/common/Export.h"

#include <cstdint>

namespace VQ
{

/// A calendar date and time with its offset from UTC, held by value.
class VQ_EXPORT DateTime
{
public:
    /// Bits of the `mode` argument of DateTime(long, unsigned int).
    enum Mode : unsigned int
    {
        Local = 1,                            ///< the fields are local time; without this bit they are UTC
        WithOffset = 2,                       ///< the offset from UTC is filled in; without this bit it is 0
        LocalWithOffset = Local | WithOffset, ///< how this system tells its own dates
    };

    /// No date: every field 0.
    DateTime() = default;

    /// The calendar fields of the instant `seconds` after 1970-01-01 00:00:00 UTC, as `mode` (bits of Mode) asks for
    /// them. An instant whose year does not fit the calendar of libc or 16 bits gives no date.
    DateTime(long seconds, unsigned int mode);

    std::uint16_t getYear() const { return _year; }
    std::uint8_t getMonth() const { return _month; } ///< 1 to 12
    std::uint8_t getDay() const { return _day; }     ///< of the month, 1 to 31
    std::uint8_t getHour() const { return _hour; }
    std::uint8_t getMinute() const { return _minute; }
    std::uint8_t getSecond() const { return _second; }
    std::uint32_t getMillisecond() const { return _millisecond; }
    std::int16_t getOffset() const { return _offset; } ///< minutes east of UTC

    /// The setters take any number; nothing checks that the fields make a date.
    void setYear(unsigned short year) { _year = year; }
    void setMonth(unsigned char month) { _month = month; }
    void setDay(unsigned char day) { _day = day; }

private:
    std::uint16_t _year = 0;
    std::uint8_t _month = 0;
    std::uint8_t _day = 0;
    std::uint8_t _hour = 0;
    std::uint8_t _minute = 0;
    std::uint8_t _second = 0;
    std::uint32_t _millisecond = 0;
    std::int16_t _offset = 0;
};

/// True when the two differ in any field; the same instant at another offset differs.
VQ_EXPORT bool operator!=(const DateTime& left, const DateTime& right);

}
