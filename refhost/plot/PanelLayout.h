#pragma once

#include <string>
#include <vector>

#include "refhost/plot/FramePlaces.h"
#include "refhost/plot/Panels.h"
#include "refhost/plot/PlotScales.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// What all plots of panels are made from. It borrows.
struct PanelSet {
    const ChartContext& fContext;
    const PanelGrid& fGrid;
    const PlotSpace& fSpace;
};

/// Sizes, scales and axes of all plots, worked out together: labels decide how much room is left
/// for the data area, and its size how many labels there are.
struct PanelLayout {
    FrameBox fPicture;  ///< from 0, 0
    FrameBox fArea;     ///< of all plots together
    double fPlotWidth = 0.0;
    double fPlotHeight = 0.0;
    double fRowSpacing = 0.0;
    double fColumnSpacing = 0.0;
    ScaledDirection fX;
    ScaledDirection fY;
    std::vector<PlotHeader> fHeaders;      ///< of the grid's column headers, in lines
    std::vector<PlotHeader> fSideHeaders;  ///< the same of its row headers
    bool fSlanted = false;
    double fLeftExtent = 0.0;    ///< of the labels of the left axis
    double fBottomExtent = 0.0;  ///< of the labels of the bottom axis
};

PanelLayout LayOutPanels(const PanelSet& set);

/// The scales, axes and headers of a panel's plot; its marks are not in it yet.
ResolvedPlot MakePlot(const PanelSet& set, const PanelLayout& layout, const Panel& panel);

}  // namespace refhost
