#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace refhost {

/// Dates of the proleptic Gregorian calendar as the host counts them: seconds since 14 October
/// 1582.

inline constexpr double kSecondsPerDay = 86400.0;

/// From 14 October 1582 to 1 January 1970.
inline constexpr double kSecondsTo1970 = 12219379200.0;

/// Days since 1 January 1970.
std::int64_t DaysFromCivil(std::int64_t year, unsigned month, unsigned day);

/// `YYYY-MM-DD`. Nothing where the number is too large to name a day; so below.
std::optional<std::string> DateText(double seconds);

/// `YYYY-MM-DD HH:MM:SS`, with `separator` in the middle; seconds are cut to `decimals` digits.
std::optional<std::string> DateTimeText(double seconds, char separator, int decimals);

/// `[-]HH:MM:SS`, hours of as many digits as they need; seconds are cut to `decimals` digits.
std::optional<std::string> DurationText(double seconds, int decimals);

/// Reads `YYYY-MM-DD`, alone or with `THH:MM`, `THH:MM:SS` or `THH:MM:SS.fraction`, and "Z" behind
/// a time or none: seconds since 1 January 1970. Nothing where the text is no such date.
std::optional<double> ParseIsoDate(std::string_view text);

}  // namespace refhost
