#pragma once

#include "support/common/DateTime.h"

#include <cstdint>
#include <cstring>
#include <type_traits>

/// The fields of a DateTime, in its own layout: most have no setter, and libc never gives most of their values.
struct DateFields
{
    std::uint16_t year = 2005;
    std::uint8_t month = 3;
    std::uint8_t day = 14;
    std::uint8_t hour = 15;
    std::uint8_t minute = 9;
    std::uint8_t second = 26;
    std::uint32_t millisecond = 535;
    std::int16_t offset = 60;
};

/// The date with these fields.
inline VQ::DateTime dateOf(const DateFields& fields)
{
    static_assert(sizeof(DateFields) == sizeof(VQ::DateTime) && std::is_trivially_copyable_v<VQ::DateTime> &&
                  std::is_standard_layout_v<VQ::DateTime>);
    VQ::DateTime date;
    std::memcpy(static_cast<void*>(&date), &fields, sizeof date);
    return date;
}
