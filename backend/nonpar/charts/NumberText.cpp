#include "charts/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/HostNumberText.h"
#include "model/NOPRTestIdentity.h"
#include "model/Positions.h"

#include "host/data/QORT_Variable.h"

namespace {

constexpr std::uint16_t kDisplayWidth = 40;
constexpr std::uint8_t kPlainNumber = 5;
constexpr int kExactDigits = 16;

std::string TwoDigits(double value)
{
    const std::string digits = std::to_string(CutToInt(value));
    return value < 10.0 ? "0" + digits : digits;
}

}  // namespace

ChartString ExactText(double value)
{
    ChartString text;
    text.assignDouble(value, kExactDigits);
    return text;
}

ChartString IntegerText(int value)
{
    ChartString text;
    text.assignInteger(value);
    return text;
}

std::string FormatValue(double value, QORT_Format* format)
{
    return format ? HostNumberText(value, *format) : ExactText(value).toUTF8();
}

std::string FormatFixed(double value, std::uint16_t width, std::uint8_t decimals)
{
    QORT_Format format = PlainFormat(decimals);
    format.fWidth = std::min(width, kDisplayWidth);
    return FormatValue(value, &format);
}

std::string FormatForVariable(double value, const QORT_Variable& variable)
{
    QORT_Format format = variable.GetFormat();
    return FormatValue(value, &format);
}

QORT_Format PlainFormat(std::uint8_t decimals) { return {kDisplayWidth, kPlainNumber, decimals}; }

QORT_Format DisplayFormat(const QORT_Variable* variable, std::uint8_t decimals)
{
    return variable ? variable->GetFormat() : PlainFormat(decimals);
}

QORT_Format WithMoreDecimals(QORT_Format format, int more)
{
    constexpr int kMost = std::numeric_limits<std::uint8_t>::max();
    format.fDecimals = static_cast<std::uint8_t>(std::min(format.fDecimals + more, kMost));
    return format;
}

std::string DurationText(double days, const DurationMarks& marks)
{
    if (IsMissing(days)) return ".";
    const double wholeDays = std::trunc(days);
    const double hours = (days - wholeDays) * 24.0;
    const double minutes = (hours - std::trunc(hours)) * 60.0;
    const double seconds = (minutes - std::trunc(minutes)) * 60.0 + 0.5;
    return marks.fPrefix + FormatValue(wholeDays, nullptr) + marks.fAfterDays + TwoDigits(hours) +
           marks.fAfterHours + TwoDigits(minutes) + marks.fAfterMinutes + TwoDigits(seconds) +
           marks.fSuffix;
}
