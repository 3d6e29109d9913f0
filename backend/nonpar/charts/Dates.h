#pragma once

/// Dates in result documents count days since 1 January 1970, the host's formats count seconds
/// since 14 October 1582. Which format types are converted differs from place to place.

/// Number of seconds from 14 October 1582 to 1 January 1970.
inline constexpr double kSecondsTo1970 = 12219379200.0;
inline constexpr double kSecondsPerDay = 86400.0;

/// What `FormatValue` shows: days and seconds become the host's seconds, times stay.
double HostDateForDisplay(double value, int formatType);

/// Whether a format's values stand on a date axis, as the histogram and the curve over it see it.
bool IsDateOnAxis(int formatType);

/// Whether a standard deviation of such a format is shown as a duration. 21 is not among them.
bool IsSpreadOfDates(int formatType);

/// Days to the host's seconds.
constexpr double HostSecondsFromDays(double days) { return days * kSecondsPerDay + kSecondsTo1970; }
