#include "support/pegasus/CimDateTime.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace VQ
{

namespace
{
constexpr unsigned MaxYear = 9999;
constexpr unsigned MaxOffsetMinutes = 999;
constexpr unsigned MicrosecondsPerMillisecond = 1000;

unsigned daysOf(unsigned year, unsigned month)
{
    static constexpr std::array<unsigned char, 12> Days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return Days[month - 1] + (month == 2 && leap ? 1u : 0u);
}

std::string digits(unsigned long value, int width)
{
    std::string text(static_cast<std::size_t>(width), '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value /= 10)
        *digit = static_cast<char>('0' + value % 10);
    return text;
}

// The fields in their order; once one is unknown, all that follow are.
class TimestampText
{
public:
    void add(unsigned long value, int width, bool possible)
    {
        _known = _known && possible;
        _text += _known ? digits(value, width) : std::string(static_cast<std::size_t>(width), '*');
    }
    void add(char separator) { _text += separator; }
    std::string text() const { return _text; }

private:
    std::string _text;
    bool _known = true;
};
}

Pegasus::CIMDateTime make_CIMDateTime(const DateTime& date)
{
    const unsigned year = date.getYear();
    const unsigned month = date.getMonth();
    const unsigned day = date.getDay();
    const auto offset = static_cast<unsigned>(std::abs(date.getOffset()));
    const bool someDate = date != DateTime() && year <= MaxYear && offset <= MaxOffsetMinutes;
    const bool monthPossible = month >= 1 && month <= 12;

    TimestampText text;
    text.add(year, 4, someDate);
    text.add(month, 2, monthPossible);
    text.add(day, 2, monthPossible && day >= 1 && day <= daysOf(year, month));
    text.add(date.getHour(), 2, date.getHour() <= 23);
    text.add(date.getMinute(), 2, date.getMinute() <= 59);
    text.add(date.getSecond(), 2, date.getSecond() <= 59);
    text.add('.');
    const unsigned long milliseconds = date.getMillisecond();
    text.add(milliseconds * MicrosecondsPerMillisecond, 6, milliseconds <= 999);
    text.add(date.getOffset() < 0 && someDate ? '-' : '+');
    return Pegasus::CIMDateTime(Pegasus::String((text.text() + digits(someDate ? offset : 0, 3)).c_str()));
}

}
