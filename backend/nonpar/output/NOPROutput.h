#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/NOPRTestRecords.h"

#include "host/pivot/BpCellText.h"

class BpCategory;
class BpDimension;
class BpGroup;
class BpHeading;
class BpProcedure;
class FacSTDictionary;
class PairMessages;
class QORT_DataSource;
struct HypothesisPlace;

/// Whether views are built at a value of the environment variable DEBUG_MODEL_VIEWER; null stands
/// for a variable that is not set.
bool ViewsAreBuilt(const char* debugModelViewer);

/// Everything that one split writes, in its order. It computes nothing and borrows all that it is
/// given. Only `Run` knows what to do without a result; every other operation needs one.
class NOPROutput {
public:
    using Test = NOPROutputStats::BaseHypothesisTest;
    using Condition = NOPROutputStats::ConditionData;
    using Messages = std::vector<NOPROutputStats::WarningMessage>;

    /// `heading` is the split's, or the procedure itself. `stats` may be null: nothing to write.
    NOPROutput(BpProcedure* procedure, BpHeading* heading, const QORT_DataSource* dataSource,
               const NOPROutputStats* stats);

    /// Both summaries, each test with its heading, tables and view, then the views of the fields.
    void Run();

    /// The text of the heading below a test's own; none where the test's fields give none.
    std::optional<BpCellText> TestSubHeading(const Test& test) const;

    // The tables. A summary without a test is not written.
    void HypothesisTestSummary();
    void ConfidenceIntervalSummary();
    void TestDetailTable(BpHeading& heading, const Test& test);

    /// Pairwise comparisons with their graph, or homogeneous subsets; nothing for most tests.
    void PostHocTable(BpHeading& heading, const Test& test, const FacSTDictionary* dictionary);
    void PairwiseComparisons(BpHeading& heading, const NOPROutputStats::PairwiseData& pairwise,
                             TestKind testKind, const Messages& messages,
                             const FacSTDictionary* dictionary);
    void HomogeneousSubsets(BpHeading& heading, const NOPROutputStats::PairwiseData& pairwise,
                            TestKind testKind, const Messages& messages);

    // Cells and rows.

    /// The null hypothesis as a sentence.
    void NullHypothesisCell(BpCategory category, const Test& test) const;

    /// The significance that stands, with its footnotes; for a blocked test the message alone.
    void SignificanceCell(BpCategory category, const Test& test) const;

    /// The columns from "Estimate" on of a row; code 0 stands for no message.
    void IntervalCells(BpDimension& statistics, const NOPROutputStats::IntervalEstimate& estimate,
                       int code) const;

    void StatisticRows(BpGroup& group,
                       const std::vector<NOPROutputStats::NamedValue>& values) const;

    // Notes.

    /// The messages that speak of the test as a whole.
    static void MessageCellNotes(BpCategory category, const Messages& messages);
    static BpAnnotation MessageNote(const NOPROutputStats::WarningMessage& message);

    /// The messages that speak of this pair of samples, or of the subset between two positions.
    static void PairCellNotes(BpCategory category, const PairMessages& messages, int first,
                              int second);

    // What fills a place of a null hypothesis from parameter `p`. As a sublist, all that is added
    // fills one place.

    /// The fields whose indices the parameter holds.
    void AddFieldList(BpComposite& sentence, const Condition& condition, std::size_t p,
                      bool sublist) const;

    /// The numbers of the parameter, as values of a numeric `variable`, which may be null.
    void AddValues(BpComposite& sentence, const Condition& condition, std::size_t p,
                   const QORT_Variable* variable, bool sublist) const;

    /// Values of the field of parameter `p` that parameter `q` names by their indices.
    void AddValueIndices(BpComposite& sentence, const Condition& condition, std::size_t p,
                         std::size_t q, bool sublist) const;

    /// The same; an index that the field doesn't hold takes the next of `texts`.
    void AddValueIndicesAndTexts(BpComposite& sentence, const Condition& condition, std::size_t p,
                                 std::size_t q, const std::vector<std::string>& texts,
                                 bool sublist) const;

private:
    void WriteTest(const Test& test, const FacSTDictionary& dictionary, bool buildViews);
    void DrawTestViews(const Test& test, const FacSTDictionary& dictionary) const;
    void DrawFieldViews(const FacSTDictionary& dictionary) const;

    const QORT_Variable* TestVariable(const Test& test) const;
    void FillPlace(BpComposite& sentence, const Test& test, const QORT_Variable* testVariable,
                   const HypothesisPlace& place) const;
    void AddStandardDeviation(BpComposite& sentence, const Condition& condition, std::size_t p,
                              const QORT_Variable* variable) const;

    double fMissingValue;  // what a cell without a value shows
    BpProcedure* fProcedure;
    BpHeading* fHeading;
    const QORT_DataSource* fDataSource;
    const NOPROutputStats* fStats;
};
