#pragma once

#include <ctime>

namespace VQ
{

/// The moment until which something may take, by the clock that nobody sets.
class Deadline
{
public:
    /// So many milliseconds from now.
    explicit Deadline(long milliseconds) : _end(now() + milliseconds) {}

    /// The milliseconds that are left; 0 when it is over.
    int left() const
    {
        const long long left = _end - now();
        return left > 0 ? static_cast<int>(left) : 0;
    }

    /// Milliseconds of that clock.
    static long long now()
    {
        struct timespec time = {};
        clock_gettime(CLOCK_MONOTONIC, &time);
        return static_cast<long long>(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
    }

private:
    long long _end;
};

}
