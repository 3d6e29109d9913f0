#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/onesample/OneSample.h"

#include "model/NOPRTestRecords.h"

namespace {

using Stats = NOPROutputStats;

std::optional<refhost::ChartNode> Draw(ViewRecorder& recorder,
                                       const Stats::BaseHypothesisTest* test, unsigned field = 0)
{
    OneSample dispatcher(recorder.Dictionary(), &recorder.Stats());
    return recorder.Draw([&] { dispatcher.DrawTest(test, field, "", false); });
}

/// Every template, and a field that each of the views can draw.
void Prepare(ViewRecorder& recorder)
{
    for (const char* file : {"NPARHistogram.viztemplate", "NPARStackedBar.viztemplate",
                             "NPARChiSquareTest.viztemplate", "NPAROneSampleRunsTest.viztemplate"})
        recorder.SetTemplate(file, "t");
    FieldInfoData& field = recorder.AddField({.fName = "weight"}, {{"1", "one"}});
    field.fDistribution = {"Interval", {}, {}, {{1}, {1}}};
}

Stats::BaseHypothesisTest& AddTest(ViewRecorder& recorder, TestKind testKind)
{
    Stats::BaseHypothesisTest& test =
        *recorder.Stats().CreateTest(sample::kOne, testKind, decision::kReject);
    test.fCondition = {"Any_O_Key_1", {{0, {0}}}, {}};
    return test;
}

}  // namespace

TEST(OneSample, PicksTheViewByTheKind)
{
    ViewRecorder recorder;
    Prepare(recorder);
    auto& chiSquare = AddTest(recorder, kind::kChiSquare);
    dynamic_cast<Stats::HTOChiSquare&>(chiSquare).fTable = {"Content", {"0"}, {}, {{1, 2}}};
    auto& binomial = AddTest(recorder, kind::kBinomial);
    dynamic_cast<Stats::HTOBinomial&>(binomial).fTable = {"", {"Observed"}, {"0"}, {{100}}};

    struct Row {
        const Stats::BaseHypothesisTest* test;
        const char* file;
        const char* title;
    };
    for (const Row& row :
         {Row{&chiSquare, "NPARChiSquareTest.viztemplate", "One-Sample Chi-Square Test"},
          Row{&binomial, "NPARStackedBar.viztemplate", "One-Sample Binomial Test"},
          Row{&AddTest(recorder, kind::kRuns), "NPAROneSampleRunsTest.viztemplate",
              "One-Sample Runs Test"},
          Row{&AddTest(recorder, kind::kOneSampleWilcoxon), "NPARHistogram.viztemplate",
              "One-Sample Wilcoxon Signed Rank Test"},
          Row{&AddTest(recorder, kind::kOneSampleKolmogorovSmirnov), "NPARHistogram.viztemplate",
              "One-Sample Kolmogorov-Smirnov Test"}}) {
        SCOPED_TRACE(row.title);
        const auto chart = Draw(recorder, row.test);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fTemplate, row.file);
        EXPECT_EQ(chart->fDescription, row.title);
    }
}

TEST(OneSample, DrawsNothingWithoutAView)
{
    ViewRecorder recorder;
    Prepare(recorder);
    EXPECT_FALSE(Draw(recorder, nullptr)) << "no record";
    EXPECT_FALSE(Draw(recorder, &AddTest(recorder, kind::kBinomialInterval)));
    for (const TestKind other : {0, 7, 20}) {
        SCOPED_TRACE(other);
        Stats::HTORuns runs;
        runs.fTestKind = other;
        EXPECT_FALSE(Draw(recorder, &runs));
    }
    for (TestKind testKind = 1; testKind <= 4; ++testKind) {
        SCOPED_TRACE(testKind);
        Stats::BaseHypothesisTest otherRecord;
        otherRecord.fTestKind = testKind;
        EXPECT_FALSE(Draw(recorder, &otherRecord)) << "a record of another type";
    }
}

TEST(OneSample, IsStoppedByErrorsOnly)
{
    ViewRecorder recorder;
    Prepare(recorder);
    auto& runs = AddTest(recorder, kind::kRuns);
    runs.fMessages.resize(2);
    for (auto& entry : runs.fMessages)
        entry.fType = message::kWarning;
    EXPECT_TRUE(Draw(recorder, &runs));
    runs.fMessages[1].fType = message::kHelp;
    EXPECT_TRUE(Draw(recorder, &runs));
    runs.fMessages[1].fType = message::kError;
    runs.fMessages[1].fCode = 222328;
    EXPECT_FALSE(Draw(recorder, &runs)) << "an error of one pair counts, too";
}

TEST(OneSample, HandsTheFieldToTheViewsOfADistribution)
{
    ViewRecorder recorder;
    Prepare(recorder);
    for (const TestKind testKind : {kind::kOneSampleWilcoxon, kind::kOneSampleKolmogorovSmirnov}) {
        const auto& test = AddTest(recorder, testKind);
        EXPECT_TRUE(Draw(recorder, &test, 0));
        EXPECT_FALSE(Draw(recorder, &test, 1)) << "no such field";
    }
}
