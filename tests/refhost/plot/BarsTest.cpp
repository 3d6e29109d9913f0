#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "refhost/plot/Picture.h"
#include "refhost/plot/SampleChart.h"

#include "support/Cases.h"

namespace refhost::test {
namespace {

struct BarRow {
    double x, x2, y, y2;
    const char* series;
    const char* popup;
};

void ExpectBars(const ResolvedPlot& plot, const std::vector<BarRow>& rows)
{
    std::vector<ResolvedMark> bars = MarksOf(plot, MarkKind::Rect);
    ASSERT_EQ(bars.size(), rows.size());
    for (const BarRow& row : rows) {
        SCOPED_TRACE(row.popup);
        const auto bar = std::find_if(bars.begin(), bars.end(), [&row](const ResolvedMark& mark) {
            return mark.fPopup == row.popup;
        });
        ASSERT_NE(bar, bars.end()) << "no bar of that popup";
        EXPECT_NEAR(bar->fX, row.x, 1e-9);
        EXPECT_NEAR(bar->fX2, row.x2, 1e-9);
        EXPECT_NEAR(bar->fY, row.y, 1e-9);
        EXPECT_NEAR(bar->fY2, row.y2, 1e-9);
        EXPECT_EQ(bar->fSeries, row.series);
    }
}

TEST(Bars, StackInTheOrderOfTheLegendFromTheBottom)
{
    SampleChart sample(TemplateText("NPARStackedBar"));
    sample.Replace("CategoryOrderText", "low;mid;high").Replace("LegendLabel", "Level");
    sample.Texts("categories", {"h", "h", "h", "o", "o"});
    sample.Texts("type", {"high", "low", "mid", "high", "low"});
    sample.Numbers("value", {30, 20, 50, 90, 10});
    sample.Texts("tooltip", {"h high", "h low", "h mid", "o high", "o low"});
    const ResolvedChart chart = sample.Drawn();
    ExpectBars(chart.fPlots[0], {{-0.375, 0.375, 0, 20, "low", "h low"},
                                 {-0.375, 0.375, 20, 70, "mid", "h mid"},
                                 {-0.375, 0.375, 70, 100, "high", "h high"},
                                 {0.625, 1.375, 0, 10, "low", "o low"},
                                 {0.625, 1.375, 10, 100, "high", "o high"}});
    ASSERT_EQ(chart.fLegends.size(), 1u);
    EXPECT_EQ(chart.fLegends[0].fTitle, "Level");
    std::vector<std::string> entries;
    for (const LegendEntry& entry : chart.fLegends[0].fEntries) {
        entries.push_back(entry.fLabel);
    }
    EXPECT_EQ(entries, (std::vector<std::string>{"low", "mid", "high"}));
    EXPECT_EQ(TickTexts(*FindAxis(chart.fPlots[0], AxisSide::Bottom)),
              (std::vector<std::string>{"h", "o"}));
}

TEST(Bars, StandBesideEachOtherInAClusterEvenWithoutHeight)
{
    SampleChart sample(TemplateText("NPARChiSquareTest"));
    sample.Replace("<popup ",
                   "<popup tokenTemplate=\"$[category]$: $[observed]$ of $[hypothesized]$\" ");
    sample.Texts("Category", {"a", "a", "b", "b"}).Texts("Type", {"o", "h", "o", "h"});
    sample.Numbers("Frequency", {0, 4, 8, 4.5});
    sample.Texts("Observed", {"0", "0", "8", "8"})
        .Texts("Hypothesized", {"4", "4.0", "4.5", "4.50"});
    const ResolvedChart chart = sample.Drawn();
    ExpectBars(chart.fPlots[0], {{-0.4, 0, 0, 0, "o", "a: 0 of 4"},
                                 {0, 0.4, 0, 4, "h", "a: 0 of 4.0"},
                                 {0.6, 1, 0, 8, "o", "b: 8 of 4.5"},
                                 {1, 1.4, 0, 4.5, "h", "b: 8 of 4.50"}});
}

TEST(Bars, ArePaleOnlyUnderACurveOrALine)
{
    // clang-format off
    ExpectEach<const char*, std::string>({
        {"", "#2F6DB5", "a field on its own"},
        {"<line><distributionStatistic distribution=\"normal\" parameter=\"5\" secondaryParameter=\"2\"/></line>", "#9DB8D9", "below a curve"},
        {"<lineGuide x=\"4\"/>", "#B8C4D6", "below a line"},
    }, [](const std::string& overlay) {
        const ResolvedChart chart = Histogram({1, 4, 9}, {2, 5, 3}, overlay).Drawn();
        return FindLayer(chart.fPlots[0], MarkKind::Rect)->fStyle.fFill.fColor;
    });
    // clang-format on
}

TEST(Bars, ShowTheStartOfAnExponentialCurve)
{
    // clang-format off
    ExpectEach<std::vector<double>, bool>({
        {{100, 250, 400}, true, "the axis reaches down to 0"},
        {{0.5, 1, 30}, true, "the bars do so already"},
        {{10'000, 10'001, 10'002}, false, "nothing would be left of them"},
    }, [](const std::vector<double>& values) {
        const char* const curve = "<line><distributionStatistic distribution=\"exponential\" parameter=\"0.01\"/></line>";
        const ResolvedChart chart = Histogram(values, {2, 5, 3}, curve).Drawn();
        const ResolvedPlot& plot = chart.fPlots[0];
        if (plot.fX.fMin != 0.0) return false;
        const std::vector<ResolvedMark> points = MarksOf(plot, MarkKind::Line);
        EXPECT_EQ(points.front().fX, 0.0);
        EXPECT_EQ(points.front().fY, 0.0) << "it rises from the axis";
        const double highest = std::ranges::max(points, {}, &ResolvedMark::fY).fY;
        const ResolvedMark bar = MarksOf(plot, MarkKind::Rect).front();
        EXPECT_NEAR(highest, 10 * (bar.fX2 - bar.fX) * 0.01, 1e-9) << "all of its height";
        EXPECT_GE(plot.fY.fMax, highest) << "the axis makes room";
        return true;
    });
    // clang-format on
}

TEST(Bars, TellTheirEdgesWhateverTheDecimalsOfTheField)
{
    using Edges = std::pair<std::string, std::string>;
    // clang-format off
    ExpectEach<const char*, Edges>({
        {"", {"value = 1 \xE2\x80\x93 1.5", "value = 2.5 \xE2\x80\x93 3"}, "bins"},
        {"<line><distributionStatistic distribution=\"poisson\" parameter=\"2\"/><x variable=\"value\"/><y variable=\"count\"/></line>", {"value = 1", "value = 3"}, "whole numbers"},
    }, [](const std::string& curve) {
        SampleChart sample = Histogram({1, 2, 3}, {1, 1, 1}, curve);
        sample.Replace("xAxisLabel", "value").Set("value").fHostFormat = HostFormat{5, 8, 0};
        const std::vector<ResolvedMark> bars = MarksOf(sample.Drawn().fPlots[0], MarkKind::Rect);
        const auto first = [](const std::string& popup) { return popup.substr(0, popup.find('\n')); };
        return Edges(first(bars.front().fPopup), first(bars.back().fPopup));
    });
    // clang-format on
}

TEST(Bars, SayWhatIsLeftOutInTheGivenLanguage)
{
    std::vector<std::string> types;
    for (int type = 0; type < 130; ++type) {
        types.push_back("type " + std::to_string(type));
    }
    SampleChart sample(TemplateText("NPARStackedBar"));
    sample.Texts("categories", std::vector<std::string>(types.size(), "one")).Texts("type", types);
    sample.Numbers("value", std::vector<double>(types.size(), 1.0));
    PlotWords words = WordsOfPlots("en");
    words.fCutEntries = "^2 Arten, ^1 davon benannt";
    const ResolvedChart chart = sample.Drawn(words);
    EXPECT_EQ(chart.fNotes, std::vector<std::string>{"130 Arten, 100 davon benannt"});
    EXPECT_EQ(chart.fLegends[0].fEntries.size(), 100u);
}

TEST(Bars, AreCutWithANoteWhereTheyAreTooMany)
{
    const std::string table = "The table of the data holds the first 1000 rows.";
    const std::string marks = "The first 5000 marks are drawn; the data have more.";
    using Notes = std::set<std::string>;
    // clang-format off
    ExpectEach<std::size_t, Notes>({
        {1000, {}}, {1001, {table}}, {5000, {table}}, {5001, {table, marks}}, {5300, {table, marks}},
    }, [](std::size_t rows) {
        std::vector<double> places;
        for (std::size_t at = 0; at < rows; ++at)  // the last share a place, also one left out
            places.push_back(static_cast<double>(std::min<std::size_t>(at, 5298)));
        SampleChart sample(TemplateText("NPARKolmogorovSmirnov"));
        sample.Numbers("MEANS", places).Numbers("COUNTS", places);
        sample.Texts("TYPES", std::vector<std::string>(rows, "f"));
        const ResolvedChart chart = sample.Drawn();
        EXPECT_EQ(CountMarks(chart.fPlots[0], MarkKind::Rect), std::min<std::size_t>(rows, 5000));
        EXPECT_EQ(chart.fData.fRows.size(), std::min<std::size_t>(rows, 1000));
        const Notes notes(chart.fNotes.begin(), chart.fNotes.end());
        EXPECT_EQ(notes.size(), chart.fNotes.size());
        return notes;
    });
    // clang-format on
}

}  // namespace
}  // namespace refhost::test
