#pragma once

#include <cstdlib>
#include <string>

/// While it lives, TZ has this value.
class TimeZone
{
public:
    explicit TimeZone(const char* value)
    {
        if (const char* before = std::getenv("TZ")) {
            _before = before;
            _wasSet = true;
        }
        setenv("TZ", value, 1);
    }
    ~TimeZone()
    {
        if (_wasSet)
            setenv("TZ", _before.c_str(), 1);
        else
            unsetenv("TZ");
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::string _before;
    bool _wasSet = false;
};
