#include "refhost/writers/TableGrid.h"

#include <gtest/gtest.h>

#include "refhost/writers/Footnotes.h"

namespace refhost {
namespace {

TextRef Plain(const std::string& shown)
{
    return std::make_shared<const Text>(Text{TextString{shown, false}, shown});
}

PivotItem Category(const std::string& label, std::vector<TextRef> notes = {})
{
    return {false, Plain(label), std::move(notes), {}};
}

PivotItem Group(const std::string& label, std::vector<PivotItem> items)
{
    return {true, Plain(label), {}, std::move(items)};
}

PivotDimension Dimension(PivotPlace place, std::vector<PivotItem> items, int sort = 2,
                         bool hidesTitle = true, bool hidesLabels = false)
{
    return {Plain("D"), sort, place, {hidesTitle, hidesLabels}, std::move(items)};
}

/// "label@line+lines/level+levels" for each header.
std::string Headers(const std::vector<GridHeader>& headers)
{
    std::string text;
    for (const GridHeader& header : headers) {
        text += text.empty() ? "" : " ";
        text += header.fLabel->fShown + "@" + std::to_string(header.fLine) + "+" +
                std::to_string(header.fLines) + "/" + std::to_string(header.fLevel) + "+" +
                std::to_string(header.fLevels);
    }
    return text;
}

TEST(TableGrid, NestsHeadersAndLeavesOutWhatIsEmpty)
{
    const auto rows = PivotPlace::Rows;
    struct Row {
        std::vector<PivotDimension> dimensions;
        std::vector<std::vector<std::uint32_t>> cells;
        const char* headers;
        const char* why;
    };
    const Row table[] = {
        {{Dimension(rows, {Category("a"), Category("b"), Category("c")})},
         {{2}, {0}},
         "a@0+1/0+1 c@1+1/0+1",
         "b has no cell"},
        {{Dimension(rows, {Category("a"), Category("b", {Plain("n")})})},
         {{0}},
         "a@0+1/0+1 b@1+1/0+1",
         "b has a note"},
        {{Dimension(rows, {Group("g", {Category("a"), Category("b")}), Category("c")})},
         {{0}, {1}, {2}},
         "g@0+2/0+1 a@0+1/1+1 b@1+1/1+1 c@2+1/0+2",
         "a group over its categories, a category over both levels"},
        {{Dimension(rows, {Group("g", {Group("h", {Category("a")})}), Category("c")})},
         {{1}},
         "c@0+1/0+1",
         "levels of what is left out"},
        {{Dimension(rows, {Category("a"), Category("b")}),
          Dimension(rows, {Category("x"), Category("y")})},
         {{0, 0}, {0, 1}, {1, 1}},
         "a@0+2/0+1 x@0+1/1+1 y@1+1/1+1 b@2+1/0+1 y@2+1/1+1",
         "a label begins anew under another outer one"},
        {{Dimension(rows, {Category("a"), Category("b")}), Dimension(rows, {Category("s")}, 0)},
         {{0, 0}, {1, 0}},
         "s@0+2/0+1 a@0+1/1+1 b@1+1/1+1",
         "a split stands outside"},
        {{Dimension(rows, {Category("a"), Category("b")}, 2, true, true)},
         {{0}, {1}},
         "",
         "hidden labels"},
        {{Dimension(rows, {Category("a"), Category("b", {Plain("n")})}, 2, true, true)},
         {{0}},
         "a@0+1/0+1 b@1+1/0+1",
         "hidden labels show where one bears a note"},
        {{Dimension(rows, {Category("a")})}, {{0, 0}, {7}}, "", "cells that stand nowhere"},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.why);
        TableNode node;
        node.fDimensions = row.dimensions;
        for (const auto& at : row.cells)
            node.fCells.push_back({at, Plain("x"), {}});
        EXPECT_EQ(Headers(TableGrid(node).Rows().fHeaders), row.headers);
    }
}

TEST(TableGrid, FindsCellsByRowAndColumn)
{
    TableNode node;
    node.fDimensions = {Dimension(PivotPlace::Columns, {Category("a"), Category("b")}, 2, false),
                        Dimension(PivotPlace::Rows, {Category("r"), Category("s")}, 2, false)};
    node.fCells = {{{1, 0}, Plain("br"), {}}, {{0, 0}, Plain("ar"), {}}, {{1, 1}, Plain("bs"), {}}};
    const TableGrid grid(node);
    ASSERT_EQ(grid.Rows().fLines, 2U);
    ASSERT_EQ(grid.Columns().fLines, 2U);
    EXPECT_EQ(grid.Cell(0, 0), &node.fCells[1]);
    EXPECT_EQ(grid.Cell(0, 1), &node.fCells[0]);
    EXPECT_EQ(grid.Cell(1, 0), nullptr);
    EXPECT_EQ(grid.Cell(1, 1), &node.fCells[2]);
    EXPECT_EQ(grid.Cell(2, 0), nullptr);
    EXPECT_EQ(Headers(grid.Columns().fHeaders), "D@0+2/0+1 a@0+1/1+1 b@1+1/1+1");
    EXPECT_EQ(Headers(grid.Rows().fCorner), "D@0+2/0+1");
}

TEST(TableGrid, CrossesManyCategoriesByTheirCellsOnly)
{
    constexpr std::uint32_t kCategories = 20'000;
    std::vector<PivotItem> items(kCategories, Category("c"));
    TableNode node;
    node.fDimensions = {Dimension(PivotPlace::Rows, items), Dimension(PivotPlace::Rows, items),
                        Dimension(PivotPlace::Columns, items)};
    for (std::uint32_t place = 0; place < kCategories; ++place)
        node.fCells.push_back({{place, kCategories - 1 - place, place}, Plain("x"), {}});
    const TableGrid grid(node);
    EXPECT_EQ(grid.Rows().fLines, kCategories);
    EXPECT_EQ(grid.Columns().fLines, kCategories);
    EXPECT_NE(grid.Cell(kCategories - 1, kCategories - 1), nullptr);
}

TEST(Footnotes, CountOnInLetters)
{
    struct Row {
        std::size_t place;
        const char* letter;
    };
    for (const Row& row :
         {Row{0, "a"}, Row{25, "z"}, Row{26, "aa"}, Row{51, "az"}, Row{52, "ba"}, Row{702, "aaa"}})
        EXPECT_EQ(FootnoteLetter(row.place), row.letter);
}

TEST(Footnotes, AreLetteredInReadingOrder)
{
    TableNode node;
    node.fDimensions = {
        Dimension(PivotPlace::Rows, {Category("r", {Plain("of r")}), Category("s")}),
        Dimension(PivotPlace::Columns, {Category("c"), Category("d", {Plain("of d")})})};
    node.fCells = {{{1, 0}, nullptr, {Plain("last"), Plain("of d")}},
                   {{0, 1}, Plain("x"), {Plain("shared"), Plain("of d"), Plain("shared")}}};
    const TableGrid grid(node);
    const Footnotes footnotes(grid);
    std::string texts;
    for (const Text* note : footnotes.Notes())
        texts += note->fShown + ";";
    EXPECT_EQ(texts, "of d;of r;shared;last;");
    EXPECT_EQ(footnotes.Marks(node.fCells[0].fNotes), "a,d");
    EXPECT_EQ(footnotes.Marks(node.fCells[1].fNotes), "a,c") << "equal notes share a letter";
    EXPECT_EQ(footnotes.Marks({}), "");
}

}  // namespace
}  // namespace refhost
