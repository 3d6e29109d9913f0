#include <gtest/gtest.h>

#include "refhost/plot/Picture.h"
#include "refhost/plot/SampleChart.h"
#include "refhost/plot/TextWidth.h"

#include "support/Cases.h"

namespace refhost::test {
namespace {

constexpr const char* kLongName =
    "Professional & high administrative,Managerial & executive,Inspectional, higher grade";

/// As many facets in a row as there are names, each with one bar and a line below its name.
SampleChart Facets(const std::vector<std::string>& names)
{
    SampleChart sample(TemplateText("NPARRelatedSamplesHistogram"));
    std::vector<double> ones(names.size(), 1.0), types;
    std::vector<std::string> more;
    for (std::size_t at = 0; at < names.size(); ++at) {
        types.push_back(static_cast<double>(at));
        more.push_back("Mean Rank = 2");
        sample.Set("types").fRelabels[std::to_string(at)] = names[at];
    }
    sample.Numbers("COUNTS", ones).Numbers("MEANS", ones).Numbers("TYPES", types);
    sample.Texts("LABELNAME", more);
    return sample;
}

SampleChart CrossTable(const std::vector<std::string>& names)
{
    SampleChart sample(TemplateText("FacetBarChart"));
    std::vector<double> row, column, category;
    std::vector<ChartValue> texts, values;
    for (std::size_t cell = 0; cell < names.size() * names.size(); ++cell) {
        const std::size_t inRow = cell / names.size(), inColumn = cell % names.size();
        const bool isDiagonal = inRow == inColumn;
        row.push_back(static_cast<double>(inRow));
        column.push_back(static_cast<double>(inColumn));
        category.push_back(0);
        texts.push_back(isDiagonal ? ChartValue(120.0) : ChartValue(std::string()));
        values.push_back(isDiagonal ? ChartValue(std::string())
                                    : ChartValue(static_cast<double>(cell)));
    }
    sample.Column("CellText", texts).Column("CellValue", values);
    sample.Numbers("Row", row).Numbers("Column", column).Numbers("Category", category);
    sample.Set("celltext").fPrefix = "Observed Frequency\n ";
    for (std::size_t at = 0; at < names.size(); ++at) {
        for (const char* variable : {"Row", "Column"}) {
            sample.Set(variable).fRelabels[std::to_string(at)] = names[at];
        }
    }
    return sample;
}

TEST(WrapText, BreaksAtBlanksAndBehindCommas)
{
    const double ten = TextWidth("aaaaaaaaaa", 12);
    // clang-format off
    ExpectEach<std::tuple<const char*, double, std::size_t>, std::vector<std::string>>({
        {{"short", ten, 2}, {"short"}, "fits"},
        {{"", ten, 2}, {""}, "nothing"},
        {{"aaaa bbbb cccc", ten, 2}, {"aaaa bbbb", "cccc"}, "at a blank"},
        {{"aaaaaa,bbbbbb", ten, 2}, {"aaaaaa,", "bbbbbb"}, "behind a comma"},
        {{"a\nb", ten, 1}, {"a b"}, "lines that fit on one"},
        {{"a\nb\nc", ten, 1}, {"a b\xE2\x80\xA6"}, "lines too many"},
        {{"aaaa\nbbbb", ten, 2}, {"aaaa", "bbbb"}, "its own line feed"},
        {{"aaaaaaaaaaaaaa", ten, 2}, {"aaaaaaaaa\xE2\x80\xA6"}, "a word too wide"},
        {{"aaaaaaaaa bbbbbbbbb cc", ten, 1}, {"aaaaaaaaa\xE2\x80\xA6"}, "too many lines"},
        {{"aaaa bbbbbbbb cccc dddd", ten, 2}, {"aaaa", "bbbbbbbb\xE2\x80\xA6"}, "the last line"},
        {{"\xC3\xA4\xC3\xA4\xC3\xA4", 10.0, 1}, {"\xE2\x80\xA6"}, "whole characters only"},
        {{"a b", 0.0, 1}, {"\xE2\x80\xA6"}, "no room at all"},
    }, [](const char* text, double room, std::size_t most) { return WrapText(text, 12, room, most); });
    // clang-format on
}

TEST(Panels, WrapTheirHeadersToTheirWidth)
{
    const ResolvedChart chart = CrossTable({kLongName, "Unskilled manual"}).Drawn();
    ASSERT_EQ(chart.fPlots.size(), 4u);
    for (const std::size_t place : {0u, 1u}) {
        const ResolvedPlot& plot = chart.fPlots[place];
        for (const std::string& line : plot.fHeader.fLines) {
            EXPECT_LE(TextWidth(line, 12), plot.fWidth + chart.fColumnSpacing) << line;
        }
    }
    EXPECT_EQ(chart.fPlots[0].fHeader.fPopup, kLongName) << "what is cut is told";
    EXPECT_EQ(chart.fPlots[1].fHeader.fPopup, "") << "nothing is cut";
    EXPECT_EQ(chart.fPlots[0].fHeader.fLines.size(), chart.fPlots[1].fHeader.fLines.size());
    EXPECT_TRUE(chart.fPlots[2].fHeader.fLines.empty()) << "once above each column";
    EXPECT_EQ(chart.fPlots[2].fSideHeader.fLines.back(), "Unskilled manual");
    for (const std::string& line : chart.fPlots[0].fSideHeader.fLines) {
        EXPECT_LE(TextWidth(line, 12), chart.fPlots[0].fHeight) << line;
    }
    EXPECT_LT(chart.fWidth, 700) << "a long name makes no wide picture";
}

TEST(Panels, AlignNamesOfSeveralLines)
{
    const ResolvedChart chart = Facets({"Overall", "Handling of complaints and of grievances",
                                        "Raises", "Critical", "Advancement"})
                                    .Drawn();
    const std::size_t strong = chart.fPlots[0].fHeader.fStrongLines;
    EXPECT_GT(strong, 1u) << "the longest name takes several lines";
    for (const ResolvedPlot& plot : chart.fPlots) {
        ASSERT_EQ(plot.fHeader.fLines.size(), strong + 1);
        EXPECT_EQ(plot.fHeader.fStrongLines, strong);
        EXPECT_NE(plot.fHeader.fLines[strong - 1], "") << "names end on one line";
        EXPECT_EQ(plot.fHeader.fLines[strong], "Mean Rank = 2") << "whole, below the name";
        EXPECT_GE(plot.fWidth, TextWidth("Mean Rank = 2", 12) - 20);
    }
}

TEST(Panels, GoOnBelowInRowsOfAboutOneLength)
{
    struct Row {
        std::size_t facets;
        int columns;
    };
    for (const Row& row : {Row{1, 1}, Row{6, 6}, Row{7, 4}, Row{12, 6}, Row{13, 5}}) {
        SCOPED_TRACE(row.facets);
        const ResolvedChart chart = Facets(std::vector<std::string>(row.facets, "name")).Drawn();
        ASSERT_EQ(chart.fPlots.size(), row.facets) << "one label, several facets";
        EXPECT_EQ(chart.fColumns, row.columns);
        for (std::size_t place = 0; place < row.facets; ++place) {
            EXPECT_EQ(chart.fPlots[place].fRow, static_cast<int>(place) / row.columns);
            EXPECT_EQ(chart.fPlots[place].fColumn, static_cast<int>(place) % row.columns);
            const bool isFirst = chart.fPlots[place].fColumn == 0;
            EXPECT_EQ(FindAxis(chart.fPlots[place], AxisSide::Left) != nullptr, isFirst)
                << "values stand at the left of each row";
        }
    }
}

TEST(Panels, NameTheDiagonalByBareNumbersFromFiveCategoriesOn)
{
    struct Row {
        std::size_t categories;
        const char* caption;
    };
    for (const Row& row : {Row{2, "n\n 120"}, Row{5, "120"}, Row{8, "120"}}) {
        SCOPED_TRACE(row.categories);
        const std::vector<std::string> names(row.categories, "a category of a long name");
        SampleChart sample = CrossTable(names);
        sample.Set("celltext").fPrefix = "n\n ";  // would fit everywhere
        const ResolvedChart chart = sample.Drawn();
        ASSERT_EQ(chart.fPlots.size(), row.categories * row.categories);
        EXPECT_EQ(Texts(chart.fPlots[0]), std::vector<std::string>{row.caption});
        EXPECT_EQ(Texts(chart.fPlots[1]), std::vector<std::string>{"1"});
        int titles = 0;
        for (const ResolvedPlot& plot : chart.fPlots) {
            const ResolvedAxis* axis = FindAxis(plot, AxisSide::Left);
            titles += axis && axis->fTitle == "Frequency" ? 1 : 0;
        }
        EXPECT_EQ(titles, row.categories < 5 ? 2 : 1);
    }
}

TEST(Panels, MirroredHaveOneCountRangeAndTheirValuesAtBothOuterEdges)
{
    struct Row {
        const char* name;
        AxisSide first, second, both;
    };
    for (const Row& row :
         {Row{"NPARRelatedSamplesHistogram", AxisSide::Left, AxisSide::Right, AxisSide::Bottom},
          Row{"NPARKolmogorovSmirnov", AxisSide::Top, AxisSide::Bottom, AxisSide::Left}}) {
        SCOPED_TRACE(row.name);
        SampleChart sample(TemplateText(row.name));
        sample.Replace("alternating=\"false\" side=\"x\"", "alternating=\"true\" side=\"y\"");
        sample.Replace("invert=\"true\"", "invert=\"false\"");
        sample.Numbers("COUNTS", {3, 4, 5, 1, 1}).Numbers("MEANS", {10, 20, 30, 20, 40});
        sample.Texts("TYPES", {"f", "f", "f", "m", "m"});
        sample.Texts("LABELNAME", {"N = 7", "N = 7", "N = 7", "N = 2\nMean Rank = 5", ""});
        const ResolvedChart chart = sample.Drawn();
        ASSERT_EQ(chart.fPlots.size(), 2u);
        const ResolvedPlot& first = chart.fPlots[0];
        const ResolvedPlot& second = chart.fPlots[1];
        ASSERT_TRUE(FindAxis(first, row.first));
        ASSERT_TRUE(FindAxis(second, row.second));
        EXPECT_EQ(TickTexts(*FindAxis(first, row.first)), TickTexts(*FindAxis(second, row.second)));
        EXPECT_EQ(FindAxis(first, row.both) != nullptr, FindAxis(second, row.both) != nullptr);
        const PlotHeader& header = first.fHeader.fLines.empty() ? first.fSideHeader : first.fHeader;
        EXPECT_EQ(header.fLines, (std::vector<std::string>{"f", "N = 7", ""}))
            << "both names stand at one height";
        const bool isSideBySide = row.both == AxisSide::Bottom;
        const auto counts = [isSideBySide](const ResolvedPlot& plot) {
            double sum = 0;
            for (const ResolvedMark& bar : MarksOf(plot, MarkKind::Rect))
                sum += isSideBySide ? bar.fX2 : bar.fY2;
            return sum;
        };
        EXPECT_EQ(counts(first), 12);
        EXPECT_EQ(counts(second), 2);
        const auto scale = isSideBySide ? &ResolvedPlot::fX : &ResolvedPlot::fY;
        EXPECT_EQ((first.*scale).fMax, (second.*scale).fMax);
        EXPECT_NE((first.*scale).fReversed, (second.*scale).fReversed);
        EXPECT_EQ((first.*scale).fReversed, isSideBySide) << "bars grow from the common border";
    }
}

}  // namespace
}  // namespace refhost::test
