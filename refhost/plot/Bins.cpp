#include "refhost/plot/Bins.h"

#include <algorithm>
#include <cmath>

namespace refhost {
namespace {

constexpr double kDay = 86'400'000.0;
constexpr double kLeastBins = 8.0;
constexpr double kMostBins = 20.0;
constexpr std::size_t kBinLimit = 200;

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

Bins Around(double low, double high, double width, double offset)
{
    Bins bins;
    bins.fWidth = width;
    bins.fStart = std::floor((low - offset) / width) * width + offset;
    const double count = std::floor((high - bins.fStart) / width * (1.0 + 1e-12)) + 1.0;
    const bool endsOnEdge = bins.fStart + width * (count - 1.0) >= high && count > 1.0;
    bins.fCount = static_cast<std::size_t>(
        std::clamp(endsOnEdge ? count - 1.0 : count, 1.0, static_cast<double>(kBinLimit)));
    return bins;
}

}  // namespace

double NiceStep(double step)
{
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

std::size_t Bins::Find(double number) const
{
    if (fCount == 0 || !(number >= fStart)) return fCount;
    const double place = std::floor((number - fStart) / fWidth * (1.0 + 1e-12));
    const auto count = static_cast<double>(fCount);
    if (place < count) return static_cast<std::size_t>(place);
    return number <= Edge(fCount) * (1.0 + 1e-12) ? fCount - 1 : fCount;
}

Bins MakeBins(const std::vector<double>& numbers, BinKind kind)
{
    if (numbers.empty()) return {};
    std::vector<double> sorted = numbers;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    const double low = sorted.front();
    const double high = sorted.back();
    if (kind == BinKind::Whole) {
        const double width = high - low < 40.0 ? 1.0 : std::ceil(NiceStep((high - low) / 30.0));
        return Around(std::round(low), std::round(high) + 0.25, width, -0.5);
    }
    if (sorted.size() == 1) {
        const double width = kind == BinKind::Date ? kDay : std::max(1.0, std::fabs(low) * 1e-9);
        return {low - width / 2, width, 1};
    }
    const double wanted = (high - low) / WantedBins(sorted.size());
    if (!(wanted > 0.0) || !std::isfinite(wanted)) return {};
    // Steps that are no multiple of what tells two doubles apart would lose the edges.
    const double coarse = std::max(std::fabs(low), std::fabs(high)) * 1e-13;
    const double least = std::max(wanted, coarse);
    return Around(low, high, kind == BinKind::Date ? NiceTimeStep(least) : NiceStep(least), 0.0);
}

}  // namespace refhost
