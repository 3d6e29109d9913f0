#include "output/NOPROutput.h"
#include "output/TableParts.h"

#include "model/RecordOf.h"

#include "host/framework/Conversions.h"
#include "host/pivot/BpProcedure.h"

namespace {

using Estimate = NOPROutputStats::IntervalEstimate;

constexpr char kTitle[] = "Confidence Interval Summary";
constexpr ColumnWidths kWidths{100, 200};
constexpr DimensionForm kItem{"Item", kLiteral, Place::Rows, {true, true}};
constexpr DimensionForm kStatistics{"Statistics", kLookup, Place::Columns, {true, false}};

/// The rows of the table, numbered over all tests.
class IntervalRows {
public:
    IntervalRows(const NOPROutput& output, BpDimension& item, BpDimension& statistics)
        : fOutput(output), fItem(item), fStatistics(statistics)
    {
    }

    void Add(const BpCellText& type, const NOPROutput::Test& test, const Estimate& estimate)
    {
        // Only the first message shows, whatever its type.
        const int code = test.fMessages.empty() ? 0 : test.fMessages.front().fCode;
        fItem.Category(BpNumber(++fRow, BpProcedure::Count()));
        fStatistics.Category(Lookup("Confidence Interval Type")).Cell(type);
        fOutput.NullHypothesisCell(fStatistics.Category(Lookup("Parameter")), test);
        fOutput.IntervalCells(fStatistics, estimate, code);
    }

private:
    const NOPROutput& fOutput;
    BpDimension& fItem;
    BpDimension& fStatistics;
    int fRow = 0;
};

BpComposite TitleWithMethod(const std::string& title, const std::string& method)
{
    BpComposite type(title + " ^1", kLookup);
    type.Add(Lookup(method));
    type.Finish();
    return type;
}

/// The missing level stays missing.
double Percentage(double proportion)
{
    return IsMissing(proportion) ? proportion : proportion * 100.0;
}

BpComposite IntervalLabel(double confidenceLevel)
{
    BpComposite label("^1 Confidence Interval", kLookup);
    label.Add(BpNumber(Percentage(confidenceLevel), BpProcedure::Percent()));
    label.Finish();
    return label;
}

void AddMethods(IntervalRows& rows, const std::string& title,
                const NOPROutputStats::HTOEstimateConfidenceInterval& test)
{
    for (const Estimate& estimate : test.fIntervals)
        rows.Add(TitleWithMethod(title, estimate.fMethod), test, estimate);
    if (test.fIntervals.empty()) rows.Add(Lookup(title), test, Estimate());
}

void AddTest(IntervalRows& rows, const NOPROutput::Test& test)
{
    const std::string title(TestTitle(test.fTestKind));
    if (const auto* rate = RecordOf<NOPROutputStats::HTOEstimateConfidenceInterval>(&test))
        AddMethods(rows, title, *rate);
    else if (const auto* pairs = RecordOf<NOPROutputStats::HTRHodgesLehmannEstimatePairs>(&test))
        rows.Add(Lookup(title), test, pairs->fInterval);
    else if (const auto* groups = RecordOf<NOPROutputStats::HTIHodgesLehmannEstimateGroups>(&test))
        rows.Add(Lookup(title), test, groups->fInterval);
}

}  // namespace

void NOPROutput::ConfidenceIntervalSummary()
{
    const auto testCount = static_cast<unsigned>(fStats->GetIntervalTests().size());
    if (testCount == 0) return;

    BpPivotTable table = MakeTable(*fHeading, Lookup(kTitle), kTitle, kWidths);
    fStats->SplitDimensions(table);
    BpDimension item = MakeDimension(table, kItem);
    BpDimension statistics = MakeDimension(table, kStatistics);

    IntervalRows rows(*this, item, statistics);
    for (unsigned index = 0; index < testCount; ++index) {
        if (const Test* test = fStats->GetIntervalTest(index)) AddTest(rows, *test);
    }
}

void NOPROutput::IntervalCells(BpDimension& statistics, const Estimate& estimate, int code) const
{
    BpCategory estimated = statistics.Category(Lookup("Estimate"));
    estimated.Cell(BpNumber(estimate.fEstimate, BpProcedure::Coefficient()));
    if (code != 0) estimated.CellNote(LookupNote(Integer2String(code)));

    // The same label on every row, so that all rows share the group.
    BpGroup bounds = MakeGroup(statistics, IntervalLabel(fStats->GetConfidenceLevel()));
    bounds.Category(Lookup("Lower")).Cell(BpNumber(estimate.fLower, BpProcedure::Coefficient()));
    bounds.Category(Lookup("Upper")).Cell(BpNumber(estimate.fUpper, BpProcedure::Coefficient()));
}
