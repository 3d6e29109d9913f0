#include "refhost/plot/Boxes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace refhost {
namespace {

constexpr double kFence = 1.5;

/// One end of a box: where the whisker ends, and how many values lie beyond it.
struct WhiskerEnd {
    double fAt = 0.0;
    std::size_t fBeyond = 0;
};

struct Whiskers {
    WhiskerEnd fLower;
    WhiskerEnd fUpper;
};

/// Sorted rows with what is known of the box, seen from one side: `fOutside` are the values beyond
/// the quartile, the farthest first.
struct Side {
    std::vector<double> fOutside;
    double fQuartile = 0.0;
};

Side LowerSide(const std::vector<double>& sorted, double quartile)
{
    const auto end = std::lower_bound(sorted.begin(), sorted.end(), quartile);
    return {{sorted.begin(), end}, quartile};
}

Side UpperSide(const std::vector<double>& sorted, double quartile)
{
    const auto begin = std::upper_bound(sorted.begin(), sorted.end(), quartile);
    std::vector<double> outside(begin, sorted.end());
    std::reverse(outside.begin(), outside.end());
    return {std::move(outside), quartile};
}

WhiskerEnd FencedEnd(const Side& side, double range)
{
    for (std::size_t beyond = 0; beyond < side.fOutside.size(); ++beyond) {
        if (std::fabs(side.fOutside[beyond] - side.fQuartile) <= kFence * range) {
            return {side.fOutside[beyond], beyond};
        }
    }
    return {side.fQuartile, side.fOutside.size()};
}

/// The whisker is the innermost value beyond the quartile and the rest are outliers; or all are
/// outliers and the whisker ends at the quartile.
std::vector<WhiskerEnd> PossibleEnds(const Side& side)
{
    std::vector<WhiskerEnd> ends;
    if (!side.fOutside.empty()) ends.push_back({side.fOutside.back(), side.fOutside.size() - 1});
    ends.push_back({side.fQuartile, side.fOutside.size()});
    return ends;
}

/// Rows that stand for a summary with k outliers below and j above number 2M + 1, where M is the
/// larger of 2k + 3 and 2j + 3.
bool FitsRowCount(std::size_t rows, std::size_t below, std::size_t above)
{
    return rows == 2 * (2 * std::max(below, above) + 3) + 1;
}

Whiskers FindWhiskers(const std::vector<double>& sorted, double firstQuartile, double thirdQuartile)
{
    const Side lower = LowerSide(sorted, firstQuartile);
    const Side upper = UpperSide(sorted, thirdQuartile);
    const double range = thirdQuartile - firstQuartile;
    const Whiskers fenced{FencedEnd(lower, range), FencedEnd(upper, range)};

    std::optional<Whiskers> fitting;
    for (const WhiskerEnd& low : PossibleEnds(lower)) {
        for (const WhiskerEnd& high : PossibleEnds(upper)) {
            if (!FitsRowCount(sorted.size(), low.fBeyond, high.fBeyond)) continue;
            const bool agrees =
                low.fBeyond == fenced.fLower.fBeyond && high.fBeyond == fenced.fUpper.fBeyond;
            if (!fitting || agrees) fitting = Whiskers{low, high};
        }
    }
    return fitting.value_or(fenced);
}

void Append(std::vector<double>& outliers, const Side& side, std::size_t beyond)
{
    outliers.insert(outliers.end(), side.fOutside.begin(),
                    side.fOutside.begin() + static_cast<std::ptrdiff_t>(beyond));
}

}  // namespace

double InterpolatedQuantile(const std::vector<double>& sorted, double part)
{
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(std::floor(place));
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    const double share = place - std::floor(place);
    return std::lerp(sorted[below], sorted[above], share);
}

std::optional<BoxNumbers> SummarizeBox(std::vector<double> values)
{
    if (values.empty()) return std::nullopt;
    std::sort(values.begin(), values.end());
    BoxNumbers box;
    box.fFirstQuartile = InterpolatedQuantile(values, 0.25);
    box.fMedian = InterpolatedQuantile(values, 0.5);
    box.fThirdQuartile = InterpolatedQuantile(values, 0.75);
    const Whiskers whiskers = FindWhiskers(values, box.fFirstQuartile, box.fThirdQuartile);
    box.fLowerWhisker = whiskers.fLower.fAt;
    box.fUpperWhisker = whiskers.fUpper.fAt;
    Append(box.fOutliers, LowerSide(values, box.fFirstQuartile), whiskers.fLower.fBeyond);
    Append(box.fOutliers, UpperSide(values, box.fThirdQuartile), whiskers.fUpper.fBeyond);
    std::sort(box.fOutliers.begin(), box.fOutliers.end());
    box.fOutliers.erase(std::unique(box.fOutliers.begin(), box.fOutliers.end()),
                        box.fOutliers.end());
    return box;
}

}  // namespace refhost
