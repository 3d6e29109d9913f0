#include "refhost/pivot/NumberFormats.h"

#include <algorithm>
#include <cmath>

#include "refhost/pivot/PivotProcedure.h"

#include "refhost/data/MissingValue.h"
#include "refhost/data/NumberText.h"

#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Variable.h"
#include "host/pivot/BpProcedure.h"

namespace refhost {

namespace {

using Kind = BpFormatSpec::Kind;

/// A number that shows whole at fewer decimals takes the fewest of them.
struct FormatRow {
    Kind fKind;
    NumberFormat fName;
    int fFewest;
    int fMost;
};

// clang-format off
constexpr FormatRow kFormats[] = {
    {Kind::Significance,       NumberFormat::Significance,       3, 3},
    {Kind::Proportion,         NumberFormat::Proportion,         3, 3},
    {Kind::Count,              NumberFormat::Count,              0, 0},
    {Kind::Coefficient,        NumberFormat::Coefficient,        3, 3},
    {Kind::Percent,            NumberFormat::Percent,            0, 9},
    {Kind::CountOrCoefficient, NumberFormat::CountOrCoefficient, 0, 3},
    {Kind::StdDev,             NumberFormat::StdDev,             3, 3},
};
// clang-format on

constexpr int kMostDecimals = 16;

const FormatRow& Row(const BpFormatSpec& format)
{
    const auto* found = std::ranges::find(kFormats, format.GetKind(), &FormatRow::fKind);
    return found != std::end(kFormats) ? *found : kFormats[0];
}

/// One more than the variable itself shows.
int StdDevDecimals(int variable, int otherwise)
{
    const QORT_DataSource* source = FormatDataSource();
    const QORT_Variable* found = source && variable >= 0 ? source->GetVariable(variable) : nullptr;
    return found ? std::min(found->GetFormat().fDecimals + 1, kMostDecimals) : otherwise;
}

/// A whole percentage shows whole, also where it came of a product: 95.00000000000001 of 0.95. Any
/// other has as many decimals as keep it apart from 0 and from 100.
int PercentDecimals(double number, const FormatRow& row)
{
    constexpr double kNoise = 1e-9;
    const double away = std::abs(number - std::round(number));
    if (away <= kNoise * std::abs(number)) return row.fFewest;
    double gap = std::min(std::abs(number), std::abs(100.0 - number));
    int decimals = 0;
    do {
        gap *= 10.0;
        ++decimals;
    } while (gap < 0.5 + kNoise && decimals < row.fMost);
    return decimals;
}

bool IsWhole(double number) { return number == std::trunc(number); }

bool IsNeverZero(NumberFormat format)
{
    return format == NumberFormat::Significance || format == NumberFormat::Proportion ||
           format == NumberFormat::Percent;
}

}  // namespace

NumberFormat FormatName(const BpFormatSpec& format) { return Row(format).fName; }

int FormatDecimals(const BpFormatSpec& format, double number)
{
    const FormatRow& row = Row(format);
    if (row.fKind == Kind::StdDev) return StdDevDecimals(format.GetVariable(), row.fMost);
    if (IsUntold(number)) return row.fFewest;
    if (row.fKind == Kind::Percent) return PercentDecimals(number, row);
    return IsWhole(number) ? row.fFewest : row.fMost;
}

std::string FormattedNumber(const TextNumber& number)
{
    if (IsUntold(number.fNumber)) return ".";
    if (std::abs(number.fNumber) >= kLongestFixed)
        return ShortText(number.fNumber, number.fDecimals);
    const auto text = IsNeverZero(number.fFormat) ? FixedTextOrBound : FixedText;
    return text(number.fNumber, number.fDecimals);
}

}  // namespace refhost
