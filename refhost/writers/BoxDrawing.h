#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

constexpr std::size_t kCellFrame = 3;  // of a column: a blank on either side, and a stroke

enum class BoxAlign { Left, Center, Right };

/// A cell of a drawn row; it may reach over several columns, and on into the next row.
struct BoxCell {
    std::size_t fColumn = 0;
    std::size_t fColumns = 1;
    bool fJoinsBelow = false;
    BoxAlign fAlign = BoxAlign::Left;
    std::vector<std::string> fLines;  ///< printable, each within the cell's width
};

/// The cells of a row, which cover all columns from left to right.
using BoxRow = std::vector<BoxCell>;

/// Draws rows of a table in box characters.
class BoxDrawing {
public:
    /// `widths` are those of the columns, without the blanks beside their content.
    explicit BoxDrawing(std::vector<std::size_t> widths) : fWidths(std::move(widths)) {}

    /// Width of the content of a cell that reaches over several columns.
    std::size_t InnerWidth(std::size_t column, std::size_t columns) const;

    /// The line between two rows; null above the first and below the last row.
    void AppendRule(const BoxRow* above, const BoxRow* below, std::string& out) const;

    void AppendRow(const BoxRow& row, std::string& out) const;

private:
    std::vector<std::size_t> fWidths;
};

}  // namespace refhost
