#pragma once

#include <optional>
#include <vector>

namespace refhost {

/// What a box shows of a group.
struct BoxNumbers {
    double fLowerWhisker = 0.0;
    double fFirstQuartile = 0.0;
    double fMedian = 0.0;
    double fThirdQuartile = 0.0;
    double fUpperWhisker = 0.0;
    std::vector<double> fOutliers;  ///< ascending, each value once
};

/// The box of a group's rows. Quartiles are interpolated linearly. Where the rows stand for a
/// summary, their number tells how many outliers it has, whatever fence it was made with; else a
/// whisker ends at the farthest value within 1.5 interquartile ranges of the box. Nothing without
/// a row.
std::optional<BoxNumbers> SummarizeBox(std::vector<double> values);

/// Of sorted values, which must not be empty.
double InterpolatedQuantile(const std::vector<double>& sorted, double part);

}  // namespace refhost
