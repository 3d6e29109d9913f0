#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/onesample/OneSampleWilcoxonSignedRanks.h"

#include "model/NOPRTestRecords.h"

using testing::Contains;
using testing::HasSubstr;

namespace {

constexpr char kTemplate[] = "NPARHistogram.viztemplate";
constexpr char kWithGraph[] =
    "<visualization><graph id=\"graph1\"></graph><extension></extension></visualization>";

class WilcoxonView : public testing::Test {
protected:
    WilcoxonView()
    {
        fRecorder.SetTemplate(kTemplate, kWithGraph);
        fRecorder.SetWords({{"OWilcoxonSignedRanksHypotheticalMedian", "Supposed\\n= "},
                            {"OWilcoxonSignedRanksObservedMedian", "Seen "},
                            {"Frequency", "Count"}});
        fTest.fHypotheticalMedian = 10;
        fTest.fObservedMedian = 12.5;
    }

    FieldInfoData& Filled(FieldInfoData& field)
    {
        field.fDistribution.fRows = {{1}, {1}};
        return field;
    }

    std::optional<refhost::ChartNode> Draw(const std::string& split = "")
    {
        OneSampleWilcoxonSignedRanks view(fRecorder.Dictionary(), &fRecorder.Stats(), &fTest);
        view.SelectField(0);
        return fRecorder.Draw([&] { view.Render(split, false); });
    }

    ViewRecorder fRecorder;
    NOPROutputStats::HTOWilcoxonSignedRanks fTest;
};

/// The calls on the object model and all behind the titles, without their objects' names.
std::vector<std::string> Operations(const refhost::ChartNode& chart)
{
    std::vector<std::string> operations;
    for (const refhost::ChartCall& call : chart.fCalls)
        operations.push_back(call.fOperation);
    return operations;
}

}  // namespace

TEST_F(WilcoxonView, BuildsGuidesThenFramesOnTheObjectModel)
{
    Filled(fRecorder.AddField({.fName = "x", .fFormat = FormatOf(5, 8, 1)}));
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    std::vector<std::string> expected = {"XDocument.setEditor", "XDocument.setLanguage",
                                         "XDocument.getExternalGraph", "XGraph.setTitle",
                                         "XDocument.getVisualization"};
    const auto add = [&](std::initializer_list<const char*> operations) {
        expected.insert(expected.end(), operations.begin(), operations.end());
    };
    add({"ViZVisualization.getGraphs"});
    add({"ViZVisualization.addStyle", "ViZStyle.setColor"});
    add({"ViZVisualization.addStyle", "ViZStyle.setColor"});
    add({"ViZGraph.addLineGuide", "ViZLineGuide.setX", "ViZLineGuide.setStyle"});
    add({"ViZGraph.addLineGuide", "ViZLineGuide.setX", "ViZLineGuide.setStyle"});
    add({"ViZGraph.addLocation", "ViZLocation.setPart", "ViZLocation.setMethod",
         "ViZLocation.setValue", "ViZLocation.setSpecifiedByUser"});
    add({"ViZGraph.addLocation", "ViZLocation.setPart", "ViZVisualization.getExtension",
         "ViZExtension.getSubtitle", "ViZLocation.setValue", "ViZLocation.setSpecifiedByUser"});
    for (const char* lastSetting : {"ViZLocation.setValue", "ViZLocation.setTarget"}) {
        add({"ViZVisualization.addLabelFrame"});
        for (const char* setting :
             {"ViZLocation.setTarget", "ViZLocation.setTarget", "", lastSetting}) {
            add({"ViZLabelFrame.addLocation", "ViZLocation.setPart", "ViZLocation.setMethod"});
            if (*setting) add({setting});
        }
        add({"ViZLabelFrame.addLabel", "ViZVisualization.addStyle", "ViZStyle.setColor",
             "ViZStyle.setFont_weight", "ViZLabel.setStyle", "ViZLabel.addText",
             "ViZText.setText"});
    }
    add({"XDocument.getExternalGraph", "XGraph.getVariable", "XVariable.setQORTVariable",
         "XVariable.setFormatBasedOnQORTVariable", "XDocument.SetDescription",
         "XDocument.SetChartData", "XDocument.applyCTemplate", "XDocument.SendChart"});
    EXPECT_EQ(Operations(*chart), expected);
}

TEST_F(WilcoxonView, PutsGreenAtTheHypothesizedAndBlueAtTheObservedMedian)
{
    Filled(fRecorder.AddField({.fName = "x", .fFormat = FormatOf(5, 8, 1)}));
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    std::vector<std::string> facts;
    for (const std::string& line : CallLines(*chart))
        for (const char* operation : {"Style.setColor", "Guide.setX", "Guide.setStyle",
                                      "Label.setStyle", "Text.setText", "Frame ", "font"})
            if (line.find(operation) != std::string::npos) facts.push_back(line);
    EXPECT_THAT(facts,
                testing::ElementsAre("ViZStyle.setColor \"lineGuide1Style\" \"green\"",
                                     "ViZStyle.setColor \"lineGuide2Style\" \"blue\"",
                                     "ViZLineGuide.setX \"lineGuide1\" \"10\"",
                                     "ViZLineGuide.setStyle \"lineGuide1\" \"lineGuide1Style\"",
                                     "ViZLineGuide.setX \"lineGuide2\" \"12.5\"",
                                     "ViZLineGuide.setStyle \"lineGuide2\" \"lineGuide2Style\"",
                                     HasSubstr("\"frameHypotheticalMedian\""),
                                     "ViZStyle.setColor \"label1Style\" \"green\"",
                                     "ViZLabel.setStyle \"label1\" \"label1Style\"",
                                     "ViZText.setText \"text1\" \"Supposed\n= 10.0\"",
                                     HasSubstr("\"frameObservedMedian\""),
                                     "ViZStyle.setColor \"label2Style\" \"blue\"",
                                     "ViZLabel.setStyle \"label2\" \"label2Style\"",
                                     "ViZText.setText \"text2\" \"Seen 12.5\""));
}

TEST_F(WilcoxonView, MakesRoomForASplit)
{
    Filled(fRecorder.AddField({.fName = "x"}));
    struct Row {
        const char* split;
        const char* top;
    };
    for (const Row& row : {Row{"", "10%"}, Row{"site: A", "15%"}}) {
        const auto chart = Draw(row.split);
        ASSERT_TRUE(chart);
        std::vector<std::string> values;
        for (const refhost::ChartCall& call : chart->fCalls)
            if (call.fOperation == "ViZLocation.setValue")
                values.push_back(std::get<std::string>(call.fArguments.back()));
        EXPECT_THAT(values, testing::ElementsAre("80%", row.top, "100%"));
    }
}

TEST_F(WilcoxonView, ShowsExactMediansAndKeepsTheTokensWithoutAVariable)
{
    fRecorder.SetTemplate(kTemplate, std::string("xAxisLabel yAxisLabel labelText") + kWithGraph);
    Filled(fRecorder.AddFieldWithoutVariable());
    auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_THAT(chart->fText, testing::StartsWith("xAxisLabel yAxisLabel labelText<"));
    EXPECT_THAT(CallLines(*chart), Contains(HasSubstr("\"Supposed\n= 10\"")));
    EXPECT_THAT(CallLines(*chart), testing::Not(Contains(HasSubstr("getVariable"))));
}

TEST_F(WilcoxonView, NamesTheAxesAndHasNoTextForTheLabel)
{
    fRecorder.SetTemplate(kTemplate, "xAxisLabel|yAxisLabel|labelText|");
    Filled(fRecorder.AddField({.fName = "x", .fLabel = "R&D"}));
    const auto chart = Draw();
    ASSERT_TRUE(chart) << "a text without a graph is sent without overlays";
    EXPECT_EQ(chart->fText, "R&D|Count||");
}

TEST_F(WilcoxonView, DrawsNothingWithoutARecordOrForCategories)
{
    FieldInfoData& field = Filled(fRecorder.AddField({.fName = "x"}));
    OneSampleWilcoxonSignedRanks view(fRecorder.Dictionary(), &fRecorder.Stats(), nullptr);
    view.SelectField(0);
    EXPECT_FALSE(fRecorder.Draw([&] { EXPECT_FALSE(view.Render("", false)); }));
    field.fIsCategorical = true;
    EXPECT_FALSE(Draw());
}
