#include <algorithm>

#include "output/NOPROutput.h"
#include "output/PostHoc.h"
#include "output/RankTable.h"
#include "output/TableParts.h"

#include "model/Positions.h"
#include "views/pairwise/PairwiseGraph.h"

#include "host/framework/Assertion.h"
#include "host/pivot/BpProcedure.h"

namespace {

using Pairwise = NOPROutputStats::PairwiseData;

constexpr DimensionForm kSamples{"Sample 1-Sample 2", kLiteral, Place::Rows, {false, false}};
constexpr DimensionForm kStatistics{"Statistics", kLookup, Place::Columns, {true, false}};

constexpr char kBonferroniNote[] =
    "Significance values have been adjusted by the Bonferroni correction for multiple tests.";

/// A row of the document's table, its samples in the order of their ranks.
struct Pair {
    int fFirst;
    int fSecond;
    double fFirstRank;
    double fSecondRank;
    const std::vector<double>* fNumbers;
};

/// False: the row is too short, or names a sample that the ranks don't hold.
bool ReadPair(const std::vector<double>& row, const RankTable& ranks, Pair& pair)
{
    if (row.size() < content::kColumns) return false;
    if (!(row[content::kFirst] >= 0 && row[content::kSecond] >= 0)) return false;
    const int first = CutToInt(row[content::kFirst]);
    const int second = CutToInt(row[content::kSecond]);
    if (!ranks.Holds(first) || !ranks.Holds(second)) return false;

    pair = {first, second, ranks.RankOf(first), ranks.RankOf(second), &row};
    if (pair.fSecondRank < pair.fFirstRank) {
        std::swap(pair.fFirst, pair.fSecond);
        std::swap(pair.fFirstRank, pair.fSecondRank);
    }
    return true;
}

/// By the rank of the first sample, and within a run of one first sample by that of the second.
/// First samples of equal rank stay where they are, so that each may have several runs.
void SortPairs(std::vector<Pair>& pairs)
{
    std::ranges::stable_sort(pairs, {}, &Pair::fFirstRank);
    for (auto run = pairs.begin(); run != pairs.end();) {
        const auto end = std::find_if(run, pairs.end(),
                                      [&](const Pair& pair) { return pair.fFirst != run->fFirst; });
        std::ranges::stable_sort(run, end, {}, &Pair::fSecondRank);
        run = end;
    }
}

/// The pairs as the table shows them; none where the shape is bad or a row has a bad sample.
std::vector<Pair> OrderedPairs(const Pairwise& pairwise)
{
    const NumericTable& rankData = pairwise.fInfo;
    CFAssert(rankData.fRows.size() == 2, "rankData.fRows.size() == 2");
    if (rankData.fRows[0].size() != rankData.fRows[1].size()) return {};
    const RankTable ranks(rankData);
    const std::size_t nCol = pairwise.fContent.fColumnNames.size();
    CFAssert(nCol == content::kColumns, "nCol == 7");

    std::vector<Pair> pairs(pairwise.fContent.fRows.size());
    for (std::size_t row = 0; row < pairs.size(); ++row) {
        if (!ReadPair(pairwise.fContent.fRows[row], ranks, pairs[row])) return {};
    }
    SortPairs(pairs);
    return pairs;
}

BpComposite PairLabel(const NOPROutputStats& stats, const PostHocKind& postHoc,
                      const Pairwise& pairwise, const Pair& pair)
{
    BpComposite label("^1-^2", kLookup);
    for (const int sample : {pair.fFirst, pair.fSecond}) {
        if (const auto text = SampleText(stats, postHoc, pairwise, sample)) label.Add(*text);
    }
    label.Finish();
    return label;
}

void WriteNumbers(BpDimension& statistics, const Pair& pair, bool hasStandardError,
                  const PairMessages& messages)
{
    const std::vector<double>& numbers = *pair.fNumbers;
    BpCategory statistic = statistics.Category(Lookup("Test Statistic"));
    statistic.Cell(BpNumber(numbers[content::kTestStatistic], BpProcedure::Coefficient()));
    NOPROutput::PairCellNotes(statistic, messages, pair.fFirst, pair.fSecond);
    if (hasStandardError) {
        statistics.Category(Lookup("Std. Error"))
            .Cell(BpNumber(numbers[content::kStdError], BpProcedure::Coefficient()));
        statistics.Category(Lookup("Std. Test Statistic"))
            .Cell(BpNumber(numbers[content::kStdTestStatistic], BpProcedure::Coefficient()));
    }
    statistics.Category(Lookup("Sig."))
        .Cell(BpNumber(numbers[content::kSig], BpProcedure::Significance()));
    BpCategory adjusted = statistics.Category(Lookup("Adj. Sig."));
    adjusted.Cell(BpNumber(numbers[content::kAdjSig], BpProcedure::Significance()));
    adjusted.Note(LookupNote(kBonferroniNote));
}

/// False: the table stands without rows.
bool WritePairs(BpPivotTable& table, const NOPROutputStats& stats, const PostHocKind& postHoc,
                const Pairwise& pairwise, const NOPROutput::Messages& messages)
{
    BpDimension samples = MakeDimension(table, kSamples);
    BpDimension statistics = MakeDimension(table, kStatistics);
    const std::vector<Pair> pairs = OrderedPairs(pairwise);
    const PairMessages pairMessages(messages);
    const bool hasStandardError = postHoc.fKind != kind::kMedian;
    for (const Pair& pair : pairs) {
        samples.Category(PairLabel(stats, postHoc, pairwise, pair));
        WriteNumbers(statistics, pair, hasStandardError, pairMessages);
    }
    return !pairs.empty();
}

}  // namespace

void NOPROutput::PairwiseComparisons(BpHeading& heading, const Pairwise& pairwise,
                                     TestKind testKind, const Messages& messages,
                                     const FacSTDictionary* dictionary)
{
    const PostHocKind* postHoc = FindPostHocKind(testKind);
    if (!postHoc) return;

    {
        BpPivotTable table = MakePostHocTable(
            heading, *fStats, postHoc->fPairwiseTitle, "Pairwise Comparisons Table",
            postHoc->fPairwiseCaption, SampleField(*fStats, *postHoc, pairwise));
        if (!WritePairs(table, *fStats, *postHoc, pairwise, messages)) return;
    }  // the table ends, so that the graph stands behind it

    bool appendSplit = false;
    const std::string splitText = fStats->SplitText(appendSplit);
    PairwiseGraph graph(fStats, &pairwise, dictionary);
    graph.Render(splitText, appendSplit);
}
