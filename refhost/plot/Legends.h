#pragma once

#include <vector>

#include "refhost/plot/PlotSpace.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// The legends that the visualization's extension names.
std::vector<ResolvedLegend> MakeLegends(ChartContext& context);

/// A line between nodes, by the category of its colour: the first is wide and solid, the others
/// are thin and dashed.
MarkStyle EdgeStyle(const tree::Color* color, std::size_t category);

}  // namespace refhost
