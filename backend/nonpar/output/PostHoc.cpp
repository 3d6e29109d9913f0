#include "output/PostHoc.h"

#include <algorithm>

#include "output/NOPROutput.h"
#include "output/TableParts.h"

#include "model/RecordOf.h"
#include "model/TestQueries.h"

#include "host/framework/Conversions.h"
#include "host/pivot/BpHeading.h"
#include "host/pivot/BpProcedure.h"

namespace {

using Pairwise = NOPROutputStats::PairwiseData;
using Test = NOPROutputStats::BaseHypothesisTest;

constexpr ColumnWidths kWidths{60, 100};

template <class Record>
const Pairwise* PairwiseOf(const Test& test)
{
    const auto* record = RecordOf<Record>(&test);
    return record ? &record->fPairwise : nullptr;
}

constexpr bool kFields = false;
constexpr bool kValues = true;

constexpr char kPairs[] = "Pairwise Comparisons";
constexpr char kPairsOfField[] = "Pairwise Comparisons of ^1";
constexpr char kCaption[] = "PairwiseComparisonsTableCaptionCFKKM^1";
constexpr char kCaptionJ[] = "PairwiseComparisonsTableCaptionJ^1";
constexpr char kSubsets[] = "Homogeneous Subsets";
constexpr char kSubsetsOfField[] = "Homogeneous Subsets based on ^1";
constexpr char kSuccesses[] = "Each cell shows the sample number of successes.";
constexpr char kRank[] = "Each cell shows the sample average rank.";
constexpr char kRankOfField[] = "Each cell shows the sample average rank of ^1.";
constexpr char kMedianOfField[] = "Each cell shows the sample median ^1.";

// clang-format off
constexpr PostHocKind kPostHocKinds[] = {
    {kind::kCochran,  kFields, PairwiseOf<NOPROutputStats::HTRCochransQ>,
     kPairs,        kCaption,  kSubsets,        kSuccesses},
    {kind::kFriedman, kFields, PairwiseOf<NOPROutputStats::HTRFriedmansTwoWayByRanks>,
     kPairs,        kCaption,  kSubsets,        kRank},
    {kind::kKendall,  kFields, PairwiseOf<NOPROutputStats::HTRKendallsCoefficient>,
     kPairs,        kCaption,  kSubsets,        kRank},
    {kind::kKruskalWallis,      kValues, PairwiseOf<NOPROutputStats::HTIKruskalWallis>,
     kPairsOfField, kCaption,  kSubsetsOfField, kRankOfField},
    {kind::kJonckheereTerpstra, kValues, PairwiseOf<NOPROutputStats::HTIJonckheereTerpstra>,
     kPairsOfField, kCaptionJ, kSubsetsOfField, kRankOfField},
    {kind::kMedian,             kValues, PairwiseOf<NOPROutputStats::HTIMedian>,
     kPairsOfField, kCaption,  kSubsetsOfField, kMedianOfField},
};
// clang-format on

std::string NameOfPair(int first, int second)
{
    return Integer2String(first) + ";" + Integer2String(second);
}

}  // namespace

const PostHocKind* FindPostHocKind(TestKind testKind)
{
    const auto* row = std::ranges::find(kPostHocKinds, testKind, &PostHocKind::fKind);
    return row == std::end(kPostHocKinds) ? nullptr : row;
}

BpPivotTable MakePostHocTable(BpHeading& heading, const NOPROutputStats& stats,
                              const std::string& title, const std::string& subtype,
                              const std::string& caption, const QORT_Variable* field)
{
    BpPivotTable table = MakeTable(heading, TextOfField(title, field), subtype, kWidths);
    BpComposite captionText(caption, kLookup);
    captionText.Add(BpNumber(stats.GetSigLevel(), BpProcedure::Proportion()));
    captionText.Finish();
    table.Caption(captionText);
    stats.SplitDimensions(table);
    return table;
}

BpComposite TextOfField(const std::string& key, const QORT_Variable* field)
{
    BpComposite text(key, kLookup);
    if (field) text.Add(BpVariable(field, Show::Preferred));
    text.Finish();
    return text;
}

const QORT_Variable* SampleField(const NOPROutputStats& stats, const PostHocKind& postHoc,
                                 const Pairwise& pairwise)
{
    return postHoc.fSamplesAreValues ? stats.FieldVariable(pairwise.fFieldIndex) : nullptr;
}

std::optional<BpCellText> SampleText(const NOPROutputStats& stats, const PostHocKind& postHoc,
                                     const Pairwise& pairwise, int sample)
{
    if (postHoc.fSamplesAreValues) {
        const QORT_Variable* variable = stats.FieldVariable(pairwise.fFieldIndex);
        const CFStatVariableValue* value = stats.FieldValueAt(pairwise.fFieldIndex, sample);
        if (!variable || !value) return std::nullopt;
        return BpDataValue(variable, value->GetObsValue(), Preference::Preferred);
    }
    const QORT_Variable* variable = stats.FieldVariable(sample);
    if (!variable) return std::nullopt;
    return BpVariable(variable, Show::Preferred);
}

PairMessages::PairMessages(const std::vector<NOPROutputStats::WarningMessage>& messages)
{
    for (const auto& message : messages) {
        if (IsPairMessage(message.fCode)) fCodes[message.fGroup].push_back(message.fCode);
    }
}

std::span<const int> PairMessages::CodesOf(int first, int second) const
{
    if (fCodes.empty()) return {};
    const auto codes = fCodes.find(NameOfPair(first, second));
    if (codes == fCodes.end()) return {};
    return codes->second;
}

void NOPROutput::PairCellNotes(BpCategory category, const PairMessages& messages, int first,
                               int second)
{
    for (const int code : messages.CodesOf(first, second))
        category.CellNote(LookupNote(Integer2String(code)));
}

void NOPROutput::PostHocTable(BpHeading& heading, const Test& test,
                              const FacSTDictionary* dictionary)
{
    const PostHocKind* postHoc = FindPostHocKind(test.fTestKind);
    if (!postHoc) return;
    const Pairwise* pairwise = postHoc->fPairwise(test);
    if (!pairwise) return;

    if (pairwise->fComparisonKind == comparison::kPairwise)
        PairwiseComparisons(heading, *pairwise, test.fTestKind, test.fMessages, dictionary);
    else if (pairwise->fComparisonKind == comparison::kStepwise)
        HomogeneousSubsets(heading, *pairwise, test.fTestKind, test.fMessages);
}
