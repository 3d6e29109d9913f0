#include "refhost/writers/TableGrid.h"

#include <algorithm>

namespace refhost {

namespace {

const Text kNoText;

/// An item of a dimension, with its way up.
struct TreeNode {
    const PivotItem* fItem;
    std::size_t fParent;  // itself for an outermost item
    unsigned fDepth;      // from 0
};

/// A dimension with its groups flattened.
struct FlatDimension {
    const PivotDimension* fDimension;
    std::size_t fIndex;  // in the table
    std::vector<TreeNode> fNodes;
    std::vector<std::size_t> fLeaves;  // into fNodes
    bool fHasNotes = false;

    const PivotItem& Leaf(std::uint32_t position) const { return *fNodes[fLeaves[position]].fItem; }

    /// The node over a category at a depth, or its own node where it stands less deep.
    std::size_t Ancestor(std::uint32_t position, unsigned depth) const
    {
        std::size_t node = fLeaves[position];
        while (fNodes[node].fDepth > depth)
            node = fNodes[node].fParent;
        return node;
    }
};

constexpr std::size_t kNoParent = static_cast<std::size_t>(-1);

void Flatten(const std::vector<PivotItem>& items, std::size_t parent, unsigned depth,
             FlatDimension& flat)
{
    for (const PivotItem& item : items) {
        const std::size_t node = flat.fNodes.size();
        flat.fNodes.push_back({&item, parent == kNoParent ? node : parent, depth});
        flat.fHasNotes = flat.fHasNotes || !item.fNotes.empty();
        if (item.fIsGroup) {
            Flatten(item.fItems, node, depth + 1, flat);
        } else {
            flat.fLeaves.push_back(node);
        }
    }
}

/// The dimensions of one place, outermost first.
std::vector<FlatDimension> FlattenPlace(const TableNode& table, PivotPlace place)
{
    std::vector<FlatDimension> dimensions;
    for (std::size_t index = 0; index < table.fDimensions.size(); ++index) {
        const PivotDimension& dimension = table.fDimensions[index];
        if (dimension.fPlace != place) continue;
        FlatDimension& flat = dimensions.emplace_back();
        flat.fDimension = &dimension;
        flat.fIndex = index;
        Flatten(dimension.fItems, kNoParent, 0, flat);
    }
    std::stable_partition(dimensions.begin(), dimensions.end(),
                          [](const FlatDimension& flat) { return flat.fDimension->fSort == 0; });
    return dimensions;
}

/// The crossings that an axis has to show: those of the cells, and one for each noted category that
/// has no cell.
class Crossings {
public:
    Crossings(const std::vector<const PivotCell*>& cells,
              const std::vector<FlatDimension>& dimensions)
        : fCells(cells)
    {
        for (const FlatDimension& flat : dimensions)
            AddNoted(flat, dimensions);
    }

    std::size_t Count() const { return fCells.size() + fNoted.size(); }

    std::uint32_t At(std::size_t crossing, std::size_t dimension) const
    {
        return crossing < fCells.size() ? fCells[crossing]->fAt[dimension]
                                        : fNoted[crossing - fCells.size()][dimension];
    }

private:
    void AddNoted(const FlatDimension& flat, const std::vector<FlatDimension>& dimensions)
    {
        if (!flat.fHasNotes) return;
        std::vector<bool> hasCell(flat.fLeaves.size());
        for (const PivotCell* cell : fCells)
            hasCell[cell->fAt[flat.fIndex]] = true;
        for (std::uint32_t position = 0; position < flat.fLeaves.size(); ++position) {
            if (hasCell[position] || flat.Leaf(position).fNotes.empty()) continue;
            std::vector<std::uint32_t> at =
                fCells.empty() ? std::vector<std::uint32_t>(LastIndex(dimensions) + 1)
                               : fCells[0]->fAt;
            at[flat.fIndex] = position;
            const bool stands = std::ranges::all_of(dimensions, [&at](const FlatDimension& other) {
                return at[other.fIndex] < other.fLeaves.size();
            });
            if (stands) fNoted.push_back(std::move(at));
        }
    }

    static std::size_t LastIndex(const std::vector<FlatDimension>& dimensions)
    {
        std::size_t last = 0;
        for (const FlatDimension& flat : dimensions)
            last = std::max(last, flat.fIndex);
        return last;
    }

    const std::vector<const PivotCell*>& fCells;
    std::vector<std::vector<std::uint32_t>> fNoted;
};

/// Where each crossing stands on an axis, and a crossing to stand for each line.
struct Lines {
    std::vector<std::uint32_t> fOfCrossing;
    std::vector<std::size_t> fExample;
};

/// Numbers the crossings by their categories in the dimensions, outermost first; equal ones share a
/// line. Lines that nothing stands on don't arise, however many categories cross.
Lines NumberLines(const Crossings& crossings, const std::vector<FlatDimension>& dimensions)
{
    const std::size_t count = crossings.Count();
    Lines lines;
    lines.fOfCrossing.assign(count, 0);
    std::vector<std::uint64_t> keys(count);
    for (const FlatDimension& flat : dimensions) {
        for (std::size_t crossing = 0; crossing < count; ++crossing) {
            keys[crossing] = std::uint64_t{lines.fOfCrossing[crossing]} << 32U |
                             crossings.At(crossing, flat.fIndex);
        }
        std::vector<std::uint64_t> distinct = keys;
        std::ranges::sort(distinct);
        distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
        for (std::size_t crossing = 0; crossing < count; ++crossing) {
            const auto place = std::ranges::lower_bound(distinct, keys[crossing]);
            lines.fOfCrossing[crossing] = static_cast<std::uint32_t>(place - distinct.begin());
        }
    }
    for (std::size_t crossing = 0; crossing < count; ++crossing) {
        const std::size_t line = lines.fOfCrossing[crossing];
        if (line >= lines.fExample.size()) lines.fExample.resize(line + 1);
        lines.fExample[line] = crossing;
    }
    return lines;
}

/// Writes the headers of one axis, dimension by dimension from the outside.
class AxisLayout {
public:
    AxisLayout(PivotPlace place, const Crossings& crossings, const Lines& lines)
        : fPlace(place), fCrossings(crossings), fLines(lines)
    {
        fAxis.fLines = lines.fExample.size();
    }

    void Add(const FlatDimension& flat)
    {
        const std::vector<std::uint32_t> positions = Positions(flat);
        const unsigned depth = Depth(flat, positions);
        if (!flat.fDimension->fFlags[0] && depth > 0) AddTitle(*flat.fDimension, depth);
        for (unsigned level = 0; level < depth; ++level)
            AddLevel(flat, positions, level, depth);
        fAxis.fLevels += depth;
        NoteChanges(positions);
    }

    GridAxis Finish()
    {
        if (fPlace == PivotPlace::Rows)
            std::ranges::stable_sort(fAxis.fHeaders, {}, &GridHeader::fLine);
        return std::move(fAxis);
    }

private:
    /// The position of each line's category.
    std::vector<std::uint32_t> Positions(const FlatDimension& flat) const
    {
        std::vector<std::uint32_t> positions(fAxis.fLines);
        for (std::size_t line = 0; line < fAxis.fLines; ++line)
            positions[line] = fCrossings.At(fLines.fExample[line], flat.fIndex);
        return positions;
    }

    /// Levels that the labels need; none where they are hidden and bear no note.
    static unsigned Depth(const FlatDimension& flat, const std::vector<std::uint32_t>& positions)
    {
        if (flat.fDimension->fFlags[1] && !flat.fHasNotes) return 0;
        unsigned depth = 0;
        for (const std::uint32_t position : positions)
            depth = std::max(depth, flat.fNodes[flat.fLeaves[position]].fDepth + 1);
        return depth;
    }

    void AddTitle(const PivotDimension& dimension, unsigned depth)
    {
        GridHeader title;
        title.fLabel = dimension.fTitle ? dimension.fTitle.get() : &kNoText;
        title.fIsTitle = true;
        title.fLines = fAxis.fLines;
        title.fLevel = fAxis.fLevels;
        if (fPlace == PivotPlace::Rows) {
            title.fLevels = depth;
            fAxis.fCorner.push_back(title);
        } else {
            fAxis.fHeaders.push_back(title);
            ++fAxis.fLevels;
        }
    }

    void AddLevel(const FlatDimension& flat, const std::vector<std::uint32_t>& positions,
                  unsigned level, unsigned depth)
    {
        std::size_t before = kNoParent;
        for (std::size_t line = 0; line < positions.size(); ++line) {
            const std::size_t node = flat.Ancestor(positions[line], level);
            const bool continues = line > 0 && node == before && !StartsOuter(line);
            before = node;
            if (flat.fNodes[node].fDepth < level) continue;  // reaches down from its own level
            if (continues) {
                ++fAxis.fHeaders.back().fLines;
                continue;
            }
            const PivotItem& item = *flat.fNodes[node].fItem;
            GridHeader header;
            header.fLabel = item.fLabel ? item.fLabel.get() : &kNoText;
            header.fNotes = &item.fNotes;
            header.fLine = line;
            header.fLevel = fAxis.fLevels + level;
            header.fLevels = item.fIsGroup ? 1 : depth - level;
            fAxis.fHeaders.push_back(header);
        }
    }

    /// Whether a category of an outer dimension begins at this line.
    bool StartsOuter(std::size_t line) const { return !fStarts.empty() && fStarts[line]; }

    void NoteChanges(const std::vector<std::uint32_t>& positions)
    {
        fStarts.resize(positions.size());
        for (std::size_t line = 1; line < positions.size(); ++line)
            if (positions[line] != positions[line - 1]) fStarts[line] = true;
    }

    PivotPlace fPlace;
    const Crossings& fCrossings;
    const Lines& fLines;
    GridAxis fAxis;
    std::vector<bool> fStarts;
};

GridAxis LayOut(PivotPlace place, const std::vector<FlatDimension>& dimensions,
                const Crossings& crossings, const Lines& lines)
{
    AxisLayout layout(place, crossings, lines);
    for (const FlatDimension& flat : dimensions)
        layout.Add(flat);
    return layout.Finish();
}

bool Stands(const PivotCell& cell, std::size_t dimensionCount,
            const std::vector<FlatDimension>& dimensions)
{
    return cell.fAt.size() == dimensionCount &&
           std::ranges::all_of(dimensions, [&cell](const FlatDimension& flat) {
               return cell.fAt[flat.fIndex] < flat.fLeaves.size();
           });
}

}  // namespace

bool IsNumber(const Text& text)
{
    if (std::holds_alternative<TextNumber>(text.fPassed)) return true;
    const auto* value = std::get_if<TextValue>(&text.fPassed);
    return value && !value->fLabelled && std::holds_alternative<double>(value->fValue);
}

TableGrid::TableGrid(const TableNode& table)
{
    const std::vector<FlatDimension> rows = FlattenPlace(table, PivotPlace::Rows);
    const std::vector<FlatDimension> columns = FlattenPlace(table, PivotPlace::Columns);
    std::vector<const PivotCell*> cells;
    for (const PivotCell& cell : table.fCells) {
        const std::size_t count = table.fDimensions.size();
        if (Stands(cell, count, rows) && Stands(cell, count, columns)) cells.push_back(&cell);
    }
    const Crossings rowCrossings(cells, rows);
    const Crossings columnCrossings(cells, columns);
    const Lines rowLines = NumberLines(rowCrossings, rows);
    const Lines columnLines = NumberLines(columnCrossings, columns);
    fRows = LayOut(PivotPlace::Rows, rows, rowCrossings, rowLines);
    fColumns = LayOut(PivotPlace::Columns, columns, columnCrossings, columnLines);
    PlaceCells(cells, rowLines.fOfCrossing, columnLines.fOfCrossing);
}

std::span<const TableGrid::PlacedCell> TableGrid::RowCells(std::size_t row) const
{
    if (row >= fRows.fLines) return {};
    return std::span(fCells).subspan(fRowStart[row], fRowStart[row + 1] - fRowStart[row]);
}

const PivotCell* TableGrid::Cell(std::size_t row, std::size_t column) const
{
    const std::span<const PlacedCell> cells = RowCells(row);
    const auto found = std::ranges::lower_bound(cells, column, {}, &PlacedCell::fColumn);
    return found != cells.end() && found->fColumn == column ? found->fCell : nullptr;
}

void TableGrid::PlaceCells(const std::vector<const PivotCell*>& cells,
                           const std::vector<std::uint32_t>& rows,
                           const std::vector<std::uint32_t>& columns)
{
    fRowStart.assign(fRows.fLines + 1, 0);
    for (std::size_t index = 0; index < cells.size(); ++index)
        ++fRowStart[rows[index] + 1];
    for (std::size_t row = 0; row < fRows.fLines; ++row)
        fRowStart[row + 1] += fRowStart[row];
    fCells.resize(cells.size());
    std::vector<std::size_t> next = fRowStart;
    for (std::size_t index = 0; index < cells.size(); ++index)
        fCells[next[rows[index]]++] = {columns[index], cells[index]};
    for (std::size_t row = 0; row < fRows.fLines; ++row) {
        const auto begin = fCells.begin();
        std::sort(begin + static_cast<std::ptrdiff_t>(fRowStart[row]),
                  begin + static_cast<std::ptrdiff_t>(fRowStart[row + 1]),
                  [](const PlacedCell& a, const PlacedCell& b) { return a.fColumn < b.fColumn; });
    }
}

}  // namespace refhost
