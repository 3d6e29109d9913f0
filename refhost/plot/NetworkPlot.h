#pragma once

#include <optional>

#include "refhost/plot/PlotSpace.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// The node element of the graph; null where it draws no network.
const tree::Element* FindNodes(const tree::Graph& graph);

/// The plot of a network in a picture of about that size. Nothing without a node.
std::optional<ResolvedPlot> MakeNetworkPlot(ChartContext& context, double width, double height);

}  // namespace refhost
