#include "refhost/writers/TableGrid.h"

#include <gtest/gtest.h>

#include "refhost/writers/Footnotes.h"

#include "support/Cases.h"
#include "support/Nodes.h"

namespace refhost {
namespace {

using namespace test;

/// Its title doesn't show.
PivotDimension Untitled(PivotPlace place, std::vector<PivotItem> items, int sort = 2,
                        bool hidesLabels = false)
{
    PivotDimension dimension = Dimension("D", place, std::move(items));
    dimension.fSort = sort;
    dimension.fFlags[0] = true;
    dimension.fFlags[1] = hidesLabels;
    return dimension;
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
    const auto rows = [](std::vector<PivotItem> items) {
        return Untitled(PivotPlace::Rows, std::move(items));
    };
    const auto hidden = [](std::vector<PivotItem> items) {
        return Untitled(PivotPlace::Rows, std::move(items), 2, /*hidesLabels=*/true);
    };
    // clang-format off
    ExpectEach<std::tuple<std::vector<PivotDimension>, std::vector<std::vector<std::uint32_t>>>, std::string>({
        {{{rows({Category("a"), Category("b"), Category("c")})}, {{2}, {0}}}, "a@0+1/0+1 c@1+1/0+1", "b has no cell"},
        {{{rows({Category("a"), Category("b", {Words("n")})})}, {{0}}}, "a@0+1/0+1 b@1+1/0+1", "b has a note"},
        {{{rows({Group("g", {Category("a"), Category("b")}), Category("c")})}, {{0}, {1}, {2}}}, "g@0+2/0+1 a@0+1/1+1 b@1+1/1+1 c@2+1/0+2", "a group over its categories, a category over both levels"},
        {{{rows({Group("g", {Group("h", {Category("a")})}), Category("c")})}, {{1}}}, "c@0+1/0+1", "levels of what is left out"},
        {{{rows({Category("a"), Category("b")}), rows({Category("x"), Category("y")})}, {{0, 0}, {0, 1}, {1, 1}}}, "a@0+2/0+1 x@0+1/1+1 y@1+1/1+1 b@2+1/0+1 y@2+1/1+1", "a label begins anew under another outer one"},
        {{{rows({Category("a"), Category("b")}), Untitled(PivotPlace::Rows, {Category("s")}, 0)}, {{0, 0}, {1, 0}}}, "s@0+2/0+1 a@0+1/1+1 b@1+1/1+1", "a split stands outside"},
        {{{hidden({Category("a"), Category("b")})}, {{0}, {1}}}, "", "hidden labels"},
        {{{hidden({Category("a"), Category("b", {Words("n")})})}, {{0}}}, "a@0+1/0+1 b@1+1/0+1", "hidden labels show where one bears a note"},
        {{{rows({Category("a")})}, {{0, 0}, {7}}}, "", "cells that stand nowhere"},
    }, [](const auto& dimensions, const auto& cells) {
        TableNode node;
        node.fDimensions = dimensions;
        for (const auto& at : cells)
            node.fCells.push_back({at, Words("x"), {}});
        return Headers(TableGrid(node).Rows().fHeaders);
    });
    // clang-format on
}

TEST(TableGrid, FindsCellsByRowAndColumn)
{
    TableNode node;
    node.fDimensions = {Dimension("D", PivotPlace::Columns, {Category("a"), Category("b")}),
                        Dimension("D", PivotPlace::Rows, {Category("r"), Category("s")})};
    node.fCells = {{{1, 0}, Words("br"), {}}, {{0, 0}, Words("ar"), {}}, {{1, 1}, Words("bs"), {}}};
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
    node.fDimensions = {Untitled(PivotPlace::Rows, items), Untitled(PivotPlace::Rows, items),
                        Untitled(PivotPlace::Columns, items)};
    for (std::uint32_t place = 0; place < kCategories; ++place)
        node.fCells.push_back({{place, kCategories - 1 - place, place}, Words("x"), {}});
    const TableGrid grid(node);
    EXPECT_EQ(grid.Rows().fLines, kCategories);
    EXPECT_EQ(grid.Columns().fLines, kCategories);
    EXPECT_NE(grid.Cell(kCategories - 1, kCategories - 1), nullptr);
}

TEST(Footnotes, CountOnInLetters)
{
    ExpectEach<std::size_t, std::string>(
        {{0, "a"}, {25, "z"}, {26, "aa"}, {51, "az"}, {52, "ba"}, {702, "aaa"}}, FootnoteLetter);
}

TEST(Footnotes, AreLetteredInReadingOrder)
{
    TableNode node;
    node.fDimensions = {
        Untitled(PivotPlace::Rows, {Category("r", {Words("of r")}), Category("s")}),
        Untitled(PivotPlace::Columns, {Category("c"), Category("d", {Words("of d")})})};
    node.fCells = {{{1, 0}, nullptr, {Words("last"), Words("of d")}},
                   {{0, 1}, Words("x"), {Words("shared"), Words("of d"), Words("shared")}}};
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
