#include "OutputTest.h"

namespace {

using testing::ElementsAre;

class HypothesisTestSummary : public OutputTest {
protected:
    RecordedTable Write()
    {
        Output().HypothesisTestSummary();
        return fRecorder.Table("Hypothesis Test Summary");
    }
};

TEST_F(HypothesisTestSummary, IsNotWrittenWithoutATest)
{
    Add(18, "R_HodgesLehman_2", {{kWeight}, {kFeed}});
    EXPECT_FALSE(Write()) << "an interval test has no line here";
}

TEST_F(HypothesisTestSummary, HasAFrameOfItsOwn)
{
    Add(1);
    const RecordedTable table = Write();
    EXPECT_EQ(table.Title(), "@Hypothesis Test Summary");
    EXPECT_EQ(table.Subtype(), "'Hypothesis Test Summary'");
    EXPECT_EQ(table.Widths(), "100..200");
    EXPECT_EQ(table.Caption(),
              "@Asymptotic significances are displayed. The significance level is "
              "^1.(0.05:Significance)");
    EXPECT_THAT(table.Dimensions(), ElementsAre("'Item' sort 2 rows true false",
                                                "@Statistics sort 2 columns true false"));
    EXPECT_THAT(table.PassedLabels(1),
                ElementsAre("@Null Hypothesis", "@Test", "@Sig.", "@Decision"));
}

TEST_F(HypothesisTestSummary, CountsItsOwnTests)
{
    Add(1);
    Add(18);
    Add(6, "UniformDistribution_O_KolmogorovSmirnov_3", {{kWeight}, {1}, {2}});
    const RecordedTable table = Write();
    EXPECT_THAT(table.PassedLabels(0), ElementsAre("1:Count", "2:Count"));
    EXPECT_EQ(table.Cell({"1", "Test"}), "@One-Sample Chi-Square Test");
    EXPECT_EQ(table.Cell({"2", "Test"}), "@One-Sample Kolmogorov-Smirnov Test")
        << "the distribution shows in the heading only";
}

TEST_F(HypothesisTestSummary, ShowsAMissingLevelAsMissing)
{
    fStats.SetSigLevel(MissingValue);
    Add(1);
    EXPECT_THAT(Write().Caption(), testing::HasSubstr("(missing:Significance)"));
}

TEST_F(HypothesisTestSummary, TellsTheDecision)
{
    struct Row {
        Decision decision;
        const char* text;
    };
    const std::vector<Row> rows = {{decision::kReject, "@Reject the null hypothesis."},
                                   {decision::kRetain, "@Retain the null hypothesis."},
                                   {0, "@Unable to compute."},
                                   {7, "@Unable to compute."},
                                   {-1, "@Unable to compute."}};
    for (const Row& row : rows)
        Add(1).fDecision = row.decision;
    const RecordedTable table = Write();
    for (std::size_t row = 0; row < rows.size(); ++row)
        EXPECT_EQ(table.Cell({std::to_string(row + 1), "Decision"}), rows[row].text);
}

class ConfidenceIntervalSummary : public OutputTest {
protected:
    RecordedTable Write()
    {
        Output().ConfidenceIntervalSummary();
        return fRecorder.Table("Confidence Interval Summary");
    }
};

constexpr char kBinomialKey[] = "ACutPointIsSpecified_O_Binomial_2";

TEST_F(ConfidenceIntervalSummary, IsNotWrittenWithoutAnIntervalTest)
{
    Add(1);
    EXPECT_FALSE(Write());
}

TEST_F(ConfidenceIntervalSummary, HasAFrameOfItsOwn)
{
    Add(18, "R_HodgesLehman_2", {{kWeight}, {kFeed}});
    const RecordedTable table = Write();
    EXPECT_EQ(table.Title(), "@Confidence Interval Summary");
    EXPECT_EQ(table.Subtype(), "'Confidence Interval Summary'");
    EXPECT_EQ(table.Widths(), "100..200");
    EXPECT_EQ(table.Caption(), "none");
    EXPECT_THAT(table.Dimensions(), ElementsAre("'Item' sort 2 rows true true",
                                                "@Statistics sort 2 columns true false"));
    EXPECT_THAT(table.PassedLabels(1),
                ElementsAre("@Confidence Interval Type", "@Parameter", "@Estimate",
                            "@^1 Confidence Interval(95:Percent)", "@Lower", "@Upper"))
        << "one group for all rows";
}

TEST_F(ConfidenceIntervalSummary, CountsRowsOverAllTests)
{
    auto& pairs =
        Add<Stats::HTRHodgesLehmannEstimatePairs>(18, "R_HodgesLehman_2", {{kWeight}, {kFeed}});
    pairs.fInterval = {"", 1.5, 1, 2};
    auto& rate = Add<Stats::HTOEstimateConfidenceInterval>(5, kBinomialKey, {{kWeight}, {20}});
    rate.fIntervals = {{"ClopperPearson", 0.5, 0.4, 0.6}, {"Jeffreys", 0.51, 0.41, 0.61}};
    AddMessage(rate, 4711, message::kHelp, {{3}});
    AddMessage(rate, 4712, message::kError);
    auto& groups = Add<Stats::HTIHodgesLehmannEstimateGroups>(
        19, "AllDistinctValuesUsed_I_HodgesLehman_2", {{kWeight}, {kFeed}});
    groups.fInterval = {"", 3, 2, 4};
    Add(5, kBinomialKey, {{kWeight}, {20}});

    const RecordedTable table = Write();
    EXPECT_THAT(table.PassedLabels(0),
                ElementsAre("1:Count", "2:Count", "3:Count", "4:Count", "5:Count"));
    struct Row {
        const char* number;
        const char* type;
        const char* estimate;
        const char* lower;
        const char* upper;
        std::vector<std::string> notes;
    };
    const std::vector<std::string> firstMessage = {"@4711"};
    for (const Row& row :
         {Row{"1", "@Related-Samples Hodges-Lehman Median Difference", "1.5", "1", "2", {}},
          Row{"2", "@One-Sample Binomial Success Rate ^1(@ClopperPearson)", "0.5", "0.4", "0.6",
              firstMessage},
          Row{"3", "@One-Sample Binomial Success Rate ^1(@Jeffreys)", "0.51", "0.41", "0.61",
              firstMessage},
          Row{"4", "@Independent-Samples Hodges-Lehman Median Difference", "3", "2", "4", {}},
          Row{"5", "@One-Sample Binomial Success Rate", "missing", "missing", "missing", {}}}) {
        SCOPED_TRACE(row.number);
        const std::string group = "95.0% Confidence Interval";
        const auto bound = [&](const char* name) {
            for (const std::string& label : table.LabelsOf(1))
                if (label.ends_with(name)) return table.Cell({row.number, label});
            return std::string("no column");
        };
        EXPECT_EQ(table.Cell({row.number, "Confidence Interval Type"}), row.type);
        EXPECT_EQ(table.Cell({row.number, "Estimate"}), std::string(row.estimate) + ":Coefficient");
        EXPECT_EQ(table.CellNotes({row.number, "Estimate"}), row.notes);
        EXPECT_EQ(bound("/Lower"), std::string(row.lower) + ":Coefficient");
        EXPECT_EQ(bound("/Upper"), std::string(row.upper) + ":Coefficient");
        EXPECT_THAT(table.Cell({row.number, "Parameter"}), testing::StartsWith("@"));
    }
}

TEST_F(ConfidenceIntervalSummary, KeepsAMissingLevelMissing)
{
    fStats.SetConfidenceLevel(MissingValue);
    Add(18);
    EXPECT_THAT(Write().PassedLabels(1),
                testing::Contains("@^1 Confidence Interval(missing:Percent)"));
}

class SplitTables : public OutputTest {};

TEST_F(SplitTables, BeginWithTheSplitWhereNoHeadingTellsIt)
{
    struct Row {
        std::vector<int> variables;
        bool asHeading;
        std::size_t dimensions;
        const char* why;
    };
    const OBS soy(3);
    for (const Row& row :
         {Row{{1}, false, 3, "a dimension tells the split"}, Row{{1}, true, 2, "a heading does"},
          Row{{}, false, 2, "the data is not split"}}) {
        SCOPED_TRACE(row.why);
        SplitResult split;
        split.fSplitVariables = row.variables;
        split.fSplitValues = {&soy};
        split.fSplitAsHeading = row.asHeading;
        OutputRecorder recorder(fSource.get());
        NOPROutputStats stats;
        stats.SetDataSource(fSource.get());
        stats.SetSplit(&split);
        stats.CreateTest(sample::kOne, kind::kChiSquare, 0);
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &stats)
            .HypothesisTestSummary();
        const RecordedTable table = recorder.Table("Hypothesis Test Summary");
        ASSERT_EQ(table.Dimensions().size(), row.dimensions);
        if (row.dimensions == 2) continue;
        EXPECT_EQ(table.Dimensions()[0], "<feed> sort 0 rows false false");
        EXPECT_THAT(table.PassedLabels(0), ElementsAre("<feed>=3"));
        EXPECT_EQ(table.Cell({"soy", "1", "Test"}), "@One-Sample Chi-Square Test");
    }
}

}  // namespace
