#include "output/NOPROutput.h"
#include "output/SignificanceNotes.h"
#include "output/TableParts.h"

#include "model/TestQueries.h"

#include "host/pivot/BpHeading.h"
#include "host/pivot/BpProcedure.h"

namespace {

using Test = NOPROutputStats::BaseHypothesisTest;

constexpr ColumnWidths kWidths{150, -1};
constexpr DimensionForm kStatistics{"Statistics", kLookup, Place::Rows, {true, false}};

constexpr char kTestStatistic[] = "TestStatistic";
constexpr char kSpanNote[] = "The test statistic is the span.";
constexpr char kRunsNote[] = "The test statistic is the number of runs.";

constexpr const char* kMosesBlocks[] = {"ObservedControlGroup", "TrimmedControlGroup"};
constexpr const char* kRunsBlocks[] = {"MinimumPossible", "MaximumPossible"};

constexpr std::string_view kCounts[] = {"TotalN", "DegreeOfFreedom"};

BpFormatSpec FormatOf(std::string_view name)
{
    for (const std::string_view count : kCounts) {
        if (name == count) return BpProcedure::Count();
    }
    return BpProcedure::Significance();
}

/// Whether ties leave one number of runs, so that minimum and maximum are one result.
bool RunsAreSame(const Test& test)
{
    const auto runs = RunsRange(test);
    return runs && runs->first == runs->second;
}

BpCategory TestStatistic(BpGroup& group) { return group.Category(Lookup(kTestStatistic)); }

void WriteBlocks(const NOPROutput& output, BpDimension& statistics, const Test& test,
                 bool runsAreSame)
{
    for (const auto& block : test.fStatistics) {
        if (block.fName.empty()) {
            output.StatisticRows(statistics, block.fValues);
        } else if (runsAreSame) {
            output.StatisticRows(statistics, block.fValues);
            return;  // the one result is shown, and blocks behind it are not
        } else {
            BpGroup group = MakeGroup(statistics, Lookup(block.fName));
            output.StatisticRows(group, block.fValues);
        }
    }
}

void NoteSpans(BpDimension& statistics, const Test& test)
{
    const BpAnnotation note = LookupNote(kSpanNote);
    for (const char* block : kMosesBlocks) {
        double statistic = MissingValue;
        if (!test.GetStatistic(statistic, kTestStatistic, block)) continue;
        BpGroup group = MakeGroup(statistics, Lookup(block));
        TestStatistic(group).Note(note);
    }
}

/// The groups are there afterwards even where the document has no such block.
void NoteRunsOfGroups(BpDimension& statistics, const Test& test)
{
    const BpAnnotation note = LookupNote(kRunsNote);
    for (const char* block : kRunsBlocks) {
        BpGroup group = MakeGroup(statistics, Lookup(block));
        BpCategory statistic = TestStatistic(group);
        statistic.Note(note);
        NOPROutput::MessageCellNotes(statistic, test.fMessages);
    }
}

void NoteEstimatedNormal(BpDimension& statistics, const Test& test)
{
    const auto notes = EstimatedNormalNotes(test);
    if (notes.empty()) return;
    BpCategory significance = statistics.Category(Lookup("AsymptoticSig2Tailed"));
    for (const SignificanceNote& note : notes) {
        if (note.fInstead) significance.Cell(BpNumber(*note.fInstead, BpProcedure::Significance()));
        significance.CellNote(LookupNote(note.fKey));
    }
}

}  // namespace

void NOPROutput::TestDetailTable(BpHeading& heading, const Test& test)
{
    const std::string title = TestHeadingTitle(test) + " Summary";
    BpPivotTable table = MakeTable(heading, Lookup(title), title, kWidths);
    fStats->SplitDimensions(table);
    BpDimension statistics = MakeDimension(table, kStatistics);

    const bool runsAreSame = RunsAreSame(test);
    WriteBlocks(*this, statistics, test, runsAreSame);

    const bool isRunsTest = test.fTestKind == kind::kWaldWolfowitz;
    if (test.fTestKind == kind::kMoses) NoteSpans(statistics, test);
    if (isRunsTest && !runsAreSame) {
        NoteRunsOfGroups(statistics, test);
        return;
    }
    if (isRunsTest) TestStatistic(statistics).Note(LookupNote(kRunsNote));
    NoteEstimatedNormal(statistics, test);
    MessageCellNotes(TestStatistic(statistics), test.fMessages);
}

void NOPROutput::StatisticRows(BpGroup& group,
                               const std::vector<NOPROutputStats::NamedValue>& values) const
{
    for (const auto& value : values)
        group.Category(Lookup(value.fName)).Cell(BpNumber(value.fValue, FormatOf(value.fName)));
}
