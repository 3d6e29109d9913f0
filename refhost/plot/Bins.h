#pragma once

#include <cstddef>
#include <vector>

namespace refhost {

/// Bins of equal width; the last one takes its upper edge as well.
struct Bins {
    double fStart = 0.0;
    double fWidth = 0.0;
    std::size_t fCount = 0;

    double Edge(std::size_t bin) const { return fStart + fWidth * static_cast<double>(bin); }

    /// Whether each bin holds some whole numbers and its edges stand between such.
    bool HoldWhole() const;

    /// `fCount` for a number outside.
    std::size_t Find(double number) const;
};

enum class BinKind {
    Number,
    Date,  ///< milliseconds; edges at whole units of the calendar's fixed lengths
    Whole  ///< one bin around each whole number, or around so many of them
};

/// Bins with edges at round numbers, from about ten to twenty of them where the numbers vary. A
/// single number gets one bin of width 1 with the number in its middle. No number, no bin; nor for
/// a range that is wider than doubles go.
Bins MakeBins(const std::vector<double>& numbers, BinKind kind);

/// 1, 2 or 5 times a power of ten: the least that is not below `step`, from 1e-300 to 1e308.
double NiceStep(double step);

/// The same in milliseconds: seconds, minutes, hours, days, weeks and up.
double NiceTimeStep(double step);

}  // namespace refhost
