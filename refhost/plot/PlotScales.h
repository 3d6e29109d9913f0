#pragma once

#include <vector>

#include "refhost/plot/PlotSpace.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

struct ScaledDirection {
    ResolvedScale fScale;
    std::vector<AxisTick> fTicks;
};

/// The range that a direction covers and its ticks, as many as so many pixels bear.
ScaledDirection ScaleDirection(const PlotDirection& direction, double pixels, bool isUpright);

/// Pixels from the left or, `downwards`, from the top of a plot of that length.
double PixelAt(const ResolvedScale& scale, double length, bool downwards, double place);

/// The other way.
double PlaceAt(const ResolvedScale& scale, double length, bool downwards, double pixel);

}  // namespace refhost
