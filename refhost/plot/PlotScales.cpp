#include "refhost/plot/PlotScales.h"

#include <algorithm>
#include <cmath>

#include "refhost/plot/Ticks.h"
#include "refhost/plot/TimeAxis.h"

namespace refhost {
namespace {

constexpr int kMostTicks = 8;
constexpr double kNumberHeight = 18.0;   // of the number on top of a bar
constexpr double kPixelsUpright = 30.0;  // between ticks
constexpr double kPixelsLying = 48.0;
constexpr double kPixelsOfDates = 90.0;
constexpr double kNextTo = 1e-9;  // of a number: doubles that are told apart for sure

int TickCount(double pixels, double apart)
{
    return std::clamp(static_cast<int>(pixels / apart), 2, kMostTicks);
}

ScaledDirection CategoryDirection(const PlotDirection& direction)
{
    ScaledDirection scaled;
    scaled.fScale.fKind = ScaleKind::Category;
    scaled.fScale.fCategories = direction.fCategories.All();
    scaled.fScale.fMin = -0.5;
    scaled.fScale.fMax = std::max(1.0, static_cast<double>(direction.fCategories.Count())) - 0.5;
    double place = 0.0;
    for (const CategoryLabel& category : direction.fCategories.All()) {
        scaled.fTicks.push_back({place++, category.fLabel});
    }
    return scaled;
}

void SetRange(ScaledDirection& scaled, TickedRange range)
{
    scaled.fScale.fMin = range.fMin;
    scaled.fScale.fMax = range.fMax;
    scaled.fTicks = std::move(range.fTicks);
}

double Reachable(double place) { return std::clamp(place, -kFarthest, kFarthest); }

TickedRange NumberRange(const PlotDirection& direction, const Extent& extent, int ticks,
                        double pixels)
{
    const bool isTime = direction.fKind == ScaleKind::Time;
    const auto within = [isTime, ticks](double low, double high) {
        return TickedRange{
            low, high, isTime ? TimeTicksWithin(low, high, ticks) : TicksWithin(low, high, ticks)};
    };
    const double low = Reachable(direction.fMin.value_or(extent.fLow));
    double high = Reachable(direction.fMax.value_or(extent.fHigh));
    const bool isFixed = direction.fMin && direction.fMax;
    if (direction.fCounts && low >= 0.0 && !direction.fMax) {
        return CountRange(high, ticks, direction.fAir ? kNumberHeight / pixels : 0.0);
    }
    if (isFixed || direction.fTight) {
        if (!(high > low)) high = low + std::max(1.0, std::fabs(low) * kNextTo);
        return within(low, high);
    }
    if (!isTime) return RoundRange(low, high, ticks);
    const double air =
        high > low ? (high - low) * 0.03 : std::max(kDay / 2, std::fabs(low) * kNextTo);
    return within(low - air, high + air);
}

}  // namespace

ScaledDirection ScaleDirection(const PlotDirection& direction, double pixels, bool isUpright)
{
    if (direction.fKind == ScaleKind::Category) return CategoryDirection(direction);
    Extent extent = direction.fExtent;
    if (extent.IsEmpty()) extent = {0.0, 1.0};
    ScaledDirection scaled;
    scaled.fScale.fKind = direction.fKind;
    const bool hasLongLabels = direction.fKind == ScaleKind::Time ||
                               (direction.fVariable && direction.fVariable->IsDuration());
    const double apart = isUpright ? kPixelsUpright : hasLongLabels ? kPixelsOfDates : kPixelsLying;
    SetRange(scaled, NumberRange(direction, extent, TickCount(pixels, apart), pixels));
    if (direction.fVariable && direction.fVariable->IsDuration() && !direction.fCounts) {
        for (AxisTick& tick : scaled.fTicks) {
            tick.fLabel = direction.fVariable->NumberText(tick.fAt);
        }
    }
    return scaled;
}

double PixelAt(const ResolvedScale& scale, double length, bool downwards, double place)
{
    const double part = (place - scale.fMin) / (scale.fMax - scale.fMin);
    return length * (downwards != scale.fReversed ? 1.0 - part : part);
}

double PlaceAt(const ResolvedScale& scale, double length, bool downwards, double pixel)
{
    const double part = pixel / length;
    const double share = downwards != scale.fReversed ? 1.0 - part : part;
    return scale.fMin + (scale.fMax - scale.fMin) * share;
}

}  // namespace refhost
