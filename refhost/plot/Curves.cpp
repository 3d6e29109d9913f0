#include "refhost/plot/Curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "refhost/plot/TimeAxis.h"

namespace refhost {
namespace {

constexpr int kSteps = 100;
constexpr int kMostWholeNumbers = 400;
constexpr double kLastCounted = 9007199254740992.0;  // where doubles begin to skip whole numbers

std::optional<double> InUnitOfAxis(const std::optional<tree::Parameter>& parameter, bool onTimeAxis)
{
    if (!parameter) return std::nullopt;
    double value = parameter->fValue;
    switch (parameter->fKind) {
        case tree::ParameterKind::Number:
            break;
        case tree::ParameterKind::Date:
            if (onTimeAxis) value = ToMilliseconds(value);
            break;
        case tree::ParameterKind::Duration:
            if (onTimeAxis) value *= kMillisecondsPerSecond;
            break;
    }
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool IsDrawable(const CurveShape& shape)
{
    switch (shape.fKind) {
        case tree::Distribution::Normal:
            return shape.fSecondary > 0.0;
        case tree::Distribution::Uniform:
            return shape.fSecondary > shape.fParameter;
        case tree::Distribution::Poisson:
        case tree::Distribution::Exponential:
            return shape.fParameter > 0.0;
    }
    return false;
}

double PoissonProbability(double mean, double count)
{
    if (count < 0.0) return 0.0;
    return std::exp(count * std::log(mean) - mean - std::lgamma(count + 1.0));
}

/// From `low` on and below `end`, as far as there are doubles for them.
std::vector<double> WholeNumbers(double low, double end)
{
    std::vector<double> numbers;
    const double first = std::ceil(low);
    for (int step = 0; step < kMostWholeNumbers; ++step) {
        const double number = first + step;
        if (!(number < end) || std::fabs(number) >= kLastCounted) break;
        numbers.push_back(number);
    }
    return numbers;
}

double SumOver(double mean, const std::vector<double>& counts)
{
    double sum = 0.0;
    for (const double count : counts) {
        sum += PoissonProbability(mean, count);
    }
    return sum;
}

/// The probability of less than `count`, which is the regularized incomplete gamma function
/// Q(count, mean), by Temme's uniform expansion (Digital Library of Mathematical Functions, 8.12):
/// two of its terms are exact to 1e-9 for counts from `kMostWholeNumbers` on.
double ManyBelow(double mean, double count)
{
    constexpr double kNothingLeft = 700.0;  // of a double after exp(-700)
    const double away = mean / count - 1.0;
    const double half = away - std::log1p(away);
    if (!(count * half < kNothingLeft)) return away < 0.0 ? 1.0 : 0.0;
    const double eta = std::copysign(std::sqrt(2.0 * half), away);
    const double first =
        -1.0 / 3 + eta * (1.0 / 12 - eta * (2.0 / 135 - eta * (1.0 / 864 + eta / 2835)));
    const double second = -1.0 / 540 - eta * (1.0 / 288 - eta / 378);
    return std::erfc(eta * std::sqrt(count / 2)) / 2 +
           std::exp(-count * half) / std::sqrt(2.0 * std::numbers::pi * count) *
               (first + second / count);
}

double ProbabilityBelow(double mean, double count)
{
    if (count > kMostWholeNumbers) return ManyBelow(mean, count);
    return SumOver(mean, WholeNumbers(0.0, count));
}

/// Of the whole numbers from `low` on and below `end`.
double BinProbability(double mean, double low, double end)
{
    if (end - low <= kMostWholeNumbers) return SumOver(mean, WholeNumbers(low, end));
    const double above = ProbabilityBelow(mean, std::ceil(low));
    return std::max(0.0, ProbabilityBelow(mean, std::ceil(end)) - above);
}

std::vector<CurvePoint> PoissonPoints(const CurveShape& shape, double low, double high,
                                      double scale, const std::optional<Bins>& bins)
{
    std::vector<CurvePoint> points;
    if (bins && bins->fWidth > 1.0) {
        for (std::size_t bin = 0; bin < bins->fCount; ++bin) {
            const double from = bins->Edge(bin), to = bins->Edge(bin + 1);
            const double probability = BinProbability(shape.fParameter, from, to);
            points.push_back({(from + to) / 2, probability * scale / bins->fWidth});
        }
        return points;
    }
    for (const double k : WholeNumbers(std::max(0.0, low), std::floor(high) + 1.0)) {
        points.push_back({k, PoissonProbability(shape.fParameter, k) * scale});
    }
    return points;
}

/// Also those that lie beyond all numbers.
std::vector<CurvePoint> AllPoints(const CurveShape& shape, double low, double high, double scale,
                                  const std::optional<Bins>& bins)
{
    if (shape.fKind == tree::Distribution::Poisson) {
        return PoissonPoints(shape, low, high, scale, bins);
    }
    if (shape.fKind == tree::Distribution::Uniform) {
        const double height = scale / (shape.fSecondary - shape.fParameter);
        return {{shape.fParameter, 0.0},
                {shape.fParameter, height},
                {shape.fSecondary, height},
                {shape.fSecondary, 0.0}};
    }
    const bool startsAtZero = shape.fKind == tree::Distribution::Exponential;
    const double first = startsAtZero ? std::max(low, 0.0) : low;
    if (!(high > first)) return {};
    std::vector<CurvePoint> points;
    if (startsAtZero && first == 0.0) points.push_back({0.0, 0.0});
    for (int step = 0; step <= kSteps; ++step) {
        const double x = first + (high - first) * step / kSteps;
        points.push_back({x, Density(shape, x) * scale});
    }
    return points;
}

}  // namespace

std::optional<CurveShape> ShapeOf(const tree::DistributionStatistic& statistic, bool onTimeAxis)
{
    const auto parameter = InUnitOfAxis(statistic.fParameter, onTimeAxis);
    const auto secondary = InUnitOfAxis(statistic.fSecondary, onTimeAxis);
    const bool takesTwo = statistic.fDistribution == tree::Distribution::Normal ||
                          statistic.fDistribution == tree::Distribution::Uniform;
    if (!parameter || (takesTwo && !secondary)) return std::nullopt;
    const CurveShape shape{statistic.fDistribution, *parameter, secondary.value_or(0.0)};
    return IsDrawable(shape) ? std::optional(shape) : std::nullopt;
}

double Density(const CurveShape& shape, double x)
{
    switch (shape.fKind) {
        case tree::Distribution::Normal: {
            const double z = (x - shape.fParameter) / shape.fSecondary;
            return std::exp(-z * z / 2) / (shape.fSecondary * std::sqrt(2.0 * std::numbers::pi));
        }
        case tree::Distribution::Uniform:
            return x >= shape.fParameter && x <= shape.fSecondary
                       ? 1.0 / (shape.fSecondary - shape.fParameter)
                       : 0.0;
        case tree::Distribution::Poisson:
            return PoissonProbability(shape.fParameter, x);
        case tree::Distribution::Exponential:
            return x < 0.0 ? 0.0 : shape.fParameter * std::exp(-shape.fParameter * x);
    }
    return 0.0;
}

std::optional<double> StartOf(const CurveShape& shape)
{
    if (shape.fKind == tree::Distribution::Exponential) return 0.0;
    return std::nullopt;
}

std::vector<CurvePoint> CurvePoints(const CurveShape& shape, double low, double high, double scale,
                                    const std::optional<Bins>& bins)
{
    if (!(high > low) || !std::isfinite(high - low) || !std::isfinite(scale)) return {};
    std::vector<CurvePoint> points = AllPoints(shape, low, high, scale, bins);
    std::erase_if(points, [](const CurvePoint& point) {
        return !std::isfinite(point.fX) || !std::isfinite(point.fY);
    });
    return points;
}

}  // namespace refhost
