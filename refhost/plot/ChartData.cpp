#include "refhost/plot/ChartData.h"

#include <algorithm>
#include <cmath>

#include "refhost/data/DateFormats.h"
#include "refhost/data/MissingValue.h"
#include "refhost/data/NumberText.h"
#include "refhost/plot/TimeAxis.h"

namespace refhost {
namespace {

constexpr int kExactDigits = 16;
constexpr int kPlainDigits = 6;  // of numbers that no format is known of
const ChartValue kAbsent;

// Below these a number is no date of the host's that occurs: the first weeks behind 1582, and with
// a time the years before 1741. As days, or as seconds since 1970, it is one.
constexpr double kLeastHostDay = 3e6;
constexpr double kLeastHostSecond = 5e9;

std::string Grouped(std::string fixed)
{
    std::size_t end = std::min(fixed.find('.'), fixed.size());
    const std::size_t first = !fixed.empty() && fixed.front() == '-' ? 1 : 0;
    while (end > first + 3) {
        end -= 3;
        fixed.insert(end, ",");
    }
    return fixed;
}

const ChartSource* FindSource(const ChartNode& node, std::string_view name)
{
    const auto found =
        std::find_if(node.fSources.begin(), node.fSources.end(),
                     [name](const ChartSource& source) { return source.fName == name; });
    return found == node.fSources.end() ? nullptr : &*found;
}

const ChartSource::Column* FindColumn(const ChartSource* source, std::string_view name)
{
    if (!source) return nullptr;
    const auto found =
        std::find_if(source->fColumns.begin(), source->fColumns.end(),
                     [name](const ChartSource::Column& column) { return column.fName == name; });
    return found == source->fColumns.end() ? nullptr : &*found;
}

/// Up to `mostMore` decimals beyond a variable's own, until they tell the number.
int Decimals(double number, int own, int mostMore)
{
    constexpr int kMost = 16;
    constexpr double kNoise = 1e-9;
    constexpr double kPowers[kMost + 1] = {1e0, 1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7, 1e8,
                                           1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16};
    const int least = std::clamp(own, 0, kMost);
    const int most = std::min(least + mostMore, kMost);
    int decimals = least;
    for (double scaled = number * kPowers[least]; decimals < most; scaled *= 10.0) {
        if (std::fabs(scaled - std::round(scaled)) <= kNoise * std::fabs(scaled)) break;
        ++decimals;
    }
    return decimals;
}

}  // namespace

std::string ExactText(double number) { return ShortText(number, kExactDigits); }

std::string ReadableNumber(double number, int decimals)
{
    if (std::fabs(number) >= kLongestFixed) return ShortText(number, kPlainDigits);
    return FixedText(number, decimals);
}

const ChartValue& DataVariable::Value(std::size_t row) const
{
    return row < Rows() ? fColumn->fValues[row] : kAbsent;
}

bool DataVariable::IsAbsent(std::size_t row) const
{
    const ChartValue& value = Value(row);
    if (HasCases()) return CaseOf(value).empty();
    if (const auto* number = std::get_if<double>(&value)) return IsUntold(*number);
    return std::holds_alternative<std::monostate>(value);
}

bool DataVariable::Repeats(std::size_t row) const
{
    return row > 0 && Value(row) == Value(row - 1);
}

std::optional<double> DataVariable::Number(std::size_t row) const
{
    const auto* number = std::get_if<double>(&Value(row));
    if (!number || IsUntold(*number)) return std::nullopt;
    return PlaceOf(*number);
}

double DataVariable::PlaceOf(double raw) const
{
    return fIsDate ? ToMilliseconds(HostDate(raw)) : raw;
}

double DataVariable::HostDate(double raw) const
{
    if (!fIsDate) return raw;
    const bool isDays = fDate->fUnit == DocumentUnit::DaysSince1970;
    const double least = isDays ? kLeastHostDay : kLeastHostSecond;
    return std::fabs(raw) < least ? HostNumber(raw, fDate->fType) : raw;
}

/// Of a variable with cases, the first that the number meets.
std::string_view DataVariable::CaseOf(const ChartValue& value) const
{
    const auto* number = std::get_if<double>(&value);
    if (!number || IsUntold(*number)) return {};
    for (const tree::DerivedCase& test : fDerived->fCases) {
        if (test.fAbove && !(*number > *test.fAbove)) continue;
        if (test.fBelow && !(*number < *test.fBelow)) continue;
        return test.fValue;
    }
    return {};
}

std::string_view DataVariable::Key(std::size_t row, std::string& room) const
{
    const ChartValue& value = Value(row);
    if (HasCases()) return CaseOf(value);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    const auto* number = std::get_if<double>(&value);
    if (!number || IsUntold(*number)) return {};
    room = ExactText(*number);
    return room;
}

std::string DataVariable::Key(std::size_t row) const
{
    std::string room;
    return std::string(Key(row, room));
}

const std::string* DataVariable::Relabel(std::string_view key) const
{
    if (const auto found = fDerivedLabels.find(key); found != fDerivedLabels.end()) {
        return &found->second;
    }
    if (fHoldsLabels) return nullptr;
    for (const VariableSettings* settings : {fSettings, fFormatSettings}) {
        if (!settings) continue;
        const auto found = settings->fRelabels.find(key);
        if (found != settings->fRelabels.end()) return &found->second;
    }
    return nullptr;
}

std::string DataVariable::KeyText(const std::string& key) const
{
    const std::string* relabel = Relabel(key);
    return relabel ? *relabel : key;
}

/// By the decimals of the variable, and up to `mostMore` others that the number needs.
std::string DataVariable::FormattedNumber(double raw, int mostMore) const
{
    const auto decimals = [raw, mostMore](int own) { return Decimals(raw, own, mostMore); };
    if (fFormatSettings && fFormatSettings->fNumberFormat) {
        const ChartNumberFormat& format = *fFormatSettings->fNumberFormat;
        const std::string fixed = ReadableNumber(raw, decimals(format.fDecimals));
        return format.fPrefix + (format.fGrouping ? Grouped(fixed) : fixed) + format.fSuffix;
    }
    if (fFormatSettings && fFormatSettings->fHostFormat) {
        const HostFormat& format = *fFormatSettings->fHostFormat;
        if (auto date = DateFormatText(raw, format.fType, 0)) return *std::move(date);
        return ReadableNumber(raw, decimals(format.fDecimals));
    }
    if (fDeclared && fDeclared->fDecimals >= 0) {
        const auto text = std::fabs(raw) < 1.0 ? FixedTextOrBound : ReadableNumber;
        return text(raw, decimals(fDeclared->fDecimals));
    }
    return ShortText(raw, kPlainDigits);
}

std::string DataVariable::Text(std::size_t row) const
{
    std::string room;
    const std::string_view key = Key(row, room);
    if (const std::string* relabel = Relabel(key)) return *relabel;
    const auto* number = std::get_if<double>(&Value(row));
    if (IsAbsent(row)) return {};
    std::string text = fSettings ? fSettings->fPrefix : std::string();
    if (number && !HasCases()) {
        return text.append(FormattedNumber(HostDate(*number), 0));
    }
    return text.append(key);
}

std::string DataVariable::NumberText(double number) const
{
    return FormattedNumber(fIsDate ? ToHostSeconds(number) : number, 0);
}

std::string DataVariable::DerivedNumberText(double number) const
{
    constexpr int kMostMore = 2;
    return FormattedNumber(fIsDate ? ToHostSeconds(number) : number, kMostMore);
}

std::string DataVariable::Title() const
{
    if (fSettings && fSettings->fLabel) return *fSettings->fLabel;
    if (fSettings && fSettings->fHostLabel) return *fSettings->fHostLabel;
    return fDeclared && !fDerived ? fDeclared->fLabel : std::string();
}

bool DataVariable::IsSetCategorical() const
{
    if (fDerived) return true;
    if (fSettings && fSettings->fCategorical) return *fSettings->fCategorical;
    return fDeclared && fDeclared->fCategorical;
}

void ChartData::Describe(DataVariable& variable)
{
    if (variable.fColumn) {
        variable.fHoldsText = std::any_of(
            variable.fColumn->fValues.begin(), variable.fColumn->fValues.end(),
            [](const ChartValue& value) { return std::holds_alternative<std::string>(value); });
    }
    variable.fHoldsLabels =
        variable.fHoldsText && variable.fDeclared && variable.fDeclared->fHoldsLabels;
    const VariableSettings* settings = variable.fFormatSettings;
    if (!settings || !settings->fHostFormat || settings->fNumberFormat) return;
    const DateFormatRow* date = FindDateFormat(settings->fHostFormat->fType);
    if (!date) return;
    variable.fDate = date;
    variable.fIsDuration = date->fLayout == DateLayout::Duration;
    variable.fIsDate = date->fLayout == DateLayout::Date || date->fLayout == DateLayout::DateTime;
}

void ChartData::AddDeclared(const ChartNode& node, const ChartDrawing& drawing,
                            const tree::SourceVariable& declared)
{
    DataVariable variable;
    variable.fId = declared.fId;
    variable.fDeclared = &declared;
    variable.fColumn = FindColumn(FindSource(node, declared.fSource), declared.fColumn);
    variable.fSettings = drawing.FindSettings(declared.fId);
    variable.fFormatSettings = declared.fLabelsFrom.empty()
                                   ? variable.fSettings
                                   : drawing.FindSettings(declared.fLabelsFrom);
    Describe(variable);
    fVariables.insert_or_assign(declared.fId, std::move(variable));
}

void ChartData::AddDerived(const ChartDrawing& drawing, const tree::DerivedVariable& derived)
{
    const DataVariable* base = Find(derived.fValue);
    DataVariable variable = base ? *base : DataVariable();
    variable.fId = derived.fId;
    variable.fDerived = &derived;
    variable.fSettings = drawing.FindSettings(derived.fId);
    if (variable.HasCases()) {
        variable.fFormatSettings = variable.fSettings;
        variable.fHoldsLabels = false;
    }
    for (const tree::Format& format : derived.fFormats) {
        for (const tree::Relabel& relabel : format.fRelabels) {
            variable.fDerivedLabels.insert_or_assign(relabel.fFrom, relabel.fTo);
        }
    }
    fVariables.insert_or_assign(derived.fId, std::move(variable));
}

ChartData::ChartData(const ChartNode& node, const ChartDrawing& drawing)
{
    for (const tree::SourceVariable& declared : drawing.fTree.fSourceVariables) {
        AddDeclared(node, drawing, declared);
    }
    for (const tree::DerivedVariable& derived : drawing.fTree.fDerivedVariables) {
        AddDerived(drawing, derived);
    }
}

const DataVariable* ChartData::Find(std::string_view id) const
{
    const auto found = fVariables.find(id);
    return id.empty() || found == fVariables.end() ? nullptr : &found->second;
}

}  // namespace refhost
