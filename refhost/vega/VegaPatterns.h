#pragma once

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// The lines or dots that fill a layer of rects with its pattern, as a layer to be drawn over it;
/// without marks where the pattern is solid. Vega has no pattern fills of its own.
MarkLayer PatternMarks(const MarkLayer& rects, const ResolvedPlot& plot);

/// A path in a square from -1 to 1 that shows the pattern beside a legend's label.
const char* PatternSymbol(FillPattern pattern);

}  // namespace refhost
