#pragma once

#include <string>
#include <vector>

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// Places beyond it count as it: a range that is longer has no length in doubles.
inline constexpr double kFarthest = 1e300;

/// A range of an axis with the places of its ticks.
struct TickedRange {
    double fMin = 0.0;
    double fMax = 1.0;
    std::vector<AxisTick> fTicks;
};

/// From 0 to a little above `most`, with at most `ticks` ticks; at whole numbers where `most` is
/// whole itself. A range of few ticks does not end at one, nor does one with `air`: a part of the
/// range that stays free above `most`.
TickedRange CountRange(double most, int ticks, double air);

/// A range that begins and ends at ticks around the numbers from `low` to `high`.
TickedRange RoundRange(double low, double high, int ticks);

/// Ticks at round numbers within a range that stays as it is.
std::vector<AxisTick> TicksWithin(double low, double high, int ticks);

/// The same for milliseconds: at fixed units, or at the first of months and years where the span is
/// long.
std::vector<AxisTick> TimeTicksWithin(double low, double high, int ticks);

/// A number as an axis shows it, when its ticks are `step` apart.
std::string TickText(double number, double step);

}  // namespace refhost
