#pragma once

#include <vector>

#include "refhost/plot/FramePlaces.h"
#include "refhost/plot/PlotSpace.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// A guide of the graph that is drawn, with its look settled. It borrows from the tree.
struct PlacedGuide {
    const tree::LineGuide* fGuide = nullptr;
    double fPlace = 0.0;
    MarkStyle fStyle;
};

/// The guides that have a place on a number's axis; the extents of the space widen to hold them.
std::vector<PlacedGuide> PlaceGuides(ChartContext& context, PlotSpace& space);

/// The lines over a plot, and their texts at the lines' ends.
void AddGuides(const ChartContext& context, const std::vector<PlacedGuide>& guides,
               ResolvedPlot& plot);

/// The label frames of the visualization, as marks of the plot that has its left top corner in the
/// data area's. A text in a guide's colour stands beside a sample of the line.
void AddLabelFrames(const ChartContext& context, const std::vector<PlacedGuide>& guides,
                    const FrameBox& picture, const FrameBox& area, ResolvedPlot& plot);

}  // namespace refhost
