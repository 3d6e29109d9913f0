#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/onesample/ChiSquare.h"

#include "model/NOPRTestRecords.h"

using testing::ElementsAre;

namespace {

constexpr char kTemplate[] = "NPARChiSquareTest.viztemplate";

class ChiSquareView : public testing::Test {
protected:
    ChiSquareView()
    {
        fRecorder.SetTemplate(kTemplate, "t");
        fRecorder.AddField({.fName = "feed", .fLabel = "Feed"}, {{"1", "casein"}, {"2.5", ""}});
        fRecorder.AddFieldWithoutVariable();
        fTest.fCondition = {"Any_O_ChiSquare_1", {{0, {0}}}, {}};
        fTest.fTable = {"Content", {"0"}, {}, {{10, 12.5}}};
    }

    std::optional<refhost::ChartNode> Draw(const std::string& split = "")
    {
        ChiSquare view(fRecorder.Dictionary(), &fRecorder.Stats(), &fTest);
        bool sent = false;
        auto chart = fRecorder.Draw([&] { sent = view.Render(split, false); });
        EXPECT_EQ(sent, chart.has_value());
        return chart;
    }

    ViewRecorder fRecorder;
    NOPROutputStats::HTOChiSquare fTest;
};

}  // namespace

TEST_F(ChiSquareView, WritesEachCategoryAsTwoRows)
{
    fTest.fTable = {"Content", {"0", "1", "-1", "7"}, {}, {{10, 12.5}, {3, 1}, {1, 1}, {0, 2}}};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    const auto rows = [](const std::string& category, const std::string& observed,
                         const std::string& hypothesized, const std::string& residual) {
        const std::string both = " Observed=" + observed + " Hypothesized=" + hypothesized;
        const std::string name = "Category=\"" + category + "\" Frequency=";
        const std::string rest = " Residual=\"" + residual + "\"";
        return std::pair(name + observed + both + " Type=\"a\"" + rest,
                         name + hypothesized + both + " Type=\"b\"" + rest);
    };
    const auto casein = rows("casein", "10", "12.5", "-2.50");
    const auto value = rows("2.5", "3", "1", "2.00");
    const auto nothing = rows("", "1", "1", "0.00");
    const auto unknown = rows("7", "0", "2", "-2.00");
    EXPECT_THAT(RowLines(*chart, "graphSource"),
                ElementsAre("Category Frequency Observed Hypothesized Type Residual", casein.first,
                            casein.second, value.first, value.second, nothing.first, nothing.second,
                            unknown.first, unknown.second));
}

TEST_F(ChiSquareView, KeepsItsTitleInTheTemplate)
{
    fRecorder.SetWords({{"Observed", "Seen"}, {"Hypothesized", "Supposed"}});
    const auto chart = Draw("site: A");
    ASSERT_TRUE(chart);
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre(
            "XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
            "XDocument.SetDescription \"One-Sample Chi-Square Test\"", "XDocument.SetChartData",
            "XGraph.getVariable \"Type\"", "XVariable.addRelabel \"Type\" \"a\" \"Seen\"",
            "XVariable.addRelabel \"Type\" \"b\" \"Supposed\"", "XGraph.setSubtitle \"site: A\"",
            "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST_F(ChiSquareView, FillsTheTokensAndThePopup)
{
    fRecorder.SetWords({{"Frequency", "Count"},
                        {"Observed", "Seen"},
                        {"Hypothesized", "Supposed"},
                        {"E61605", "Rest"},
                        {"One-Sample Chi-Square Test", "Title"}});
    struct Row {
        const char* text;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{"titleText xAxisText yAxisText legendTitle", "Title Feed Count Count", "all tokens"},
          Row{"<popup a=\"1\"/><popup a=\"2\"/>",
              "<popup tokenTemplate=\"Feed=$[category]$\nSeen=$[observed]$\n"
              "Supposed=$[hypothesized]$\nRest=$[residual]$\" a=\"1\"/><popup a=\"2\"/>",
              "the first popup"},
          Row{"xAxisText xAxisText", "Feed xAxisText", "the first token; no popup"},
          Row{"<popup", "<popup", "the text ends within the tag"}}) {
        SCOPED_TRACE(row.why);
        fRecorder.SetTemplate(kTemplate, row.text);
        const auto chart = Draw();
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, row.expected);
    }
}

TEST_F(ChiSquareView, RefusesOtherTablesAndFields)
{
    struct Row {
        NumericTable table;
        std::vector<NOPROutputStats::ConditionParameter> parameters;
        const char* why;
    };
    const NumericTable good = {"Content", {"0"}, {}, {{10, 12.5}}};
    for (const Row& row :
         {Row{{"Other", {"0"}, {}, {{1, 2}}}, {{0, {0}}}, "another table"},
          Row{{"Content", {}, {}, {{1, 2}}}, {{0, {0}}}, "no row names"},
          Row{{"Content", {"0"}, {}, {}}, {{0, {0}}}, "no numbers"},
          Row{{"Content", {"0"}, {}, {{1}}}, {{0, {0}}}, "no hypothesized frequency"},
          Row{good, {}, "no field"}, Row{good, {{0, {1}}}, "a field without a variable"},
          Row{good, {{0, {2}}}, "no such field"}, Row{good, {{0, {-1e300}}}, "far from a field"}}) {
        SCOPED_TRACE(row.why);
        fTest.fTable = row.table;
        fTest.fCondition.fParameters = row.parameters;
        EXPECT_FALSE(Draw());
    }
}

TEST_F(ChiSquareView, NeedsARecordAndATemplate)
{
    fRecorder.SetTemplate(kTemplate, "");
    EXPECT_FALSE(Draw());
    fRecorder.SetTemplate(kTemplate, "t");
    ChiSquare noTest(fRecorder.Dictionary(), &fRecorder.Stats(), nullptr);
    ChiSquare noStats(fRecorder.Dictionary(), nullptr, &fTest);
    EXPECT_FALSE(fRecorder.Draw([&] { EXPECT_FALSE(noTest.Render("", false)); }));
    EXPECT_FALSE(fRecorder.Draw([&] { EXPECT_FALSE(noStats.Render("", false)); }));
}
