#pragma once

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

class JsonStream;

/// A colour as a value: as it is, or as an expression that names one of the theme's.
void WriteColor(JsonStream& json, const PaintedColor& color);

}  // namespace refhost
