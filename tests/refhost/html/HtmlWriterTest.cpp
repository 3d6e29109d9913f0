#include "refhost/writers/HtmlWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/HtmlOutline.h"

#include "support/Nodes.h"

namespace refhost {
namespace {

using test::Category;
using test::Cell;
using test::Dimension;
using test::Group;
using test::Heading;
using test::NodeOf;
using test::Number;
using test::PlainTable;
using test::Report;
using test::ReportOf;
using test::Words;
using ::testing::HasSubstr;
using ::testing::Not;

std::vector<std::string> Matches(const std::string& text, const char* pattern)
{
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match)
        found.push_back((*match)[1]);
    return found;
}

/// The part of a report between its first table's tags.
std::string TableOf(const std::string& report)
{
    const std::size_t from = report.find("<table>");
    return report.substr(from, report.find("</table>") - from);
}

TEST(HtmlWriter, MakesIdsOfCountersSoThatEqualLabelsStayApart)
{
    const std::string report = ReportOf(
        Heading("Same", PlainTable("Same", {"a"}), Heading("Same", PlainTable("Same", {"a"}))),
        Heading("x\" onclick=\"alert(1)", PlainTable("Same", {"a"})));
    const std::vector<std::string> ids = Matches(report, " id=\"([^\"]*)\"");
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_THAT(ids, testing::IsSupersetOf({"s1", "s2", "s3", "t1", "t2", "t3"}));
    EXPECT_THAT(Matches(report, "<li><a class=\"\\w+\" href=\"#(\\w+)\""),
                testing::ElementsAre("s1", "t1", "s2", "t2", "s3", "t3"));
}

TEST(HtmlWriter, CountsIdsInEachSplitSoThatTheyDoNotHangOnOthers)
{
    std::string text;
    const auto writer = MakeHtmlWriter(std::make_unique<ByteOutput>(text));
    writer->Begin({});
    for (const std::size_t split : {0U, 1U, 11U}) {
        writer->BeginSplit(split);
        for (int table = 0; table < 2; ++table)
            writer->Node(NodeOf(PlainTable("Same", {"a"})));
        writer->EndSplit();
    }
    writer->End({});
    EXPECT_THAT(Matches(text, "<li><a class=\"table\" href=\"#([^\"]+)\""),
                testing::ElementsAre("t1", "t2", "p2-t1", "p2-t2", "p12-t1", "p12-t2"));
}

TEST(HtmlWriter, NestsHeadingsNoDeeperThanPagesHaveThem)
{
    OutputTreeNode innermost = Heading("deep");
    for (int depth = 0; depth < 7; ++depth)
        innermost = Heading("level", std::move(innermost));
    const std::string report = ReportOf(std::move(innermost));
    EXPECT_THAT(report, HasSubstr("<h6><a href=\"#s8\">deep</a></h6>"));
    EXPECT_THAT(report, Not(HasSubstr("<h7")));
}

TEST(HtmlWriter, TellsOfAnIncompleteRun)
{
    EXPECT_THAT(Report({}), Not(HasSubstr("class=\"notice\"")));
    EXPECT_THAT(Report({}, {}, {true, "", "Stopped <here>."}), HasSubstr("Stopped &lt;here&gt;."));
}

TEST(HtmlWriter, SpeaksEnglishWhereItDoesNotKnowTheLanguage)
{
    for (const char* language : {"fr", ""}) {
        RunStart start;
        start.fLanguage = language;
        EXPECT_THAT(Report({}, start), HasSubstr(">Outline<")) << language;
    }
}

TEST(HtmlWriter, HoldsTheDrawingLibrariesOnceAndOnlyForCharts)
{
    constexpr const char* kDrawing = "(globalThis:t\\|\\|self\\)\\.vega=\\{\\})";
    EXPECT_THAT(Matches(ReportOf(PlainTable("Table", {"a"})), kDrawing), testing::IsEmpty());
    const std::string report = ReportOf(ChartNode{}, ChartNode{});
    EXPECT_EQ(Matches(report, kDrawing).size(), 1U);
    EXPECT_THAT(report, HasSubstr("Interactive Data Lab")) << "the notice of its licence";
}

TEST(HtmlWriter, SetsALineInPlaceOfAPictureThatCantBeDrawn)
{
    ChartNode chart;
    chart.fTitle = "A <chart>";
    chart.fSubtitle = "of a split";
    chart.fDescription = "A <chart>; of a split";
    chart.fSources.Own().push_back({"source", {{"value", {1.5, std::string("<b>")}}}, 3});
    const std::string report = ReportOf(std::move(chart));
    EXPECT_THAT(report, HasSubstr("A &lt;chart&gt;</a></p>"));
    EXPECT_THAT(report, HasSubstr("class=\"not-drawn\""));
    EXPECT_THAT(report, HasSubstr(">1.5</td>"));
    EXPECT_THAT(report, HasSubstr(">&lt;b&gt;</td>"));
    EXPECT_THAT(report, HasSubstr(">.</td>")) << "a column that is shorter than the source";
    EXPECT_THAT(report, Not(HasSubstr("class=\"description\"")))
        << "it would only repeat the titles";
}

TEST(HtmlTable, JoinsHeadersAndNamesTheirScope)
{
    TableNode table;
    table.fTitle = Words("Joined");
    table.fDimensions = {
        Dimension("Row", PivotPlace::Rows,
                  {Group("Part", {Category("one"), Category("two")}), Category("three")}),
        Dimension("Column", PivotPlace::Columns,
                  {Group("Both", {Category("left"), Category("right")})})};
    for (std::uint32_t row = 0; row < 3; ++row)
        for (std::uint32_t column = 0; column < 2; ++column)
            table.fCells.push_back(Cell({row, column}, Number(1, "1.0")));
    const std::string markup = TableOf(ReportOf(std::move(table)));
    for (const char* expected :
         {R"(colspan="2">Both</th>)", R"(rowspan="2">Part</th>)", R"(<th scope="rowgroup")",
          R"(<th scope="colgroup")", R"(<th scope="row" colspan="2">three</th>)",
          R"(<th scope="col" class="last number">left</th>)", R"(<td class="number">1.0</td>)"})
        EXPECT_THAT(markup, HasSubstr(expected));
    EXPECT_EQ(Matches(markup, "(<tbody>)").size(), 2U) << "one for each outermost part";
}

TEST(HtmlTable, ShowsAnEmptyTableWithTitleAndCaption)
{
    TableNode table;
    table.fTitle = Words("Empty");
    table.fCaption = Words("Still here.");
    table.fDimensions = {Dimension("Row", PivotPlace::Rows, {})};
    const std::string report = ReportOf(std::move(table));
    for (const char* expected : {">Empty</a></p>", "This table has no values.", "Still here."})
        EXPECT_THAT(report, HasSubstr(expected));
    EXPECT_THAT(report, Not(HasSubstr("<table>")));
}

TEST(HtmlTable, NeedsNoTitle)
{
    TableNode table = PlainTable("", {"a"});
    table.fTitle = nullptr;
    EXPECT_THAT(ReportOf(std::move(table)), HasSubstr(">Without a title</a></caption>"));
}

TEST(HtmlOutline, GivesBackAllEntriesBeyondWhatMemoryHolds)
{
    constexpr int kEntries = 20000;
    HtmlOutline outline;
    for (int entry = 0; entry < kEntries; ++entry) {
        outline.Open("table", "t" + std::to_string(entry), "A label of some length");
        outline.Close();
    }
    std::string text;
    ByteOutput output(text);
    outline.MoveTo(output);
    output.Flush();
    const std::vector<std::string> ids = Matches(text, "href=\"#t(\\d+)\"");
    ASSERT_EQ(ids.size(), static_cast<std::size_t>(kEntries));
    for (int entry = 0; entry < kEntries; entry += 997)
        EXPECT_EQ(ids[static_cast<std::size_t>(entry)], std::to_string(entry));
    EXPECT_TRUE(outline.IsEmpty());
}

}  // namespace
}  // namespace refhost
