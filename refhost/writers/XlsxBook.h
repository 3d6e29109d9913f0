#pragma once

#include <xlsxwriter.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace refhost {

/// A workbook that is written as it is made: the rows of a sheet come in order, and what was
/// written is no longer in memory. It waits in a file for each sheet, in the folder of the
/// workbook. Failures throw `WriteFailure`, with a line that gives the workbook's name.
class XlsxBook {
public:
    XlsxBook(const std::string& file, std::string name);
    ~XlsxBook();
    XlsxBook(const XlsxBook&) = delete;
    XlsxBook& operator=(const XlsxBook&) = delete;

    enum class Style { Plain, Title, Faint, Caption, ColumnHeader, RowHeader, Cell, Link };

    /// A new sheet. Its name is a number of its own and as much of `title` as a name may hold.
    lxw_worksheet* AddSheet(std::string_view title);

    lxw_format* Format(Style style) const;

    /// The format of a number in a cell, with the marks of its footnotes behind it.
    lxw_format* NumberFormat(int decimals, const std::string& marks);

    /// Ends the workbook; it can't be written to any more.
    void Close();

private:
    struct Discard {
        void operator()(lxw_workbook* book) const { lxw_workbook_free(book); }
    };
    lxw_format* MakeStyle(Style style);
    void CheckSheets() const;
    [[noreturn]] void Fail(std::string_view reason) const;

    std::string fName;
    std::unique_ptr<lxw_workbook, Discard> fBook;
    std::map<Style, lxw_format*> fStyles;
    std::map<std::pair<int, std::string>, lxw_format*> fNumberFormats;
    std::size_t fSheets = 0;
    std::size_t fMostSheets;
};

/// Writes a text as a text, whatever it begins with. One too long for a cell is cut.
void WriteText(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, std::string_view text,
               lxw_format* format);

/// Joins cells whose upper left one bears the content. Rows above the current one are already
/// written, so the others are left to be written blank by the caller.
void JoinCells(lxw_worksheet* sheet, lxw_row_t firstRow, lxw_col_t firstColumn, lxw_row_t lastRow,
               lxw_col_t lastColumn);

}  // namespace refhost
