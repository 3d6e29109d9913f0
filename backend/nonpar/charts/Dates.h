#pragma once

/// Dates in result documents count days since 1 January 1970, the host's formats count seconds
/// since 14 October 1582. Which format types count as dates differs from place to place; the set
/// of a displayed number is `HostNumber`'s.

/// Whether a format's values stand on a date axis, as the histogram and the curve over it see it.
bool IsDateOnAxis(int formatType);

/// Whether a standard deviation of such a format is shown as a duration. 21, a time of day, is not
/// among them.
bool IsSpreadOfDates(int formatType);

/// Days to the host's seconds. The missing number stays, and what is beyond the numbers becomes it.
double HostSecondsFromDays(double days);
