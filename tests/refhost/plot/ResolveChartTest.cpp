#include "refhost/plot/ResolveChart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "refhost/plot/Picture.h"
#include "refhost/plot/PlotScales.h"
#include "refhost/plot/SampleChart.h"

namespace refhost::test {
namespace {

SampleChart SixBars() { return Histogram({1, 2, 2.5, 3, 7, 9.5}, {2, 5, 1, 7, 3, 2}); }

TEST(ResolveChart, DrawsNothingWithoutAVisualizationOrData)
{
    EXPECT_EQ(ResolveChart(ChartNode(), WordsOfPlots("en")), nullptr);
    EXPECT_EQ(SampleChart("<nothing/>").Resolve(), nullptr);
    EXPECT_EQ(SampleChart(TemplateText("NPARHistogram")).Resolve(), nullptr);
    SampleChart empty(TemplateText("NPARBoxplot"));
    EXPECT_EQ(empty.Source("boxplotSource").Numbers("Value", {}).Resolve(), nullptr);
}

TEST(ResolveChart, PutsGuidesWhereTheTreeSays)
{
    SampleChart sample = SixBars();
    tree::LineGuide guide;
    guide.fPlace = "4.25";
    sample.Tree().fGraphs.front().fLineGuides.push_back(guide);
    guide.fPlace = "14";
    sample.Tree().fGraphs.front().fLineGuides.push_back(guide);
    guide.fPlace = "no number";
    sample.Tree().fGraphs.front().fLineGuides.push_back(guide);
    const ResolvedChart chart = sample.Drawn();
    std::vector<double> places;
    for (const ResolvedMark& mark : MarksOf(chart.fPlots[0], MarkKind::Rule))
        places.push_back(mark.fX);
    EXPECT_EQ(places, (std::vector<double>{4.25, 14}));
    EXPECT_GT(chart.fPlots[0].fX.fMax, 14) << "a guide beyond the data is seen all the same";
}

TEST(ResolveChart, PutsAFrameAtItsPercentageOfThePicture)
{
    SampleChart sample = SixBars();
    tree::LabelFrame frame;
    frame.fId = "note";
    frame.fLocations.resize(2);
    frame.fLocations.front().fPart = ENUM_part::Left;
    frame.fLocations.back().fPart = ENUM_part::Top;
    frame.fLabels.emplace_back().fTexts.push_back({"", "a note"});
    const auto placeOf = [&](const char* left, const char* top) {
        SampleChart copy = sample;
        frame.fLocations.front().fValue = left;
        frame.fLocations.back().fValue = top;
        copy.Tree().fLabelFrames.push_back(frame);
        for (const ResolvedMark& mark : MarksOf(copy.Drawn().fPlots[0], MarkKind::Text))
            if (mark.fText == "a note") return mark;
        return ResolvedMark();
    };
    const ResolvedMark far = placeOf("80%", "50%"), near = placeOf("30%", "35%");
    EXPECT_NEAR(far.fX - near.fX, 0.5 * 500, 1e-9) << "half of the usual picture's width";
    EXPECT_NEAR(far.fY - near.fY, 0.15 * 320, 1e-9);
}

TEST(ResolveChart, KeepsCategoriesOfOneLabelApartAndInTheirOrder)
{
    SampleChart sample(TemplateText("NPARStackedBar"));
    sample.Replace("scalingFactor=\"1\"", "scalingFactor=\"0.5\"");
    sample.Texts("categories", {"b", "a"}).Texts("type", {"Yes", "Yes"});
    sample.Numbers("value", {60, 50});
    sample.Set("categories").fRelabels = {{"a", "same"}, {"b", "same"}};
    const ResolvedChart chart = sample.Drawn();
    const ResolvedPlot& plot = chart.fPlots[0];
    ASSERT_EQ(plot.fX.fCategories.size(), 2u);
    EXPECT_EQ(plot.fX.fCategories[0].fKey, "b") << "the data's order, not the alphabet";
    EXPECT_EQ(plot.fX.fCategories[1].fLabel, "same");
    EXPECT_EQ(FindLayer(plot, MarkKind::Rect)->fMarks.front().fY2, 120)
        << "the percentage divided by the factor";
}

TEST(ResolveChart, RelabelsTextsUnlessTheTemplateSaysThatTheyAreLabels)
{
    using Labels = std::vector<std::string>;
    const auto labels = [](const std::string& attribute) {
        SampleChart sample(TemplateText("NPARStackedBar"));
        const std::string column = "column=\"categories\"";
        sample.Replace(column, column + attribute);
        sample.Texts("categories", {"1", "2"}).Texts("type", {"a", "a"});
        sample.Numbers("value", {40, 60});
        sample.Set("categories").fRelabels = {{"1", "2"}, {"2", "1"}};
        return TickTexts(*FindAxis(sample.Drawn().fPlots[0], AxisSide::Bottom));
    };
    EXPECT_EQ(labels(""), (Labels{"2", "1"}));
    EXPECT_EQ(labels(" holdsLabels=\"true\""), (Labels{"1", "2"}));
}

TEST(ResolveChart, DrawsTheCellsOfACrossTable)
{
    SampleChart sample(TemplateText("FacetBarChart"));
    const ChartValue none = std::string();
    sample.Column("CellText", {9.0, none, none, none, none, 8.0});
    sample.Numbers("Row", {0, 0, 0, 1, 1, 1}).Numbers("Column", {0, 1, 1, 0, 0, 1});
    sample.Numbers("Category", {0, 0, 1, 0, 1, 0});
    sample.Column("CellValue", {none, 10.0, 7.0, 4.0, 7.0, none});
    sample.Set("celltext").fPrefix = "Observed Frequency\n ";
    const ResolvedChart chart = sample.Drawn();
    ASSERT_EQ(chart.fPlots.size(), 4u);
    EXPECT_EQ(chart.fColumns, 2);
    const std::size_t bars[] = {0, 2, 2, 0};
    for (std::size_t cell = 0; cell < 4; ++cell) {
        EXPECT_EQ(CountMarks(chart.fPlots[cell], MarkKind::Rect), bars[cell]) << cell;
        EXPECT_EQ(chart.fPlots[cell].fY.fMax, chart.fPlots[0].fY.fMax) << "one count range";
    }
    EXPECT_EQ(Texts(chart.fPlots[0]), std::vector<std::string>{"Observed Frequency\n 9"});
    EXPECT_EQ(Texts(chart.fPlots[1]), (std::vector<std::string>{"10", "7"}));
}

TEST(ResolveChart, DrawsEdgesOnlyForPairsInTheData)
{
    SampleChart sample(TemplateText("GLMMPairwiseContrasts"));
    sample.Source("nodeSource_1").Numbers("node", {0, 1, 2, 3});
    sample.Source("edgeSource_1").Numbers("from", {0, 1, 2}).Numbers("to", {1, 2, 9});
    sample.Numbers("weight", {1, 4, 1}).Numbers("weightInPopup", {0.0002, 0.5, 0.2});
    sample.Numbers("type", {1, 2, 1});
    sample.Set("node").fRelabels = {{"0", "casein\n52.33"}};
    sample.Set("weightInPopup").fPrefix = "Adj. Sig. = ";
    const ResolvedChart chart = sample.Drawn();
    const ResolvedPlot& plot = chart.fPlots[0];
    EXPECT_EQ(CountMarks(plot, MarkKind::Rule), 2u) << "no edge to a node that isn't there";
    EXPECT_EQ(CountMarks(plot, MarkKind::Point), 4u);
    EXPECT_EQ(Texts(plot).front(), "casein\n52.33");
    for (const MarkLayer& layer : plot.fLayers) {
        if (layer.fKind != MarkKind::Rule) continue;
        const bool isSignificant = layer.fMarks[0].fSeries == "1";
        EXPECT_EQ(layer.fStyle.fDash.empty(), isSignificant) << "not by colour alone";
    }
    using Strings = std::vector<std::string>;
    EXPECT_EQ(chart.fData.fColumns, (Strings{"Sample 1", "Sample 2", "Adj. Sig."}));
    EXPECT_EQ(chart.fData.fRows,
              (std::vector<Strings>{{"casein, 52.33", "1", "<0.001"}, {"1", "2", "0.500"}}));
}

TEST(ResolveChart, TakesHostileNumbersAndCountsOfCategories)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const double largest = std::numeric_limits<double>::max();
    const std::vector<double> hostile = {nan, infinite, -infinite, largest, -largest, 1e308,
                                         0,   -0.0,     1e-300,    5,       -7};
    for (const char* name :
         {"NPARHistogram", "NPARBoxplot", "NPARStackedBar", "NPARChiSquareTest",
          "NPARRelatedSamplesHistogram", "NPARKolmogorovSmirnov", "NPARWilcoxonPairSignedRank",
          "FacetBarChart", "GLMMPairwiseContrasts"}) {
        SCOPED_TRACE(name);
        SampleChart sample(TemplateText(name));
        SampleChart bare = sample;
        for (const tree::SourceVariable& variable : bare.Tree().fSourceVariables) {
            sample.Source(variable.fSource).Numbers(variable.fColumn, hostile);
        }
        if (const auto chart = sample.Resolve()) {
            for (const ResolvedPlot& plot : chart->fPlots) {
                EXPECT_TRUE(std::isfinite(plot.fX.fMax - plot.fX.fMin));
                EXPECT_GT(plot.fY.fMax, plot.fY.fMin);
                EXPECT_LT(plot.fWidth, 5000);
            }
        }
    }
    std::vector<std::string> many;
    for (int category = 0; category < 20'000; ++category) {
        many.push_back("category " + std::to_string(category));
    }
    SampleChart crowded(TemplateText("NPARStackedBar"));
    crowded.Texts("categories", many).Texts("type", many);
    crowded.Numbers("value", std::vector<double>(many.size(), 1.0));
    const auto chart = crowded.Resolve();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fPlots[0].fX.fCategories.size(), 100u);
    ASSERT_FALSE(chart->fNotes.empty());
    EXPECT_EQ(chart->fNotes[0], "The first 100 of 20000 categories are drawn.");
}

}  // namespace
}  // namespace refhost::test
