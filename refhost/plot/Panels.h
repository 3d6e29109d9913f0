#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "refhost/plot/Marks.h"
#include "refhost/plot/PlotSpace.h"

namespace refhost {

/// The name of a facet's value, and what another variable tells of it.
struct PanelHeader {
    std::string fName;
    std::string fMore;
};

/// The plots of the chart and how they stand to each other.
struct PanelGrid {
    std::vector<Panel> fPanels;  ///< row by row, every place of the grid; at least one
    int fRows = 1;
    int fColumns = 1;
    const tree::Facet* fRowFacet = nullptr;  // null without facets of that direction
    const tree::Facet* fColumnFacet = nullptr;
    std::vector<PanelHeader> fRowHeaders;
    std::vector<PanelHeader> fColumnHeaders;
    std::vector<std::string> fNames;  ///< of the facets' variables, for the data's table
    bool fWraps = false;              ///< one row of plots that goes on below
    bool fAlternates = false;

    /// The place of the header above a plot, and beside it; nothing where it has none.
    std::optional<std::size_t> HeaderOf(const Panel& panel) const;
    std::optional<std::size_t> SideHeaderOf(const Panel& panel) const;
};

/// One panel for each value, or pair of values, of the facets' variables; one of all rows without.
PanelGrid MakePanels(ChartContext& context);

}  // namespace refhost
