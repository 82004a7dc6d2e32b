#include "flat/Delivery.h"

#include "flat/systemprovider.h"

#include <cstdio>
#include <cstring>

namespace VQ
{

void deliverText(char* buffer, const std::string& text)
{
    std::memcpy(buffer, text.c_str(), text.size() + 1);
}

void deliverDate(char* buffer, const DateTime& date, int offset)
{
    // Milliseconds in the place of microseconds and a plus sign whatever the offset: callers parse it so.
    std::sprintf(buffer, "%4.4d%2.2d%2.2d%2.2d%2.2d%2.2d.%6.6d+%3.3d", date.getYear(), date.getMonth(), date.getDay(),
                 date.getHour(), date.getMinute(), date.getSecond(), static_cast<int>(date.getMillisecond()), offset);
}

void deliverCodes(void* buffer, const std::vector<std::uint16_t>& codes)
{
    packAI(buffer, std::vector<int>(codes.begin(), codes.end()));
}

}
