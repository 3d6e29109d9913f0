#pragma once

#include <string>
#include <vector>

#include "model/NOPROutputStats.h"

/// The records of tests: plain data that the reader fills and tables and views read.

/// Parameter N of a condition or of a message. Its numbers are field indices, value indices or
/// plain numbers, as the condition's key has it.
struct NOPROutputStats::ConditionParameter {
    int fIndex = 0;
    std::vector<double> fValues;
};

/// The null hypothesis as key and parameters.
struct NOPROutputStats::ConditionData {
    std::string fConditionKey;
    std::vector<ConditionParameter> fParameters;  ///< in document order
    std::vector<int> fOrdinalFields;
};

struct NOPROutputStats::WarningMessage {
    int fCode = 0;
    MessageType fType = message::kError;
    int fCount = 0;
    std::vector<ConditionParameter> fParameters;
    std::string fGroup;  ///< names the pair or subset of a post-hoc table
};

struct NOPROutputStats::NamedValue {
    std::string fName;
    double fValue = MissingValue;
};

/// A block of named numbers; the test's own top-level numbers have the empty name.
struct NOPROutputStats::StatisticResult {
    std::string fName;
    std::vector<NamedValue> fValues;
};

/// The post-hoc result of a test.
struct NOPROutputStats::PairwiseData {
    ComparisonKind fComparisonKind = comparison::kNone;
    int fFieldIndex = -1;   ///< the field whose values the samples are, where they are values
    NumericTable fInfo;     ///< row 0 sample numbers, row 1 a number for each
    NumericTable fContent;  ///< a row for each pair or subset, seven columns
};

/// One field of a related-samples rank test.
struct NOPROutputStats::RankGroup {
    int fGroupIndex = -1;
    double fMeanOfRank = MissingValue;
    NumericTable fTable;  ///< row 0 bar heights, row 1 bar positions
};

/// One group of a two-sample test.
struct NOPROutputStats::SampleGroup {
    int fGroupIndex = -1;
    int fN = 0;
    double fMeanOfRank = MissingValue;
    NumericTable fTable;  ///< row 0 bar heights, row 1 bar positions
};

struct NOPROutputStats::BoxGroup {
    int fGroupIndex = -1;
    int fN = 0;
    double fMeanOfRank = MissingValue;
    double fGTMedian = MissingValue;
    double fSTMedian = MissingValue;
    NumericTable fBox;       ///< row 0: lower whisker, first quartile, median, third, upper whisker
    NumericTable fOutliers;  ///< row 0 values, row 1 (if there) a label number for each
};

struct NOPROutputStats::BoxPlotData {
    int fGroupFieldIndex = -1;
    int fGroupCount = 0;
    double fGrandMedian = MissingValue;
    std::vector<BoxGroup> fGroups;
};

struct NOPROutputStats::DifferenceCounts {
    int fNegativeDifferences = 0;
    int fTies = 0;
    int fPositiveDifferences = 0;
    NumericTable fTable;  ///< row 0 frequencies, row 1 differences
};

/// Two categorical fields against each other.
struct NOPROutputStats::CategoryComparison {
    int fRowField = -1;
    std::vector<double> fRowSuccessList;
    std::vector<double> fRowFailList;
    std::vector<std::string> fRowValsNotInCategories;
    int fColumnField = -1;
    std::vector<double> fColumnSuccessList;
    std::vector<double> fColumnFailList;
    std::vector<std::string> fColumnValsNotInCategories;
    NumericTable fTable;  ///< the cross table of counts
};

struct NOPROutputStats::IntervalEstimate {
    std::string fMethod;
    double fEstimate = MissingValue;
    double fLower = MissingValue;
    double fUpper = MissingValue;
};

/// One test of one field or field group in one split.
struct NOPROutputStats::BaseHypothesisTest {
    BaseHypothesisTest() = default;
    virtual ~BaseHypothesisTest();
    BaseHypothesisTest(const BaseHypothesisTest&) = delete;
    BaseHypothesisTest& operator=(const BaseHypothesisTest&) = delete;

    /// Fetches a named number from the first block of that name. An empty `valueName` takes the
    /// block's first number; a block without numbers then leaves `out` as it was, and still counts
    /// as found. False: not found, and `out` is unchanged.
    bool GetStatistic(double& out, const std::string& valueName,
                      const std::string& blockName) const;

    SampleKind fSampleKind = 0;
    TestKind fTestKind = 0;
    Decision fDecision = 0;
    ConditionData fCondition;
    std::vector<WarningMessage> fMessages;
    std::vector<StatisticResult> fStatistics;
    std::vector<std::string> fValsNotInCategories;
};

struct NOPROutputStats::HTOChiSquare : BaseHypothesisTest {
    NumericTable fTable;  ///< a row for each category: observed, hypothesized frequency
};

struct NOPROutputStats::HTOBinomial : BaseHypothesisTest {
    NumericTable fTable;  ///< a row for each bar, two columns of percentages
};

struct NOPROutputStats::HTORuns : BaseHypothesisTest {
    double fMean = MissingValue;
    double fStdDev = MissingValue;
    int fObservedRunNumber = 0;
};

struct NOPROutputStats::HTOWilcoxonSignedRanks : BaseHypothesisTest {
    double fHypotheticalMedian = MissingValue;
    double fObservedMedian = MissingValue;
    NumericTable fTable;
};

struct NOPROutputStats::HTOEstimateConfidenceInterval : BaseHypothesisTest {
    std::vector<IntervalEstimate> fIntervals;
};

struct NOPROutputStats::HTOKolmogorovSmirnov : BaseHypothesisTest {
    bool fIsUseSample = false;
    bool fHasLowerBoundSig = false;
};

struct NOPROutputStats::HTRSign : BaseHypothesisTest {
    DifferenceCounts fCounts;
};

struct NOPROutputStats::HTRWilcoxonSignedRanks : BaseHypothesisTest {
    DifferenceCounts fCounts;
};

struct NOPROutputStats::HTRCochransQ : BaseHypothesisTest {
    NumericTable fTable;  ///< a row for each field, a column for each category, percentages
    PairwiseData fPairwise;
};

struct NOPROutputStats::HTRMcNemar : BaseHypothesisTest {
    CategoryComparison fComparison;
};

struct NOPROutputStats::HTRFriedmansTwoWayByRanks : BaseHypothesisTest {
    std::vector<RankGroup> fGroups;
    PairwiseData fPairwise;
};

struct NOPROutputStats::HTRKendallsCoefficient : BaseHypothesisTest {
    std::vector<RankGroup> fGroups;
    PairwiseData fPairwise;
};

struct NOPROutputStats::HTRMarginalHomogeneity : BaseHypothesisTest {
    CategoryComparison fComparison;
};

struct NOPROutputStats::HTRHodgesLehmannEstimatePairs : BaseHypothesisTest {
    IntervalEstimate fInterval;
};

struct NOPROutputStats::HTIHodgesLehmannEstimateGroups : BaseHypothesisTest {
    IntervalEstimate fInterval;
};

struct NOPROutputStats::HTIMoses : BaseHypothesisTest {
    BoxPlotData fBoxPlot;
};

struct NOPROutputStats::HTIMannWhitneyU : BaseHypothesisTest {
    std::vector<SampleGroup> fGroups;
};

struct NOPROutputStats::HTIWaldWolfowitzRuns : BaseHypothesisTest {
    std::vector<SampleGroup> fGroups;
};

struct NOPROutputStats::HTIKolmogorovSmirnov : BaseHypothesisTest {
    std::vector<SampleGroup> fGroups;
};

struct NOPROutputStats::HTIKruskalWallis : BaseHypothesisTest {
    BoxPlotData fBoxPlot;
    PairwiseData fPairwise;
};

struct NOPROutputStats::HTIJonckheereTerpstra : BaseHypothesisTest {
    BoxPlotData fBoxPlot;
    PairwiseData fPairwise;
};

struct NOPROutputStats::HTIMedian : BaseHypothesisTest {
    BoxPlotData fBoxPlot;
    PairwiseData fPairwise;
};
