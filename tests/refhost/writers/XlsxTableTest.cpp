#include "refhost/writers/XlsxTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <regex>

#include "refhost/writers/XlsxBook.h"

#include "support/Cases.h"
#include "support/Nodes.h"

namespace refhost {
namespace {

using namespace test;
using testing::HasSubstr;

/// The rows of a table's sheet, as the file will hold them.
std::string SheetOf(const TableNode& table)
{
    XlsxBook book(testing::TempDir() + "table.xlsx", "the book");  // never closed, so never made
    lxw_worksheet* sheet = book.AddSheet("Table");
    WriteTableSheet(book, sheet, table, "path", "de");
    std::string rows;
    std::rewind(sheet->optimize_tmpfile);
    char part[1U << 16U];
    while (const std::size_t read = std::fread(part, 1, sizeof part, sheet->optimize_tmpfile))
        rows.append(part, read);
    return rows;
}

/// "A4=text" for each cell that holds something. The last row of a sheet isn't there yet.
std::string Cells(const std::string& sheet)
{
    std::string cells;
    const std::regex cell("<c r=\"([A-Z]+\\d+)\"[^>]*>(?:<is><t[^>]*>|<v>)([^<]*)<");
    for (std::sregex_iterator at(sheet.begin(), sheet.end(), cell), end; at != end; ++at)
        cells += at->str(1) + "=" + at->str(2) + " ";
    return cells;
}

TEST(XlsxTable, SetsTitlesOfRowsAboveTheirLabels)
{
    const auto cells = [](const std::vector<PivotDimension>& columns) {
        TableNode table;
        table.fCaption = Words("caption");
        table.fDimensions = {Dimension("Education", PivotPlace::Rows, {Category("0 to 5")}),
                             Dimension("status", PivotPlace::Rows, {Category("case")})};
        table.fDimensions.insert(table.fDimensions.end(), columns.begin(), columns.end());
        table.fCells = {Cell(std::vector<std::uint32_t>(table.fDimensions.size()), Number(7, "7"))};
        return Cells(SheetOf(table));
    };
    EXPECT_THAT(cells({}), HasSubstr("A4=Education B4=status A5=0 to 5 B5=case C5=7 "));
    EXPECT_THAT(cells({Dimension("Statistics", PivotPlace::Columns, {Category("N")})}),
                HasSubstr("C4=Statistics A5=Education B5=status C5=N A6=0 to 5 B6=case C6=7 "))
        << "at the last level of the columns";
}

TEST(XlsxTable, SaysWhatASheetHasNoRoomFor)
{
    struct Row {
        PivotPlace place;
        std::size_t lines;
        const char* note;
        const char* why;
    };
    for (const Row& row :
         {Row{PivotPlace::Columns, 65'556, "Hier stehen die ersten 16383 von 65556 Spalten.",
              "columns that sixteen bits don't count"},
          Row{PivotPlace::Rows, 1'048'576, "Hier stehen die ersten 1048568 von 1048576 Zeilen.",
              "rows, of which the notes need some"}}) {
        SCOPED_TRACE(row.why);
        TableNode table;
        table.fCaption = Words("caption");
        table.fDimensions = {
            Dimension("n", row.place, std::vector<PivotItem>(row.lines, Category("l")))};
        const TextRef number = Number(7, "7");
        for (std::uint32_t line = 0; line < row.lines; ++line)
            table.fCells.push_back(Cell({line}, number));
        const std::string sheet = SheetOf(table);
        EXPECT_THAT(sheet.substr(sheet.size() - 200), HasSubstr(row.note));
        EXPECT_THAT(sheet, Not(HasSubstr("ref=\"A1048577")));
    }
}

TEST(XlsxTable, WidensColumnsByWhatAReaderSees)
{
    // clang-format off
    ExpectEach<const char*, double>({
        {"no", 9, "the narrowest"},
        {"Größe, länger üblich", 22, "umlauts"},
        {"一二三四五六", 14, "characters of two columns"},
    }, [](const char* label) {
        XlsxBook book(testing::TempDir() + "table.xlsx", "the book");
        lxw_worksheet* sheet = book.AddSheet("Table");
        WriteTableSheet(book, sheet, PlainTable("", {label}), "", "en");
        return sheet->col_options[0]->width;
    });
    // clang-format on
}

TEST(XlsxBook, NamesSheetsAsLongAsANameMayBe)
{
    XlsxBook book(testing::TempDir() + "table.xlsx", "the book");
    book.AddSheet("Outline");
    // clang-format off
    ExpectEach<std::string, std::string>({
        {"One-Sample Kolmogorov-Smirnov Test", "1 One-Sample Kolmogorov-Smirnov", "letters"},
        {"Größenverhältnisse über fünf Jahre", "2 Größenverhältnisse über fünf", "umlauts"},
        {"𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘", "3 𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘𝔘", "each counts as two"},
        {"a/b [c]\x01\xFF", "4 a b  c  \uFFFD", "what no name may hold"},
    }, [&book](const std::string& title) { return std::string(book.AddSheet(title)->name); });
    // clang-format on
}

}  // namespace
}  // namespace refhost
