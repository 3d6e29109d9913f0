#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Cases.h"
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
    using Reports = std::vector<std::string>;
    const Reports byName = {"Not parse element: Other"};
    const Reports byTag = {"Not parse element: StructuredTable"};
    // clang-format off
    ExpectEach<const char*, Reports>({
        {"OChiSquare", byName}, {"OBinomial", byName}, {"ORuns", byName},
        {"OWilcoxonSignedRanks", byName, "after the table was read"},
        {"OEstimateConfidenceInterval", byName},
        {"OKolmogorovSmirnov", {}, "takes nothing from any table, and says so to nobody"},
        {"RSign", byName}, {"RWilcoxonSignedRanks", byName}, {"RCochransQ", byName},
        {"RMcNemar", byName}, {"RFriedmansTwoWayByRanks", byName},
        {"RKendallsCoefficient", byName}, {"RMarginalHomogeneity", byName},
        {"RHodgesLehmannEstimatePairs", byTag, "by its tag, not its name"},
        {"IHodgesLehmannEstimateGroups", byTag, "by its tag, not its name"},
        {"IMoses", byName}, {"IMannWhitneyU", byName}, {"IWaldWolfowitzRuns", byName},
        {"IKolmogorovSmirnov", byName}, {"IKruskalWallis", byName},
        {"IJonckheereTerpstra", byName}, {"IMedian", byName},
    }, [](const char* algorithm) {
        SCOPED_TRACE(algorithm);
        const Reading reading = Read(algorithm, {StructuredTable("Other")});
        EXPECT_TRUE(reading.fRead);
        return reading.fReports;
    });
    // clang-format on
}

TEST(ReadTestTable, FailsOnANamelessTableWhereNamesCount)
{
    for (const char* algorithm :
         {"OChiSquare", "OWilcoxonSignedRanks", "RMcNemar", "IMannWhitneyU", "IMedian"})
        EXPECT_FALSE(Read(algorithm, {Element("StructuredTable")}).fRead) << algorithm;
    for (const char* algorithm : {"OKolmogorovSmirnov", "RHodgesLehmannEstimatePairs"})
        EXPECT_TRUE(Read(algorithm, {Element("StructuredTable")}).fRead) << algorithm;
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
    // clang-format off
    ExpectEach<std::pair<const char*, Element>, bool>({
        {{"OChiSquare", StructuredTable("TwoClassComparison")}, false, "no table"},
        {{"OChiSquare", StructuredTable("TwoClassComparison", {Numbers("a"), Element("SimpleTable")})}, true, "only the first is read"},
        {{"OBinomial", StructuredTable("TwoClassComparison", {Element("SimpleTable")})}, false, "a nameless table"},
        {{"RCochransQ", StructuredTable("TwoClassComparison")}, false, "no table"},
        {{"ORuns", StructuredTable("RunsParameters")}, true, "nothing to read"},
        {{"OWilcoxonSignedRanks", StructuredTable("ContinuousDistribution")}, false, "no table"},
        {{"OWilcoxonSignedRanks", StructuredTable("ContinuousDistribution", {Numbers("a"), Numbers("b")})}, false, "two tables"},
        {{"RSign", StructuredTable("ContinuousDistribution")}, false, "no table"},
        {{"RMcNemar", StructuredTable("CategoryFieldsComparison")}, false, "no table"},
        {{"RMcNemar", StructuredTable("CategoryFieldsComparison", {Numbers("a"), Numbers("b")})}, false, "two tables"},
        {{"RFriedmansTwoWayByRanks", StructuredTable("VariableInformation0")}, false, "no table"},
        {{"RFriedmansTwoWayByRanks", StructuredTable("PairwiseResult")}, true, "all of it may be missing"},
        {{"RFriedmansTwoWayByRanks", StructuredTable("PairwiseResult", {Element("SimpleTable")})}, false, "a nameless table"},
        {{"IKolmogorovSmirnov", StructuredTable("Group")}, false, "no table"},
        {{"OEstimateConfidenceInterval", StructuredTable("Jeffreys")}, false, "no bounds"},
        {{"OEstimateConfidenceInterval", StructuredTable("Jeffreys", {bounds})}, true, "bounds"},
        {{"OEstimateConfidenceInterval", StructuredTable("Jeffreys", {bounds, bounds})}, false, "twice bounds"},
        {{"IMoses", StructuredTable("BoxPlotInfo")}, true, "no groups"},
        {{"IMoses", StructuredTable("BoxPlotInfo", {Element("SimpleTable")})}, false, "a nameless table"},
    }, [](const char* algorithm, const Element& table) {
        return Read(algorithm, {table}).fRead;
    });
    // clang-format on
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
    const std::string name = "Not parse element: Level";
    const std::string value = "Not parse element: told by its value";
    EXPECT_THAT(reading.fReports,
                ElementsAre(name, value, name, value, name, value, "Not parse element: Wilson"));
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
                               Attribute("RowSuccessList", "0 __MISSING__"), Attribute("Kind", "1"),
                               Numbers("cross"), outside("RowValsNotInTheCategoreis", "replaced"),
                               outside("RowValsNotInTheCategoreis", "row"),
                               outside("ColValsNotInTheCategoreis", "column"),
                               outside("Further", "passed over")})});
    ASSERT_TRUE(reading.fRead);
    const auto& comparison = reading.First<Stats::HTRMcNemar>()->fComparison;
    EXPECT_THAT(comparison.fRowSuccessList, ElementsAre(0, MissingValue));
    EXPECT_THAT(NamesIn(comparison.fTable.fColumnNames), ElementsAre("c0", "c1"))
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

TEST(ReadPostHoc, TellsTheComparisonByTheTableInside)
{
    // clang-format off
    ExpectEach<Element, std::pair<ComparisonKind, int>>({
        {StructuredTable("PairwiseResult", {Numbers("PairwiseInfo")}), {comparison::kPairwise, -1}, "pairs"},
        {StructuredTable("PairwiseResult", {Numbers("PairwiseInfo"), Numbers("Content")}), {comparison::kPairwise, -1}, "the content behind it tells nothing"},
        {StructuredTable("PairwiseResult", {Numbers("StepwiseInfo")}), {comparison::kStepwise, -1}, "not by its own name"},
        {StructuredTable("StepwiseResult", {Numbers("Content"), Numbers("PairwiseInfo"), Numbers("Info")}), {comparison::kPairwise, -1}, "in any order"},
        {StructuredTable("PairwiseResult", {Numbers("Content")}), {comparison::kNone, -1}, "no info"},
        {StructuredTable("PairwiseResult", {Attribute("fieldIndex", 2.9)}), {comparison::kNone, 2}, "the index is cut"},
        {StructuredTable("PairwiseResult", {Attribute("other", 1.0), Attribute("fieldIndex", 2.0)}), {comparison::kNone, -1}, "only the first attribute"},
        {StructuredTable("PairwiseResult", {Element("Attribute"), Attribute("fieldIndex", 2.0)}), {comparison::kNone, -1}, "a nameless first attribute"},
        {StructuredTable("PairwiseResult", {Attribute("fieldIndex", "x")}), {comparison::kNone, std::numeric_limits<int>::min()}, "no number is the missing one"},
    }, [](const Element& table) {
        const Reading reading = Read("IMedian", {table});
        EXPECT_TRUE(reading.fRead);
        EXPECT_THAT(reading.fReports, IsEmpty());
        const auto& pairwise = reading.First<Stats::HTIMedian>()->fPairwise;
        return std::pair(pairwise.fComparisonKind, pairwise.fFieldIndex);
    });
    // clang-format on
}

TEST(ReadPostHoc, OverwritesOnlyWhatBothTablesHold)
{
    const Reading reading = Read(
        "RKendallsCoefficient",
        {StructuredTable("PairwiseResult", {Attribute("fieldIndex", "3"), Numbers("PairwiseInfo"),
                                            Numbers("Content", {{0, 1, 2, 3, 4, 5, 6}})}),
         StructuredTable("StepwiseResult", {Numbers("StepwiseInfo", {{9}})})});
    const auto& pairwise = reading.First<Stats::HTRKendallsCoefficient>()->fPairwise;
    EXPECT_EQ(pairwise.fComparisonKind, comparison::kStepwise);
    EXPECT_EQ(pairwise.fFieldIndex, 3);
    EXPECT_THAT(pairwise.fInfo.fRows, ElementsAre(ElementsAre(9)));
    EXPECT_THAT(pairwise.fContent.fRows, ElementsAre(ElementsAre(0, 1, 2, 3, 4, 5, 6)));
}

TEST(ReadBoxPlot, PutsGroupsAtTheirPlaceAmongAllTables)
{
    const auto group = [](const char* name) {
        return StructuredTable(name, {Attribute("GroupIndex", 5.0), Attribute("GTMedian", 4.0),
                                      Attribute("STMedian", 6.0), Attribute("Median", 1.0),
                                      Numbers("Box", {{1, 2, 3, 4, 5}}),
                                      Numbers("Outliers", {{9}, {17}}), Numbers("Notches")});
    };
    const Reading reading =
        Read("IMedian",
             {StructuredTable("BoxPlotInfo", {Attribute("GroupCount", "2"), Attribute("Level", "0"),
                                              group("Group0"), group("Between"), group("aGroup"),
                                              group("Behind")})});
    ASSERT_TRUE(reading.fRead);
    const auto& groups = reading.First<Stats::HTIMedian>()->fBoxPlot.fGroups;
    ASSERT_THAT(groups, SizeIs(3)) << "none for what stands behind the last group";
    EXPECT_EQ(groups[1].fGroupIndex, -1) << "what is no group keeps its place";
    EXPECT_TRUE(IsMissing(groups[1].fGTMedian));
    EXPECT_EQ(groups[2].fGroupIndex, 5);
    EXPECT_EQ(groups[2].fGTMedian, 4);
    EXPECT_EQ(groups[2].fSTMedian, 6);
    EXPECT_THAT(groups[2].fBox.fRows, ElementsAre(ElementsAre(1, 2, 3, 4, 5)));
    EXPECT_THAT(groups[2].fOutliers.fRows, ElementsAre(ElementsAre(9), ElementsAre(17)));
    EXPECT_THAT(reading.fReports,
                ElementsAre("Not parse element: Level", "Not parse element: Median",
                            "Not parse element: Median"));
}

TEST(FinishTest, TakesHodgesLehmannIntervalsFromTwoBlocks)
{
    using Triple = std::vector<double>;
    const Children both = {Attribute("Upper", 1.0), Attribute("Lower", 2.0)};
    const Element estimate = Attribute("Estimate", 5.0);
    const Triple none = {MissingValue, MissingValue, MissingValue};
    // clang-format off
    ExpectEach<Children, Triple>({
        {{estimate, StructuredTable("Asymptotic", both)}, {5, 1, 2}, "bounds by place, whatever their names"},
        {{Attribute("N", 5.0), StructuredTable("Asymptotic", both)}, {MissingValue, 1, 2}, "another first number"},
        {{estimate, StructuredTable("Exact", both)}, none, "another block"},
        {{StructuredTable("Asymptotic", both), estimate}, none, "another order"},
        {{estimate}, none, "one block"},
        {{estimate, StructuredTable("Asymptotic", both), StructuredTable("Asymptotic", both)}, none, "three blocks"},
        {{estimate, StructuredTable("Asymptotic", {Attribute("Lower", 1.0)})}, {5, MissingValue, MissingValue}, "one bound"},
    }, [](const Children& blocks) {
        const Children tables = {StructuredTable("StatisticsResult", blocks)};
        const Reading pairs = Read("RHodgesLehmannEstimatePairs", tables);
        const Reading groups = Read("IHodgesLehmannEstimateGroups", tables);
        const auto numbers = [](const auto& interval) {
            EXPECT_EQ(interval.fMethod, "");
            return Triple{interval.fEstimate, interval.fLower, interval.fUpper};
        };
        const Triple read = numbers(pairs.First<Stats::HTRHodgesLehmannEstimatePairs>()->fInterval);
        EXPECT_EQ(numbers(groups.First<Stats::HTIHodgesLehmannEstimateGroups>()->fInterval), read);
        return read;
    });
    // clang-format on
}

}  // namespace
