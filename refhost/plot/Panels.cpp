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

    std::size_t Count() const { return fVariable ? fCategories.Count() : 1; }
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
    const std::size_t columnCount = std::max<std::size_t>(1, columns.Count());
    const std::size_t rowCount = std::max<std::size_t>(1, rows.Count());

    PanelGrid grid;
    grid.fRowFacet = rows.fFacet;
    grid.fColumnFacet = columns.fFacet;
    grid.fPanels.resize(rowCount * columnCount);
    for (std::size_t place = 0; place < grid.fPanels.size(); ++place) {
        Panel& panel = grid.fPanels[place];
        const std::size_t row = place / columnCount, column = place % columnCount;
        panel.fRow = static_cast<int>(row);
        panel.fColumn = static_cast<int>(column);
        if (row < rows.fCategories.Count()) {
            panel.fName.push_back(rows.fCategories.All()[row].fLabel);
        }
        if (column < columns.fCategories.Count()) {
            panel.fName.push_back(columns.fCategories.All()[column].fLabel);
        }
    }
    for (std::size_t row = 0, count = RowCount(context); row < count; ++row) {
        const auto inRow = PlaceOf(rows, row);
        const auto inColumn = PlaceOf(columns, row);
        if (inRow && inColumn) grid.fPanels[*inRow * columnCount + *inColumn].fRows.push_back(row);
    }
    for (const FacetValues* facet : {&rows, &columns}) {
        if (facet->fFacet) grid.fNames.push_back(NameOf(*facet));
    }
    grid.fRowHeaders = std::move(rows.fHeaders);
    grid.fColumnHeaders = std::move(columns.fHeaders);
    grid.fRows = static_cast<int>(rowCount);
    grid.fColumns = static_cast<int>(columnCount);
    grid.fAlternates = context.fGraph.fFacetLayout && context.fGraph.fFacetLayout->fAlternating;
    if (rowCount == 1 && grid.fColumns > kWrapAt) {
        grid.fWraps = true;
        grid.fRows = (grid.fColumns + kWrapAt - 1) / kWrapAt;
        grid.fColumns = (grid.fColumns + grid.fRows - 1) / grid.fRows;
        for (std::size_t place = 0; place < grid.fPanels.size(); ++place) {
            grid.fPanels[place].fRow = static_cast<int>(place) / grid.fColumns;
            grid.fPanels[place].fColumn = static_cast<int>(place) % grid.fColumns;
        }
    }
    return grid;
}

}  // namespace refhost
