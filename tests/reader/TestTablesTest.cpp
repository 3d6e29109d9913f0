#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Stats = NOPROutputStats;

Reading Read(std::string_view algorithm, const Children& tables)
{
    return Reading(DocumentBuilder().AddTest(Algorithm(algorithm, "retain", tables)).Text());
}

Element Numbers(std::string_view name, const Rows& rows = {{1, 2}, {3, 4}})
{
    return SimpleTable(name, "r0 r1", "c0 c1", rows);
}

TEST(ReadTestTable, ReportsTablesThatItsKindDoesNotKnow)
{
    struct Row {
        const char* algorithm;
        std::vector<std::string> reports;
        const char* why;
    };
    const std::string byName = "Not parse element: Other";
    // clang-format off
    const Row rows[] = {
        {"OChiSquare", {byName}, ""}, {"OBinomial", {byName}, ""}, {"ORuns", {byName}, ""},
        {"OWilcoxonSignedRanks", {byName}, "after the table was read"},
        {"OEstimateConfidenceInterval", {byName}, ""},
        {"OKolmogorovSmirnov", {}, "takes nothing from any table, and says so to nobody"},
        {"RSign", {byName}, ""}, {"RWilcoxonSignedRanks", {byName}, ""}, {"RCochransQ", {byName}, ""},
        {"RMcNemar", {byName}, ""}, {"RFriedmansTwoWayByRanks", {byName}, ""},
        {"RKendallsCoefficient", {byName}, ""}, {"RMarginalHomogeneity", {byName}, ""},
        {"RHodgesLehmannEstimatePairs", {"Not parse element: StructuredTable"}, "by its tag, not its name"},
        {"IHodgesLehmannEstimateGroups", {"Not parse element: StructuredTable"}, "by its tag, not its name"},
        {"IMoses", {byName}, ""}, {"IMannWhitneyU", {byName}, ""}, {"IWaldWolfowitzRuns", {byName}, ""},
        {"IKolmogorovSmirnov", {byName}, ""}, {"IKruskalWallis", {byName}, ""},
        {"IJonckheereTerpstra", {byName}, ""}, {"IMedian", {byName}, ""},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.algorithm) + " " + row.why);
        const Reading reading = Read(row.algorithm, {StructuredTable("Other")});
        EXPECT_TRUE(reading.fRead);
        EXPECT_EQ(reading.fReports, row.reports);
    }
}

TEST(ReadTestTable, FailsOnANamelessTableWhereNamesCount)
{
    struct Row {
        const char* algorithm;
        bool read;
    };
    for (const Row& row :
         {Row{"OChiSquare", false}, Row{"OWilcoxonSignedRanks", false}, Row{"RMcNemar", false},
          Row{"IMannWhitneyU", false}, Row{"IMedian", false}, Row{"OKolmogorovSmirnov", true},
          Row{"RHodgesLehmannEstimatePairs", true}}) {
        SCOPED_TRACE(row.algorithm);
        EXPECT_EQ(Read(row.algorithm, {Element("StructuredTable")}).fRead, row.read);
    }
}

TEST(ReadTestTable, LooksIntoUnknownTablesOnlyWhereTheReaderChecksTheName)
{
    const Element malformed = StructuredTable("Other", {Element("Attribute")});
    for (const char* algorithm : {"OWilcoxonSignedRanks", "RSign", "RWilcoxonSignedRanks",
                                  "RMcNemar", "RMarginalHomogeneity"})
        EXPECT_FALSE(Read(algorithm, {malformed}).fRead) << algorithm;
    for (const char* algorithm :
         {"OChiSquare", "ORuns", "OEstimateConfidenceInterval", "RCochransQ", "IMoses", "IMedian",
          "IMannWhitneyU", "RFriedmansTwoWayByRanks"})
        EXPECT_TRUE(Read(algorithm, {malformed}).fRead) << algorithm;
}

/// What each kind needs in its table, and a table that lacks it.
TEST(ReadTestTable, FailsWhereARequiredPartIsMissing)
{
    const Element bounds = StructuredTable("b", {Attribute("Lower", 1.0)});
    struct Row {
        const char* algorithm;
        Element table;
        bool read;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"OChiSquare", StructuredTable("TwoClassComparison"), false, "no table"},
        {"OChiSquare", StructuredTable("TwoClassComparison", {Numbers("a"), Element("SimpleTable")}), true, "only the first is read"},
        {"OBinomial", StructuredTable("TwoClassComparison", {Element("SimpleTable")}), false, "a nameless table"},
        {"RCochransQ", StructuredTable("TwoClassComparison"), false, "no table"},
        {"ORuns", StructuredTable("RunsParameters"), true, "nothing to read"},
        {"OWilcoxonSignedRanks", StructuredTable("ContinuousDistribution"), false, "no table"},
        {"OWilcoxonSignedRanks", StructuredTable("ContinuousDistribution", {Numbers("a"), Numbers("b")}), false, "two tables"},
        {"RSign", StructuredTable("ContinuousDistribution"), false, "no table"},
        {"RMcNemar", StructuredTable("CategoryFieldsComparison"), false, "no table"},
        {"RMcNemar", StructuredTable("CategoryFieldsComparison", {Numbers("a"), Numbers("b")}), false, "two tables"},
        {"RFriedmansTwoWayByRanks", StructuredTable("VariableInformation0"), false, "no table"},
        {"RFriedmansTwoWayByRanks", StructuredTable("PairwiseResult"), true, "all of it may be missing"},
        {"RFriedmansTwoWayByRanks", StructuredTable("PairwiseResult", {Element("SimpleTable")}), false, "a nameless table"},
        {"IKolmogorovSmirnov", StructuredTable("Group"), false, "no table"},
        {"OEstimateConfidenceInterval", StructuredTable("Jeffreys"), false, "no bounds"},
        {"OEstimateConfidenceInterval", StructuredTable("Jeffreys", {bounds}), true, "bounds"},
        {"OEstimateConfidenceInterval", StructuredTable("Jeffreys", {bounds, bounds}), false, "twice bounds"},
        {"IMoses", StructuredTable("BoxPlotInfo"), true, "no groups"},
        {"IMoses", StructuredTable("BoxPlotInfo", {Element("SimpleTable")}), false, "a nameless table"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.algorithm) + ": " + row.why);
        EXPECT_EQ(Read(row.algorithm, {row.table}).fRead, row.read);
    }
}

TEST(ReadTwoClassComparison, FillsTheTableOfItsKind)
{
    const Element table = StructuredTable("TwoClassComparison", {Numbers("Content")});
    const Reading chiSquare = Read("OChiSquare", {table});
    const Reading binomial = Read("OBinomial", {table});
    const Reading cochran = Read("RCochransQ", {table});
    for (const NumericTable* read : {&chiSquare.First<Stats::HTOChiSquare>()->fTable,
                                     &binomial.First<Stats::HTOBinomial>()->fTable,
                                     &cochran.First<Stats::HTRCochransQ>()->fTable}) {
        EXPECT_EQ(read->fName, "Content");
        EXPECT_THAT(read->fRowNames, ElementsAre("r0", "r1"));
        EXPECT_THAT(read->fRows, ElementsAre(ElementsAre(1, 2), ElementsAre(3, 4)));
    }
    EXPECT_EQ(cochran.First<Stats::HTRCochransQ>()->fPairwise.fComparisonKind, comparison::kNone);
    EXPECT_EQ(cochran.First<Stats::HTRCochransQ>()->fPairwise.fFieldIndex, -1);
}

TEST(ReadRuns, CutsTheNumberOfRuns)
{
    const Reading reading = Read(
        "ORuns", {StructuredTable("RunsParameters",
                                  {Attribute("Mean", "16.5"), Attribute("StdDev", "two"),
                                   Attribute("ObservedRunNumber", "6.9"), Attribute("Mode", "3"),
                                   Element("Attribute"), Element("SimpleTable")})});
    ASSERT_TRUE(reading.fRead) << "its other children are passed over unchecked";
    const auto& test = *reading.First<Stats::HTORuns>();
    EXPECT_EQ(test.fMean, 16.5);
    EXPECT_TRUE(IsMissing(test.fStdDev));
    EXPECT_EQ(test.fObservedRunNumber, 6);
    EXPECT_THAT(reading.fReports, ElementsAre("Not parse element: Mode", "Not parse element: "));

    const Reading huge =
        Read("ORuns", {StructuredTable("RunsParameters", {Attribute("ObservedRunNumber", 1e300)})});
    EXPECT_EQ(huge.First<Stats::HTORuns>()->fObservedRunNumber, std::numeric_limits<int>::max());
}

TEST(ReadOneSampleMedian, TakesBothMediansAndTheTable)
{
    const Reading reading =
        Read("OWilcoxonSignedRanks",
             {StructuredTable("ContinuousDistribution",
                              {Attribute("HypotheticalMedian", "7"), Numbers("Interval"),
                               Attribute("Median", "9"), Attribute("ObservedMedian", "8.5")})});
    const auto& test = *reading.First<Stats::HTOWilcoxonSignedRanks>();
    EXPECT_EQ(test.fHypotheticalMedian, 7);
    EXPECT_EQ(test.fObservedMedian, 8.5);
    EXPECT_THAT(test.fTable.fRows, SizeIs(2));
    EXPECT_THAT(reading.fReports, ElementsAre("Not parse element: Median"));
}

TEST(ReadInterval, AppendsOneIntervalForEachMethod)
{
    const auto method = [](const char* name) {
        return StructuredTable(
            name, {Attribute("computeECIMethod", name), Attribute("Estimate", 0.5),
                   Attribute("Level", "3"),
                   StructuredTable("any name", {Attribute("Lower", 0.25), Attribute("Upper", 0.75),
                                                Attribute("Middle", "told by its value")})});
    };
    const Reading reading =
        Read("OEstimateConfidenceInterval", {method("ClopperPearson"), method("Jeffreys"),
                                             method("ProfileLikelihood"), method("Wilson")});
    ASSERT_TRUE(reading.fRead);
    const auto& intervals = reading.First<Stats::HTOEstimateConfidenceInterval>()->fIntervals;
    ASSERT_THAT(intervals, SizeIs(3));
    EXPECT_EQ(intervals[1].fMethod, "Jeffreys");
    EXPECT_EQ(intervals[1].fEstimate, 0.5);
    EXPECT_EQ(intervals[1].fLower, 0.25);
    EXPECT_EQ(intervals[1].fUpper, 0.75);
    const std::string name = "Not parse element: Level";
    const std::string value = "Not parse element: told by its value";
    EXPECT_THAT(reading.fReports,
                ElementsAre(name, value, name, value, name, value, "Not parse element: Wilson"));
}

TEST(ReadDifferenceCounts, TakesCountsAndTable)
{
    const Reading reading =
        Read("RWilcoxonSignedRanks",
             {StructuredTable("ContinuousDistribution",
                              {Attribute("NegativeDifferences", "3"), Attribute("Ties", "1"),
                               Attribute("PositiveDifferences", "2"), Numbers("Interval")})});
    const auto& counts = reading.First<Stats::HTRWilcoxonSignedRanks>()->fCounts;
    EXPECT_EQ(counts.fNegativeDifferences, 3);
    EXPECT_EQ(counts.fTies, 1);
    EXPECT_EQ(counts.fPositiveDifferences, 2);
    EXPECT_THAT(counts.fTable.fRows, SizeIs(2));
    EXPECT_THAT(reading.fReports, IsEmpty());
}

TEST(ReadCategoryComparison, TakesListsTableAndTheValuesOutside)
{
    const auto outside = [](const char* name, const char* value) {
        return StructuredTable(name, {Attribute("Value0", value), Attribute("Value1", "")});
    };
    const Reading reading =
        Read("RMcNemar",
             {StructuredTable("CategoryFieldsComparison",
                              {Attribute("RowNames", "3"), Attribute("ColumnNames", "4"),
                               Attribute("RowSuccessList", "0 __MISSING__"),
                               Attribute("RowFailList", "1"), Attribute("ColumnSuccessList", "2"),
                               Attribute("ColumnFailList", ""), Attribute("Kind", "1"),
                               Numbers("cross"), outside("RowValsNotInTheCategoreis", "replaced"),
                               outside("RowValsNotInTheCategoreis", "row"),
                               outside("ColValsNotInTheCategoreis", "column"),
                               outside("Further", "passed over")})});
    ASSERT_TRUE(reading.fRead);
    const auto& comparison = reading.First<Stats::HTRMcNemar>()->fComparison;
    EXPECT_EQ(comparison.fRowField, 3);
    EXPECT_EQ(comparison.fColumnField, 4);
    EXPECT_THAT(comparison.fRowSuccessList, ElementsAre(0, MissingValue));
    EXPECT_THAT(comparison.fRowFailList, ElementsAre(1));
    EXPECT_THAT(comparison.fColumnSuccessList, ElementsAre(2));
    EXPECT_THAT(comparison.fColumnFailList, IsEmpty());
    EXPECT_THAT(comparison.fTable.fColumnNames, ElementsAre("c0", "c1"))
        << "the lists of the table, not the attributes of those names";
    EXPECT_THAT(comparison.fRowValsNotInCategories, ElementsAre("row", ""));
    EXPECT_THAT(comparison.fColumnValsNotInCategories, ElementsAre("column", ""));
    EXPECT_THAT(reading.fReports, ElementsAre("Not parse element: Kind"));
}

TEST(ReadRankGroup, TakesEachTableWhoseNameHoldsTheMark)
{
    const auto group = [](const char* name, double index) {
        return StructuredTable(name, {Attribute("GroupIndex", index), Attribute("MeanOfRank", 1.5),
                                      Attribute("N", 3.0), Numbers("bars")});
    };
    const Reading reading = Read("RFriedmansTwoWayByRanks", {group("VariableInformation7", 4),
                                                             group("The VariableInformation", 2),
                                                             group("variableinformation", 9)});
    const auto& groups = reading.First<Stats::HTRFriedmansTwoWayByRanks>()->fGroups;
    ASSERT_THAT(groups, SizeIs(2));
    EXPECT_EQ(groups[0].fGroupIndex, 4) << "from the attribute, not the place";
    EXPECT_EQ(groups[1].fGroupIndex, 2);
    EXPECT_EQ(groups[1].fMeanOfRank, 1.5);
    EXPECT_THAT(groups[1].fTable.fRows, SizeIs(2));
    EXPECT_THAT(reading.fReports, ElementsAre("Not parse element: N", "Not parse element: N",
                                              "Not parse element: variableinformation"));
}

TEST(ReadSampleGroup, TakesEachTableWhoseNameHoldsTheMark)
{
    const auto group = [](const char* name, double index) {
        return StructuredTable(name, {Attribute("GroupIndex", index), Attribute("N", 12.0),
                                      Attribute("MeanOfRank", 6.5), Numbers("bars")});
    };
    for (const char* algorithm : {"IMannWhitneyU", "IWaldWolfowitzRuns", "IKolmogorovSmirnov"}) {
        SCOPED_TRACE(algorithm);
        const Reading reading = Read(algorithm, {group("aGroupb", 1), group("Group", 0)});
        ASSERT_TRUE(reading.fRead);
        const std::vector<Stats::SampleGroup>* groups = nullptr;
        if (const auto* test = reading.First<Stats::HTIMannWhitneyU>()) groups = &test->fGroups;
        if (const auto* test = reading.First<Stats::HTIWaldWolfowitzRuns>())
            groups = &test->fGroups;
        if (const auto* test = reading.First<Stats::HTIKolmogorovSmirnov>())
            groups = &test->fGroups;
        ASSERT_NE(groups, nullptr);
        ASSERT_THAT(*groups, SizeIs(2));
        EXPECT_EQ((*groups)[0].fGroupIndex, 1);
        EXPECT_EQ((*groups)[0].fN, 12);
        EXPECT_EQ((*groups)[1].fMeanOfRank, 6.5);
    }
}

TEST(ReadPostHoc, TellsTheComparisonByTheTableInside)
{
    struct Row {
        Element table;
        ComparisonKind expected;
        int field;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {StructuredTable("PairwiseResult", {Numbers("PairwiseInfo")}), comparison::kPairwise, -1, "pairs"},
        {StructuredTable("PairwiseResult", {Numbers("PairwiseInfo"), Numbers("Content")}), comparison::kPairwise, -1, "the content behind it tells nothing"},
        {StructuredTable("PairwiseResult", {Numbers("StepwiseInfo")}), comparison::kStepwise, -1, "not by its own name"},
        {StructuredTable("StepwiseResult", {Numbers("Content"), Numbers("PairwiseInfo"), Numbers("Info")}), comparison::kPairwise, -1, "in any order"},
        {StructuredTable("PairwiseResult", {Numbers("Content")}), comparison::kNone, -1, "no info"},
        {StructuredTable("PairwiseResult", {Attribute("fieldIndex", 2.9)}), comparison::kNone, 2, "the index is cut"},
        {StructuredTable("PairwiseResult", {Attribute("other", 1.0), Attribute("fieldIndex", 2.0)}), comparison::kNone, -1, "only the first attribute"},
        {StructuredTable("PairwiseResult", {Element("Attribute"), Attribute("fieldIndex", 2.0)}), comparison::kNone, -1, "a nameless first attribute"},
        {StructuredTable("PairwiseResult", {Attribute("fieldIndex", "x")}), comparison::kNone, std::numeric_limits<int>::min(), "no number is the missing one"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        const Reading reading = Read("IMedian", {row.table});
        ASSERT_TRUE(reading.fRead);
        EXPECT_EQ(reading.First<Stats::HTIMedian>()->fPairwise.fComparisonKind, row.expected);
        EXPECT_EQ(reading.First<Stats::HTIMedian>()->fPairwise.fFieldIndex, row.field);
        EXPECT_THAT(reading.fReports, IsEmpty());
    }
}

TEST(ReadPostHoc, OverwritesOnlyWhatBothTablesHold)
{
    const Reading reading =
        Read("RKendallsCoefficient",
             {PairwiseResult({{0, 1}, {1.5, 2.5}}, {{0, 1, 2, 3, 4, 5, 6}}, 3),
              StructuredTable("StepwiseResult", {Numbers("StepwiseInfo", {{9}})})});
    const auto& pairwise = reading.First<Stats::HTRKendallsCoefficient>()->fPairwise;
    EXPECT_EQ(pairwise.fComparisonKind, comparison::kStepwise);
    EXPECT_EQ(pairwise.fFieldIndex, 3);
    EXPECT_THAT(pairwise.fInfo.fRows, ElementsAre(ElementsAre(9)));
    EXPECT_THAT(pairwise.fContent.fRows, ElementsAre(ElementsAre(0, 1, 2, 3, 4, 5, 6)));
    EXPECT_THAT(pairwise.fContent.fColumnNames, SizeIs(7));
}

TEST(ReadBoxPlot, PutsGroupsAtTheirPlaceAmongAllTables)
{
    const auto group = [](const char* name) {
        return StructuredTable(
            name, {Attribute("GroupIndex", 5.0), Attribute("N", 10.0), Attribute("MeanOfRank", 2.0),
                   Attribute("GTMedian", 4.0), Attribute("STMedian", 6.0), Attribute("Median", 1.0),
                   Numbers("Box", {{1, 2, 3, 4, 5}}), Numbers("Outliers", {{9}, {17}}),
                   Numbers("Notches")});
    };
    const Reading reading = Read(
        "IMedian",
        {StructuredTable("BoxPlotInfo",
                         {Attribute("GroupFieldIndex", "1"), Attribute("GroupCount", "2"),
                          Attribute("Level", "0"), Attribute("GrandMedian", "7.5"), group("Group0"),
                          group("Between"), group("aGroup"), group("Behind")})});
    ASSERT_TRUE(reading.fRead);
    const auto& boxPlot = reading.First<Stats::HTIMedian>()->fBoxPlot;
    EXPECT_EQ(boxPlot.fGroupFieldIndex, 1);
    EXPECT_EQ(boxPlot.fGroupCount, 2);
    EXPECT_EQ(boxPlot.fGrandMedian, 7.5);
    ASSERT_THAT(boxPlot.fGroups, SizeIs(3)) << "none for what stands behind the last group";
    EXPECT_EQ(boxPlot.fGroups[1].fGroupIndex, -1) << "what is no group keeps its place";
    EXPECT_TRUE(IsMissing(boxPlot.fGroups[1].fGTMedian));
    const Stats::BoxGroup& last = boxPlot.fGroups[2];
    EXPECT_EQ(last.fGroupIndex, 5);
    EXPECT_EQ(last.fN, 10);
    EXPECT_EQ(last.fMeanOfRank, 2);
    EXPECT_EQ(last.fGTMedian, 4);
    EXPECT_EQ(last.fSTMedian, 6);
    EXPECT_THAT(last.fBox.fRows, ElementsAre(ElementsAre(1, 2, 3, 4, 5)));
    EXPECT_THAT(last.fOutliers.fRows, ElementsAre(ElementsAre(9), ElementsAre(17)));
    EXPECT_THAT(reading.fReports,
                ElementsAre("Not parse element: Level", "Not parse element: Median",
                            "Not parse element: Median"));
}

TEST(FinishTest, TakesHodgesLehmannIntervalsFromTwoBlocks)
{
    struct Row {
        Children blocks;
        double estimate;
        double lower;
        double upper;
        const char* why;
    };
    const auto bounds = [](const char* name, const Children& numbers) {
        return StructuredTable(name, numbers);
    };
    const Children both = {Attribute("Upper", 1.0), Attribute("Lower", 2.0)};
    const Element estimate = Attribute("Estimate", 5.0);
    // clang-format off
    const Row rows[] = {
        {{estimate, bounds("Asymptotic", both)}, 5, 1, 2, "bounds by place, whatever their names"},
        {{Attribute("N", 5.0), bounds("Asymptotic", both)}, MissingValue, 1, 2, "another first number"},
        {{estimate, bounds("Exact", both)}, MissingValue, MissingValue, MissingValue, "another block"},
        {{bounds("Asymptotic", both), estimate}, MissingValue, MissingValue, MissingValue, "another order"},
        {{estimate}, MissingValue, MissingValue, MissingValue, "one block"},
        {{estimate, bounds("Asymptotic", both), bounds("Asymptotic", both)}, MissingValue, MissingValue, MissingValue, "three blocks"},
        {{estimate, bounds("Asymptotic", {Attribute("Lower", 1.0)})}, 5, MissingValue, MissingValue, "one bound"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        const Children tables = {StructuredTable("StatisticsResult", row.blocks)};
        const Reading ofPairs = Read("RHodgesLehmannEstimatePairs", tables);
        const Reading ofGroups = Read("IHodgesLehmannEstimateGroups", tables);
        const auto* pairs = ofPairs.First<Stats::HTRHodgesLehmannEstimatePairs>();
        const auto* groups = ofGroups.First<Stats::HTIHodgesLehmannEstimateGroups>();
        for (const auto* interval : {&pairs->fInterval, &groups->fInterval}) {
            EXPECT_EQ(interval->fEstimate, row.estimate);
            EXPECT_EQ(interval->fLower, row.lower);
            EXPECT_EQ(interval->fUpper, row.upper);
            EXPECT_EQ(interval->fMethod, "");
        }
    }
}

}  // namespace
