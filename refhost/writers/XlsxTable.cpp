#include "refhost/writers/XlsxTable.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "refhost/data/MissingValue.h"
#include "refhost/writers/Footnotes.h"
#include "refhost/writers/ReportWords.h"
#include "refhost/writers/TableGrid.h"
#include "refhost/writers/TerminalText.h"
#include "refhost/writers/XlsxBook.h"

namespace refhost {

namespace {

using Style = XlsxBook::Style;

constexpr lxw_row_t kFirstTableRow = 3;  // behind title, place and a blank row
constexpr double kNarrowestColumn = 9;
constexpr double kWidestColumn = 48;
constexpr double kColumnPadding = 2;

// What lies beyond a sheet stays beyond it, where the library takes nothing.
lxw_row_t Row(std::size_t row)
{
    return static_cast<lxw_row_t>(std::min<std::size_t>(row, LXW_ROW_MAX));
}
lxw_col_t Column(std::size_t column)
{
    return static_cast<lxw_col_t>(std::min<std::size_t>(column, LXW_COL_MAX));
}

/// How many of `count` lines fit behind others that are taken.
std::size_t Fitting(std::size_t count, std::size_t taken, std::size_t most)
{
    return std::min(count, most - std::min(taken, most));
}

std::string CutNote(std::string_view language, std::string_view key, std::size_t held,
                    std::size_t all)
{
    return ReportSentence(language, key, {std::to_string(held), std::to_string(all)});
}

std::string WithMarks(const std::string& text, const std::string& marks)
{
    return marks.empty() ? text : text + " (" + marks + ")";
}

/// A pivot table on its way into a sheet. Rows are written from top to bottom, once each.
class TableSheet {
public:
    TableSheet(XlsxBook& book, lxw_worksheet* sheet, const TableNode& table,
               std::string_view language)
        : fBook(book),
          fSheet(sheet),
          fTable(table),
          fLanguage(language),
          fGrid(table),
          fNotes(fGrid),
          fFirstColumn(std::max(1U, fGrid.Rows().fLevels)),
          fFirstRow(kFirstTableRow + fGrid.HeadRows()),
          fColumns(Fitting(fGrid.Columns().fLines, fFirstColumn, LXW_COL_MAX)),
          fRows(Fitting(fGrid.Rows().fLines, fFirstRow + NoteRows(), LXW_ROW_MAX)),
          fWidths(fFirstColumn + fColumns, kNarrowestColumn)
    {
    }

    void Write()
    {
        WriteColumnHeaders();
        WriteRows();
        WriteNotes();
        for (std::size_t column = 0; column < fWidths.size(); ++column)
            worksheet_set_column(fSheet, Column(column), Column(column), fWidths[column], nullptr);
        worksheet_freeze_panes(fSheet, Row(fFirstRow), Column(fFirstColumn));
    }

private:
    void WriteLabel(std::size_t row, std::size_t column, const GridHeader& header, Style style)
    {
        const std::string marks = header.fNotes ? fNotes.Marks(*header.fNotes) : std::string();
        const std::string text = WithMarks(header.fLabel->fShown, marks);
        WriteText(fSheet, Row(row), Column(column), text, fBook.Format(style));
        if (header.fLines == 1 || style == Style::RowHeader) Widen(column, text);
    }

    /// The cells of a header but its first, so that borders and ground go through.
    void WriteBlanks(std::size_t row, std::size_t firstColumn, std::size_t lastColumn, Style style)
    {
        for (std::size_t column = firstColumn; column <= lastColumn; ++column)
            worksheet_write_blank(fSheet, Row(row), Column(column), fBook.Format(style));
    }

    void Widen(std::size_t column, std::string_view text)
    {
        const double width =
            std::min(kWidestColumn, static_cast<double>(DisplayWidth(text)) + kColumnPadding);
        fWidths[column] = std::max(fWidths[column], width);
    }

    void WriteColumnHeaders()
    {
        const GridAxis& columns = fGrid.Columns();
        for (std::size_t row = kFirstTableRow; row < fFirstRow; ++row) {
            const std::size_t blanks = columns.fLevels == 0 ? fWidths.size() : fFirstColumn;
            WriteBlanks(row, 0, blanks - 1, Style::ColumnHeader);
            if (row + 1 == fFirstRow) WriteCorner(row);
            for (const GridHeader& header : columns.fHeaders)
                WriteHeaderLevel(header, static_cast<unsigned>(row - kFirstTableRow));
        }
    }

    void WriteCorner(std::size_t row)
    {
        for (const GridHeader& title : fGrid.Rows().fCorner) {
            WriteLabel(row, title.fLevel, title, Style::ColumnHeader);
            JoinCells(fSheet, Row(row), Column(title.fLevel), Row(row),
                      Column(title.fLevel + title.fLevels - 1));
        }
    }

    void WriteHeaderLevel(const GridHeader& header, unsigned level)
    {
        if (level < header.fLevel || level >= header.fLevel + header.fLevels) return;
        if (header.fLine >= fColumns) return;
        const std::size_t row = kFirstTableRow + level;
        const std::size_t first = fFirstColumn + header.fLine;
        const std::size_t last = std::min(first + header.fLines, fWidths.size()) - 1;
        WriteBlanks(row, first, last, Style::ColumnHeader);
        if (level == header.fLevel) WriteLabel(row, first, header, Style::ColumnHeader);
        if (level + 1 == header.fLevel + header.fLevels)
            JoinCells(fSheet, Row(kFirstTableRow + header.fLevel), Column(first), Row(row),
                      Column(last));
    }

    void WriteRows()
    {
        const GridAxis& rows = fGrid.Rows();
        auto header = rows.fHeaders.begin();
        for (std::size_t line = 0; line < fRows; ++line) {
            const std::size_t row = fFirstRow + line;
            WriteBlanks(row, 0, fFirstColumn - 1, Style::RowHeader);
            for (; header != rows.fHeaders.end() && header->fLine == line; ++header) {
                WriteLabel(row, header->fLevel, *header, Style::RowHeader);
                const std::size_t last = std::min(line + header->fLines, fRows) - 1;
                JoinCells(fSheet, Row(row), Column(header->fLevel), Row(fFirstRow + last),
                          Column(header->fLevel + header->fLevels - 1));
            }
            WriteBlanks(row, fFirstColumn, fWidths.size() - 1, Style::Cell);
            for (const TableGrid::PlacedCell& cell : fGrid.RowCells(line))
                if (cell.fColumn < fColumns)
                    WriteCell(row, fFirstColumn + cell.fColumn, *cell.fCell);
        }
    }

    void WriteCell(std::size_t row, std::size_t column, const PivotCell& cell)
    {
        const std::string marks = fNotes.Marks(cell.fNotes);
        const auto* number =
            cell.fContent ? std::get_if<TextNumber>(&cell.fContent->fPassed) : nullptr;
        if (number && !IsUntold(number->fNumber)) {
            worksheet_write_number(fSheet, Row(row), Column(column), number->fNumber,
                                   fBook.NumberFormat(number->fDecimals, marks));
            return;
        }
        const std::string text =
            WithMarks(cell.fContent ? cell.fContent->fShown : std::string(), marks);
        WriteText(fSheet, Row(row), Column(column), text,
                  number ? fBook.NumberFormat(0, "") : fBook.Format(Style::Cell));
        Widen(column, text);
    }

    /// Rows below the table: a blank one, what is said of a cut, caption and notes.
    std::size_t NoteRows() const
    {
        constexpr std::size_t kMostNoteRows = LXW_ROW_MAX / 2;
        return std::min(4 + fNotes.Notes().size(), kMostNoteRows);
    }

    void WriteNotes()
    {
        std::size_t row = fFirstRow + fRows + 1;
        const auto write = [this, &row](std::string_view text, Style style) {
            WriteText(fSheet, Row(row++), 0, text, fBook.Format(style));
        };
        const std::size_t rows = fGrid.Rows().fLines;
        const std::size_t columns = fGrid.Columns().fLines;
        if (fColumns < columns)
            write(CutNote(fLanguage, "held-columns", fColumns, columns), Style::Plain);
        if (fRows < rows) write(CutNote(fLanguage, "held-rows", fRows, rows), Style::Plain);
        if (fTable.fCaption) write(fTable.fCaption->fShown, Style::Caption);
        const std::vector<const Text*>& notes = fNotes.Notes();
        for (std::size_t note = 0; note < notes.size(); ++note)
            write(FootnoteLetter(note) + ". " + notes[note]->fShown, Style::Plain);
    }

    XlsxBook& fBook;
    lxw_worksheet* fSheet;
    const TableNode& fTable;
    const std::string_view fLanguage;
    const TableGrid fGrid;
    const Footnotes fNotes;
    const std::size_t fFirstColumn;  // of cells
    const std::size_t fFirstRow;     // of cells
    const std::size_t fColumns;      // of cells, as many as the sheet holds
    const std::size_t fRows;         // likewise
    std::vector<double> fWidths;     // in characters
};

void WriteHead(XlsxBook& book, lxw_worksheet* sheet, std::string_view title,
               const std::string& path)
{
    WriteText(sheet, 0, 0, title, book.Format(Style::Title));
    WriteText(sheet, 1, 0, path, book.Format(Style::Faint));
}

void WriteSource(XlsxBook& book, lxw_worksheet* sheet, const ChartSource& source,
                 std::string_view language, lxw_row_t& row)
{
    constexpr lxw_row_t kOtherRows = 2;  // what is said of a cut, and the names
    const std::size_t rows = Fitting(source.fRows, row + kOtherRows, LXW_ROW_MAX);
    if (rows < source.fRows)
        WriteText(sheet, row++, 0, CutNote(language, "held-rows", rows, source.fRows),
                  book.Format(Style::Plain));
    for (std::size_t column = 0; column < source.fColumns.size(); ++column)
        WriteText(sheet, row, Column(column), source.fColumns[column].fName,
                  book.Format(Style::ColumnHeader));
    ++row;
    for (std::size_t line = 0; line < rows; ++line, ++row) {
        for (std::size_t column = 0; column < source.fColumns.size(); ++column) {
            const std::vector<ChartValue>& values = source.fColumns[column].fValues;
            if (line >= values.size()) continue;
            if (const auto* number = std::get_if<double>(&values[line])) {
                if (std::isfinite(*number))
                    worksheet_write_number(sheet, row, Column(column), *number, nullptr);
            } else if (const auto* text = std::get_if<std::string>(&values[line])) {
                WriteText(sheet, row, Column(column), *text, nullptr);
            }
        }
    }
    ++row;
}

}  // namespace

void WriteTableSheet(XlsxBook& book, lxw_worksheet* sheet, const TableNode& table,
                     const std::string& path, std::string_view language)
{
    WriteHead(book, sheet, table.fTitle ? table.fTitle->fShown : "", path);
    TableSheet(book, sheet, table, language).Write();
}

void WriteChartSheet(XlsxBook& book, lxw_worksheet* sheet, const ChartNode& chart,
                     const std::string& path, std::string_view language)
{
    WriteHead(book, sheet, chart.fTitle, path);
    lxw_row_t row = 2;
    for (const std::string* text : {&chart.fSubtitle, &chart.fFootnote})
        if (!text->empty()) WriteText(sheet, row++, 0, *text, book.Format(Style::Plain));
    ++row;
    for (const ChartSource& source : chart.fSources)
        WriteSource(book, sheet, source, language, row);
    worksheet_set_column(sheet, 0, 0, kWidestColumn / 2, nullptr);
}

}  // namespace refhost
