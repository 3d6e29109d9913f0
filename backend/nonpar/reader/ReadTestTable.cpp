#include <string>
#include <string_view>

#include "reader/ReaderState.h"
#include "reader/ReaderSteps.h"
#include "reader/TestReaders.h"

#include "model/RecordOf.h"

#include "host/framework/SDOMXMLWrapper.h"

namespace {

using Stats = NOPROutputStats;
using Test = Stats::BaseHypothesisTest;

/// How the name of a table selects its reader; with `Any` the reader checks the name itself.
enum class NameTest { Equals, Contains, Any };

struct TestTableRow {
    TestKind fKind;
    NameTest fNameTest;
    std::string_view fName;
    bool (*fRead)(const SDOMXMLWrapper& element, Test& test);
};

/// Reads into the whole record of a test.
template <class Record, bool (*kRead)(const SDOMXMLWrapper&, Record&)>
bool Whole(const SDOMXMLWrapper& element, Test& test)
{
    Record* record = RecordOf<Record>(&test);
    return record && kRead(element, *record);
}

/// Reads into one field of the record.
template <class Record, auto kField, auto kRead>
bool Into(const SDOMXMLWrapper& element, Test& test)
{
    Record* record = RecordOf<Record>(&test);
    return record && kRead(element, record->*kField);
}

/// Reads into a new entry at the end of a list of the record.
template <class Record, auto kList, auto kRead>
bool Append(const SDOMXMLWrapper& element, Test& test)
{
    Record* record = RecordOf<Record>(&test);
    return record && kRead(element, (record->*kList).emplace_back());
}

template <class Record>
constexpr auto kTable = &Into<Record, &Record::fTable, &ReadTwoClassComparison>;
template <class Record>
constexpr auto kCounts = &Into<Record, &Record::fCounts, &ReadDifferenceCounts>;
template <class Record>
constexpr auto kComparison = &Into<Record, &Record::fComparison, &ReadCategoryComparison>;
template <class Record>
constexpr auto kBoxPlot = &Into<Record, &Record::fBoxPlot, &ReadBoxPlot>;
template <class Record>
constexpr auto kPostHoc = &Into<Record, &Record::fPairwise, &ReadPostHoc>;
template <class Record>
constexpr auto kRankGroup = &Append<Record, &Record::fGroups, &ReadRankGroup>;
template <class Record>
constexpr auto kSampleGroup = &Append<Record, &Record::fGroups, &ReadSampleGroup>;

bool TakeNothing(const SDOMXMLWrapper&, Test&) { return true; }

// clang-format off
constexpr TestTableRow kTestTables[] = {
    { 1, NameTest::Equals,   "TwoClassComparison",  kTable<Stats::HTOChiSquare>},
    { 2, NameTest::Equals,   "TwoClassComparison",  kTable<Stats::HTOBinomial>},
    { 3, NameTest::Equals,   "RunsParameters",      &Whole<Stats::HTORuns, &ReadRuns>},
    { 4, NameTest::Any,      "",                    &Whole<Stats::HTOWilcoxonSignedRanks, &ReadOneSampleMedian>},
    { 5, NameTest::Equals,   "ClopperPearson",      &Whole<Stats::HTOEstimateConfidenceInterval, &ReadInterval>},
    { 5, NameTest::Equals,   "Jeffreys",            &Whole<Stats::HTOEstimateConfidenceInterval, &ReadInterval>},
    { 5, NameTest::Equals,   "ProfileLikelihood",   &Whole<Stats::HTOEstimateConfidenceInterval, &ReadInterval>},
    { 6, NameTest::Any,      "",                    &TakeNothing},
    {11, NameTest::Any,      "",                    kCounts<Stats::HTRSign>},
    {12, NameTest::Any,      "",                    kCounts<Stats::HTRWilcoxonSignedRanks>},
    {13, NameTest::Equals,   "TwoClassComparison",  kTable<Stats::HTRCochransQ>},
    {13, NameTest::Equals,   "PairwiseResult",      kPostHoc<Stats::HTRCochransQ>},
    {13, NameTest::Equals,   "StepwiseResult",      kPostHoc<Stats::HTRCochransQ>},
    {14, NameTest::Any,      "",                    kComparison<Stats::HTRMcNemar>},
    {15, NameTest::Contains, "VariableInformation", kRankGroup<Stats::HTRFriedmansTwoWayByRanks>},
    {15, NameTest::Equals,   "PairwiseResult",      kPostHoc<Stats::HTRFriedmansTwoWayByRanks>},
    {15, NameTest::Equals,   "StepwiseResult",      kPostHoc<Stats::HTRFriedmansTwoWayByRanks>},
    {16, NameTest::Contains, "VariableInformation", kRankGroup<Stats::HTRKendallsCoefficient>},
    {16, NameTest::Equals,   "PairwiseResult",      kPostHoc<Stats::HTRKendallsCoefficient>},
    {16, NameTest::Equals,   "StepwiseResult",      kPostHoc<Stats::HTRKendallsCoefficient>},
    {17, NameTest::Any,      "",                    kComparison<Stats::HTRMarginalHomogeneity>},
    {20, NameTest::Equals,   "BoxPlotInfo",         kBoxPlot<Stats::HTIMoses>},
    {21, NameTest::Contains, "Group",               kSampleGroup<Stats::HTIMannWhitneyU>},
    {22, NameTest::Contains, "Group",               kSampleGroup<Stats::HTIWaldWolfowitzRuns>},
    {23, NameTest::Contains, "Group",               kSampleGroup<Stats::HTIKolmogorovSmirnov>},
    {24, NameTest::Equals,   "BoxPlotInfo",         kBoxPlot<Stats::HTIKruskalWallis>},
    {24, NameTest::Equals,   "PairwiseResult",      kPostHoc<Stats::HTIKruskalWallis>},
    {24, NameTest::Equals,   "StepwiseResult",      kPostHoc<Stats::HTIKruskalWallis>},
    {25, NameTest::Equals,   "BoxPlotInfo",         kBoxPlot<Stats::HTIJonckheereTerpstra>},
    {25, NameTest::Equals,   "PairwiseResult",      kPostHoc<Stats::HTIJonckheereTerpstra>},
    {25, NameTest::Equals,   "StepwiseResult",      kPostHoc<Stats::HTIJonckheereTerpstra>},
    {26, NameTest::Equals,   "BoxPlotInfo",         kBoxPlot<Stats::HTIMedian>},
    {26, NameTest::Equals,   "PairwiseResult",      kPostHoc<Stats::HTIMedian>},
    {26, NameTest::Equals,   "StepwiseResult",      kPostHoc<Stats::HTIMedian>},
};
// clang-format on

bool Selects(const TestTableRow& row, const std::string& name)
{
    switch (row.fNameTest) {
        case NameTest::Equals:
            return name == row.fName;
        case NameTest::Contains:
            return name.find(row.fName) != std::string::npos;
        default:
            return true;
    }
}

/// The Hodges-Lehmann intervals have no table of their own: they stand in two blocks of numbers.
void IntervalFromStatistics(const std::vector<Stats::StatisticResult>& statistics,
                            Stats::IntervalEstimate& interval)
{
    if (statistics.size() != 2) return;
    const Stats::StatisticResult& own = statistics[0];
    const Stats::StatisticResult& bounds = statistics[1];
    if (!own.fName.empty() || bounds.fName != "Asymptotic") return;

    if (!own.fValues.empty() && own.fValues.front().fName == "Estimate")
        interval.fEstimate = own.fValues.front().fValue;
    if (bounds.fValues.size() == 2) {
        interval.fLower = bounds.fValues[0].fValue;
        interval.fUpper = bounds.fValues[1].fValue;
    }
}

}  // namespace

bool ReadTestTable(const SDOMXMLWrapper& element, NOPROutputStats::BaseHypothesisTest& test)
{
    std::string name;
    const bool hasName = element.GetAttribute("name", name);
    bool hasTables = false;
    for (const TestTableRow& row : kTestTables) {
        if (row.fKind != test.fTestKind) continue;
        if (Selects(row, name)) return row.fRead(element, test);
        hasTables = true;
    }
    if (hasTables && !hasName) return false;
    ReportNotParsed(hasTables ? name : element.GetName());
    return true;
}

void FinishTest(const ReaderState& state, NOPROutputStats::BaseHypothesisTest& test)
{
    if (auto* distribution = RecordOf<Stats::HTOKolmogorovSmirnov>(&test)) {
        distribution->fIsUseSample = state.fIsUseSample;
        distribution->fHasLowerBoundSig = state.fHasLowerBoundSig;
    } else if (auto* pairs = RecordOf<Stats::HTRHodgesLehmannEstimatePairs>(&test)) {
        IntervalFromStatistics(pairs->fStatistics, pairs->fInterval);
    } else if (auto* groups = RecordOf<Stats::HTIHodgesLehmannEstimateGroups>(&test)) {
        IntervalFromStatistics(groups->fStatistics, groups->fInterval);
    }
}
