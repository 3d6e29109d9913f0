#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "refhost/document/OutputNode.h"
#include "refhost/template/ChartDrawing.h"

namespace refhost {

struct DateFormatRow;

/// A variable of the visualization with its values, its settings and its way to show them. It
/// borrows from the chart's node.
class DataVariable {
public:
    std::size_t Rows() const { return fColumn ? fColumn->fValues.size() : 0; }

    /// Absent where there is no such row, and for the missing number.
    bool IsAbsent(std::size_t row) const;

    /// Whether the row holds what the row before it holds, as groups of rows do.
    bool Repeats(std::size_t row) const;

    /// Nothing for texts. Dates are milliseconds since 1970.
    std::optional<double> Number(std::size_t row) const;

    /// The same for a number that stands elsewhere, in the unit of the data. A date that is too
    /// small to be the host's is one as result documents have it.
    double PlaceOf(double raw) const;

    /// What tells categories apart: a text as it is, a number by its exact text; empty where
    /// absent.
    std::string Key(std::size_t row) const;

    /// The same without a copy where the data hold it as it is; else it stands in `room`.
    std::string_view Key(std::size_t row, std::string& room) const;

    /// What a reader sees of the value: its relabel, or itself by format and prefix.
    std::string Text(std::size_t row) const;

    /// The same for a number that no row needs to have, in the unit of `Number`.
    std::string NumberText(double number) const;

    /// The same for a number worked out of several, such as a quartile or the edge of a bin: with
    /// up to two decimals more where those of the variable would tell another number.
    std::string DerivedNumberText(double number) const;

    /// The relabel of a key, or the key.
    std::string KeyText(const std::string& key) const;

    /// What stands beside an axis of the variable.
    std::string Title() const;

    bool IsDate() const { return fIsDate; }
    bool IsDuration() const { return fIsDuration; }
    bool IsSetCategorical() const;
    bool HoldsText() const { return fHoldsText; }
    const std::string& Id() const { return fId; }

private:
    friend class ChartData;

    const ChartValue& Value(std::size_t row) const;

    /// Whether it stands for the cases that its numbers meet, not for its values.
    bool HasCases() const { return fDerived && !fDerived->fCases.empty(); }
    std::string_view CaseOf(const ChartValue& value) const;
    const std::string* Relabel(std::string_view key) const;
    std::string FormattedNumber(double raw, int mostMore) const;
    double HostDate(double raw) const;

    std::string fId;
    const ChartSource::Column* fColumn = nullptr;
    const tree::SourceVariable* fDeclared = nullptr;
    const tree::DerivedVariable* fDerived = nullptr;
    const VariableSettings* fSettings = nullptr;        // may be null
    const VariableSettings* fFormatSettings = nullptr;  // whose relabels and format count
    std::map<std::string, std::string, std::less<>> fDerivedLabels;
    const DateFormatRow* fDate = nullptr;  // null without a format of dates or times
    bool fIsDate = false;
    bool fIsDuration = false;
    bool fHoldsText = false;
    bool fHoldsLabels = false;  // and its texts are labels already
};

/// All variables of a chart by id.
class ChartData {
public:
    ChartData(const ChartNode& node, const ChartDrawing& drawing);

    /// Null for an empty id, and where neither template nor data have it.
    const DataVariable* Find(std::string_view id) const;

private:
    void AddDeclared(const ChartNode& node, const ChartDrawing& drawing,
                     const tree::SourceVariable& declared);
    void AddDerived(const ChartDrawing& drawing, const tree::DerivedVariable& derived);
    static void Describe(DataVariable& variable);

    std::map<std::string, DataVariable, std::less<>> fVariables;
};

/// The exact text of a number, as keys have it.
std::string ExactText(double number);

/// A number for a reader: fixed notation, or with an exponent where that would be very long.
std::string ReadableNumber(double number, int decimals);

}  // namespace refhost
