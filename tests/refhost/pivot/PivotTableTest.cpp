#include "host/pivot/BpPivotTable.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "refhost/document/WriteFailure.h"

#include "host/pivot/BpCellText.h"
#include "host/pivot/BpError.h"

#include "support/CollectedOutput.h"

namespace refhost {
namespace {

BpString Literal(const std::string& text) { return {text, false}; }

/// What a reader sees of a text; "(none)" for null.
std::string Shown(const TextRef& text) { return text ? text->fShown : "(none)"; }

BpPivotTable NewTable(BpHeading& heading, const char* title = "Table")
{
    return heading.PivotTable(Literal(title), Literal("subtype"), false);
}

BpDimension NewDimension(BpPivotTable& table, Place place, const char* title = "Dimension")
{
    BpDimension dimension = table.Dimension(Literal(title), Sort::AsCreated);
    dimension.Position(place, 1, true, false);
    return dimension;
}

/// "0,1=content{note}{note}" for each cell.
std::vector<std::string> Cells(const TableNode& table)
{
    std::vector<std::string> cells;
    for (const PivotCell& cell : table.fCells) {
        std::string& text = cells.emplace_back();
        for (const std::uint32_t place : cell.fAt)
            text += (text.empty() ? "" : ",") + std::to_string(place);
        text += "=" + Shown(cell.fContent);
        for (const TextRef& note : cell.fNotes)
            text += "{" + Shown(note) + "}";
    }
    return cells;
}

/// "a{note} [g: b c]" for items.
std::string Items(const std::vector<PivotItem>& items)
{
    std::string text;
    for (const PivotItem& item : items) {
        text += text.empty() ? "" : " ";
        std::string label = Shown(item.fLabel);
        for (const TextRef& note : item.fNotes)
            label += "{" + Shown(note) + "}";
        text += item.fIsGroup ? "[" + label + ": " + Items(item.fItems) + "]" : label;
    }
    return text;
}

using Lines = std::vector<std::string>;

TEST(PivotTable, CrossesACategoryWithTheLatestOfAllOtherDimensions)
{
    CollectedOutput run;
    {
        BpPivotTable table = NewTable(run.Procedure());
        BpDimension rows = NewDimension(table, Place::Rows);
        BpDimension columns = NewDimension(table, Place::Columns);
        rows.Category(Literal("r0"));
        BpCategory first = columns.Category(Literal("c0"));
        first.Cell(Literal("r0c0"));
        rows.Category(Literal("r1"));
        first.Cell(Literal("r1c0"));
        columns.Category(Literal("c1")).Cell(Literal("r1c1"));
        rows.Category(Literal("r0"));
        first.Cell(Literal("again"));
        first.CellNote(BpAnnotation(Literal("n")));
        EXPECT_TRUE(run.Nodes().empty()) << "the table is not complete yet";
    }
    EXPECT_EQ(Cells(run.Table()), (Lines{"0,0=again{n}", "1,0=r1c0", "1,1=r1c1"}));
}

TEST(PivotTable, KeepsNotesOfACellThatIsWrittenAgain)
{
    CollectedOutput run;
    {
        BpPivotTable table = NewTable(run.Procedure());
        BpDimension rows = NewDimension(table, Place::Rows);
        BpCategory noted = rows.Category(Literal("noted"));
        noted.CellNote(BpAnnotation(Literal("n")));
        BpCategory category = rows.Category(Literal("a"));
        category.Cell(Literal("old"));
        category.CellNote(BpAnnotation(Literal("n")));
        category.CellNote(BpAnnotation(Literal("n")));
        category.Cell(Literal("new"));
    }
    EXPECT_EQ(Cells(run.Table()), (Lines{"0=(none){n}", "1=new{n}{n}"}));
}

TEST(PivotTable, GivesALabelItsCategoryAgainWithinItsGroup)
{
    CollectedOutput run;
    {
        BpPivotTable table = NewTable(run.Procedure());
        BpDimension rows = NewDimension(table, Place::Rows);
        rows.Category(Literal("x")).Cell(Literal("1"));
        BpGroup group = rows.Group(Literal("x"), true, Sort::AsCreated);
        group.Category(Literal("x")).Cell(Literal("2"));
        rows.Category(Literal("z")).Cell(Literal("3"));
        rows.Category(Literal("x")).Note(BpAnnotation(Literal("n")));
        rows.Category(Literal("x")).Note(BpAnnotation(Literal("n")));
        rows.Group(Literal("x"), true, Sort::AsCreated).Note(BpAnnotation(Literal("g")));
        rows.Group(Literal("x"), true, Sort::AsCreated).Category(Literal("y")).Cell(Literal("4"));
    }
    ASSERT_EQ(run.Table().fDimensions.size(), 1U);
    EXPECT_EQ(Items(run.Table().fDimensions[0].fItems), "x{n} [x{g}: x y] z");
    EXPECT_EQ(Cells(run.Table()), (Lines{"0=1", "1=2", "3=3", "2=4"}))
        << "in order of writing, by places with groups flattened";
}

TEST(PivotTable, HasNoCellWhereADimensionHasNoCategory)
{
    CollectedOutput run;
    {
        BpPivotTable table = NewTable(run.Procedure());
        BpDimension rows = NewDimension(table, Place::Rows);
        BpCategory row = rows.Category(Literal("r"));
        row.Cell(Literal("before the columns were made"));
        BpDimension columns = NewDimension(table, Place::Columns);
        row.Cell(Literal("before a column"));
        row.CellNote(BpAnnotation(Literal("n")));
        columns.Category(Literal("c"));
        row.Cell(Literal("stands"));
    }
    EXPECT_EQ(Cells(run.Table()), (Lines{"0,0=stands"}));
}

TEST(PivotTable, IsSentOnceWhereItsHandleWasMoved)
{
    CollectedOutput run;
    {
        BpPivotTable table = NewTable(run.Procedure());
        const BpPivotTable moved = std::move(table);
    }
    EXPECT_EQ(run.Nodes().size(), 1U);
}

TEST(PivotTable, FindsLabelsAndCellsWithoutWalking)
{
    constexpr int kCategories = 20'000;
    CollectedOutput run;
    {
        BpPivotTable table = NewTable(run.Procedure());
        BpDimension rows = NewDimension(table, Place::Rows);
        BpDimension columns = NewDimension(table, Place::Columns);
        for (int row = 0; row < 2 * kCategories; ++row) {
            rows.Category(BpNumber(row % kCategories, BpProcedure::Count()));
            columns.Category(Literal("c")).Cell(Literal("x"));
        }
    }
    EXPECT_EQ(run.Table().fCells.size(), static_cast<std::size_t>(kCategories));
}

/// "heading(child child)" of each node.
std::string Outline(const std::vector<OutputTreeNode>& nodes)
{
    std::string text;
    for (const OutputTreeNode& node : nodes) {
        text += text.empty() ? "" : " ";
        if (node.IsHeading()) text += Shown(node.fLabel) + "(" + Outline(node.fChildren) + ")";
        if (const auto* table = node.As<TableNode>()) text += Shown(table->fTitle);
        if (const auto* error = node.As<ErrorNode>()) text += error->fText;
    }
    return text;
}

TEST(Heading, HoldsWhatIsWrittenUpToItsEnd)
{
    CollectedOutput run;
    BpProcedure& top = run.Procedure();
    BpError("first", BpErrorShow::Output, BpErrorLevel::Warning);
    {
        BpHeading outer = top.Heading(Literal("outer"));
        {
            BpHeading inner = outer.Heading(Literal("inner"));
            NewTable(inner, "t1");
            BpError("inside", BpErrorShow::Output, BpErrorLevel::Warning);
        }
        NewTable(outer, "t2");
        EXPECT_EQ(Outline(run.Nodes()), "first outer(inner(t1 inside) t2)")
            << "what is complete is sent while its heading is open";
    }
    NewTable(top, "t3");
    EXPECT_EQ(Outline(run.Nodes()), "first outer(inner(t1 inside) t2) t3");
}

TEST(Heading, KeepsWhatWasWrittenWhenAnExceptionEndsTheRun)
{
    CollectedOutput run;
    try {
        BpHeading heading = run.Procedure().Heading(Literal("h"));
        BpPivotTable table = NewTable(heading, "t");
        NewDimension(table, Place::Rows).Category(Literal("a")).Cell(Literal("1"));
        throw std::runtime_error("a broken invariant");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(Outline(run.Nodes()), "h(t)");
}

class FullDisk : public OutputTree {
public:
    void Node(OutputNodePtr&&) override
    {
        ++fCalls;
        throw WriteFailure("full");
    }

    int fCalls = 0;
};

TEST(Heading, ThrowsAFailureOfTheOutputWhereACallMayThrow)
{
    FullDisk disk;
    OutputBuilder builder(disk);
    HostRun run{.fOutput = &builder, .fTemplateFolder = {}};
    const HostRun::Scope scope(run);
    const std::unique_ptr<BpProcedure> procedure = MakeProcedure(nullptr);
    {
        const BpPivotTable table = NewTable(*procedure);
    }
    EXPECT_THROW(NewTable(*procedure), WriteFailure);
    EXPECT_THROW(procedure->Heading(Literal("h")), WriteFailure);
    EXPECT_THROW(builder.ThrowFailure(), WriteFailure);
    EXPECT_EQ(disk.fCalls, 1);
}

TEST(Heading, WritesNothingOutsideOfARun)
{
    const std::unique_ptr<BpProcedure> procedure = MakeProcedure(nullptr);
    BpHeading heading = procedure->Heading(Literal("h"));
    BpPivotTable table = NewTable(heading);
    NewDimension(table, Place::Rows).Category(Literal("a")).Cell(Literal("1"));
    EXPECT_NO_THROW(BpError("e", BpErrorShow::Output, BpErrorLevel::Warning));
}

}  // namespace
}  // namespace refhost
