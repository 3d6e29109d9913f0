#pragma once

#include <string>
#include <vector>

#include "refhost/plot/Marks.h"
#include "refhost/plot/PlotSpace.h"

namespace refhost {

/// The plots of the chart and how they stand to each other.
struct PanelGrid {
    std::vector<Panel> fPanels;  ///< row by row, every place of the grid; at least one
    int fRows = 1;
    int fColumns = 1;
    const tree::Facet* fRowFacet = nullptr;  // null without facets of that direction
    const tree::Facet* fColumnFacet = nullptr;
    std::vector<std::vector<std::string>> fRowHeaders;  ///< the lines of each
    std::vector<std::vector<std::string>> fColumnHeaders;
    std::vector<std::string> fNames;  ///< of the facets' variables, for the data's table
    bool fWraps = false;              ///< one row of plots that goes on below
    bool fAlternates = false;

    /// Lines of the header above a plot; null where it has none.
    const std::vector<std::string>* HeaderOf(const Panel& panel) const;
    const std::vector<std::string>* SideHeaderOf(const Panel& panel) const;
};

/// One panel for each value, or pair of values, of the facets' variables; one of all rows without.
PanelGrid MakePanels(ChartContext& context);

}  // namespace refhost
