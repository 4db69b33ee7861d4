// The time at which test platforms stay: 03:04 of January 2nd 2016, local time.
#pragma once

#include <chrono>
#include <ctime>

namespace XPJ {

inline std::chrono::system_clock::time_point FixedTime()
{
    std::tm time{};
    time.tm_year = 116;
    time.tm_mday = 2;
    time.tm_hour = 3;
    time.tm_min = 4;
    time.tm_isdst = -1;
    return std::chrono::system_clock::from_time_t(std::mktime(&time));
}

} // namespace XPJ
