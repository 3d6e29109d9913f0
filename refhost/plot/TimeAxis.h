#pragma once

#include "refhost/data/Calendar.h"

/// Axes of time count milliseconds since 1970, the host's dates seconds since 1582.

namespace refhost {

inline constexpr double kMillisecondsPerSecond = 1000.0;
inline constexpr double kDay = kSecondsPerDay * kMillisecondsPerSecond;  ///< milliseconds

constexpr double ToMilliseconds(double hostSeconds)
{
    return (hostSeconds - kSecondsTo1970) * kMillisecondsPerSecond;
}

constexpr double ToHostSeconds(double milliseconds)
{
    return milliseconds / kMillisecondsPerSecond + kSecondsTo1970;
}

}  // namespace refhost
