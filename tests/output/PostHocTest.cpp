#include "OutputTest.h"

#include "output/RankTable.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Rows = std::vector<std::vector<double>>;

constexpr char kBonferroni[] =
    "@Significance values have been adjusted by the Bonferroni correction for multiple tests.";

/// A pair with statistics 1 to 5.
std::vector<double> Pair(double first, double second) { return {first, second, 1, 2, 3, 4, 5}; }

class PostHoc : public OutputTest {
protected:
    static Stats::PairwiseData Result(ComparisonKind comparison, const Rows& info,
                                      const Rows& content, std::size_t columns = 7)
    {
        Stats::PairwiseData result;
        result.fComparisonKind = comparison;
        result.fInfo.fRows = info;
        result.fContent.fRows = content;
        result.fContent.fColumnNames.assign(columns, "");
        return result;
    }

    /// The result under a test of the kind; samples of kinds 24 to 26 are values of feed.
    static void Give(Test& test, Stats::PairwiseData result)
    {
        result.fFieldIndex = kFeed;
        if (auto* record = dynamic_cast<Stats::HTRCochransQ*>(&test)) record->fPairwise = result;
        if (auto* record = dynamic_cast<Stats::HTRFriedmansTwoWayByRanks*>(&test))
            record->fPairwise = result;
        if (auto* record = dynamic_cast<Stats::HTRKendallsCoefficient*>(&test))
            record->fPairwise = result;
        if (auto* record = dynamic_cast<Stats::HTIKruskalWallis*>(&test))
            record->fPairwise = result;
        if (auto* record = dynamic_cast<Stats::HTIJonckheereTerpstra*>(&test))
            record->fPairwise = result;
        if (auto* record = dynamic_cast<Stats::HTIMedian*>(&test)) record->fPairwise = result;
    }

    void Write(TestKind testKind, const Stats::PairwiseData& result)
    {
        Test& test = Add(testKind);
        Give(test, result);
        Output().PostHocTable(fRecorder.Procedure(), test, nullptr);
    }

    RecordedTable PairTable() const { return fRecorder.Table("Pairwise Comparisons of feed"); }
    RecordedTable SubsetTable() const
    {
        return fRecorder.Table("Homogeneous Subsets based on feed");
    }
};

const Rows kInfo = {{0, 1, 2}, {3, 1, 2}};
const Rows kPairs = {Pair(0, 1), Pair(0, 2), Pair(1, 2)};

TEST_F(PostHoc, TablesHaveTheWordsOfTheirKind)
{
    struct Row {
        TestKind kind;
        const char* pairs;
        const char* caption;
        const char* subsets;
        const char* note;
    };
    const char* ofFeed = "@Pairwise Comparisons of ^1(<feed>)";
    const char* pairs = "@Pairwise Comparisons()";
    const char* caption = "@PairwiseComparisonsTableCaptionCFKKM^1(0.05:Proportion)";
    const char* subsets = "@Homogeneous Subsets()";
    const char* onFeed = "@Homogeneous Subsets based on ^1(<feed>)";
    const char* rankNote = "@Each cell shows the sample average rank.()";
    const char* fieldNote = "@Each cell shows the sample average rank of ^1.(<feed>)";
    for (const Row& row :
         {Row{13, pairs, caption, subsets, "@Each cell shows the sample number of successes.()"},
          Row{15, pairs, caption, subsets, rankNote}, Row{16, pairs, caption, subsets, rankNote},
          Row{24, ofFeed, caption, onFeed, fieldNote},
          Row{25, ofFeed, "@PairwiseComparisonsTableCaptionJ^1(0.05:Proportion)", onFeed,
              fieldNote},
          Row{26, ofFeed, caption, onFeed, "@Each cell shows the sample median ^1.(<feed>)"}}) {
        SCOPED_TRACE(row.kind);
        OutputRecorder recorder(fSource.get());
        BpProcedure& procedure = recorder.Procedure();
        NOPROutput output(&procedure, &procedure, fSource.get(), &fStats);
        Test& test = Add(row.kind);
        for (const ComparisonKind comparison : {comparison::kPairwise, comparison::kStepwise}) {
            Give(test, Result(comparison, kInfo, {}));
            output.PostHocTable(procedure, test, nullptr);
        }
        const bool ofField = row.kind >= 24;
        const RecordedTable pairTable =
            recorder.Table(ofField ? "Pairwise Comparisons of feed" : "Pairwise Comparisons");
        EXPECT_EQ(pairTable.Title(), row.pairs);
        EXPECT_EQ(pairTable.Subtype(), "'Pairwise Comparisons Table'");
        EXPECT_EQ(pairTable.Widths(), "60..100");
        EXPECT_EQ(pairTable.Caption(), row.caption);
        EXPECT_THAT(pairTable.Dimensions(),
                    ElementsAre("'Sample 1-Sample 2' sort 2 rows false false",
                                "@Statistics sort 2 columns true false"));
        const RecordedTable subsetTable =
            recorder.Table(ofField ? "Homogeneous Subsets based on feed" : "Homogeneous Subsets");
        EXPECT_EQ(subsetTable.Title(), row.subsets);
        EXPECT_EQ(subsetTable.Subtype(), "'Homogeneous Subsets Table'");
        EXPECT_EQ(subsetTable.Widths(), "60..100");
        EXPECT_EQ(subsetTable.Caption(), "@HomogeneousSubsetsTableCaption^1(0.05:Proportion)");
        EXPECT_THAT(subsetTable.Dimensions(), ElementsAre("'Statistics' sort 2 rows true false",
                                                          "@Subset sort 2 columns false false"));
        EXPECT_THAT(subsetTable.LabelNotes(0, "Sample"), ElementsAre(row.note));
    }
}

TEST_F(PostHoc, WritesNothingWithoutAResult)
{
    Write(24, Result(comparison::kNone, kInfo, kPairs));
    Write(21, {});
    EXPECT_EQ(fRecorder.Outline(), "");
}

TEST_F(PostHoc, LeavesThePlaceOfAMissingFieldOpen)
{
    Test& test = Add(24);
    Stats::PairwiseData result = Result(comparison::kPairwise, kInfo, kPairs);
    Give(test, result);
    dynamic_cast<Stats::HTIKruskalWallis&>(test).fPairwise.fFieldIndex = kGone;
    Output().PostHocTable(fRecorder.Procedure(), test, nullptr);
    const RecordedTable table = fRecorder.Table("Pairwise Comparisons of ");
    EXPECT_EQ(table.Title(), "@Pairwise Comparisons of ^1()");
    EXPECT_THAT(table.PassedLabels(0), ElementsAre("@^1-^2()")) << "all pairs share a label";
}

TEST_F(PostHoc, OrdersPairsByTheRanksOfTheirSamples)
{
    struct Row {
        Rows info;
        Rows pairs;
        std::vector<std::string> labels;
        const char* why;
    };
    for (const Row& row : {Row{kInfo,
                               kPairs,
                               {"horsebean-soy", "horsebean-casein", "soy-casein"},
                               "by the first sample, then the second"},
                           Row{{{0, 1, 2}, {1, 1, 1}},
                               {Pair(2, 1), Pair(0, 1), Pair(2, 0)},
                               {"soy-horsebean", "casein-horsebean", "soy-casein"},
                               "equal ranks keep the document's order"},
                           Row{{{0, 1, 2}, {1, 1, 0}},
                               {Pair(0, 1), Pair(2, 1), Pair(2, 0)},
                               {"soy-horsebean", "soy-casein", "casein-horsebean"},
                               "a run is sorted by itself and stable"},
                           Row{{{0, -5, 1}, {2, 9, 1}},
                               {Pair(0.9, 1.2)},
                               {"horsebean-casein"},
                               "negative samples are skipped, numbers are cut"},
                           Row{{{0, 2}, {-1, 2}},
                               {Pair(1, 0), Pair(1, 2)},
                               {"casein-horsebean", "horsebean-soy"},
                               "a sample between others has rank 0"}}) {
        SCOPED_TRACE(row.why);
        OutputRecorder recorder(fSource.get());
        Test& test = Add(24);
        Give(test, Result(comparison::kPairwise, row.info, row.pairs));
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats)
            .PostHocTable(recorder.Procedure(), test, nullptr);
        EXPECT_EQ(recorder.Table("Pairwise Comparisons of feed").LabelsOf(0), row.labels);
    }
}

TEST_F(PostHoc, ShowsTheFiveNumbersOfAPair)
{
    Write(24, Result(comparison::kPairwise, kInfo, {Pair(0, 1)}));
    const RecordedTable table = PairTable();
    EXPECT_THAT(table.PassedLabels(0), ElementsAre("@^1-^2(<feed>=2; <feed>=1)"));
    EXPECT_THAT(table.PassedLabels(1), ElementsAre("@Test Statistic", "@Std. Error",
                                                   "@Std. Test Statistic", "@Sig.", "@Adj. Sig."));
    const char* pair = "horsebean-casein";
    EXPECT_EQ(table.Cell({pair, "Test Statistic"}), "1:Coefficient") << "no sign changes";
    EXPECT_EQ(table.Cell({pair, "Std. Error"}), "2:Coefficient");
    EXPECT_EQ(table.Cell({pair, "Std. Test Statistic"}), "3:Coefficient");
    EXPECT_EQ(table.Cell({pair, "Sig."}), "4:Significance");
    EXPECT_EQ(table.Cell({pair, "Adj. Sig."}), "5:Significance");
    EXPECT_THAT(table.LabelNotes(1, "Adj. Sig."), ElementsAre(kBonferroni));
}

TEST_F(PostHoc, HasThreeColumnsForTheMedianTest)
{
    Write(26, Result(comparison::kPairwise, kInfo, kPairs));
    EXPECT_THAT(PairTable().LabelsOf(1), ElementsAre("Test Statistic", "Sig.", "Adj. Sig."));
}

TEST_F(PostHoc, NamesFieldsWhereSamplesAreFields)
{
    Write(15, Result(comparison::kPairwise, {{kWeight, kCity, kGone}, {1, 2, 3}},
                     {Pair(kWeight, kCity), Pair(kWeight, kGone)}));
    EXPECT_THAT(fRecorder.Table("Pairwise Comparisons").PassedLabels(0),
                ElementsAre("@^1-^2(<weight>; <city>)", "@^1-^2(<weight>)"));
}

TEST_F(PostHoc, StandsEmptyOnABadShape)
{
    struct Row {
        Rows info;
        Rows pairs;
        const char* why;
    };
    for (const Row& row :
         {Row{{{0, 1, 2}, {1, 2}}, kPairs, "rows of unequal length"}, Row{kInfo, {}, "no pairs"},
          Row{kInfo, {Pair(0, 1), Pair(0, 3)}, "a sample without rank, behind a good row"},
          Row{kInfo, {Pair(-1, 1)}, "a negative sample"},
          Row{kInfo, {Pair(0, 1e300)}, "a sample beyond integers"},
          Row{kInfo, {Pair(0, MissingValue)}, "a missing sample"},
          Row{kInfo, {{0, 1, 2, 3, 4, 5}}, "a short row"}}) {
        SCOPED_TRACE(row.why);
        OutputRecorder recorder(fSource.get(), "no charts either");
        Test& test = Add(24);
        Give(test, Result(comparison::kPairwise, row.info, row.pairs));
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats)
            .PostHocTable(recorder.Procedure(), test, nullptr);
        const RecordedTable table = recorder.Table("Pairwise Comparisons of feed");
        ASSERT_TRUE(table);
        EXPECT_THAT(table.LabelsOf(0), IsEmpty());
        EXPECT_EQ(table.CellCount(), 0U);
        EXPECT_NE(table.Caption(), "none");
    }
}

TEST_F(PostHoc, BreaksWhereTheDocumentGuaranteesTheShape)
{
    struct Row {
        Rows info;
        std::size_t columns;
        const char* broken;
    };
    for (const Row& row :
         {Row{{{0, 1}}, 7, "rankData.fRows.size() == 2"}, Row{{}, 7, "rankData.fRows.size() == 2"},
          Row{{{0}, {1}, {2}}, 6, "rankData.fRows.size() == 2"}, Row{kInfo, 6, "nCol == 7"},
          Row{kInfo, 8, "nCol == 7"}, Row{{{0, 1}, {1}}, 6, ""}})
        EXPECT_EQ(BrokenBy([&] {
                      Write(24, Result(comparison::kPairwise, row.info, kPairs, row.columns));
                  }),
                  row.broken);
}

TEST_F(PostHoc, AttachesMessagesToThePairInTableOrder)
{
    Test& test = Add(24);
    Give(test, Result(comparison::kPairwise, kInfo, kPairs));
    AddMessage(test, 222328, message::kError, {}, "1;0");
    AddMessage(test, 222329, message::kWarning, {{5}}, "1;0");
    AddMessage(test, 222331, message::kError, {}, "0;1");
    AddMessage(test, 222332, message::kError, {}, "1; 2");
    AddMessage(test, 4711, message::kError, {}, "1;0");
    Output().PostHocTable(fRecorder.Procedure(), test, nullptr);
    const RecordedTable table = PairTable();
    EXPECT_THAT(table.CellNotes({"horsebean-casein", "Test Statistic"}),
                ElementsAre("@222328", "@222329"));
    EXPECT_THAT(table.CellNotes({"horsebean-soy", "Test Statistic"}), IsEmpty());
    EXPECT_THAT(table.CellNotes({"soy-casein", "Test Statistic"}), IsEmpty());
}

TEST(RankTable, GrowsWithoutTakingMemory)
{
    NumericTable info;
    info.fRows = {{0, 2147483647, 2147483647}, {5, 6, 7}};
    const RankTable ranks(info);
    EXPECT_TRUE(ranks.Holds(2147483647));
    EXPECT_EQ(ranks.RankOf(2147483647), 7) << "the last number of a sample counts";
    EXPECT_TRUE(ranks.Holds(1000000));
    EXPECT_EQ(ranks.RankOf(1000000), 0);
    EXPECT_FALSE(ranks.Holds(-1));

    info.fRows = {{0, 0, 0}, {5, 6, 7}};
    EXPECT_TRUE(RankTable(info).Holds(2)) << "as long as a row at least";
    EXPECT_FALSE(RankTable(info).Holds(3));
}

TEST_F(PostHoc, ListsSubsetsByTheirFirstPosition)
{
    // Samples in the order of steps: soy, casein, horsebean.
    const Rows info = {{2, 0, 1}, {1.5, 2.5, 3.5}};
    Write(24, Result(comparison::kStepwise, info,
                     {{1, 2, 21, 22, 23, 24, 25}, {0, 1, 11, 12, 13, 14, 15}}));
    const RecordedTable table = SubsetTable();
    EXPECT_THAT(table.PassedLabels(1), ElementsAre("'1'", "'2'"));
    EXPECT_THAT(table.PassedLabels(0),
                ElementsAre("@Sample", "<feed>=3", "<feed>=1", "<feed>=2", "@Test Statistic",
                            "@Sig. (2-sided test)", "@Adjusted Sig. (2-sided test)"))
        << "a sample of two subsets stands once";
    struct Row {
        const char* label;
        const char* first;
        const char* second;
    };
    for (const Row& row :
         {Row{"Sample/soy", "1.5:Coefficient", "no cell"},
          Row{"Sample/casein", "2.5:Coefficient", "2.5:Coefficient"},
          Row{"Sample/horsebean", "no cell", "3.5:Coefficient"},
          Row{"Test Statistic", "11:Coefficient", "21:Coefficient"},
          Row{"Sig. (2-sided test)", "14:Significance", "24:Significance"},
          Row{"Adjusted Sig. (2-sided test)", "15:Significance", "25:Significance"}}) {
        EXPECT_EQ(table.Cell({row.label, "1"}), row.first) << row.label;
        EXPECT_EQ(table.Cell({row.label, "2"}), row.second) << row.label;
    }
}

TEST_F(PostHoc, HasFiveRowsForTheOrderedAlternatives)
{
    Write(25, Result(comparison::kStepwise, {{0}, {1}}, {{0, 0, 2, 3, 4, 5, 6}}));
    const RecordedTable table = SubsetTable();
    struct Row {
        const char* label;
        const char* content;
    };
    std::vector<std::string> labels = {"Sample/casein"};
    for (const Row& row :
         {Row{"Test Statistic", "2:Coefficient"}, Row{"Standard Error", "3:Coefficient"},
          Row{"Standardized Test Statistic", "4:Coefficient"},
          Row{"Sig. (1-sided test)", "5:Significance"},
          Row{"Adjusted Sig. (1-sided test)", "6:Significance"}}) {
        EXPECT_EQ(table.Cell({row.label, "1"}), row.content);
        labels.emplace_back(row.label);
    }
    EXPECT_EQ(table.LabelsOf(0), labels);
}

TEST_F(PostHoc, PassesOverWhatASubsetCannotShow)
{
    struct Row {
        double first;
        double last;
        std::vector<std::string> samples;
        const char* why;
    };
    for (const Row& row :
         {Row{1, 1, {"Sample/horsebean"}, "one sample"},
          Row{-3, 1, {"Sample/casein", "Sample/horsebean"}, "positions before the first"},
          Row{1, 1e300, {"Sample/horsebean", "Sample/soy"}, "positions behind the last"},
          Row{3, 9, {}, "none inside"}, Row{2, 1, {}, "the last before the first"},
          Row{-5, -1, {}, "all before"}, Row{3, 3, {}, "a value that the field lacks"}}) {
        SCOPED_TRACE(row.why);
        OutputRecorder recorder(fSource.get());
        Test& test = Add(26);
        Give(test, Result(comparison::kStepwise, {{0, 1, 2, 7}, {1, 2, 3, 4}},
                          {{row.first, row.last, 2, 3, 4, 5, 6}}));
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats)
            .PostHocTable(recorder.Procedure(), test, nullptr);
        auto labels = recorder.Table("Homogeneous Subsets based on feed").LabelsOf(0);
        ASSERT_GE(labels.size(), 3U);
        labels.resize(labels.size() - 3);
        EXPECT_EQ(labels, row.samples);
    }
}

TEST_F(PostHoc, NamesSubsetsOfMessagesByPositions)
{
    Test& test = Add(13);
    Give(test, Result(comparison::kStepwise, {{kCity, kWeight}, {1, 2}},
                      {{0, 1, 2, 3, 4, 5, 6}, {1, 1, 2, 3, 4, 5, 6}}));
    AddMessage(test, 222333, message::kError, {}, "0;1");
    Output().PostHocTable(fRecorder.Procedure(), test, nullptr);
    const RecordedTable table = fRecorder.Table("Homogeneous Subsets");
    EXPECT_THAT(table.CellNotes({"Test Statistic", "1"}), ElementsAre("@222333"));
    EXPECT_THAT(table.CellNotes({"Test Statistic", "2"}), IsEmpty());
    EXPECT_THAT(table.PassedLabels(0), testing::Contains("<city>"));
}

TEST_F(PostHoc, LeavesSubsetsOfABadShapeEmpty)
{
    struct Row {
        Rows info;
        Rows content;
        std::size_t columns;
        std::size_t labels;
        const char* why;
    };
    const Rows good = {{0, 1, 2, 3, 4, 5, 6}};
    for (const Row& row :
         {Row{{{0, 1}}, good, 7, 0, "one row"},
          Row{{{0, 1}, {1}}, good, 7, 0, "rows of unequal length"},
          Row{kInfo, good, 6, 0, "six columns"}, Row{kInfo, {{0, 1, 2}}, 7, 0, "a short row"},
          Row{kInfo, {}, 7, 1, "no subset: the group stands alone"}}) {
        SCOPED_TRACE(row.why);
        OutputRecorder recorder(fSource.get());
        Test& test = Add(24);
        Give(test, Result(comparison::kStepwise, row.info, row.content, row.columns));
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats)
            .PostHocTable(recorder.Procedure(), test, nullptr);
        const RecordedTable table = recorder.Table("Homogeneous Subsets based on feed");
        ASSERT_TRUE(table);
        EXPECT_EQ(table.PassedLabels(0).size(), row.labels);
        EXPECT_EQ(table.CellCount(), 0U);
    }
}

}  // namespace
