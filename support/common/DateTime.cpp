#include "support/common/DateTime.h"

#include <ctime>
#include <limits>
#include <tuple>

namespace VQ
{

namespace
{
constexpr long SecondsPerMinute = 60;
constexpr int FirstTmYear = 1900;

// localtime_r alone would keep the time zone of its first call for the life of the server.
std::tm* localFields(const std::time_t& instant, std::tm& fields)
{
    tzset();
    return localtime_r(&instant, &fields);
}

auto fieldsOf(const DateTime& d)
{
    return std::make_tuple(d.getYear(), d.getMonth(), d.getDay(), d.getHour(), d.getMinute(), d.getSecond(),
                           d.getMillisecond(), d.getOffset());
}
}

DateTime::DateTime(long seconds, unsigned int mode)
{
    const std::time_t instant = seconds;
    std::tm fields{};
    const std::tm* converted = (mode & Local) ? localFields(instant, fields) : gmtime_r(&instant, &fields);
    if (!converted)
        return;
    const long year = static_cast<long>(fields.tm_year) + FirstTmYear;
    if (year < 0 || year > std::numeric_limits<std::uint16_t>::max())
        return;
    _year = static_cast<std::uint16_t>(year);
    _month = static_cast<std::uint8_t>(fields.tm_mon + 1);
    _day = static_cast<std::uint8_t>(fields.tm_mday);
    _hour = static_cast<std::uint8_t>(fields.tm_hour);
    _minute = static_cast<std::uint8_t>(fields.tm_min);
    _second = static_cast<std::uint8_t>(fields.tm_sec);
    if (mode & WithOffset)
        _offset = static_cast<std::int16_t>(fields.tm_gmtoff / SecondsPerMinute);
}

bool operator!=(const DateTime& left, const DateTime& right)
{
    return fieldsOf(left) != fieldsOf(right);
}

}
