#pragma once

#include <string>
#include <string_view>

struct QORT_Format;

/// A number of a result document as the host shows it: dates are converted to the host's unit, the
/// format's width becomes 40 (in the caller's copy too), and blanks around the text go.
std::string HostNumberText(double value, QORT_Format& format);

/// A number of a result document in the host's own unit: days, or seconds, since 1 January 1970
/// become seconds since 14 October 1582, and what is no date, and the missing number, stays. What
/// is beyond the numbers gives the missing one.
double HostNumber(double value, int formatType);

/// The text without blanks at its ends.
std::string_view WithoutBlanks(std::string_view text);
