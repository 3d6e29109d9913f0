#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/onesample/OneSampleRuns.h"

#include "model/NOPRTestRecords.h"

namespace {

constexpr char kTemplate[] = "NPAROneSampleRunsTest.viztemplate";

std::optional<refhost::ChartNode> Draw(ViewRecorder& recorder, const NOPROutputStats::HTORuns* test,
                                       const std::string& split = "")
{
    OneSampleRuns view(recorder.Dictionary(), &recorder.Stats(), test);
    bool sent = false;
    auto chart = recorder.Draw([&] { sent = view.Render(split, true); });
    EXPECT_EQ(sent, chart.has_value());
    return chart;
}

}  // namespace

TEST(OneSampleRuns, OverwritesThePlaceholdersOfTheTemplate)
{
    struct Row {
        double mean;
        double spread;
        int runs;
        const char* text;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{10.5, 2.25, 8, "<range max=\"999\"/>", "<range max=\"21\"/>", "twice the mean"},
          Row{10.9, 2.25, 8, "<range max=\"999\"/>", "<range max=\"21\"/>", "cut"},
          Row{MissingValue, 2, 8, "<range max=\"999\"/>", "<range max=\"-2147483648\"/>",
              "a missing mean is written as it is"},
          Row{10.5, 2.25, 8, "secondaryParameter=\"0\" parameter=\"00\" parameter=\"00\"",
              "secondaryParameter=\"2.25\" parameter=\"10.5\" parameter=\"00\"",
              "the capital P tells them apart"},
          Row{10.5, 2.25, 8, "<lineGuide x=\"500\"/><lineGuide x=\"20\"/>",
              "<lineGuide x=\"10.5\"/><lineGuide x=\"8\"/>", "the guides by their old values"},
          Row{10.5, 2.25, 8, "ObservedRunsText TooFewRuns TooManyRuns TooFewRuns",
              "Runs: 8! Few Many TooFewRuns", "words"},
          Row{10.5, 2.25, 8, "<range max=\"9", "<range max=\"21", "the text ends too early"},
          Row{10.5, 2.25, 8, "parameter=\"", "parameter=\"10.5", "and here"},
          Row{10.5, 2.25, 8, "10% 10%", "10% 10%", "no split, no room for a subtitle"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, row.text);
        recorder.SetWords({{"Observed Number of Runs = ^1", "Runs: ^1!"},
                           {"Too few runs", "Few"},
                           {"Too many runs", "Many"}});
        NOPROutputStats::HTORuns test;
        test.fMean = row.mean;
        test.fStdDev = row.spread;
        test.fObservedRunNumber = row.runs;
        const auto chart = Draw(recorder, &test);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, row.expected);
    }
}

TEST(OneSampleRuns, SendsNoDataAndMakesRoomForASplit)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "10% 10%");
    const NOPROutputStats::HTORuns test;
    const auto chart = Draw(recorder, &test, "site: A");
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, "15% 10%");
    EXPECT_TRUE(chart->fSources.empty());
    EXPECT_THAT(CallLines(*chart),
                testing::ElementsAre(
                    "XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle \"One-Sample Runs Test\"", "XGraph.setSubtitle \"site: A\"",
                    "XDocument.SetDescription \"One-Sample Runs Test; site: A\"",
                    "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST(OneSampleRuns, NeedsARecordAndATemplate)
{
    ViewRecorder recorder;
    const NOPROutputStats::HTORuns test;
    EXPECT_FALSE(Draw(recorder, &test));
    recorder.SetTemplate(kTemplate, "t");
    EXPECT_TRUE(Draw(recorder, &test));
    EXPECT_FALSE(Draw(recorder, nullptr));
}
