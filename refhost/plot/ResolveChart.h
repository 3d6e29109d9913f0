#pragma once

#include <memory>

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

struct ChartNode;
struct PlotWords;

/// Works out a chart from its visualization, its data and its settings. Null where the node has no
/// visualization, and where its data leave nothing to draw.
std::unique_ptr<ResolvedChart> ResolveChart(const ChartNode& node, const PlotWords& words);

}  // namespace refhost
