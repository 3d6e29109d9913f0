#include <gtest/gtest.h>

#include <cmath>

#include "refhost/plot/Picture.h"
#include "refhost/plot/PlotScales.h"
#include "refhost/plot/SampleChart.h"

#include "support/Cases.h"

namespace refhost::test {
namespace {

const MarkLayer* FindText(const ResolvedPlot& plot, const std::string& text)
{
    for (const MarkLayer& layer : plot.fLayers) {
        if (layer.fKind != MarkKind::Text) continue;
        for (const ResolvedMark& mark : layer.fMarks) {
            if (mark.fText == text) return &layer;
        }
    }
    return nullptr;
}

/// Boxes with lines across and a frame that is fixed at a third of the picture.
SampleChart BoxesWithLines(const std::vector<std::string>& places)
{
    SampleChart sample(TemplateText("NPARBoxplot"));
    sample.Source("boxplotSource").Numbers("Value", {2, 4, 6, 8, 20});
    sample.Texts("Category", {"a", "a", "a", "a", "a"});
    tree::Visualization& tree = sample.Tree();
    for (const std::string& place : places) {
        tree::LineGuide guide;
        guide.fDimension = tree::Dimension::Y;
        guide.fPlace = place;
        tree.fGraphs.front().fLineGuides.push_back(guide);
    }
    tree::LabelFrame frame;
    frame.fLocations.resize(2);
    frame.fLocations.front().fPart = ENUM_part::Right;
    frame.fLocations.front().fMethod = ENUM_method::Same;
    frame.fLocations.front().fTarget = "graph1";
    frame.fLocations.back().fPart = ENUM_part::Top;
    frame.fLocations.back().fMethod = ENUM_method::Fixed;
    frame.fLocations.back().fValue = "35%";
    frame.fLabels.emplace_back().fTexts.push_back({"", "a value"});
    tree.fLabelFrames.push_back(frame);
    return sample;
}

TEST(Guides, HaveTheValueOfTheOnlyLineAtItsEnd)
{
    // clang-format off
    ExpectEach<std::vector<std::string>, bool>({
        {{"3.5"}, true, "one line"}, {{"19"}, true, "one near the top"},
        {{"3.5", "9.0"}, false, "two: neither can be meant"},
    }, [](const std::vector<std::string>& places) {
        const ResolvedChart chart = BoxesWithLines(places).Drawn();
        const ResolvedPlot& plot = chart.fPlots[0];
        const ResolvedMark& text = FindText(plot, "a value")->fMarks[0];
        EXPECT_GT(text.fX, plot.fWidth) << "over no mark";
        const double line = PixelAt(plot.fY, plot.fHeight, /*downwards=*/true, MarksOf(plot, MarkKind::Rule).back().fY);
        return std::fabs(text.fY + 7.5 - line) < 1e-6;
    });
    // clang-format on
}

TEST(Guides, OfARunsChartKeepTheirTextsReadable)
{
    SampleChart sample(TemplateText("NPAROneSampleRunsTest"));
    sample.Replace("max=\"999\"", "max=\"40\"").Replace("parameter=\"00\"", "parameter=\"20\"");
    sample.Replace("secondaryParameter=\"0\"", "secondaryParameter=\"3\"");
    sample.Replace("x=\"500\"", "x=\"20\"")
        .Replace("x=\"20\" id=\"observedGuide\"", "x=\"1\" id=\"observedGuide\"");
    sample.Replace("ObservedRunsText", "Observed Number of Runs = 1");
    sample.Replace("TooManyRuns", "Too many").Replace("TooFewRuns", "Too few");
    const ResolvedChart chart = sample.Drawn();
    const ResolvedPlot& plot = chart.fPlots[0];
    EXPECT_EQ(plot.fX.fMin, 0);
    EXPECT_EQ(plot.fX.fMax, 40);
    EXPECT_FALSE(FindAxis(plot, AxisSide::Left)) << "a density has no counts";
    const MarkLayer* observed = FindText(plot, "Observed Number of Runs = 1");
    ASSERT_TRUE(observed);
    EXPECT_LT(observed->fMarks[0].fY, 0) << "above the plot, not over the curve";
    EXPECT_GT(observed->fMarks[0].fX, 50) << "moved inwards at the plot's edge";
    std::vector<double> places;
    for (const MarkLayer& layer : plot.fLayers) {
        if (layer.fKind != MarkKind::Rule) continue;
        places.push_back(layer.fMarks[0].fX);
        EXPECT_EQ(layer.fStyle.fDash.empty(), layer.fMarks[0].fX == 1) << "the mean is dashed";
    }
    EXPECT_EQ(places, (std::vector<double>{20, 1}));
    for (const char* text : {"\xE2\x86\x90 Too few", "Too many \xE2\x86\x92"}) {
        const MarkLayer* layer = FindText(plot, text);
        ASSERT_TRUE(layer) << text;
        EXPECT_TRUE(layer->fStyle.fHalo) << "a line may pass below it";
    }
    double highest = 0, at = 0;
    for (const ResolvedMark& point : MarksOf(plot, MarkKind::Line)) {
        if (point.fY > highest) highest = point.fY, at = point.fX;
    }
    EXPECT_NEAR(at, 20, 0.5);
    EXPECT_NEAR(highest, 0.13298, 1e-3) << "the density of the normal distribution";
}

TEST(Guides, BeyondAllBoundsAreLeftOutWithANote)
{
    const ResolvedChart chart = BoxesWithLines({"3.5", "1e12"}).Drawn();
    EXPECT_LT(chart.fPlots[0].fY.fMax, 100);
    EXPECT_EQ(chart.fNotes, std::vector<std::string>{
                                "A line at 1000000000000 lies far beyond the data and is not "
                                "drawn."});
}

TEST(Boxes, AreDescribedByTheWordsOfTheLanguage)
{
    PlotWords words = WordsOfPlots("en");
    words.fThirdQuartile = "Drittes Quartil";
    words.fMedian = "Zentralwert";
    words.fOutliers = "Ausreisser";
    SampleChart sample = BoxesWithLines({});
    sample.Replace("yAxisText", "").Replace("xAxisText", "");
    sample.Set("Category").fLabel = "Group";
    const ResolvedChart chart = sample.Drawn(words);
    const ResolvedMark box = MarksOf(chart.fPlots[0], MarkKind::Rect).front();
    EXPECT_EQ(
        box.fPopup,
        "Group = a\nUpper whisker = 8\nDrittes Quartil = 8\nZentralwert = 6\nFirst quartile = 4\n"
        "Lower whisker = 2");
    bool isMedianTold = false;
    for (const ResolvedMark& rule : MarksOf(chart.fPlots[0], MarkKind::Rule)) {
        isMedianTold |= rule.fPopup == "Group = a\nZentralwert = 6";
    }
    EXPECT_TRUE(isMedianTold);
    EXPECT_EQ(chart.fData.fColumns,
              (std::vector<std::string>{"Group", "Upper whisker", "Drittes Quartil", "Zentralwert",
                                        "First quartile", "Lower whisker", "Ausreisser"}));
    EXPECT_EQ(chart.fData.fRows.front(),
              (std::vector<std::string>{"a", "8", "8", "6", "4", "2", "20"}));
}

}  // namespace
}  // namespace refhost::test
