#include <algorithm>

#include "output/NOPROutput.h"
#include "output/PostHoc.h"
#include "output/TableParts.h"

#include "model/Positions.h"

#include "host/framework/Conversions.h"
#include "host/pivot/BpProcedure.h"

namespace {

using Pairwise = NOPROutputStats::PairwiseData;

constexpr char kCaption[] = "HomogeneousSubsetsTableCaption^1";
constexpr DimensionForm kStatistics{"Statistics", kLiteral, Place::Rows, {true, false}};
constexpr DimensionForm kSubset{"Subset", kLookup, Place::Columns, {false, false}};

/// A row below the samples: its label, and the column and format of its number.
struct SubsetRow {
    const char* fLabel;
    std::size_t fColumn;
    BpFormatSpec (*fFormat)();
};

// clang-format off
constexpr SubsetRow kOneSidedRows[] = {
    {"Standard Error",               content::kStdError,         BpProcedure::Coefficient},
    {"Standardized Test Statistic",  content::kStdTestStatistic, BpProcedure::Coefficient},
    {"Sig. (1-sided test)",          content::kSig,              BpProcedure::Significance},
    {"Adjusted Sig. (1-sided test)", content::kAdjSig,           BpProcedure::Significance},
};
constexpr SubsetRow kTwoSidedRows[] = {
    {"Sig. (2-sided test)",          content::kSig,              BpProcedure::Significance},
    {"Adjusted Sig. (2-sided test)", content::kAdjSig,           BpProcedure::Significance},
};
// clang-format on

std::span<const SubsetRow> RowsOf(TestKind testKind)
{
    if (testKind == kind::kJonckheereTerpstra) return kOneSidedRows;
    return kTwoSidedRows;
}

/// Subsets that overlap so much that their cells would not fit a host are no result of a test.
constexpr std::size_t kMostCells = 1'000'000;

/// The positions from a subset's first sample to its last, as far as there are samples.
struct Span {
    std::size_t fBegin = 0;
    std::size_t fEnd = 0;

    std::size_t Size() const { return fEnd - fBegin; }
};

Span SamplesOf(const std::vector<double>& subset, std::size_t samples)
{
    const int first = CutToInt(subset[content::kFirst]);
    const int last = CutToInt(subset[content::kSecond]);
    if (last < 0 || first > last) return {};
    const auto begin = std::min(static_cast<std::size_t>(std::max(first, 0)), samples);
    return {begin, std::min(static_cast<std::size_t>(last) + 1, samples)};
}

bool FitsAHost(const Pairwise& pairwise)
{
    std::size_t cells = 0;
    for (const std::vector<double>& subset : pairwise.fContent.fRows)
        cells += SamplesOf(subset, pairwise.fInfo.fRows[0].size()).Size();
    return cells <= kMostCells;
}

bool HasShape(const Pairwise& pairwise)
{
    const auto& info = pairwise.fInfo.fRows;
    const auto isWhole = [](const std::vector<double>& row) {
        return row.size() >= content::kColumns;
    };
    return info.size() == 2 && info[0].size() == info[1].size() &&
           pairwise.fContent.fColumnNames.size() == content::kColumns &&
           std::ranges::all_of(pairwise.fContent.fRows, isWhole) && FitsAHost(pairwise);
}

/// The rows of the document's table, by first position.
std::vector<const std::vector<double>*> SortedSubsets(const NumericTable& table)
{
    std::vector<const std::vector<double>*> subsets;
    subsets.reserve(table.fRows.size());
    for (const auto& row : table.fRows)
        subsets.push_back(&row);
    std::ranges::stable_sort(subsets, {}, [](const auto* row) { return (*row)[content::kFirst]; });
    return subsets;
}

/// Positions outside of the samples are passed over.
void WriteSamples(BpGroup& group, const NOPROutputStats& stats, const PostHocKind& postHoc,
                  const Pairwise& pairwise, const std::vector<double>& subset)
{
    const std::vector<double>& samples = pairwise.fInfo.fRows[0];
    const std::vector<double>& numbers = pairwise.fInfo.fRows[1];
    const Span span = SamplesOf(subset, samples.size());
    for (std::size_t position = span.fBegin; position < span.fEnd; ++position) {
        const auto label = SampleText(stats, postHoc, pairwise, CutToInt(samples[position]));
        if (!label) continue;
        group.Category(*label).Cell(BpNumber(numbers[position], BpProcedure::Coefficient()));
    }
}

}  // namespace

void NOPROutput::HomogeneousSubsets(BpHeading& heading, const Pairwise& pairwise, TestKind testKind,
                                    const Messages& messages)
{
    const PostHocKind* postHoc = FindPostHocKind(testKind);
    if (!postHoc) return;

    const QORT_Variable* field = SampleField(*fStats, *postHoc, pairwise);
    BpPivotTable table = MakePostHocTable(heading, *fStats, postHoc->fSubsetsTitle,
                                          "Homogeneous Subsets Table", kCaption, field);
    BpDimension statistics = MakeDimension(table, kStatistics);
    BpDimension subset = MakeDimension(table, kSubset);
    if (!HasShape(pairwise)) return;

    BpGroup samples = MakeGroup(statistics, Lookup("Sample"));
    samples.Note(BpAnnotation(TextOfField(postHoc->fSampleNote, field)));

    const PairMessages pairMessages(messages);
    int place = 0;
    for (const std::vector<double>* row : SortedSubsets(pairwise.fContent)) {
        subset.Category(Literal(Integer2String(++place)));
        WriteSamples(samples, *fStats, *postHoc, pairwise, *row);
        BpCategory statistic = statistics.Category(Lookup("Test Statistic"));
        statistic.Cell(BpNumber((*row)[content::kTestStatistic], BpProcedure::Coefficient()));
        PairCellNotes(statistic, pairMessages, CutToInt((*row)[content::kFirst]),
                      CutToInt((*row)[content::kSecond]));
        for (const SubsetRow& line : RowsOf(testKind))
            statistics.Category(Lookup(line.fLabel))
                .Cell(BpNumber((*row)[line.fColumn], line.fFormat()));
    }
}
