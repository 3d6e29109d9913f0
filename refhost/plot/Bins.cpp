#include "refhost/plot/Bins.h"

#include <algorithm>
#include <cmath>

#include "refhost/plot/TimeAxis.h"

namespace refhost {
namespace {

constexpr double kLeastBins = 8.0;
constexpr double kMostBins = 20.0;
constexpr std::size_t kBinLimit = 200;
constexpr double kLeastStep = 1e-300;  // smaller ones lose digits, and at last all
constexpr double kMostStep = 1e308;

constexpr double kTimeSteps[] = {1e3,
                                 5e3,
                                 15e3,
                                 30e3,
                                 60e3,
                                 300e3,
                                 900e3,
                                 1800e3,
                                 3600e3,
                                 3 * 3600e3,
                                 6 * 3600e3,
                                 12 * 3600e3,
                                 kDay,
                                 2 * kDay,
                                 7 * kDay,
                                 14 * kDay,
                                 28 * kDay,
                                 91 * kDay,
                                 182 * kDay,
                                 365.25 * kDay,
                                 2 * 365.25 * kDay,
                                 5 * 365.25 * kDay};

/// As many bins as a spread of so many different numbers can bear.
double WantedBins(std::size_t distinct)
{
    return std::clamp(std::ceil(2.5 * std::cbrt(static_cast<double>(distinct)) + 1.0), kLeastBins,
                      kMostBins);
}

/// None where they would reach beyond the numbers.
Bins Around(double low, double high, double width, double offset)
{
    Bins bins;
    bins.fWidth = width;
    bins.fStart = std::floor((low - offset) / width) * width + offset;
    if (!std::isfinite(high - bins.fStart)) return {};
    const double count = std::floor((high - bins.fStart) / width * (1.0 + 1e-12)) + 1.0;
    const bool endsOnEdge = bins.fStart + width * (count - 1.0) >= high && count > 1.0;
    bins.fCount = static_cast<std::size_t>(
        std::clamp(endsOnEdge ? count - 1.0 : count, 1.0, static_cast<double>(kBinLimit)));
    return std::isfinite(bins.Edge(bins.fCount)) ? bins : Bins();
}

}  // namespace

double NiceStep(double step)
{
    step = std::clamp(step, kLeastStep, kMostStep);
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        if (power * factor >= step * (1.0 - 1e-9)) return power * factor;
    }
    return power * 10.0;
}

double NiceTimeStep(double step)
{
    for (const double nice : kTimeSteps) {
        if (nice >= step) return nice;
    }
    constexpr double kYear = 365.25 * kDay;
    return NiceStep(step / kYear) * kYear;
}

bool Bins::HoldWhole() const
{
    return fWidth == std::trunc(fWidth) && fStart - std::floor(fStart) == 0.5;
}

std::size_t Bins::Find(double number) const
{
    if (fCount == 0) return fCount;
    // The numbers of which the bins were made may miss the outer edges by a rounding.
    const double end = Edge(fCount);
    const double slack = std::max({fWidth, std::fabs(fStart), std::fabs(end)}) * 1e-12;
    if (!(number >= fStart - slack && number <= end + slack)) return fCount;
    const double place = std::floor((number - fStart) / fWidth * (1.0 + 1e-12));
    return static_cast<std::size_t>(std::clamp(place, 0.0, static_cast<double>(fCount - 1)));
}

Bins MakeBins(const std::vector<double>& numbers, BinKind kind)
{
    if (numbers.empty()) return {};
    std::vector<double> sorted = numbers;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    const double low = sorted.front();
    const double high = sorted.back();
    // Steps that are no multiple of what tells two doubles apart would lose the edges.
    const double coarse = std::max(std::fabs(low), std::fabs(high)) * 1e-13;
    if (kind == BinKind::Whole) {
        const double wanted = high - low < 40.0 ? 1.0 : (high - low) / 30.0;
        const double width = std::ceil(NiceStep(std::max(wanted, coarse)));
        return Around(std::round(low), std::round(high) + 0.25, width, -0.5);
    }
    if (sorted.size() == 1) {
        const double usual = kind == BinKind::Date ? kDay : 1.0;
        const double width = std::max(usual, std::fabs(low) * 1e-9);
        return {low - width / 2, width, 1};
    }
    const double least = std::max((high - low) / WantedBins(sorted.size()), coarse);
    return Around(low, high, kind == BinKind::Date ? NiceTimeStep(least) : NiceStep(least), 0.0);
}

}  // namespace refhost
