#include "refhost/writers/BoxDrawing.h"

#include <algorithm>

#include "refhost/writers/TerminalText.h"

namespace refhost {

namespace {

/// Where strokes leave a crossing.
enum Stroke : unsigned { kUp = 1, kDown = 2, kLeft = 4, kRight = 8 };

constexpr std::string_view kCrossings[16] = {
    " ", "│", "│", "│", "─", "┘", "┐", "┤", "─", "└", "┌", "├", "─", "┴", "┬", "┼",
};
constexpr std::string_view kHorizontal = "─";
constexpr std::string_view kVertical = "│";

/// For each border between columns, the outer ones included, whether the row has a stroke there.
std::vector<bool> Borders(const BoxRow* row, std::size_t columns)
{
    std::vector<bool> borders(columns + 1, false);
    if (!row) return borders;
    for (const BoxCell& cell : *row)
        borders[cell.fColumn] = true;
    borders[columns] = true;
    return borders;
}

/// For each column, whether a rule below the row cuts it off.
std::vector<bool> Cuts(const BoxRow* row, std::size_t columns)
{
    std::vector<bool> cuts(columns, true);
    if (!row) return cuts;
    for (const BoxCell& cell : *row)
        for (std::size_t column = 0; column < cell.fColumns; ++column)
            cuts[cell.fColumn + column] = !cell.fJoinsBelow;
    return cuts;
}

void AppendTimes(std::string_view piece, std::size_t times, std::string& out)
{
    for (std::size_t time = 0; time < times; ++time)
        out += piece;
}

void AppendAligned(std::string_view text, std::size_t width, BoxAlign align, std::string& out)
{
    const std::size_t taken = DisplayWidth(text);
    const std::size_t room = width > taken ? width - taken : 0;
    std::size_t before = 0;
    if (align == BoxAlign::Center) before = room / 2;
    if (align == BoxAlign::Right) before = room;
    out.append(before, ' ');
    out += text;
    out.append(room - before, ' ');
}

}  // namespace

std::size_t BoxDrawing::InnerWidth(std::size_t column, std::size_t columns) const
{
    std::size_t width = kCellFrame * (columns - 1);
    for (std::size_t index = 0; index < columns; ++index)
        width += fWidths[column + index];
    return width;
}

void BoxDrawing::AppendRule(const BoxRow* above, const BoxRow* below, std::string& out) const
{
    const std::size_t columns = fWidths.size();
    const std::vector<bool> up = Borders(above, columns);
    const std::vector<bool> down = Borders(below, columns);
    const std::vector<bool> cuts = Cuts(above, columns);
    for (std::size_t border = 0; border <= columns; ++border) {
        const bool left = border > 0 && cuts[border - 1];
        const bool right = border < columns && cuts[border];
        const unsigned strokes = (up[border] ? kUp : 0U) | (down[border] ? kDown : 0U) |
                                 (left ? kLeft : 0U) | (right ? kRight : 0U);
        out += kCrossings[strokes];
        if (border == columns) break;
        AppendTimes(right ? kHorizontal : " ", fWidths[border] + 2, out);
    }
    out += '\n';
}

void BoxDrawing::AppendRow(const BoxRow& row, std::string& out) const
{
    std::size_t height = 1;
    for (const BoxCell& cell : row)
        height = std::max(height, cell.fLines.size());
    for (std::size_t line = 0; line < height; ++line) {
        for (const BoxCell& cell : row) {
            const std::string_view text =
                line < cell.fLines.size() ? std::string_view(cell.fLines[line]) : "";
            out += kVertical;
            out += ' ';
            AppendAligned(text, InnerWidth(cell.fColumn, cell.fColumns), cell.fAlign, out);
            out += ' ';
        }
        out += kVertical;
        out += '\n';
    }
}

}  // namespace refhost
