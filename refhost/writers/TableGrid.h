#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "refhost/document/OutputNode.h"

namespace refhost {

/// Whether a reader sees a number, which stands at the right.
bool IsNumber(const Text& text);

/// A label beside the lines of an axis: where it stands and how far it reaches.
struct GridHeader {
    const Text* fLabel = nullptr;                  ///< never null; a dimension's title or an item
    const std::vector<TextRef>* fNotes = nullptr;  ///< of the label; null for a title
    bool fIsTitle = false;                         ///< a dimension's title
    std::size_t fLine = 0;                         ///< first line that it stands at
    std::size_t fLines = 1;                        ///< how many lines it reaches over
    unsigned fLevel = 0;                           ///< from the outside, from 0
    unsigned fLevels = 1;                          ///< how many levels it reaches over
};

/// The rows or the columns of a table. The headers of the columns stand in `fLevels` rows above the
/// cells, those of the rows in `fLevels` columns before them.
struct GridAxis {
    std::size_t fLines = 0;  ///< rows, or columns, of cells
    unsigned fLevels = 0;

    /// In reading order: those of columns level by level, those of rows line by line. Each level of
    /// each line is covered by exactly one header.
    std::vector<GridHeader> fHeaders;

    /// Of rows only: titles of dimensions, to stand in the corner above their levels. Their lines
    /// mean nothing.
    std::vector<GridHeader> fCorner;
};

/// A pivot table laid out for persons: dimensions become nested headers, split dimensions (sort 0)
/// outside of all others, and each group a header over its categories. A row or column stands here
/// only if it holds a cell, or a category that bears a note. The first flag of a dimension hides
/// its title, the second the labels of its categories.
///
/// A view onto the table, which has to outlive it.
class TableGrid {
public:
    explicit TableGrid(const TableNode& table);

    const GridAxis& Rows() const { return fRows; }
    const GridAxis& Columns() const { return fColumns; }

    /// Rows above the cells: the levels of the columns, or one for the titles in the corner alone.
    unsigned HeadRows() const
    {
        return std::max(fColumns.fLevels, fRows.fCorner.empty() ? 0U : 1U);
    }

    struct PlacedCell {
        std::size_t fColumn;
        const PivotCell* fCell;
    };

    /// The cells of a row, by ascending column; a column without a cell is not there.
    std::span<const PlacedCell> RowCells(std::size_t row) const;

    /// The cell of a crossing; null where there is none.
    const PivotCell* Cell(std::size_t row, std::size_t column) const;

private:
    void PlaceCells(const std::vector<const PivotCell*>& cells,
                    const std::vector<std::uint32_t>& rows,
                    const std::vector<std::uint32_t>& columns);

    GridAxis fRows;
    GridAxis fColumns;
    std::vector<PlacedCell> fCells;      // row by row
    std::vector<std::size_t> fRowStart;  // into fCells; one more than rows
};

}  // namespace refhost
