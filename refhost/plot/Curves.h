#pragma once

#include <optional>
#include <vector>

#include "refhost/plot/Bins.h"
#include "refhost/template/VisualizationTree.h"

namespace refhost {

struct CurvePoint {
    double fX = 0.0;
    double fY = 0.0;
};

/// A distribution with its numbers in the unit of the axis.
struct CurveShape {
    tree::Distribution fKind = tree::Distribution::Normal;
    double fParameter = 0.0;
    double fSecondary = 0.0;
};

/// Nothing where a parameter is absent or out of its range. On a time axis numbers are
/// milliseconds.
std::optional<CurveShape> ShapeOf(const tree::DistributionStatistic& statistic, bool onTimeAxis);

/// The density at a place; of a discrete distribution the probability of a whole number.
double Density(const CurveShape& shape, double x);

/// Where the distribution begins with its full height, as far as an axis has to reach to show it.
std::optional<double> StartOf(const CurveShape& shape);

/// The points of the curve from `low` to `high`, every height times `scale`. Smooth curves have a
/// hundred steps; a uniform one is a rectangle with upright sides. A discrete one has points at
/// whole numbers only, or with wider bins one in the middle of each bin, of the bin's probability.
std::vector<CurvePoint> CurvePoints(const CurveShape& shape, double low, double high, double scale,
                                    const std::optional<Bins>& bins);

}  // namespace refhost
