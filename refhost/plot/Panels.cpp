#include "refhost/plot/Panels.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace refhost {
namespace {

constexpr std::size_t kMostOfGrid = 16;  // plots of a grid, in each direction
constexpr std::size_t kMostOfRow = 48;   // plots in all where one direction has them
constexpr int kWrapAt = 6;

struct FacetValues {
    const tree::Facet* fFacet = nullptr;
    const DataVariable* fVariable = nullptr;
    CategoryList fCategories;
    std::vector<PanelHeader> fHeaders;

    /// Of the grid along its direction: at least one.
    std::size_t Places() const { return std::max<std::size_t>(1, fCategories.Count()); }
};

PanelHeader HeaderOf(const ChartContext& context, const FacetValues& facet,
                     const CategoryLabel& category)
{
    PanelHeader header;
    const std::size_t feed = std::min(category.fLabel.find('\n'), category.fLabel.size());
    header.fName = category.fLabel.substr(0, feed);
    if (feed < category.fLabel.size()) header.fMore = category.fLabel.substr(feed + 1);
    const DataVariable* more = context.fData.Find(facet.fFacet->fHeader);
    if (!more) return header;
    std::string room;
    for (std::size_t row = 0; row < facet.fVariable->Rows(); ++row) {
        if (facet.fVariable->Key(row, room) != category.fKey || more->IsAbsent(row)) continue;
        const std::string text = more->Text(row);
        if (text == category.fLabel) break;
        header.fMore += (header.fMore.empty() ? "" : "\n") + text;
        break;
    }
    return header;
}

FacetValues ReadFacet(ChartContext& context, tree::Facet::Direction direction, std::size_t most)
{
    FacetValues values;
    for (const tree::Facet& facet : context.fGraph.fFacets) {
        if (facet.fDirection != direction || values.fVariable) continue;
        values.fVariable = context.fData.Find(facet.fVariable);
        if (values.fVariable) values.fFacet = &facet;
    }
    if (!values.fVariable) return values;
    values.fCategories = CategoryList(*values.fVariable, context.fTree.fOrders, most);
    for (const CategoryLabel& category : values.fCategories.All()) {
        values.fHeaders.push_back(HeaderOf(context, values, category));
    }
    NoteCut(context.fNotes, context.fWords.fCutGroups, values.fCategories.Count(),
            values.fCategories.Cut());
    return values;
}

std::string NameOf(const FacetValues& facet)
{
    if (facet.fFacet->fLabel) {
        if (std::string shown = facet.fFacet->fLabel->Shown(); !shown.empty()) return shown;
    }
    return facet.fVariable->Title();
}

/// The place of a row's value; the one place there is where the direction has no facet.
std::optional<std::size_t> PlaceOf(const FacetValues& facet, std::size_t row)
{
    if (!facet.fVariable) return 0;
    std::string room;
    return facet.fCategories.Find(facet.fVariable->Key(row, room));
}

/// Whether a row goes where the row before it goes.
bool StaysAt(const FacetValues& facet, std::size_t row)
{
    return row > 0 && (!facet.fVariable || facet.fVariable->Repeats(row));
}

/// Rows of the longest source that an element reads.
std::size_t RowCount(const ChartContext& context)
{
    std::size_t rows = 0;
    const auto take = [&rows, &context](const std::string& id) {
        if (const DataVariable* variable = context.fData.Find(id)) {
            rows = std::max(rows, variable->Rows());
        }
    };
    for (const tree::Element& element : context.fGraph.fElements) {
        if (element.fX) take(element.fX->fVariable);
        if (element.fY) take(element.fY->fVariable);
        take(element.fVariable);
    }
    return rows;
}

/// Row by row, with their places and names.
std::vector<Panel> EmptyPanels(const FacetValues& rows, const FacetValues& columns)
{
    std::vector<Panel> panels(rows.Places() * columns.Places());
    for (std::size_t place = 0; place < panels.size(); ++place) {
        const std::size_t row = place / columns.Places(), column = place % columns.Places();
        panels[place].fRow = static_cast<int>(row);
        panels[place].fColumn = static_cast<int>(column);
        std::vector<std::string>& name = panels[place].fName;
        if (row < rows.fCategories.Count()) name.push_back(rows.fCategories.All()[row].fLabel);
        if (column < columns.fCategories.Count()) {
            name.push_back(columns.fCategories.All()[column].fLabel);
        }
    }
    return panels;
}

/// Every row of the data goes to the panel of its facets' values; without a place, to none.
void DealRows(std::size_t count, const FacetValues& rows, const FacetValues& columns,
              std::vector<Panel>& panels)
{
    const std::size_t width = columns.Places();
    std::optional<std::size_t> inRow, inColumn;
    for (std::size_t row = 0; row < count; ++row) {
        if (!StaysAt(rows, row)) inRow = PlaceOf(rows, row);
        if (!StaysAt(columns, row)) inColumn = PlaceOf(columns, row);
        if (!inRow || !inColumn) continue;
        panels[*inRow * width + *inColumn].fRows.push_back(row);
    }
}

/// One row of plots goes on below, in rows of about the same length.
void Wrap(PanelGrid& grid)
{
    grid.fWraps = true;
    grid.fRows = (grid.fColumns + kWrapAt - 1) / kWrapAt;
    grid.fColumns = (grid.fColumns + grid.fRows - 1) / grid.fRows;
    for (std::size_t place = 0; place < grid.fPanels.size(); ++place) {
        grid.fPanels[place].fRow = static_cast<int>(place) / grid.fColumns;
        grid.fPanels[place].fColumn = static_cast<int>(place) % grid.fColumns;
    }
}

}  // namespace

std::optional<std::size_t> PanelGrid::HeaderOf(const Panel& panel) const
{
    if (!fWraps && panel.fRow > 0) return std::nullopt;
    const auto place =
        static_cast<std::size_t>(fWraps ? panel.fRow * fColumns + panel.fColumn : panel.fColumn);
    return place < fColumnHeaders.size() ? std::optional(place) : std::nullopt;
}

std::optional<std::size_t> PanelGrid::SideHeaderOf(const Panel& panel) const
{
    const auto place = static_cast<std::size_t>(panel.fRow);
    const bool isFirst = panel.fColumn == 0;
    return isFirst && place < fRowHeaders.size() ? std::optional(place) : std::nullopt;
}

PanelGrid MakePanels(ChartContext& context)
{
    const bool isGrid = context.fGraph.fFacets.size() > 1;
    const std::size_t most = isGrid ? kMostOfGrid : kMostOfRow;
    FacetValues rows = ReadFacet(context, tree::Facet::Direction::Rows, most);
    FacetValues columns = ReadFacet(context, tree::Facet::Direction::Columns, most);

    PanelGrid grid;
    grid.fRowFacet = rows.fFacet;
    grid.fColumnFacet = columns.fFacet;
    grid.fRows = static_cast<int>(rows.Places());
    grid.fColumns = static_cast<int>(columns.Places());
    grid.fAlternates = context.fGraph.fFacetLayout && context.fGraph.fFacetLayout->fAlternating;
    grid.fPanels = EmptyPanels(rows, columns);
    DealRows(RowCount(context), rows, columns, grid.fPanels);
    for (const FacetValues* facet : {&rows, &columns}) {
        if (facet->fFacet) grid.fNames.push_back(NameOf(*facet));
    }
    grid.fRowHeaders = std::move(rows.fHeaders);
    grid.fColumnHeaders = std::move(columns.fHeaders);
    if (grid.fRows == 1 && grid.fColumns > kWrapAt) Wrap(grid);
    return grid;
}

}  // namespace refhost
