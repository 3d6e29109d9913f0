#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/NOPRTestRecords.h"

#include "host/pivot/BpCellText.h"
#include "host/pivot/BpPivotTable.h"

class BpHeading;

/// What the two forms of a post-hoc result share.

/// A kind of test with a post-hoc result, and its words in both forms.
struct PostHocKind {
    TestKind fKind;
    bool fSamplesAreValues;  ///< of the post-hoc field; otherwise samples are fields
    const NOPROutputStats::PairwiseData* (*fPairwise)(const NOPROutputStats::BaseHypothesisTest&);
    const char* fPairwiseTitle;
    const char* fPairwiseCaption;
    const char* fSubsetsTitle;
    const char* fSampleNote;  ///< what the cells of subsets show
};

/// Null for a kind without a post-hoc result.
const PostHocKind* FindPostHocKind(TestKind testKind);

/// The columns of `fContent`, by position.
namespace content {
inline constexpr std::size_t kFirst = 0;
inline constexpr std::size_t kSecond = 1;
inline constexpr std::size_t kTestStatistic = 2;
inline constexpr std::size_t kStdError = 3;
inline constexpr std::size_t kStdTestStatistic = 4;
inline constexpr std::size_t kSig = 5;
inline constexpr std::size_t kAdjSig = 6;
inline constexpr std::size_t kColumns = 7;
}  // namespace content

/// A table of post-hoc results with title, widths, caption and split dimensions. ^1 of the title is
/// the field whose values the samples are, ^1 of the caption the significance level.
BpPivotTable MakePostHocTable(BpHeading& heading, const NOPROutputStats& stats,
                              const std::string& title, const std::string& subtype,
                              const std::string& caption, const QORT_Variable* field);

/// A text whose ^1 names a field; the place stays open where there is none.
BpComposite TextOfField(const std::string& key, const QORT_Variable* field);

/// The field whose values the samples are; null where samples are fields or the host has none.
const QORT_Variable* SampleField(const NOPROutputStats& stats, const PostHocKind& postHoc,
                                 const NOPROutputStats::PairwiseData& pairwise);

/// The text of a sample; none where the result knows no such field or value.
std::optional<BpCellText> SampleText(const NOPROutputStats& stats, const PostHocKind& postHoc,
                                     const NOPROutputStats::PairwiseData& pairwise, int sample);

/// The messages that speak of pairs or subsets, by the text that names these.
class PairMessages {
public:
    explicit PairMessages(const std::vector<NOPROutputStats::WarningMessage>& messages);

    /// Codes of the messages of one pair or subset, in their order.
    std::span<const int> CodesOf(int first, int second) const;

private:
    std::unordered_map<std::string, std::vector<int>> fCodes;
};
