#include "refhost/writers/TerminalTable.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/TerminalText.h"

#include "refhost/writers/SampleOutput.h"

namespace refhost {
namespace {

std::string Drawn(const TableNode& table, int width)
{
    std::string text;
    ByteOutput output(text);
    WriteTerminalTable(table, width, output);
    output.Flush();
    return text;
}

std::size_t WidestLine(std::string_view text)
{
    std::size_t widest = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1);
        widest = std::max(widest, DisplayWidth(text.substr(0, end)));
        text.remove_prefix(end + 1);
    }
    return widest;
}

TEST(TerminalTable, WrapsTextsAndKeepsNumbersInLine)
{
    CollectedOutput run;
    WriteHypothesisTable(run.Procedure());
    EXPECT_EQ(Drawn(run.Table(), 80), 1 + R"(
Hypothesis Test Summary
┌───┬───────────────────────────────┬────────────┬─────────────────────────────┐
│   │ Null Hypothesis               │       Sig. │ Decision                    │
├───┼───────────────────────────────┼────────────┼─────────────────────────────┤
│ 1 │ The distribution of Weight is │ 0.041[a,b] │ Retain the null hypothesis. │
│   │ the same across categories of │            │                             │
│   │ Feed.                         │            │                             │
├───┼───────────────────────────────┼────────────┼─────────────────────────────┤
│ 2 │ The distribution of Weight is │ 0.500[a]   │ Retain the null hypothesis. │
│   │ the same across categories of │            │                             │
│   │ Feed.                         │            │                             │
└───┴───────────────────────────────┴────────────┴─────────────────────────────┘
The significance level is 0.050.
a. Exact significance is displayed.
b. Second note.
)");
}

TEST(TerminalTable, NestsRowHeadersUnderGroups)
{
    CollectedOutput run;
    WriteSubsetsTable(run.Procedure());
    EXPECT_EQ(Drawn(run.Table(), 100), 1 + R"(
Homogeneous Subsets
┌─────────────────────┬─────────────────┐
│                     │     Subset      │
│                     ├────────┬────────┤
│                     │      1 │      2 │
├───────────┬─────────┼────────┼────────┤
│ Sample[a] │ dose 1  │ 10.500 │        │
│           │ dose 2  │ 21.000 │ 21.000 │
│           │ dose 3  │        │ 31.500 │
├───────────┴─────────┼────────┼────────┤
│ Sig. (2-sided test) │  0.250 │  0.500 │
└─────────────────────┴────────┴────────┘
a. Each cell shows the sample average rank.
)");
}

TEST(TerminalTable, NestsColumnHeadersUnderGroups)
{
    CollectedOutput run;
    WriteIntervalTable(run.Procedure());
    EXPECT_EQ(Drawn(run.Table(), 100), 1 + R"(
Confidence Interval Summary
┌────────┬──────────┬─────────────────┐
│        │          │ 95% Confidence  │
│        │          │    Interval     │
│        │          ├───────┬─────────┤
│ Region │ Estimate │ Lower │   Upper │
├────────┼──────────┼───────┼─────────┤
│ north  │   12.500 │ 1.000 │ 100.000 │
│        │   25.000 │ 2.000 │ 200.000 │
└────────┴──────────┴───────┴─────────┘
)");
}

TEST(TerminalTable, StaysWithinTheTerminal)
{
    CollectedOutput run;
    WriteHypothesisTable(run.Procedure());
    WriteSubsetsTable(run.Procedure());
    WriteIntervalTable(run.Procedure());
    for (std::size_t table = 0; table < 3; ++table) {
        for (const int width : {100, 60, 44}) {
            SCOPED_TRACE(std::to_string(table) + " at " + std::to_string(width));
            EXPECT_LE(WidestLine(Drawn(run.Table(table), width)), static_cast<std::size_t>(width));
        }
    }
    EXPECT_FALSE(Drawn(run.Table(0), 1).empty());
}

TEST(TerminalTable, ContinuesInAFurtherBoxWhatIsTooWide)
{
    CollectedOutput run;
    {
        BpPivotTable table = run.Procedure().PivotTable(Literal("Wide"), Literal("w"), false);
        BpDimension rows = table.Dimension(Literal("Rows"), Sort::AsCreated);
        rows.Position(Place::Rows, 1, true, false);
        BpDimension columns = table.Dimension(Literal("Columns"), Sort::AsCreated);
        columns.Position(Place::Columns, 1, true, false);
        rows.Category(Literal("row"));
        for (int column = 1; column <= 5; ++column)
            columns.Category(Literal("c" + std::to_string(column)))
                .Cell(BpNumber(column * 100, BpProcedure::Coefficient()));
    }
    EXPECT_EQ(Drawn(run.Table(), 30), 1 + R"(
Wide
┌─────┬─────────┬─────────┐
│     │      c1 │      c2 │
├─────┼─────────┼─────────┤
│ row │ 100.000 │ 200.000 │
└─────┴─────────┴─────────┘
┌─────┬─────────┬─────────┐
│     │      c3 │      c4 │
├─────┼─────────┼─────────┤
│ row │ 300.000 │ 400.000 │
└─────┴─────────┴─────────┘
┌─────┬─────────┐
│     │      c5 │
├─────┼─────────┤
│ row │ 500.000 │
└─────┴─────────┘
)");
}

TEST(TerminalTable, ShowsTitleAndCaptionOfATableWithoutRows)
{
    TableNode table;
    table.fTitle = std::make_shared<const Text>(Text{TextString{}, "Empty \x1b[31m"});
    table.fDimensions.resize(2);
    EXPECT_EQ(Drawn(table, 40), "Empty ␛[31m\n");
}

}  // namespace
}  // namespace refhost
