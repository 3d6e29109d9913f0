#pragma once

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

class JsonStream;

/// The marks of a plot as entries of "layer", in drawing order.
void WriteMarks(JsonStream& json, const ResolvedPlot& plot);

/// A text that stands turned beside the plot, its foot at the place `right` pixels from its left.
void WriteSideHeader(JsonStream& json, const ResolvedPlot& plot, double right);

}  // namespace refhost
