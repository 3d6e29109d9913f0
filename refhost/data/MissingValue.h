#pragma once

#include <cmath>
#include <limits>

namespace refhost {

/// The host's missing number: the most negative finite double.
inline constexpr double kMissingValue = -std::numeric_limits<double>::max();

/// True for the missing number, and for what no reader can be told: a number that is not finite.
inline bool IsUntold(double value) { return value == kMissingValue || !std::isfinite(value); }

}  // namespace refhost
