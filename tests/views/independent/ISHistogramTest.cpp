#include "views/independent/ISHistogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"
#include "views/independent/IndependentSamples.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr char kMirrored[] = "NPARRelatedSamplesHistogram.viztemplate";
constexpr char kUpright[] = "NPARKolmogorovSmirnov.viztemplate";
constexpr char kText[] = R"(<v a="xTitle" b="subTitle" c="yTitle0" d="yTitle1">)"
                         R"(<f alternating="false" side="x" invert="true" top="3%"/></v>)";
constexpr char kNamed[] = R"(<v a="Frequency" b="Feed" c="Weight" d="Weight">)"
                          R"(<f alternating="false" side="x" invert="true" top="3%"/></v>)";
constexpr char kTurned[] = R"(<v a="Frequency" b="Feed" c="Weight" d="Weight">)"
                           R"(<f alternating="true" side="y" invert="false" top="18%"/></v>)";

class GroupHistograms : public testing::Test {
protected:
    GroupHistograms()
    {
        fRecorder.AddField({.fName = "weight", .fLabel = "Weight", .fFormat = FormatOf(5, 8, 0)});
        fRecorder.AddField({.fName = "feed", .fLabel = "Feed"}, {{"1", "Casein"}, {"2", ""}});
        fRecorder.SetTemplate(kMirrored, kText);
        fRecorder.SetTemplate(kUpright, kText);
    }

    template <class Record>
    Record& AddTest(TestKind testKind)
    {
        fRecorder.Stats().GetTests().clear();
        auto& test = dynamic_cast<Record&>(
            *fRecorder.Stats().CreateTest(sample::kIndependent, testKind, decision::kRetain));
        test.fCondition.fParameters = {{0, {0}}, {1, {1}}};
        for (int group = 0; group < 3; ++group) {
            NOPROutputStats::SampleGroup& added = test.fGroups.emplace_back();
            added.fGroupIndex = group;
            added.fN = 12 + group;
            added.fMeanOfRank = 18.5 - group;
            added.fTable.fRows = {{4.0 + group}, {100}};
        }
        return test;
    }

    std::optional<refhost::ChartNode> Draw()
    {
        return fRecorder.Draw([&] {
            IndependentSamples(fRecorder.Dictionary(), &fRecorder.Stats())
                .DrawTest(fRecorder.Stats().GetTest(0), "Sex: m", true);
        });
    }

    ViewRecorder fRecorder;
};

TEST_F(GroupHistograms, MannWhitneyCallsTheLibraryInItsOrder)
{
    AddTest<NOPROutputStats::HTIMannWhitneyU>(kind::kMannWhitney);
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fTemplate, kMirrored);
    EXPECT_EQ(chart->fText, kTurned);
    EXPECT_THAT(RowLines(*chart, "graphSource"),
                ElementsAre("COUNTS MEANS LABELNAME TYPES",
                            "COUNTS=4 MEANS=100 LABELNAME=\"Casein\" TYPES=\"Casein\"",
                            "COUNTS=5 MEANS=100 LABELNAME=\"2\" TYPES=\"2\""));
    const std::string title = "\"Independent-Samples Mann-Whitney U Test\"";
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle " + title, "XGraph.setSubtitle \"Sex: m\"",
                    "XGraph.getVariable \"labelname\"",
                    "XVariable.addRelabel \"labelname\" \"Casein\" \"N = 12\nMean Rank = 18.50\"",
                    "XGraph.getVariable \"labelname\"",
                    "XVariable.addRelabel \"labelname\" \"2\" \"N = 13\nMean Rank = 17.50\"",
                    "XGraph.getVariable \"types\"", "XVariable.setQORTVariable \"types\" \"feed\"",
                    "XVariable.addRelabel \"types\" \"0\" \"Casein\"",
                    "XVariable.addRelabel \"types\" \"1\" {2}", "XGraph.getVariable \"means\"",
                    "XVariable.setFormatBasedOnQORTVariable \"means\" \"weight\"",
                    "XDocument.SetDescription \"Independent-Samples Mann-Whitney U Test; Sex: m\"",
                    "XDocument.SetChartData", "XDocument.applyCTemplate false",
                    "XDocument.SendChart true false false"));
}

TEST_F(GroupHistograms, TheOtherTestsDifferAsTheirFormsSay)
{
    AddTest<NOPROutputStats::HTIWaldWolfowitzRuns>(kind::kWaldWolfowitz);
    auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, kTurned);
    EXPECT_THAT(CallLines(*chart),
                Contains("XVariable.addRelabel \"labelname\" \"Casein\" \"N = 12\""));

    AddTest<NOPROutputStats::HTIKolmogorovSmirnov>(kind::kTwoSampleKolmogorovSmirnov);
    chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fTemplate, kUpright);
    EXPECT_EQ(chart->fText, kNamed) << "the upright template is not turned";
    EXPECT_THAT(CallLines(*chart), testing::Not(Contains("XGraph.getVariable \"types\"")));
}

TEST_F(GroupHistograms, MarkersAreTurnedOneByOne)
{
    struct Row {
        const char* reason;
        const char* before;
        const char* after;
    };
    for (const Row& row :
         {Row{"nothing there", "<v/>", "<v/>"},
          Row{"no x behind", R"(<v alternating="false"/>)", R"(<v alternating="true"/>)"},
          Row{"the text ends within", R"(<v alternating="fal)", R"(<v alternating="true)"},
          Row{"the first 3% counts", "3% 3%", "18% 3%"}}) {
        SCOPED_TRACE(row.reason);
        fRecorder.SetTemplate(kMirrored, row.before);
        AddTest<NOPROutputStats::HTIMannWhitneyU>(kind::kMannWhitney);
        const auto chart = Draw();
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, row.after);
    }
}

TEST_F(GroupHistograms, MeansOfDatesAndTimesAreTexts)
{
    struct Row {
        int type;
        const char* mean;
    };
    for (const Row& row : {Row{20, "\"1970-04-11\""}, Row{21, "\"00:01:40\""},
                           Row{85, "\"00:01:40\""}, Row{5, "100"}, Row{31, "100"}}) {
        SCOPED_TRACE(row.type);
        ViewRecorder recorder;
        recorder.AddField({.fName = "day", .fFormat = FormatOf(row.type, 11, 0)});
        recorder.AddField({.fName = "feed"}, {{"1", "a"}, {"2", "b"}});
        recorder.SetTemplate(kMirrored, kText);
        NOPROutputStats::HTIMannWhitneyU test;
        test.fGroups.resize(2);
        test.fGroups[1].fTable.fRows = {{1}, {100}};
        test.fCondition.fParameters = {{0, {0}}, {1, {1}}};
        const auto chart = recorder.Draw([&] {
            ISHistogram(recorder.Dictionary(), &recorder.Stats(), &test).Render("", false);
        });
        ASSERT_TRUE(chart) << "a group without a table adds no row";
        EXPECT_THAT(RowLines(*chart, "graphSource").at(1),
                    HasSubstr(std::string("MEANS=") + row.mean));
    }
}

TEST_F(GroupHistograms, RolesGoByTheNumberOfTheParameter)
{
    auto& test = AddTest<NOPROutputStats::HTIMannWhitneyU>(kind::kMannWhitney);
    test.fCondition.fParameters = {{1, {}}, {1, {1}}, {1, {0}}, {0, {99}}};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_THAT(chart->fText, HasSubstr(R"(b="Feed" c="yTitle0")"))
        << "an empty parameter names nothing, of two the first counts, and field 99 is none";
}

TEST_F(GroupHistograms, AGroupingFieldWithoutARecordGivesCodes)
{
    auto& test = AddTest<NOPROutputStats::HTIMannWhitneyU>(kind::kMannWhitney);
    test.fCondition.fParameters = {{0, {0}}, {1, {-7}}};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(RowLines(*chart, "graphSource").at(2),
              "COUNTS=5 MEANS=100 LABELNAME=\"1\" TYPES=\"1\"");
}

TEST_F(GroupHistograms, TwoGroupsAndABarAreNeeded)
{
    auto& test = AddTest<NOPROutputStats::HTIMannWhitneyU>(kind::kMannWhitney);
    test.fGroups.resize(1);
    EXPECT_FALSE(Draw());
    auto& barless = AddTest<NOPROutputStats::HTIMannWhitneyU>(kind::kMannWhitney);
    for (auto& group : barless.fGroups)
        group.fTable.fRows = {{}, {}};
    EXPECT_FALSE(Draw());
}

}  // namespace
