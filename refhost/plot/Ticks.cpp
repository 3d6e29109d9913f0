#include "refhost/plot/Ticks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>

#include "refhost/data/Calendar.h"
#include "refhost/data/NumberText.h"
#include "refhost/plot/Bins.h"
#include "refhost/plot/ChartData.h"
#include "refhost/plot/TimeAxis.h"

namespace refhost {
namespace {

constexpr double kAir = 1.03;  // above the tallest bar
constexpr int kFewTicks = 5;
constexpr int kTickLimit = 50;
constexpr double kShortNumber = 1e-4;
constexpr double kNearest = 1e-300;  // what lies closer or farther is as good as there

std::string WithMinusSign(std::string text)
{
    if (!text.empty() && text.front() == '-') text.replace(0, 1, "\xE2\x88\x92");
    return text;
}

/// False where numbers lie beyond the years that have dates.
bool IsInCalendar(double milliseconds) { return DateText(ToHostSeconds(milliseconds)).has_value(); }

std::string TimeText(double milliseconds, double step)
{
    const double seconds = ToHostSeconds(milliseconds);
    const auto text = step >= kDay ? DateText(seconds) : DateTimeText(seconds, ' ', 0);
    return text.value_or(std::string());
}

double MonthStart(std::int64_t month)
{
    const std::int64_t year = month >= 0 ? month / 12 : (month - 11) / 12;
    const auto monthOfYear = static_cast<unsigned>(month - year * 12) + 1;
    return static_cast<double>(DaysFromCivil(year, monthOfYear, 1)) * kDay;
}

/// Ticks at the first of every month, of every third, of every year and so on.
std::vector<AxisTick> CalendarTicks(double low, double high, int ticks)
{
    constexpr double kMonth = 30.436875 * kDay;
    const double wanted = (high - low) / kMonth / ticks;
    constexpr double kSteps[] = {1.0, 2.0, 3.0, 6.0, 12.0};
    const auto* found = std::lower_bound(std::begin(kSteps), std::end(kSteps), wanted);
    const double step = found != std::end(kSteps) ? *found : 12.0 * NiceStep(wanted / 12.0);
    const auto months = static_cast<std::int64_t>(std::max(1.0, step));
    std::vector<AxisTick> places;
    auto month = static_cast<std::int64_t>(std::floor(low / kMonth)) - 2;
    // Months count from January 1970, so a multiple of twelve is a January.
    month -= ((month % months) + months) % months;
    for (; places.size() < kTickLimit; month += months) {
        const double at = MonthStart(month);
        if (at > high) break;
        if (at >= low) places.push_back({at, TimeText(at, kDay)});
    }
    return places;
}

std::vector<AxisTick> SteppedTicks(double low, double high, double step)
{
    std::vector<AxisTick> ticks;
    const double slack = step * 1e-9;
    const double first = std::ceil((low - slack) / step);
    for (int k = 0; k < kTickLimit; ++k) {
        const double at = (first + k) * step;
        if (at > high + slack) break;
        ticks.push_back({at == 0.0 ? 0.0 : at, TickText(at, step)});
    }
    return ticks;
}

/// A place that ranges and steps can be reckoned with.
double Placed(double place)
{
    if (std::isnan(place) || std::fabs(place) < kNearest) return 0.0;
    return std::clamp(place, -kFarthest, kFarthest);
}

/// Wide enough that the places of ticks differ.
double StepWithin(double low, double high, int steps)
{
    const double coarse = std::max(std::fabs(low), std::fabs(high)) * 1e-14;
    return NiceStep(std::max((high - low) / std::max(1, steps), coarse));
}

/// Numbers that the calendar doesn't reach are told as any others.
std::vector<AxisTick> UndatedTicks(double low, double high, int ticks)
{
    std::vector<AxisTick> places = SteppedTicks(low, high, StepWithin(low, high, ticks));
    for (AxisTick& tick : places) {
        tick.fLabel = ReadableNumber(ToHostSeconds(tick.fAt), 0);
    }
    return places;
}

}  // namespace

std::string TickText(double number, double step)
{
    const double size = std::fabs(number);
    if (size < step * 1e-6) return "0";
    if (size >= kLongestFixed || !(step >= kShortNumber))
        return WithMinusSign(ShortText(number, 12));
    const double decimals = std::clamp(std::ceil(-std::log10(step) - 1e-9), 0.0, 6.0);
    return WithMinusSign(FixedText(number, static_cast<int>(decimals)));
}

TickedRange CountRange(double most, int ticks, double air)
{
    const double top =
        std::isfinite(most) && most > 0.0 ? std::clamp(most, kNearest, kFarthest) : 1.0;
    const bool endsAtTick = air <= 0.0 && ticks >= kFewTicks;
    double step = NiceStep(top * kAir / std::max(1, endsAtTick ? ticks - 1 : ticks));
    if (top >= 2.0 || top == std::floor(top)) step = std::max(1.0, step);
    TickedRange range;
    range.fMax = endsAtTick ? std::ceil(top * kAir / step - 1e-9) * step
                            : top * std::max(kAir, 1.0 / (1.0 - std::min(air, 0.5)));
    range.fTicks = SteppedTicks(0.0, range.fMax, step);
    return range;
}

TickedRange RoundRange(double low, double high, int ticks)
{
    low = Placed(low);
    high = Placed(high);
    if (!(high > low)) {
        const double around = low == 0.0 ? 1.0 : std::fabs(low) * 0.1;
        return RoundRange(low - around, low + around, ticks);
    }
    const double step = StepWithin(low, high, ticks - 1);
    TickedRange range;
    range.fMin = std::floor(low / step + 1e-9) * step;
    range.fMax = std::max(std::ceil(high / step - 1e-9) * step, range.fMin + step);
    range.fTicks = SteppedTicks(range.fMin, range.fMax, step);
    return range;
}

std::vector<AxisTick> TicksWithin(double low, double high, int ticks)
{
    low = Placed(low);
    high = Placed(high);
    if (!(high > low)) return {};
    return SteppedTicks(low, high, StepWithin(low, high, ticks));
}

std::vector<AxisTick> TimeTicksWithin(double low, double high, int ticks)
{
    low = Placed(low);
    high = Placed(high);
    if (!(high > low)) return {};
    if (!IsInCalendar(low) || !IsInCalendar(high)) return UndatedTicks(low, high, ticks);
    const double wanted = (high - low) / std::max(1, ticks);
    if (wanted > 14 * kDay) return CalendarTicks(low, high, std::max(1, ticks));
    const double step = NiceTimeStep(wanted);
    std::vector<AxisTick> places = SteppedTicks(low, high, step);
    for (AxisTick& tick : places) {
        tick.fLabel = TimeText(tick.fAt, step);
    }
    return places;
}

}  // namespace refhost
