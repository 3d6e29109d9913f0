#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"
#include "views/independent/IndependentSamples.h"

#include "model/NOPRTestRecords.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

constexpr char kTemplate[] =
    R"(<visualization id="v"><sourceVariable id="Value" source="boxplotSource"/>)"
    R"(<sourceVariable id="Label" source="boxplotSource"/>)"
    R"(<sourceVariable id="Category" source="boxplotSource"/>)"
    R"(<sourceVariable id="Tooltips" source="boxplotSource"/>)"
    R"(<graph id="graph1"><schema/></graph></visualization>)";

/// Two groups of a field with two decimals across a field with labels.
class BoxViews : public testing::Test {
protected:
    BoxViews()
    {
        fRecorder.AddField({.fName = "weight", .fLabel = "Weight", .fFormat = FormatOf(5, 8, 2)});
        fRecorder.AddField({.fName = "feed"}, {{"1", "Casein"}, {"2", "Linseed"}});
        fRecorder.SetTemplate("NPARBoxplot.viztemplate", kTemplate);
    }

    template <class Record>
    Record& AddTest(TestKind testKind, int groups = 2)
    {
        auto& test = dynamic_cast<Record&>(
            *fRecorder.Stats().CreateTest(sample::kIndependent, testKind, decision::kRetain));
        test.fCondition.fConditionKey = "DefaultAllDistinctValuesUsed_I_Median_2";
        test.fCondition.fParameters = {{0, {0}}, {1, {1}}};
        test.fBoxPlot.fGrandMedian = 2.5;
        for (int group = 0; group < groups; ++group) {
            NOPROutputStats::BoxGroup box;
            box.fGroupIndex = group;
            box.fN = 10 + group;
            box.fMeanOfRank = 7.25 + group;
            box.fBox.fRows = {{1, 2, 3, 4, 5}};
            test.fBoxPlot.fGroups.push_back(box);
        }
        return test;
    }

    std::optional<refhost::ChartNode> Draw()
    {
        return fRecorder.Draw([&] {
            IndependentSamples(fRecorder.Dictionary(), &fRecorder.Stats())
                .DrawTest(fRecorder.Stats().GetTest(0), "", false);
        });
    }

    ViewRecorder fRecorder;
};

TEST_F(BoxViews, KruskalWallisShowsTheMeanRankInThePopupOfTheMedian)
{
    fRecorder.SetWords({{"Mean Rank", "Mittlerer Rang"}});
    AddTest<NOPROutputStats::HTIKruskalWallis>(kind::kKruskalWallis);
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_THAT(
        chart->fText,
        HasSubstr(
            R"(</graph><popup part="median" target="schema" tokenTemplate="Mittlerer Rang=$[1]$">)"
            R"(<tokenMapping valueToken="1" variable="Tooltips"/></popup></visualization>)"));
    EXPECT_EQ(RowLines(*chart, "boxplotSource").at(1), "Value=1 Category=0 Tooltips=\"7.25\"");
}

TEST_F(BoxViews, MedianAddsAGuideBeforeTheEndOfTheGraphAndAFrameBehindIt)
{
    struct Row {
        const char* reason;
        bool hasVariable;
        const char* median;
    };
    for (const Row& row : {Row{"one decimal more than the field", true, "2.500"},
                           Row{"without a variable two decimals", false, "2.50"}}) {
        SCOPED_TRACE(row.reason);
        if (!row.hasVariable) fRecorder.Stats().GetFieldInfo(0)->fVariable = nullptr;
        fRecorder.Stats().GetTests().clear();
        AddTest<NOPROutputStats::HTIMedian>(kind::kMedian);
        const auto chart = Draw();
        ASSERT_TRUE(chart);
        const std::string median = row.median;
        EXPECT_THAT(chart->fText,
                    HasSubstr(R"(<lineGuide y=")" + median +
                              R"("/></graph><labelFrame>)"
                              R"(<location method="sizeToContent" part="width"/>)"
                              R"(<location method="fixed" part="bottom" value="35%"/>)"
                              R"(<location method="same" part="right" target="graph1"/>)"
                              R"(<label><text>Grand Median = )" +
                              median + "</text></label></labelFrame>"));
    }
}

TEST_F(BoxViews, ATemplateWithoutTheTagsIsLeftAlone)
{
    fRecorder.SetTemplate("NPARBoxplot.viztemplate", "<visualization>");
    for (const TestKind testKind : {kind::kKruskalWallis, kind::kMedian}) {
        SCOPED_TRACE(testKind);
        fRecorder.Stats().GetTests().clear();
        if (testKind == kind::kMedian)
            AddTest<NOPROutputStats::HTIMedian>(testKind);
        else
            AddTest<NOPROutputStats::HTIKruskalWallis>(testKind);
        const auto chart = Draw();
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, "<visualization>");
    }
}

TEST_F(BoxViews, MosesNamesTheRolesOfTheFirstTwoGroups)
{
    fRecorder.SetWords({{"NPAR_BOXPLOT_CONTROLGROUP", "Control\\nN = "},
                        {"NPAR_BOXPLOT_EXPERIMENTALGROUP", "Experimental "}});
    AddTest<NOPROutputStats::HTIMoses>(kind::kMoses, 3);
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    std::vector<std::string> relabels;
    std::vector<std::string> operations;
    for (const refhost::ChartCall& call : chart->fCalls) {
        if (call.fOperation.starts_with("ViZ")) operations.push_back(call.fOperation);
        if (call.fOperation != "ViZFormat.addRelabel") continue;
        for (std::size_t i = call.fArguments.size() - 2; i < call.fArguments.size(); ++i)
            relabels.push_back(std::get<std::string>(call.fArguments[i]));
    }
    EXPECT_THAT(relabels, ElementsAre("0", "Control\nN = 10", "1", "Experimental 11"));
    EXPECT_THAT(operations,
                IsSupersetOf({"ViZSchema.addLabeling", "ViZLabeling.setVariable",
                              "ViZVisualization.addDerivedVariable", "ViZDerivedVariable.setValue",
                              "ViZSchema.addColor", "ViZColor.setId", "ViZColor.setVariable",
                              "ViZVisualization.addLegend", "ViZLegend.addLegendTarget",
                              "ViZVisualization.addExtension", "ViZExtension.setLegend1",
                              "ViZDerivedVariable.addFormat"}));
}

TEST_F(BoxViews, MosesAddsOnlyWhatTheTemplateAndTheGroupsAllow)
{
    struct Row {
        const char* reason;
        const char* templateText;
        int groups;
        bool labels;
        bool colours;
        bool roles;
    };
    const Row rows[] = {
        {"no variables, nothing added",
         R"(<visualization><graph id="graph1"><schema/></graph></visualization>)", 2, false, false,
         false},
        {"no element that draws boxes",
         R"(<visualization><sourceVariable id="Label" source="boxplotSource"/><graph/></visualization>)",
         2, false, false, false},
        {"one group has a colour, but no text in the legend", kTemplate, 1, true, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.reason);
        fRecorder.SetTemplate("NPARBoxplot.viztemplate", row.templateText);
        fRecorder.Stats().GetTests().clear();
        AddTest<NOPROutputStats::HTIMoses>(kind::kMoses, row.groups);
        const auto chart = Draw();
        ASSERT_TRUE(chart);
        const auto has = [&](const char* operation) {
            return std::any_of(chart->fCalls.begin(), chart->fCalls.end(),
                               [&](const auto& call) { return call.fOperation == operation; });
        };
        EXPECT_EQ(has("ViZSchema.addLabeling"), row.labels);
        EXPECT_EQ(has("ViZSchema.addColor"), row.colours);
        EXPECT_EQ(has("ViZFormat.addRelabel"), row.roles);
    }
}

TEST_F(BoxViews, ErrorsStopAChartAndWarningsDoNot)
{
    auto& test = AddTest<NOPROutputStats::HTIKruskalWallis>(kind::kKruskalWallis);
    test.fMessages.emplace_back().fType = message::kWarning;
    EXPECT_TRUE(Draw());
    test.fMessages.emplace_back().fCode = 222328;  // an error, as every new message
    EXPECT_FALSE(Draw()) << "an error about one pair counts too";
}

TEST_F(BoxViews, JonckheereTerpstraAddsNothing)
{
    AddTest<NOPROutputStats::HTIJonckheereTerpstra>(kind::kJonckheereTerpstra);
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, kTemplate);
    EXPECT_THAT(RowLines(*chart, "boxplotSource").at(1), Not(HasSubstr("Tooltips=")));
}

}  // namespace
