#pragma once

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

class JsonStream;

/// The marks of a plot as entries of "layer", in drawing order.
void WriteMarks(JsonStream& json, const ResolvedPlot& plot);

/// The lines above the plot, over its middle.
void WriteHeader(JsonStream& json, const ResolvedPlot& plot);

/// The side header, so many pixels away from the plot.
void WriteSideHeader(JsonStream& json, const ResolvedPlot& plot, double strip);

}  // namespace refhost
