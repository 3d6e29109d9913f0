#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "refhost/document/SharedList.h"

/// The output of a run as plain data: tables, charts and reports, in the order in which a person
/// reads them. The pivot and the chart library make nodes; writers read them and know nothing of
/// the libraries.

namespace refhost {

struct Text;
using TextRef = std::shared_ptr<const Text>;

/// Formats of numbers, by the names of the JSON output.
enum class NumberFormat {
    Significance,
    Proportion,
    Count,
    Coefficient,
    Percent,
    CountOrCoefficient,
    StdDev
};

struct TextString {
    std::string fString;
    bool fLookup = false;
};

struct TextNumber {
    double fNumber = 0.0;  ///< the missing number, and what is not finite, shows as missing
    NumberFormat fFormat = NumberFormat::Coefficient;
    int fDecimals = 0;  ///< digits behind the point that the format shows
};

struct TextVariable {
    std::string fName;
};

/// A value of a variable, as it was passed: a string is padded, a date is unconverted.
struct TextValue {
    std::variant<double, std::string> fValue;
    std::string fOf;         ///< the variable's name
    bool fLabelled = false;  ///< shown by a label, so not as a number
};

struct TextSublist {
    std::vector<TextRef> fItems;
};

struct TextComposite {
    std::string fString;
    bool fLookup = false;
    std::vector<std::variant<TextRef, TextSublist>> fParts;
};

/// What the plug-in passed, and what a reader sees of it (UTF-8).
struct Text {
    std::variant<TextString, TextNumber, TextVariable, TextValue, TextComposite> fPassed;
    std::string fShown;
};

/// A category, or a group with items.
struct PivotItem {
    bool fIsGroup = false;
    TextRef fLabel;
    std::vector<TextRef> fNotes;
    std::vector<PivotItem> fItems;
};

enum class PivotPlace { Rows, Columns };

struct PivotDimension {
    TextRef fTitle;
    int fSort = 0;
    PivotPlace fPlace = PivotPlace::Rows;
    bool fFlags[2] = {false, false};
    std::vector<PivotItem> fItems;
};

struct PivotCell {
    /// For each dimension the place of the cell's category, groups flattened, from 0.
    std::vector<std::uint32_t> fAt;
    TextRef fContent;  ///< null where the cell has notes only
    std::vector<TextRef> fNotes;
};

struct TableNode {
    TextRef fTitle;
    TextRef fSubtype;
    TextRef fCaption;              ///< null for none
    int fMinDataColumnWidth = -1;  ///< negative where it was not set
    int fMaxDataColumnWidth = -1;  ///< negative where it was not set
    std::vector<PivotDimension> fDimensions;
    std::vector<PivotCell> fCells;  ///< in the order in which they were first written
};

struct ErrorNode {
    std::string fText;
    int fShow = 0;
    int fLevel = 0;
};

/// A value in a chart's data: absent, a number or a text.
using ChartValue = std::variant<std::monostate, double, std::string>;

/// A source of a chart's data, column by column.
struct ChartSource {
    struct Column {
        std::string fName;
        std::vector<ChartValue> fValues;  ///< may be shorter than the source has rows
    };
    std::string fName;
    std::vector<Column> fColumns;
    std::size_t fRows = 0;
};

/// A host's value given as an argument: {"value": ...}.
struct ChartHostValue {
    std::variant<double, std::string> fValue;
};

/// An argument of a chart call; monostate is null.
using ChartArgument =
    std::variant<std::monostate, bool, std::int64_t, double, std::string, ChartHostValue>;

/// A call of the chart contract: "XGraph.setTitle" and its arguments.
struct ChartCall {
    std::string fOperation;
    std::vector<ChartArgument> fArguments;
};

/// The visualization as it stood when the chart was sent; the template library defines it.
struct ChartDrawing;

struct ChartNode {
    std::string fTemplate;  ///< file name
    std::string fText;      ///< the text that the document was made from
    SharedList<ChartSource> fSources;
    SharedList<ChartCall> fCalls;

    /// What a person reads beside the picture, UTF-8; empty where it was not set, and where charts
    /// are only recorded. A title that only the template holds stands here as well.
    std::string fTitle;
    std::string fSubtitle;
    std::string fFootnote;
    std::string fDescription;

    /// Null where the text could not be read as a template, and where charts are only recorded.
    std::shared_ptr<const ChartDrawing> fDrawing;
};

struct OutputNode {
    std::variant<TableNode, ErrorNode, ChartNode> fContent;
    std::string fPrepared = {};  ///< what a writer made of it ahead of its turn
};

using OutputNodePtr = std::unique_ptr<OutputNode>;

}  // namespace refhost
